#include "menu/BirthdayGreeting.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "session/Session.h"

namespace menu {

namespace {

QString dayAndMonth(base::DateTime moment) {
    return base::Format(moment, "mm/dd/yy").left(5);
}

} // namespace

QString birthdayGreeting(const QString& employeeCode) {
    ado::Recordset rows = session::Read(ado::sql(
        "SELECT BirthDate FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '{}'", base::Trim(employeeCode)));
    const base::Value birthDate = rows.Eof() ? base::Value() : rows.Fields("BirthDate").Value();
    rows.Close();
    if (!base::IsDate(birthDate) || dayAndMonth(base::CDate(birthDate)) != dayAndMonth(base::today()))
        return {};
    return QStringLiteral("Happy BirthDay!!!");
}

} // namespace menu
