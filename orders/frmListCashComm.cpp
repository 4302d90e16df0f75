#include "orders/frmListCashComm.h"

#include "lookup/clsCashPatientSearch.h"
#include "lookup/clsRegularPatientSearch.h"
#include "orders/frmOutRequest.h"
#include "orders/frmRequest.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "session/services/Services.h"
#include "ui_frmListCashComm.h"

namespace orders {

using ado::sql;
using controls::SharedScreen;

namespace {

enum SearchBy { cashPatients, regularPatients, inPatients };

// The hidden leading column counts as 0.
enum GridColumn { orNumber = 1, patientName = 2, amount = 5 };

constexpr int widths[] = {100, 1100, 2800, 2600, 1700, 1000, 900, 900, 2400};

constexpr controls::ListVariant variant = {
    .format =
        " | OrNumber | PatientName | Exam | TransDate | Amount | UserID | DoctorID | Requesting Doctor ",
    .widths = widths,
    .one = "receipt line",
    .many = "receipt lines",
    .emptyText = "No paid assessment waits that answers to this."};

} // namespace

frmListCashComm::frmListCashComm(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmListCashComm>()) {
    m_ui->setupUi(this);
    setUpList({.grid = m_ui->grdTable,
               .search = m_ui->txtSearch,
               .searchBy = m_ui->cmbSearch,
               .select = m_ui->cmdSelect,
               .close = m_ui->cmdClose,
               .hits = m_ui->lblHits},
              variant);
}

frmListCashComm::~frmListCashComm() = default;

void frmListCashComm::Form_Load() {
    ListScreen::Form_Load();
    m_ui->grdTable->setColAlignment(amount, Qt::AlignRight);
    m_ui->cmbSearch->addItems(
        {QStringLiteral("Cash Patients"), QStringLiteral("Regular Patients"), QStringLiteral("In-Patients")});
    m_ui->cmbSearch->setCurrentIndex(cashPatients);
    search();
}

void frmListCashComm::search() {
    const Hourglass busy;
    ado::Recordset receipts = session::Read(sql("sp_Nuclear_CashLink '{}'", m_ui->txtSearch->text()));
    bindRows(receipts);
}

void frmListCashComm::rowTaken() {
    const QString receipt = cell(orNumber);
    const QString name = cell(patientName);
    const QString lastName = name.left(name.indexOf(u','));
    bool opened = false;
    switch (m_ui->cmbSearch->currentIndex()) {
    case inPatients:
        opened = openForAdmitted(receipt, lastName);
        break;
    case regularPatients:
        opened = openForRegular(receipt, lastName);
        break;
    case cashPatients:
        opened = openForCash(receipt, lastName);
        break;
    default:
        break;
    }
    if (opened && !isUnloaded())
        searchEntered();
}

bool frmListCashComm::openForAdmitted(const QString& receipt, const QString& name) {
    if (!session::gDeptFind->PatientListing(name, session::clsDeptFind::confinedPatients, true))
        return false;
    const session::ListedPatient patient = session::gDeptFind->Inpatient;
    auto& request = SharedScreen<frmRequest>::fresh();
    request.entry = {.PatIdNum = patient.IdNumber,
                     .PatientType = QStringLiteral("I"),
                     .CashBasis = true,
                     .CashOrNum = receipt,
                     .PatientClass = patient.RoomClassID};
    request.load();
    request.setText("txtHospNum", patient.HospitalNumber);
    request.setText("txtIdNum", patient.IdNumber);
    request.setText("txtAge", patient.Age);
    request.setText("txtBDate", base::Format(patient.BirthDate, QStringLiteral("mm/dd/yyyy")));
    request.setText("txtFname", patient.FirstName);
    request.setText("txtLname", patient.LastName);
    request.setText("txtMname", patient.MiddleName);
    request.setText("txtRoom", patient.RoomID);
    request.setText("txtSex", patient.Sex);
    for (const char* unlisted : {"txtBloodType", "txtHeight", "txtWeight"})
        request.setText(unlisted, {});
    request.ShowModal();
    return true;
}

bool frmListCashComm::openForRegular(const QString& receipt, const QString& name) {
    lookup::clsRegularPatientSearch patient;
    const bool found = patient.ValidatePatient(name, true);
    if (found)
        openOutRequest(receipt, patient);
    return found;
}

bool frmListCashComm::openForCash(const QString& receipt, const QString& name) {
    lookup::clsCashPatientSearch patient;
    const bool found = patient.ValidatePatient(name, true);
    if (found)
        openOutRequest(receipt, patient);
    return found;
}

/// There is no stay: the hospital number alone says whose the receipt is.
void frmListCashComm::openOutRequest(const QString& receipt, const lookup::FoundPatient& patient) {
    auto& request = SharedScreen<frmOutRequest>::fresh();
    request.take({.CashBasis = true, .CashOrNum = receipt});
    request.load();
    request.setText("txtHospNum", patient.HospitalNumber());
    request.setText("txtAge", patient.Age());
    request.setText("txtBDate", base::Format(base::Value(patient.BirthDate()), QStringLiteral("mm/dd/yyyy")));
    request.setText("txtFname", patient.FirstName());
    request.setText("txtLname", patient.LastName());
    request.setText("txtMname", patient.MiddleName());
    request.setText("txtRoom", QStringLiteral("OPD"));
    request.setText("txtSex", patient.Sex());
    request.ShowModal();
}

} // namespace orders
