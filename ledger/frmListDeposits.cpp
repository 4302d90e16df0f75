#include "ledger/frmListDeposits.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "ui_frmListDeposits.h"

namespace ledger {

namespace {

constexpr int widths[] = {100, 3500, 1100, 1500, 2500, 800, 2000, 1200, 900, 800, 900, 1000};

/// The headers are the result's, and so are its columns.
constexpr controls::ListVariant variant = {.widths = widths,
                                           .one = "deposit",
                                           .many = "deposits",
                                           .emptyText = "No patient in the house holds a deposit."};

} // namespace

frmListDeposits::frmListDeposits(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmListDeposits>()) {
    m_ui->setupUi(this);
    setUpList({.grid = m_ui->grdTable, .close = m_ui->btnClose, .hits = m_ui->lblHits}, variant);
}

frmListDeposits::~frmListDeposits() = default;

/// The grid keeps the layout that it was drawn with until there is a deposit to show.
void frmListDeposits::Form_Load() {
    m_ui->bandHeader->setSubtitle(session::gHospitalName);
    m_ui->grdTable->setFocus();
    const Hourglass busy;
    ado::Recordset deposits = session::Read(ado::sql("spNuclear_GetPatientDeposit"));
    if (deposits.RecordCount() == 0) {
        deposits.Close();
        setHits(0);
        return;
    }
    FormatGrid();
    bindRows(deposits);
    showAmounts();
}

void frmListDeposits::FormatGrid() {
    layOutGrid();
}

/// Amounts as they are read, in whichever columns the server tells them.
void frmListDeposits::showAmounts() {
    controls::FlexGrid& grid = *m_ui->grdTable;
    for (int column = 0; column < grid.Cols(); ++column) {
        const QString header = grid.TextMatrix(0, column);
        if (header != u"Amount" && header != u"Balance")
            continue;
        grid.setColAlignment(column, Qt::AlignRight);
        for (int row = 1; row < grid.Rows(); ++row) {
            const QString text = grid.TextMatrix(row, column);
            if (base::IsNumeric(text))
                grid.setTextMatrix(row, column, base::Format(text, QStringLiteral("0.00")));
        }
    }
}

} // namespace ledger
