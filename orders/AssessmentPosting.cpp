#include "orders/AssessmentPosting.h"

#include "entry/PostedLine.h"
#include "entry/RequestColumns.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"

namespace orders {

using ado::sql;
using base::CLng;
using base::Trim;
using session::gSectionCode;
using session::gUser;
using session::Read;
using session::ReadForUpdate;
using session::Run;

namespace {

/// Writes the number back plus 1; the new one, with the section before it.
QString advanced(ado::Recordset& numbers, const char* column) {
    const int next = CLng(numbers.Fields(column).Value()) + 1;
    numbers.Fields(column).setValue(next);
    numbers.Update();
    return gSectionCode + Trim(base::CStr(next));
}

} // namespace

void AssessmentPosting::post() {
    takeAssessmentNum();
    for (int row = 1; row < m_lines.Rows() && !m_lines.TextMatrix(row, entry::colCode).isEmpty(); ++row)
        postLine(row);
}

void AssessmentPosting::takeAssessmentNum() {
    ado::Recordset numbers =
        ReadForUpdate(sql("SELECT *,getdate() as [server date] FROM BILLING..tbAssessmentNum"));
    ServerNow = base::Format(base::CDate(numbers.Fields("server date").Value()),
                             QStringLiteral("mm/dd/yyyy hh:mm:ss AMPM"));
    m_assessmentRef = advanced(numbers, "assessmentnum");
}

QString AssessmentPosting::takeRowRef() const {
    ado::Recordset numbers = ReadForUpdate(sql("Select * From BILLING..tbAssessmentNum"));
    return advanced(numbers, "RequestNum");
}

void AssessmentPosting::postLine(int row) const {
    const entry::PostedLine line = entry::readLine(m_lines, row, entry::colLink);
    const double price = entry::numberIn(m_lines.TextMatrix(row, entry::colPrice));
    const double amount = m_lines.TextMatrix(row, entry::colAmount).isEmpty() ? price : line.Amount;
    const int quantity = CLng(line.Quantity);
    const bool isProcedure = line.Revenue == u"NU";
    ado::Recordset assessed = Read(sql("spNuclear_CheckCashAsses '{}','{}','{}'", isProcedure ? "NU" : "MD",
                                       line.ItemCode, m_assessmentRef));
    if (!assessed.Eof())
        return;
    const QString rowRef = takeRowRef();
    const QString& user = gUser->employeecode();
    if (isProcedure || line.Revenue == u"HS")
        Run(sql("spNuclear_AddCashAsses '{}','{}','{}, {} {}','{}', '{}','{}','{}', '{}','{}','{}'  ,'', "
                "'{}','{}'",
                m_header.txtHospNum, m_header.txtIdNum, m_header.txtSname, m_header.txtFname,
                m_header.txtMname, ServerNow, rowRef, line.ItemCode, amount, user, m_assessmentRef,
                line.Revenue, Trim(m_header.txtDoctorID), quantity));
    else // whatever it is, the cashier knows it as a fee of the section
        Run(sql("spNuclear_AddCashAsses '{}','{}','{}, {}{}','{}', '{}','{}','{}', '{}','{}','MD','NU', "
                "'{}','{}'",
                m_header.txtHospNum, m_header.txtIdNum, m_header.txtSname, m_header.txtFname,
                m_header.txtMname, ServerNow, rowRef, line.ItemCode, amount, user, m_assessmentRef,
                m_header.txtDoctorID, quantity));
}

QString NextFreeAssessment() {
    for (;;) {
        ado::Recordset numbers = ReadForUpdate(sql("SELECT AssessmentNum FROM tbAssessmentNum"));
        const int number = CLng(numbers.Fields("assessmentnum").Value());
        const QString candidate = QStringLiteral("NU") + base::Format(number, QStringLiteral("0"));
        numbers.setFoundByAllColumns(true); // the key was not read
        numbers.Fields("assessmentnum").setValue(number + 1);
        numbers.Update();
        ado::Recordset used =
            Read(sql("select count(*) [RecCount] from tbCashAssessment where refnum = '{}'", candidate));
        if (CLng(used.Fields("recCount").Value()) == 0)
            return candidate;
    }
}

} // namespace orders
