#include "orders/frmNurseCommunication.h"

#include "orders/frmOutRequest.h"
#include "orders/frmRequest.h"
#include "platform/base/Conversion.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "session/services/Services.h"
#include "ui_frmNurseCommunication.h"

#include <QKeyEvent>

namespace orders {

using ado::sql;
using base::Trim;
using controls::SharedScreen;
using session::Read;

namespace {

// The hidden leading column counts as 0.
enum GridColumn {
    admissionNumber = 2,
    remarks = 7,
    userID = 8,
    patientType = 9,
    requestNum = 10,
    classification = 12
};

constexpr int widths[] = {100, 1100, 900, 2000, 800, 800, 2000, 1200, 900, 800, 900, 800, 1150};

constexpr controls::ListVariant variant = {
    .format = " | RequestDate | Adm.No. | Patient Name | Room ID | ExamCode | Exam Description | Remarks | "
              "UserID | PatientType | RequestNum | HospNum | Classification",
    .widths = widths,
    .one = "request",
    .many = "requests",
    .emptyText = "No request of a ward waits."};

} // namespace

frmNurseCommunication::frmNurseCommunication(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmNurseCommunication>()) {
    m_ui->setupUi(this);
    setUpList(
        {.grid = m_ui->grdTable, .select = m_ui->btnProcess, .close = m_ui->btnClose, .hits = m_ui->lblHits},
        variant);
    controls::noteKeys(this, {{"F5", "Reads the list anew"}});
    controls::on(m_ui->btnCancel, &QPushButton::clicked, this, [this] { btnCancel_Click(); });
}

frmNurseCommunication::~frmNurseCommunication() = default;

void frmNurseCommunication::Form_Load() {
    ListScreen::Form_Load();
    search();
}

void frmNurseCommunication::search() {
    const Hourglass busy;
    ado::Recordset requests = Read(sql("sp_Nuclear_NurseCommunication"));
    const int found = bindRows(requests);
    m_ui->btnCancel->setEnabled(found > 0);
}

/// The row that stood behind the one that is gone is the next to be worked on.
void frmNurseCommunication::readAgain() {
    const int row = m_ui->grdTable->Row();
    search();
    m_ui->grdTable->setCurrentCell(qBound(1, row, m_ui->grdTable->Rows() - 1), 1);
    backToSearch();
}

// ---- events, in the order of the screen

void frmNurseCommunication::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F5)
        controls::ErrorBoundary::guard([this] { readAgain(); });
    else
        ListScreen::keyPressEvent(event);
}

void frmNurseCommunication::rowTaken() {
    const QString type = cell(patientType);
    const bool opened = type == u"I" ? openForAdmitted() : type == u"O" && openForOutPatient();
    if (opened && !isUnloaded())
        readAgain();
}

bool frmNurseCommunication::openForAdmitted() {
    const QString idNumber = cell(admissionNumber);
    if (!session::gAdmission->OpenAdmission(idNumber))
        return false;
    auto& request = SharedScreen<frmRequest>::fresh();
    request.entry = {.PatIdNum = idNumber,
                     .PatientType = QStringLiteral("I"),
                     .CashBasis = false,
                     .NurseCommnunication = true,
                     .NursingRemarks = cell(remarks),
                     .RequestingNurse = cell(userID),
                     .Classification = cell(classification)};
    request.ShowModal();
    return true;
}

bool frmNurseCommunication::openForOutPatient() {
    const QString idNumber = cell(admissionNumber);
    if (Read(sql("spNuclearsearchoutpatient '{}'", idNumber)).Eof())
        return false;
    auto& request = SharedScreen<frmOutRequest>::fresh();
    request.take({.IdNumber = idNumber,
                  .CashBasis = false,
                  .NurseCommnunication = true,
                  .NursingRemarks = cell(remarks),
                  .RequestingNurse = cell(userID)});
    request.ShowModal();
    return true;
}

void frmNurseCommunication::btnCancel_Click() {
    if (hits() == 0)
        return;
    session::Run(
        sql("sp_Nuclear_CancelNurseRequest '{}','{}'", Trim(cell(admissionNumber)), Trim(cell(requestNum))));
    controls::MsgBox(QStringLiteral("Requested procedure successfully revoked."), controls::vbInformation,
                     QStringLiteral("Message"));
    readAgain();
}

} // namespace orders
