#include "tests/app/LookCheck.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/list/ListView.h"
#include "platform/controls/look/Look.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>

#include <map>

namespace tests {

namespace {

/// Help lines ("<b>Enter</b> Search") whose keys run into each other.
QStringList unpartedHelp(const QWidget& window) {
    QStringList found;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        const QString text = label->text();
        if (label->property("kind") == QVariant(QStringLiteral("help")) &&
            text.count(QStringLiteral("&nbsp;·&nbsp; <b>")) + 1 < text.count(QStringLiteral("<b>")))
            found << label->objectName() + QStringLiteral(": ") + text;
    }
    return found;
}

/// Labels that do not show the colour of their kind.
QStringList labelsInAnotherColour(const QWidget& window) {
    using namespace controls;
    static const std::map<QString, QColor> colours{{"help", look::muted},         {"warn", look::warn},
                                                   {"danger", look::danger},      {"ok", look::ok},
                                                   {"heading", look::accentDark}, {"title", look::accentDark},
                                                   {"total", look::accentDark}};
    QStringList names;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        const auto meant = colours.find(label->property("kind").toString());
        if (meant != colours.end() && label->isEnabled() && label->isVisible() &&
            label->palette().color(QPalette::WindowText) != meant->second)
            names << label->objectName();
    }
    return names;
}

/// Lists and grids that stand empty and say nothing about it.
QStringList silentLists(const QWidget& window) {
    QStringList names;
    for (const auto* grid : window.findChildren<controls::FlexGrid*>()) {
        const int rows = grid->Rows() - grid->FixedRows();
        QString first;
        for (int column = 0; rows == 1 && column < grid->Cols(); ++column)
            first += grid->TextMatrix(grid->FixedRows(), column);
        if (grid->isVisible() && rows <= 1 && first.isEmpty() && !grid->showsEmptyText())
            names << grid->objectName();
    }
    if (window.objectName() == u"frmNuclearChargesBuildFile_items")
        names.removeOne(QStringLiteral("Grid1")); // nothing can be done on that screen
    for (const auto* list : window.findChildren<controls::ListView*>()) {
        if (list->isVisible() && list->Count() == 0 && !list->showsEmptyText())
            names << list->objectName();
    }
    return names;
}

/// Amounts and quantities that stand at the left of their column or field. The two stores' grids are told so.
QStringList numbersAtTheLeft(const QWidget& window) {
    static const QRegularExpression number(QStringLiteral("^(Amount|Amt|Price|Qty|Quantity|Balance|Rate .)$"),
                                           QRegularExpression::CaseInsensitiveOption);
    QStringList captions;
    for (const auto* view : window.findChildren<QAbstractItemView*>()) {
        const QAbstractItemModel* model = view->model();
        const bool isStores = window.objectName() == u"frmPHEntry" || window.objectName() == u"frmCSEntry";
        for (int section = 0; model && !isStores && section < model->columnCount(); ++section) {
            const QString caption = model->headerData(section, Qt::Horizontal).toString().trimmed();
            const auto place =
                Qt::Alignment(model->headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).toInt());
            if (number.match(caption).hasMatch() && !(place & Qt::AlignRight))
                captions << view->objectName() + QStringLiteral(": ") + caption;
        }
    }
    static const QRegularExpression amount(QStringLiteral("(Amount|Gross|Rate[A-E])$"));
    for (const auto* field : window.findChildren<QLineEdit*>(amount)) {
        if (!(field->alignment() & Qt::AlignRight))
            captions << field->objectName();
    }
    return captions;
}

/// Grids that show less than three rows, or on the smallest desktop not all of their columns. The in-tray's
/// thirteen captions are wider than that desktop.
QStringList gridsWithoutRoom(const QWidget& window) {
    QStringList names;
    const bool mayScroll = qApp->devicePixelRatio() != 1 || window.objectName() == u"frmNurseCommunication";
    for (const auto* grid : window.findChildren<controls::FlexGrid*>()) {
        if (!grid->isVisible())
            continue;
        if (grid->viewport()->height() < 3 * grid->verticalHeader()->defaultSectionSize())
            names << grid->objectName() + QStringLiteral(": less than three rows");
        if (!mayScroll && grid->horizontalScrollBar()->maximum() > 0)
            names << grid->objectName() + QStringLiteral(": scrolled sideways");
    }
    return names;
}

