#include "platform/base/Conversion.h"
#include "platform/controls/fields/DateBox.h"
#include "results/ResultScreen.h"
#include "results/frmResultEntry.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/reports/ReportLaunch.h"

#include <vector>

namespace results {

using ado::sql;
using base::Trim;
using namespace controls;
using session::gConnection;
using session::gUser;
using session::Read;
using session::ReadForUpdate;
using session::Run;

namespace {

/// The workstation's time of day as text: "8:30:00 AM".
QString timeText() {
    return base::CStr(*base::makeDateTime({1899, 12, 30}, base::clockTime(base::now())));
}

} // namespace

// ---- save

void ResultScreen::btnSave_Click() {
    m_resultMoment = base::CStr(qobject_cast<DateBox*>(widget("DtResultDate"))->date()) + u' ' + timeText();
    if (Trim(text("txtCaseNum")).isEmpty()) {
        MsgBox(QStringLiteral("Cannot save incomplete data. Please enter Case Number."), vbExclamation,
               QStringLiteral("Message"));
        widget("txtCaseNum")->setFocus();
        return;
    }
    if (isCaseNumberTaken()) {
        MsgBox(QStringLiteral("The Case Number you entered is already used."), vbExclamation,
               QStringLiteral("Message"));
        return;
    }
    {
        const Hourglass hourglass;
        ResultSaved = false;
        gConnection->BeginTrans();
        Run(saveStatement());
        stampNurseStation();
        gConnection->CommitTrans();
        ResultSaved = true;
    }
    MsgBox(QStringLiteral("Data Successfully Saved!"), vbInformation, QStringLiteral("Notification"));
}

bool ResultScreen::isCaseNumberTaken() const {
    const QString typed = text("txtCaseNum");
    const QString checked = m_variant.trimsCheckedNumber ? Trim(typed) : typed;
    return Read(m_variant.caseNumberCheck.with({{"##", checked}})).RecordCount() >= 1;
}

ado::Statement ResultScreen::saveStatement() const {
    std::vector<QString> values;
    for (const Argument& given : m_variant.save.arguments()) {
        const QString value = argument(given.from);
        values.push_back(given.trimmed ? Trim(value) : value);
    }
    return ado::joinStatement(m_variant.save.text(), values.data(), qsizetype(values.size()));
}

QString ResultScreen::argument(const char* from) const {
    const QLatin1String name(from);
    if (name == QLatin1String(source::requestNum))
        return RequestNum;
    if (name == QLatin1String(source::patientType))
        return PatientType;
    if (name == QLatin1String(source::itemCode))
        return ItemCode;
    if (name == QLatin1String(source::encoder))
        return gUser->employeecode();
    if (name == QLatin1String(source::resultMoment))
        return m_resultMoment;
    return text(from);
}

/// Only the first row of each file: a request without a ward's own has none, and is saved all the same.
void ResultScreen::stampNurseStation() const {
    ado::Recordset communication =
        ReadForUpdate(sql("SELECT * FROM STATION..tbNurseCommunicationFile WHERE "
                          "IdNum = '{}' and RequestNum = '{}' and Revenueid = 'NU'",
                          Trim(text("txtIdNum")), Trim(NurseRequestNum)));
    if (communication.RecordCount() > 0) {
        communication.Fields("RecordStatus").setValue("W");
        communication.Update();
    }
    communication.Close();
    ado::Recordset logBook = ReadForUpdate(sql("SELECT * FROM STATION..tbNurseLogBook WHERE "
                                               "IdNum = '{}' and RequestNum = '{}' and Revenueid = 'NU'",
                                               Trim(text("txtIdNum")), Trim(NurseRequestNum)));
    if (logBook.RecordCount() > 0) {
        logBook.Fields("RecordStatus").setValue("W");
        logBook.Fields("resultdate").setValue(m_resultMoment);
        logBook.Fields("resultby").setValue(gUser->employeecode());
        logBook.Update();
    }
    logBook.Close();
}

/// Prints as well when a save that was refused follows one that went well: ResultSaved still tells of that
/// one.
void ResultScreen::btnSavePrint_Click() {
    btnSave_Click();
    if (ResultSaved)
        btnPrint_Click();
}

// ---- edit, print, clear

/// The case number is unlocked on frmResultEntry, whichever screen this is: the others keep theirs locked.
void ResultScreen::btnEdit_Click() {
    enableFields(m_variant.edited, true);
    if (!widget("btnClear")->isEnabled())
        widget("btnClear")->setEnabled(true);
    frmResultEntry& generic = SharedScreen<frmResultEntry>::fresh();
    generic.load();
    generic.lockCaseNum(false);
}

void ResultScreen::btnPrint_Click() {
    if (text("txtIdNum").isEmpty()) {
        MsgBox(QStringLiteral("No Result to process."));
        return;
    }
    session::PrepareReport(session::reportPath(QString::fromLatin1(m_variant.report)),
                           QStringLiteral("NUCLEAR"), {Trim(text("txtIdNum")), RequestNum});
    Unload();
    session::ShowReport(false, QStringLiteral("Imaging Section Report"), false);
}

void ResultScreen::btnClear_Click() {
    for (const char* name : m_variant.cleared)
        setText(name, {});
}

// ---- revocation

void ResultScreen::btnRevoke_Click() {
    if (!m_variant.revocationIsTrapped) {
        revoke();
        return;
    }
    try {
        revoke();
    } catch (const base::RunTimeError&) {
        gConnection->RollbackTrans();
        MsgBox(QStringLiteral("Data Not Successfully Saved."), vbOKOnly, QStringLiteral("Warning"));
    }
}

void ResultScreen::revoke() {
    {
        gConnection->BeginTrans();
        const Hourglass hourglass;
        ado::Recordset communication = ReadForUpdate(
            sql("SELECT * FROM STATION..tbNurseCommunicationFile WHERE ReferenceNum = '{}'", Trim(RefNum)));
        if (communication.RecordCount() > 0) {
            communication.Fields("RecordStatus").setValue("X");
            communication.Update();
        }
        communication.Close();
        ado::Recordset logBook = ReadForUpdate(
            sql("SELECT * FROM STATION..tbNurseLogBook WHERE ReferenceNum = '{}'", Trim(RefNum)));
        if (logBook.RecordCount() > 0) {
            logBook.Fields("RecordStatus").setValue("X");
            logBook.Update();
        }
        logBook.Close();
        Run(sql("sp_Nuclear_CancelResult '{}'", RequestNum));
        gConnection->CommitTrans();
    }
    MsgBox(QStringLiteral("Result successfully revoked!"), vbInformation, QStringLiteral("Message"));
    Unload();
}

} // namespace results
