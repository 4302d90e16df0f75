#include "platform/controls/look/HouseStyle.h"

#include "platform/controls/look/Look.h"

#include <QFileDialog>
#include <QStyleFactory>

namespace controls {

namespace {

struct Sign {
    QStyle::StandardPixmap sign;
    const char* icon;
};

constexpr Sign signs[] = {
    {QStyle::SP_ArrowBack, "previous"},
    {QStyle::SP_ArrowForward, "next"},
    {QStyle::SP_FileDialogBack, "previous"},
    {QStyle::SP_FileDialogToParent, "up"},
    {QStyle::SP_FileDialogNewFolder, "folder-add"},
    {QStyle::SP_FileDialogListView, "list"},
    {QStyle::SP_FileDialogDetailedView, "details"},
    {QStyle::SP_DirIcon, "folder"},
    {QStyle::SP_DirClosedIcon, "folder"},
    {QStyle::SP_DirOpenIcon, "folder"},
    {QStyle::SP_DirLinkIcon, "folder"},
    {QStyle::SP_DirHomeIcon, "user"},
    {QStyle::SP_FileIcon, "page"},
    {QStyle::SP_FileLinkIcon, "page"},
    {QStyle::SP_ComputerIcon, "computer"},
    {QStyle::SP_DesktopIcon, "computer"},
    {QStyle::SP_DriveHDIcon, "save"},
    {QStyle::SP_DriveFDIcon, "save"},
    {QStyle::SP_DriveCDIcon, "save"},
    {QStyle::SP_DriveNetIcon, "save"},
    {QStyle::SP_MessageBoxInformation, "info"},
    {QStyle::SP_MessageBoxWarning, "warning"},
    {QStyle::SP_MessageBoxCritical, "error"},
    {QStyle::SP_MessageBoxQuestion, "question"},
};

QIcon iconOf(QStyle::StandardPixmap sign) {
    for (const Sign& one : signs) {
        if (one.sign == sign)
            return look::icon(QString::fromLatin1(one.icon));
    }
    return {};
}

} // namespace

HouseStyle::HouseStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

/// Del on a folder there would delete it with all that is in it.
void HouseStyle::polish(QWidget* widget) {
    if (auto* dialog = qobject_cast<QFileDialog*>(widget))
        dialog->setOption(QFileDialog::ReadOnly);
    QProxyStyle::polish(widget);
}

QIcon HouseStyle::standardIcon(StandardPixmap sign, const QStyleOption* option, const QWidget* widget) const {
    const QIcon own = iconOf(sign);
    return own.isNull() ? QProxyStyle::standardIcon(sign, option, widget) : own;
}

QPixmap HouseStyle::standardPixmap(StandardPixmap sign, const QStyleOption* option,
                                   const QWidget* widget) const {
    const QIcon own = iconOf(sign);
    const int side = pixelMetric(PM_SmallIconSize, option, widget);
    return own.isNull() ? QProxyStyle::standardPixmap(sign, option, widget) : own.pixmap(side);
}

int HouseStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* answer) const {
    return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 0
                                                       : QProxyStyle::styleHint(hint, option, widget, answer);
}

} // namespace controls
