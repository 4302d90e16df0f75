#include "server/demo/TableWriter.h"
#include "server/demo/World.h"
#include "server/hospital/Passwords.h"

#include <QHash>

namespace demo {

namespace {

struct User {
    const char* employeeID;
    const char* lastName;
    const char* firstName;
    const char* middleName;
    const char* position;
    const char* deptCode;
    const char* password;
    /// As NUCLEAR..tbNuclearUserRights keeps them; null for a user without a row.
    const char* rights;
};

constexpr User userList[] = {
    {"1001", "REYES", "JOAN", "PASCUAL", "CHIEF TECHNOLOGIST", "5", "kerova",
     "|1|2|3|4|5|6|7|8|9|10|11|12|13|14|15|16|17|18"},
    {"1002", "BAUTISTA", "MARICEL", "OCAMPO", "ENCODER", "5", "scintra", "|1|2|3|8|9|10|11"},
    {"1003", "VILLANUEVA", "RAMON", "SANTOS", "TECHNOLOGIST", "5", "scintra", "|3|4|5|6|10"},
    {"1004", "NÚÑEZ", "INÉS", "CASTAÑEDA", "ENCODER", "5", "scintra", "|1|2|3|18"},
    {"1005", "LIWANAG", "ANGELO", "CRUZ", "CLERK", "5", "scintra", "|5|10"},
    {"1006", "DALISAY", "CORAZON", "LUNA", "TRAINEE", "5", "scintra", ""},
    {"1007", "TOLENTINO", "EFREN", "YAP", "TRAINEE", "5", "scintra", nullptr},
    {"1008", "MAGBANUA", "LIGAYA", "ROXAS", "SECTION HEAD", "5", "scintra", "|4|5|6|7|12|13|14|15|16|17|18"},
    {"1900", "SALONGA", "VIRGILIO", "TAN", "FILE MAINTENANCE", "00", "buildfile",
     "|1|2|3|4|5|6|7|8|9|10|11|12|13|14|15|16|17"},
    {"2101", "MERCADO", "GRACE", "ABAD", "STAFF NURSE", "12", "ward", nullptr},
    {"2102", "PANGILINAN", "NOEL", "DIZON", "STAFF NURSE", "12", "ward", nullptr},
    {"2103", "SORIANO", "TERESITA", "ONG", "HEAD NURSE", "12", "ward", nullptr},
    {"3001", "UMALI", "ROSARIO", "GALANG", "CASHIER", "20", "cashier", nullptr},
};

/// The second user has her birthday on the day that the file is made.
std::optional<base::DateTime> birthDate(int index, base::DateTime now) {
    if (index != 1)
        return base::makeDateTime({1968 + (index * 7) % 30, 1 + (index * 5) % 12, 1 + (index * 11) % 28});
    base::CalendarDate day = base::calendarDate(now);
    day.year -= 32;
    if (const auto sameDay = base::makeDateTime(day))
        return sameDay;
    day.year -= 4;
    return base::makeDateTime(day);
}

} // namespace

void writeUsers(World& world) {
    TableWriter users(world.file, "PASSWORD..tbPasswordMain",
                      {"EmployeeID", "Name", "LastName", "FirstName", "MiddleName", "BirthDate",
                       "PasswordHash", "Position", "DeptCode", "Status", "WrongTries"});
    TableWriter passwordRights(world.file, "PASSWORD..tbPasswordRights",
                               {"EmployeeID", "DeptCode", "RightsID"});
    TableWriter rights(world.file, "NUCLEAR..tbNuclearUserRights",
                       {"EmployeeID", "EmployeeRights", "UserID", "UpdateDate"});
    QHash<QString, QString> hashes;
    int index = 0;
    for (const User& user : userList) {
        const QString password = QString::fromLatin1(user.password);
        if (!hashes.contains(password))
            hashes.insert(password, hospital::passwordHash(password));
        const QString last = QString::fromUtf8(user.lastName);
        const QString middle = QString::fromUtf8(user.middleName);
        const QString name =
            last + QStringLiteral(", ") + QString::fromUtf8(user.firstName) + u' ' + middle.left(1) + u'.';
        users.row(user.employeeID, name, last, user.firstName, middle, birthDate(index, world.now),
                  hashes.value(password), user.position, user.deptCode, "A", 0);
        if (user.rights)
            rights.row(user.employeeID, user.rights, "1900", before(world.now, 90, 9, 15));
        ++index;
    }
    passwordRights.row("1001", "5", "A");
    passwordRights.row("1900", "00", "A");
}

} // namespace demo
