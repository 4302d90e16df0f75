#include "revocation/frmCancellation.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "session/StampRow.h"
#include "session/WorkDone.h"
#include "session/logon/clsCurrentUser.h"
#include "session/rights/CheckAccess.h"
#include "session/services/Services.h"
#include "ui_frmCancellation.h"

#include <QLineEdit>

namespace revocation {

using ado::sql;
using base::Trim;
using controls::MsgBox;
using controls::vbOKOnly;
using session::gConnection;
using session::gSectionCode;
using session::gUser;
using session::Read;
using session::ReadForUpdate;
using session::stampRow;

namespace {

// The hidden leading column counts as 0.
enum LineColumn { itemCode = 1, quantity = 3, amount = 4 };

constexpr int widths[] = {100, 1200, 3500, 1000, 1200};

constexpr controls::ListVariant lines = {.format = " | Code | Exam Description | Qty | Amount ",
                                         .widths = widths,
                                         .selectable = controls::ListVariant::Selectable::AsItStands,
                                         .emptyRow = controls::ListVariant::EmptyRow::Anything};

const char* const rightToCancel = "18";

/// Raises 13 for a cell that holds no number: there is nothing to take back then.
double taken(const QString& cell) {
    return base::CDbl(cell);
}

/// 0 has no sign on the wire.
double takenBack(const QString& cell) {
    return taken(cell) * -1.0 + 0.0;
}

} // namespace

frmCancellation::frmCancellation(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmCancellation>()) {
    m_ui->setupUi(this);
    setUpList({.grid = m_ui->grdExams, .close = m_ui->cmdClose}, lines);
    controls::look::setKind(m_ui->cmdSave, QStringLiteral("danger"));
    controls::look::setKind(m_ui->bandHeader, QStringLiteral("danger"));
    controls::on(m_ui->cmdSave, &QPushButton::clicked, this, [this] { cmdSave_Click(); });
}

frmCancellation::~frmCancellation() = default;

// ---- opening

void frmCancellation::Form_Load() {
    ListScreen::Form_Load();
    m_ui->grdExams->setEmptyText(QStringLiteral("No charged line stands under this request."));
    m_ui->cmdSave->setEnabled(false);
    const bool mayBeCancelled = CanCancelBilled();
    if (mayBeCancelled)
        m_ui->cmdSave->setEnabled(
            session::checkAccess().WithRights(gUser->employeecode(), QString::fromLatin1(rightToCancel)));
    if (!m_ui->cmdSave->isEnabled())
        m_ui->lblWhyNot->setText(mayBeCancelled
                                     ? QStringLiteral("You have no right to cancel charges.")
                                     : QStringLiteral("What this account was billed cannot be cancelled."));
}

bool frmCancellation::CanCancelBilled() const {
    ado::Recordset answer = Read(
        sql("SELECT ISNULL(LABORATORY.DBO.fn_LabCanCancelBilled('{}'),'') AS CancelBilled", Trim(IdNum)));
    const bool can = !answer.Eof() && Trim(answer.Fields("CancelBilled").text()) == u"Y";
    answer.Close();
    return can;
}

bool frmCancellation::CanPost(const QString& id) const {
    ado::Recordset answer = Read(sql("SELECT LABORATORY.DBO.fn_LabCanPost('{}') as CanPost", id));
    const bool can = !answer.Eof() && answer.Fields("CanPost").text() == u"Y";
    answer.Close();
    return can;
}

void frmCancellation::Init_Grid() {
    load();
    layOutGrid();
}

void frmCancellation::showLines(const ado::Recordset& lineRows) {
    m_ui->grdExams->setDataSource(lineRows);
    for (const int column : {quantity, amount})
        m_ui->grdExams->setColAlignment(column, Qt::AlignRight);
}

void frmCancellation::setText(const char* control, const QString& text) {
    findChild<QLineEdit*>(QString::fromLatin1(control))->setText(text);
}

QString frmCancellation::text(const char* control) const {
    return findChild<QLineEdit*>(QString::fromLatin1(control))->text();
}

QString frmCancellation::line(int column) const {
    return m_ui->grdExams->TextMatrix(m_ui->grdExams->Row(), column);
}

void frmCancellation::rowTaken() {
    if (!line(itemCode).isEmpty())
        m_ui->cmdSave->setFocus();
}

// ---- cancelling

void frmCancellation::cmdSave_Click() {
    m_ui->cmdSave->setEnabled(false); // whatever is pressed while a box waits, the line is taken back once
    {
        const Hourglass hourglass;
        gConnection->BeginTrans();
        cancelLine();
        gConnection->CommitTrans();
    }
    if (m_isRevoked)
        session::tellDone(
            {.work = session::Work::CancelledCharge,
             .number = RequestNum,
             .patient = QStringLiteral("%1, %2 %3").arg(text("txtSname"), text("txtFname"), text("txtMname")),
             .IdNum = Trim(text("txtAdmNo"))});
    m_hasEnded = true;
    Unload();
}

void frmCancellation::cancelLine() {
    m_patientType = text("txtRoomID") == u"OPD" ? QStringLiteral("O") : QStringLiteral("I");
    ExamCode = line(itemCode);
    if (text("txtCSlip").left(2) == u"OR")
        revokePaid();
    else if (!session::gAdmission->OpenAdmission(Trim(text("txtAdmNo"))))
        revokeWithoutAdmission();
    else
        revokeAdmitted();
}

void frmCancellation::tellRevoked() {
    m_isRevoked = true;
    MsgBox(QStringLiteral("Data Successfully Revoked."), vbOKOnly, QStringLiteral("Message"));
}

/// A cash receipt: nothing was charged to an account.
void frmCancellation::revokePaid() {
    ado::Recordset request =
        ReadForUpdate(sql("SELECT * FROM NUCLEAR..tbNucMaster WHERE requestnum = '{}'", Trim(RequestNum)));
    stampRequest(request);
    gConnection->Execute(
        sql("spGlobal_CashUpdate '{}','{}','{}',''", text("txtCSlip"), gSectionCode, ExamCode));
    tellRevoked();
}

void frmCancellation::revokeWithoutAdmission() {
    const QString date = readServerDate();
    ado::Recordset request =
        ReadForUpdate(sql("SELECT * FROM NUCLEAR..tbNucMaster WHERE requestnum = '{}'", Trim(RequestNum)));
    stampRequest(request);
    if (Trim(text("txtAdmNo")).left(1) != u"T")
        reverseCharge(date, gSectionCode != RevenueID ? gSectionCode : QString());
    gConnection->Execute(
        sql("CARDIO..spGlobal_CashUpdate '{}','{}','{}',''", text("txtCSlip"), gSectionCode, ExamCode));
    tellRevoked();
}

/// Finds the request by the ward's number, where the two others go by the request's own.
void frmCancellation::revokeAdmitted() {
    if (!session::gAdmission->BillingDate.isNull()) {
        MsgBox(QStringLiteral("Patient`s account has already been closed.\n"
                              "If you have charges to adjust, pls. notify the billing for further "
                              "instructions."),
               vbOKOnly, QStringLiteral("Message"));
        return;
    }
    const QString date = readServerDate();
    ado::Recordset request = ReadForUpdate(
        sql("SELECT * FROM NUCLEAR..tbNucMaster WHERE nurserequestnum = '{}'", Trim(NurseRequestNum)));
    stampRequest(request);
    if (gSectionCode == RevenueID)
        stampWards();
    if (gSectionCode != RevenueID)
        takeBackStock(date);
    else
        reverseCharge(date, {});
    tellRevoked();
}

void frmCancellation::stampRequest(ado::Recordset& rows) {
    stampRow(rows, "", {{"requeststatus", "R"}});
    rows.Close();
}

void frmCancellation::stampWards() {
    const QString admission = Trim(text("txtAdmNo"));
    ado::Recordset communication =
        ReadForUpdate(sql("sp_checknursecommunicationfile '1','{}','{}','{}','{}','{}'", m_patientType,
                          gSectionCode, Trim(ExamCode), admission, Trim(NurseRequestNum)));
    stampRow(communication, "STATION..tbNurseCommunicationFile", {{"RecordStatus", "R"}});
    communication.Close();
    ado::Recordset logBook =
        ReadForUpdate(sql("sp_checknurselogbook '1','{}','{}','{}','{}','{}'", m_patientType, admission,
                          gSectionCode, Trim(ExamCode), Trim(NurseRequestNum)));
    stampRow(logBook, "STATION..tbNurseLogBook", {{"RecordStatus", "R"}});
    logBook.Close();
}

/// As the statements want it.
QString frmCancellation::readServerDate() const {
    ado::Recordset clock = Read(sql("SELECT getdate() as [server date]"));
    const QString date = clock.Fields("server date").text();
    clock.Close();
    return base::Format(base::CDate(date), QStringLiteral("mm/dd/yyyy hh:mm:ss AMPM"));
}

/// The charged line again, with a negative amount; `section` is "" for a line of the section's own.
void frmCancellation::reverseCharge(const QString& date, const QString& section) {
    Read(sql("sp_addbill '{}','{}','{}','{}',  '{}','{}','{}','{}','{}','{}','D'", m_patientType,
             Trim(text("txtAdmNo")), date, Trim(text("txtCSlip")), Trim(ExamCode), takenBack(line(amount)),
             RevenueID, gUser->employeecode(), taken(line(quantity)), section));
}

void frmCancellation::takeBackStock(const QString& date) {
    Read(sql("sp_AppendStockCard 'PC','{}','{}','{}','{}','PC', '{}','{}','{}','{}','PRN','179'",
             Trim(text("txtHospNo")), Trim(text("txtAdmNo")), ExamCode, date, Trim(text("txtCSlip")),
             line(quantity), takenBack(line(amount)), gUser->employeecode()));
}

} // namespace revocation
