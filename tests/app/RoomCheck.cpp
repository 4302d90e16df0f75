#include "tests/app/RoomCheck.h"

#include "platform/controls/fields/ShownText.h"
#include "platform/controls/look/FlatButton.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QSizeGrip>
#include <QStyleOptionButton>
#include <QTabWidget>
#include <QTextDocument>
#include <QToolButton>

namespace tests {

namespace {

/// Letters lean out of their place by less.
constexpr int slack = 1;

QString plain(QString caption) {
    return caption.remove(u'&');
}

/// Its name, or what is written on it.
QString nameOf(const QWidget& widget) {
    if (!widget.objectName().isEmpty() && !widget.objectName().startsWith(QLatin1String("qt_")))
        return widget.objectName();
    const QString kind = QString::fromLatin1(widget.metaObject()->className());
    QString text;
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        text = label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        text = plain(button->text());
    const QString parent = widget.parentWidget() ? widget.parentWidget()->objectName() : QString();
    return text.isEmpty() ? kind + QStringLiteral(" in ") + parent : u'"' + text + u'"';
}

/// A part of a control that the toolkit lays out by itself.
bool isInnerPart(const QWidget& widget) {
    if (qobject_cast<const QSizeGrip*>(&widget) || widget.objectName().startsWith(QLatin1String("qt_")))
        return true;
    for (const QWidget* above = widget.parentWidget(); above; above = above->parentWidget()) {
        if (qobject_cast<const QComboBox*>(above) || qobject_cast<const QAbstractSpinBox*>(above) ||
            qobject_cast<const QLineEdit*>(above) || qobject_cast<const QTabBar*>(above) ||
            qobject_cast<const QMenuBar*>(above) || qobject_cast<const QAbstractItemView*>(above))
            return true;
        if (above->isWindow())
            break;
    }
    return false;
}

/// Lies on something that can be scrolled to it; also the scrolling parts themselves.
bool isScrolled(const QWidget& widget) {
    return qobject_cast<const QAbstractScrollArea*>(widget.parentWidget()) ||
           (widget.parentWidget() &&
            qobject_cast<const QAbstractScrollArea*>(widget.parentWidget()->parentWidget()));
}

bool isTooBig(const QSize& text, const QSize& room) {
    return text.width() > room.width() + slack || text.height() > room.height() + slack;
}

QSize sizeOf(const QWidget& widget, const QString& text) {
    return widget.fontMetrics().size(Qt::TextShowMnemonic, text);
}

bool isCut(const QLabel& label) {
    if (label.text().isEmpty())
        return false;
    if (label.wordWrap()) {
        const int needed = label.heightForWidth(label.width());
        return needed > label.height() + slack;
    }
    if (label.textFormat() == Qt::RichText || Qt::mightBeRichText(label.text())) {
        QTextDocument document;
        document.setDocumentMargin(0);
        document.setDefaultFont(label.font());
        document.setHtml(label.text());
        return isTooBig(document.size().toSize(), label.contentsRect().size());
    }
    const int margin = 2 * label.margin() + qMax(0, label.indent());
    return isTooBig(sizeOf(label, label.text()), label.contentsRect().size() - QSize(margin, 0));
}

bool isCut(const QAbstractButton& button) {
    if (button.text().isEmpty())
        return false;
    if (const auto* flat = qobject_cast<const controls::FlatButton*>(&button)) {
        // the second line of a card ends in an ellipsis, its caption does not
        controls::FlatButton caption;
        caption.setShape(flat->shape());
        caption.setFont(flat->font());
        caption.setText(flat->text());
        return caption.sizeHint().width() > flat->width() + slack;
    }
    if (const auto* tool = qobject_cast<const QToolButton*>(&button)) {
        if (tool->toolButtonStyle() == Qt::ToolButtonIconOnly && !tool->icon().isNull())
            return false;
    }
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    option.icon = button.icon();
    option.iconSize = button.iconSize();
    QStyle::SubElement part = QStyle::SE_PushButtonContents;
    if (qobject_cast<const QCheckBox*>(&button))
        part = QStyle::SE_CheckBoxContents;
    else if (qobject_cast<const QRadioButton*>(&button))
        part = QStyle::SE_RadioButtonContents;
    else if (!qobject_cast<const QPushButton*>(&button))
        return isTooBig(sizeOf(button, button.text()), button.size());
    QSize room = button.style()->subElementRect(part, &option, &button).size();
    if (part == QStyle::SE_PushButtonContents && !button.icon().isNull())
        room.rwidth() -= button.iconSize().width() + 4;
    return isTooBig(sizeOf(button, button.text()), room);
}

/// What is only read cannot be scrolled by its reader's typing.
bool isCut(const QLineEdit& field) {
    if (!field.isReadOnly() && field.isEnabled())
        return false;
    if (const auto* shown = qobject_cast<const controls::ShownText*>(&field); shown && shown->isShortened())
        return field.width() <
               sizeOf(field, QStringLiteral("MMMM")).width(); // the rest stands in the tool tip
    constexpr int besideTheText = 4; // the toolkit's own margin of two pixels on either side
    const int room = field.contentsRect().width() - field.textMargins().left() - field.textMargins().right();
    return field.fontMetrics().horizontalAdvance(field.displayText()) > room - besideTheText + slack ||
           field.fontMetrics().height() > field.contentsRect().height() + slack;
}

bool isCut(const QGroupBox& group) {
    return !group.title().isEmpty() && sizeOf(group, group.title()).width() > group.width();
}

/// The captions of columns that are cut, if the header sets no ellipsis.
QStringList cutColumns(const QHeaderView& header) {
    QStringList cut;
    if (header.orientation() != Qt::Horizontal || header.textElideMode() != Qt::ElideNone)
        return cut;
    for (int section = 0; section < header.count(); ++section) {
        const int index = header.logicalIndex(section);
        const QString text = header.model()->headerData(index, Qt::Horizontal).toString();
        if (header.isSectionHidden(index) || text.trimmed().isEmpty())
            continue;
        QFont bold(header.font());
        bold.setWeight(QFont::DemiBold);
        if (QFontMetrics(bold).horizontalAdvance(text.trimmed()) > header.sectionSize(index) + slack)
            cut << text.trimmed();
    }
    return cut;
}

QStringList cutTexts(const QWidget& widget) {
    bool cut = false;
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        cut = isCut(*label);
    else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        cut = isCut(*button);
    else if (const auto* field = qobject_cast<const QLineEdit*>(&widget))
        cut = isCut(*field);
    else if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        cut = isCut(*group);
    QStringList lines;
    if (cut)
        lines << nameOf(widget) + QStringLiteral(": cut");
    if (const auto* header = qobject_cast<const QHeaderView*>(&widget)) {
        for (const QString& column : cutColumns(*header))
            lines << nameOf(*header->parentWidget()) + QStringLiteral(": column \"%1\" cut").arg(column);
    }
    return lines;
}

/// Holds nothing and shows nothing.
bool isBare(const QWidget& widget) {
    const QWidgetList children = widget.findChildren<QWidget*>();
    return widget.metaObject() == &QWidget::staticMetaObject &&
           std::none_of(children.begin(), children.end(),
                        [](const QWidget* child) { return child->isVisible(); });
}

bool liesOutside(const QWidget& widget) {
    return !isScrolled(widget) && !isBare(widget) &&
           !widget.parentWidget()->rect().adjusted(-slack, -slack, slack, slack).contains(widget.geometry());
}

/// The editor of a cell lies on its grid.
bool isEditorOf(const QWidget& grid, const QWidget& editor) {
    return qobject_cast<const QAbstractItemView*>(&grid) && grid.geometry().contains(editor.geometry());
}

QStringList overlapsIn(const QWidget& parent) {
    QWidgetList shown;
    for (QWidget* child : parent.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && !child->isWindow() && !isInnerPart(*child) && !isScrolled(*child))
            shown << child;
    }
    QStringList lines;
    for (qsizetype i = 0; i < shown.size(); ++i) {
        for (qsizetype j = i + 1; j < shown.size(); ++j) {
            const QRect common = shown[i]->geometry() & shown[j]->geometry();
            if (common.width() > slack && common.height() > slack && !isEditorOf(*shown[i], *shown[j]) &&
                !isEditorOf(*shown[j], *shown[i]))
                lines << nameOf(*shown[i]) + QStringLiteral(": overlaps ") + nameOf(*shown[j]);
        }
    }
    return lines;
}

QStringList onThisPage(const QWidget& window) {
    QStringList lines = overlapsIn(window);
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->window() != &window)
            continue;
        if (qobject_cast<const QHeaderView*>(widget))
            lines += cutTexts(*widget);
        if (isInnerPart(*widget))
            continue;
        if (liesOutside(*widget))
            lines << nameOf(*widget) + QStringLiteral(": outside of its place");
        lines += cutTexts(*widget);
        if (!qobject_cast<const QAbstractScrollArea*>(widget))
            lines += overlapsIn(*widget);
    }
    return lines;
}

} // namespace

