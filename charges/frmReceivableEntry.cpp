#include "charges/frmReceivableEntry.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace charges {

using ado::sql;
using controls::FlexGrid;
using controls::on;

namespace {

/// Of a grid with its captions and three rows.
constexpr int leastHeight = 124;

constexpr entry::LegendLabel legend[] = {{"Label8", "Dept. Codes :"},
                                         {"lblCaption", "MD/FN - Professional Fee / Readers Fee "},
                                         {"lblCaption_1", "NU - Nuclear Medicine"}};

constexpr entry::RequestVariant variant{.screen = "frmReceivableEntry",
                                        .caption = "Receivable",
                                        .title = "Recievable Entry",
                                        .legend = legend,
                                        .grid = entry::inPatientGrid,
                                        .posting = entry::receivablePosting,
                                        .boxTellsSlip = false,
                                        .hasNucCharges = false};

} // namespace

frmReceivableEntry::frmReceivableEntry(QWidget* parent) : RequestScreen(variant, parent) {
    addCommands();
    addPreviousCharges();
}

void frmReceivableEntry::addCommands() {
    auto* list = new QPushButton(QStringLiteral("View List Of Charges"), this);
    list->setObjectName(QStringLiteral("cmdListCharges"));
    on(list, &QPushButton::clicked, this, [this] { ShowPreviousCharges(); });
    addCommand(list);
    // Nothing is behind it; the keys pass it by.
    auto* cancel = new QPushButton(QStringLiteral("Cancel Charges"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setFocusPolicy(Qt::NoFocus);
    addCommand(cancel);
}

void frmReceivableEntry::addPreviousCharges() {
    Frame3 = new QGroupBox(QStringLiteral("List Of Previous Charges"), this);
    Frame3->setObjectName(QStringLiteral("Frame3"));
    auto* lines = new QVBoxLayout(Frame3);
    grdPrevious = new FlexGrid(Frame3);
    grdPrevious->setObjectName(QStringLiteral("grdPrevious"));
    grdPrevious->setAccessibleName(Frame3->title());
    grdPrevious->setRowSelect(true);
    grdPrevious->setEmptyText(QStringLiteral("Nothing was charged to this stay yet."));
    grdPrevious->setMinimumHeight(controls::look::scaled(leastHeight));
    grdPrevious->setMaximumHeight(controls::look::scaled(160));
    lines->addWidget(grdPrevious);
    auto* mshflexList = new FlexGrid(Frame3);
    mshflexList->setObjectName(QStringLiteral("mshflexList"));
    mshflexList->hide();
    Frame3->hide();
    addBelowLines(Frame3);
}

void frmReceivableEntry::ShowPreviousCharges() {
    ListShown = true;
    grdPrevious->setRows(2);
    grdPrevious->Clear();
    grdPrevious->setRow(1);
    grdPrevious->setFormatString(
        QStringLiteral(" | Department | Code | ChargeSlip #| Particular | Price | Quantity | Amount | "
                       "Transdate | UserName "));
    grdPrevious->setColWidths({20, 800, 950, 950, 4000, 500, 1000, 2500, 2500});
    for (const int number : {5, 6, 7}) // price, quantity, amount
        grdPrevious->setColAlignment(number, Qt::AlignRight);
    ado::Recordset charged = session::Read(
        sql("Nuclear..spGetNuclearCharges '{}'", findChild<QLineEdit*>(QStringLiteral("txtIdNum"))->text()));
    grdPrevious->setDataSource(charged);
    const bool found = charged.RecordCount() > 0;
    charged.Close();
    if (!found)
        grdPrevious->setRows(1);
    grdPrevious->setEnabled(grdPrevious->Rows() > 1);
    if (found)
        grdPrevious->setRow(1);
    findChild<FlexGrid*>(QStringLiteral("grdPackage"))->setMinimumHeight(controls::look::scaled(leastHeight));
    Frame3->show();
    growTo(height());
    if (found)
        grdPrevious->setFocus();
}

} // namespace charges