/// Names and numbers as the hospital's usual long ones are; a name is about thirty letters in all.
const std::map<QString, QString> usualTexts{{"txtLname", "MONTEFALCO-UY"},
                                            {"txtSname", "MONTEFALCO-UY"},
                                            {"txtLastName", "MONTEFALCO-UY"},
                                            {"txtFname", "DIVINA GRACIA"},
                                            {"txtFirstName", "DIVINA GRACIA"},
                                            {"txtMname", "MAGSAYSAY"},
                                            {"txtMiddleName", "MAGSAYSAY"},
                                            {"txtPName", "MONTEFALCO-UY, DIVINA GRACIA M."},
                                            {"txtDoctor", "MONTEFALCO-UY, DIVINA GRACIA"},
                                            {"txtAttendingDr", "MONTEFALCO-UY, DIVINA GRACIA"},
                                            {"txtRequestingDr", "MONTEFALCO-UY, DIVINA GRACIA"},
                                            {"txtHospNum", "104245"},
                                            {"txtIdNum", "O26002095"},
                                            {"txtDoctorID", "230"},
                                            {"txtAge", "102"},
                                            {"txtBDate", "09/30/1960"},
                                            {"txtWeight", "104"},
                                            {"txtHeight", "165"},
                                            {"txtRoom", "ICU4"},
                                            {"txtOrNo", "OR31023"}};

/// Fields that do not show such a text whole.
QStringList fieldsTooNarrow(const QWidget& window) {
    QStringList names;
    for (auto* field : window.findChildren<QLineEdit*>()) {
        const auto usual = usualTexts.find(field->objectName());
        if (usual == usualTexts.end() || !field->isVisible())
            continue;
        constexpr int besideTheText = 4; // the toolkit's own margin of two pixels on either side
        const int room = field->contentsRect().width() - field->textMargins().left() -
                         field->textMargins().right() - besideTheText;
        if (field->fontMetrics().horizontalAdvance(usual->second) > room)
            names << field->objectName();
    }
    return names;
}

/// Whether a part of the page between the band and the commands has to be scrolled to. At 200 % the pages of
/// results, and a late charge over the list of the earlier ones, are higher than the desktop; none is wider.
bool isScrolledWithoutNeed(const QWidget& window) {
    static const QStringList high{"frmResultEntry", "frmResultEntryMPI", "frmResultEntryGFR",
                                  "frmResultRadioImmuno", "frmReceivableEntry"};
    const auto* area = window.findChild<QScrollArea*>(QStringLiteral("scrolledContents"));
    const bool mayBeHigh = qApp->devicePixelRatio() > 1 && high.contains(window.objectName());
    return area && (area->horizontalScrollBar()->maximum() > 0 ||
                    (area->verticalScrollBar()->maximum() > 0 && !mayBeHigh));
}

/// Whether a page of results begins below what is seen of its screen when it comes up.
bool beginsOutOfSight(const QWidget& window) {
    const auto* technical = window.findChild<QWidget*>(QStringLiteral("grpTechnical"));
    return technical && technical->visibleRegion().boundingRect().height() < controls::look::scaled(80);
}

/// Fields of a result's two frames that stand beside each other and on different lines.
QStringList fieldsOutOfLine(const QWidget& window) {
    constexpr std::pair<const char*, const char*> lines[] = {
        {"txtPName", "txtHospNum"}, {"txtAddress", "txtAccountName"}, {"txtWeight", "txtRoomID"}};
    QStringList names;
    const auto* hospital = window.findChild<QWidget*>(QStringLiteral("grpHosp"));
    for (const auto& [left, right] : lines) {
        const auto* one = window.findChild<QWidget*>(QLatin1StringView(left));
        const auto* other = window.findChild<QWidget*>(QLatin1StringView(right));
        const bool areBeside = hospital && hospital->x() > 0;
        if (areBeside && one->mapTo(&window, QPoint()).y() != other->mapTo(&window, QPoint()).y())
            names << QString::fromLatin1(left) + QStringLiteral(", ") + QString::fromLatin1(right);
    }
    return names;
}

QStringList each(const QStringList& names, const char* fault) {
    QStringList lines;
    for (const QString& name : names)
        lines << name + QLatin1StringView(fault);
    return lines;
}

} // namespace

QStringList whatLooksWrong(const QWidget& window) {
    return each(unpartedHelp(window), ": keys run into each other") +
           each(labelsInAnotherColour(window), ": not in the colour of its kind") +
           each(numbersAtTheLeft(window), ": at the left") + each(silentLists(window), ": empty and silent");
}

QStringList whatHasTooLittleRoom(const QWidget& window) {
    QStringList lines = gridsWithoutRoom(window) + each(fieldsTooNarrow(window), ": too narrow") +
                        each(fieldsOutOfLine(window), ": on different lines");
    if (isScrolledWithoutNeed(window))
        lines << QStringLiteral("page: scrolled");
    if (beginsOutOfSight(window))
        lines << QStringLiteral("grpTechnical: out of sight");
    return lines;
}

} // namespace tests
