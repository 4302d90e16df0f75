#include "session/Routines.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/screen/MessageBox.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/services/Services.h"

namespace session {
namespace {

/// What the first row says, or nothing: the recordset is closed before anybody is asked anything.
struct Answer {
    bool found = false;
    QString text;
};

Answer firstRow(const ado::Statement& statement, const char* field) {
    ado::Recordset status = Read(statement);
    Answer answer;
    if (status.State() == ado::Recordset::adStateClosed)
        return answer;
    answer.found = !status.Eof();
    if (answer.found)
        answer.text = base::Trim(status.Fields(field).text());
    status.Close();
    return answer;
}

} // namespace

base::DateTime GetServerDate() {
    ado::Recordset clock;
    clock.Open(ado::sql("select GETDATE() AS Tdate"), sharedConnection(), ado::CursorType::ForwardOnly,
               ado::LockType::ReadOnly);
    gServerDate = base::CDate(clock.Fields("Tdate").Value());
    clock.Close();
    return gServerDate;
}

bool CheckExamRequested(const QString& admissionNumber, const QString& itemCode, const QString& requestType) {
    const Answer answer =
        firstRow(ado::sql("STATION..Nurse_CheckExamStatus '{}','{}','{}'", base::Trim(admissionNumber),
                          base::Trim(itemCode), base::Trim(requestType)),
                 "RequestDate");
    if (!answer.found)
        return false;
    return controls::MsgBox(QStringLiteral("The Item is already requested at ") + answer.text +
                                QStringLiteral(". Do you want to proceed? "),
                            controls::vbOKCancel, QStringLiteral("Message ")) == controls::vbOK;
}

bool CheckExamPosted(const QString& admissionNumber, const QString& itemCode, const QString& requestType) {
    const Answer answer =
        firstRow(ado::sql("STATION..Nurse_CheckExam_Posted '{}','{}','{}'", base::Trim(admissionNumber),
                          base::Trim(itemCode), base::Trim(requestType)),
                 "processdate");
    if (!answer.found)
        return false;
    // True here stops the caller, where True of CheckExamRequested is the user's wish to go on.
    return controls::MsgBox(QStringLiteral("This Request has been PROCCESSED TODAY AT ") + answer.text +
                                QStringLiteral("! Do you wish to REPEAT it ?"),
                            controls::vbYesNo + controls::vbCritical,
                            QStringLiteral("Message ")) == controls::vbNo;
}

void AppendStockCard(const QString& stockClass, const QString& hospitalNumber, const QString& admissionNumber,
                     const QString& itemCode, const QString& chargeSlip, double quantity, double amount,
                     const QString& room, const QString& stockDepartment, const QString& extra) {
    StockCardEntry entry;
    entry.hospitalNumber = hospitalNumber;
    entry.admissionNumber = admissionNumber;
    entry.itemCode = itemCode;
    entry.dateTime = base::Format(base::Value(base::now()), QStringLiteral("MM/dd/yyyy hh:mm"));
    entry.chargeSlip = chargeSlip;
    entry.quantity = quantity;
    entry.argument7 = 0;
    entry.amount = amount;
    entry.employeeCode = gUser ? gUser->employeecode() : gEmployeeCode;
    entry.dispensing = QStringLiteral("PRN");
    entry.room = room;
    entry.stockDepartment = stockDepartment;
    entry.extra = extra;
    entry.argument15 = 0;
    entry.stockClass16 = stockClass;
    entry.stockClass17 = stockClass;
    entry.argument22 = QStringLiteral("O");
    gDispense->Drug.AppendStockCard(entry);
}

QString TrimUpper(const QString& text) {
    return base::Trim(text).toUpper();
}

QString CleanVariant(const base::Value& value) {
    const QString text = base::textOf(value);
    const QString trimmed = base::Trim(text);
    if (trimmed.isEmpty())
        return {};
    return base::IsNumeric(value) ? trimmed : text;
}

} // namespace session
