#include "lookup/frmListPatient.h"

#include "platform/base/Conversion.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "session/Screens.h"
#include "session/Session.h"
#include "session/services/Services.h"
#include "ui_frmListPatient.h"

namespace lookup {

using ado::sql;
using controls::MsgBox;

namespace {

enum SearchBy { byLastName, byAdmissionNumber, byHospitalNumber };

// The hidden leading column counts as 0.
enum GridColumn { admissionNumber = 2, billedDate = 4, nucStatus = 6 };

constexpr int widths[] = {100, 1100, 1100, 2500, 1500, 1000, 1000, 1600};

constexpr controls::ListVariant variant = {
    .format = " | Hosp.No. | Adm.No. | Patient Name | Billed Date | Charging Status | NucStatus | DcrDate ",
    .widths = widths,
    .one = "patient",
    .many = "patients",
    .most = 200};

bool isCashBasis(const QString& status) {
    return base::Trim(status) == u"Not Okey";
}

} // namespace

frmListPatient::frmListPatient(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmListPatient>()) {
    m_ui->setupUi(this);
    setUpList({.grid = m_ui->grdTable,
               .search = m_ui->txtSearch,
               .searchBy = m_ui->cmbSearch,
               .select = m_ui->cmdSelect,
               .close = m_ui->cmdClose,
               .hits = m_ui->lblHits},
              variant);
}

frmListPatient::~frmListPatient() = default;

void frmListPatient::Form_Load() {
    ListScreen::Form_Load();
    m_ui->cmbSearch->clear();
    m_ui->cmbSearch->addItems(
        {QStringLiteral("Last Name"), QStringLiteral("Admission No."), QStringLiteral("Hospital No.")});
    m_ui->cmbSearch->setCurrentIndex(byLastName);
}

void frmListPatient::search() {
    const Hourglass busy;
    ado::Recordset patients = session::Read(patientQuery());
    const int found = bindRows(patients);
    m_ui->grdTable->setEmptyText(QStringLiteral("No admitted patient answers to this %1.")
                                     .arg(m_ui->cmbSearch->currentText().toLower()));
    for (int row = 1; row <= found; ++row)
        markRow(row);
}

void frmListPatient::markRow(int row) {
    controls::FlexGrid& grid = *m_ui->grdTable;
    const auto mark = [&](int column, const QColor& color, const QString& icon) {
        grid.setCellForeColor(row, column, color);
        grid.setCellBold(row, column, true);
        grid.setCellIcon(row, column, controls::look::icon(icon, color));
    };
    if (!grid.TextMatrix(row, billedDate).isEmpty())
        mark(billedDate, controls::look::danger, QStringLiteral("cancel"));
    if (isCashBasis(grid.TextMatrix(row, nucStatus)))
        mark(nucStatus, controls::look::warn, QStringLiteral("warning"));
}

void frmListPatient::rowTaken() {
    const int row = m_ui->grdTable->Row();
    if (mayBeCharged(row))
        openRequest(row);
}

bool frmListPatient::mayBeCharged(int row) const {
    if (!m_ui->grdTable->TextMatrix(row, billedDate).isEmpty()) {
        MsgBox(
            QStringLiteral("Patient`s account has already been closed.\n"
                           "If you have charges to make, pls. notify the billing for further instructions."),
            controls::vbOKOnly, QStringLiteral("Message"));
        return false;
    }
    if (isCashBasis(m_ui->grdTable->TextMatrix(row, nucStatus))) {
        MsgBox(QStringLiteral("Patient`s account has been placed under cash basis.\n"
                              "Pls. refer to Credit and Collection Dept. for further instructions."),
               controls::vbOKOnly, QStringLiteral("Message"));
        return false;
    }
    return true;
}

void frmListPatient::openRequest(int row) {
    const QString idNumber = base::Trim(m_ui->grdTable->TextMatrix(row, admissionNumber));
    if (!session::gAdmission->OpenAdmission(idNumber)) {
        MsgBox(QStringLiteral("No Existing Patient Found."), controls::vbOKOnly, QStringLiteral("Message"));
        return;
    }
    ResultCode = idNumber;
    Valid = true;
    PatientRecord = currentCells();

    session::RequestEntry entry;
    entry.PatIdNum = idNumber;
    entry.CashBasis = false;
    entry.PatientType = QStringLiteral("I");
    entry.NurseCommnunication = false;
    session::screens().openRequest(entry);
    if (!isUnloaded())
        backToSearch();
}

void frmListPatient::leave() {
    Valid = false;
    Unload();
}

ado::Statement frmListPatient::patientQuery() const {
    const QString text = m_ui->txtSearch->text();
    switch (m_ui->cmbSearch->currentIndex()) {
    case byAdmissionNumber:
        return sql("sp_Nuclear_getpatientbyidnum 'I','{}'", text);
    case byHospitalNumber:
        return sql("sp_Nuclear_getpatientbyhospnum 'I','{}'", text);
    default:
        break;
    }
    const qsizetype comma = text.indexOf(u',');
    if (comma < 0)
        return sql("sp_Nuclear_getpatientbylastname 'I','{}'", text);
    return sql("sp_Nuclear_getpatientbyfirstname 'I','{}','{}'", text.left(comma), text.mid(comma + 1));
}

} // namespace lookup