QSize roomForAWindow() {
    const double scale = qApp->devicePixelRatio();
    const QSize desktop = scale > 1 ? QSize(1920, 1080) / scale : QSize(1366, 768);
    return desktop - QSize(16, 48);
}

void turnAllPages(QWidget& window, const std::function<void()>& look) {
    look();
    for (QTabWidget* tabs : window.findChildren<QTabWidget*>()) {
        const int before = tabs->currentIndex();
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            if (!tabs->isVisible())
                continue; // on a page that is turned to later
            QCoreApplication::processEvents();
            look();
            for (QTabWidget* inner : tabs->widget(page)->findChildren<QTabWidget*>()) {
                for (int innerPage = 0; innerPage < inner->count(); ++innerPage) {
                    inner->setCurrentIndex(innerPage);
                    QCoreApplication::processEvents();
                    look();
                }
            }
        }
        tabs->setCurrentIndex(before);
    }
}

QStringList whatIsOutOfReach(QWidget& window) {
    QSet<QString> lines;
    const QSize room = roomForAWindow();
    turnAllPages(window, [&] {
        if (window.width() > room.width() || window.height() > room.height())
            lines << QStringLiteral("window: larger than the desktop");
        for (const QString& line : onThisPage(window))
            lines << line;
    });
    QStringList sorted(lines.begin(), lines.end());
    sorted.sort();
    return sorted;
}

} // namespace tests
