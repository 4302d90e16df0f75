#include "session/logon/clsCurrentUser.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "session/Session.h"
#include "session/logon/HospitalServer.h"
#include "session/logon/PasswordCheck.h"
#include "session/logon/frmLogOn.h"
#include "session/rights/frmPassword.h"

namespace session {
namespace {

constexpr int unknownDatabase = 911;
constexpr int cannotOpenDatabase = 4060;
constexpr int loginFailed = 18456;
constexpr int serverNotFound = 53;

ado::Recordset readUser(ado::Connection& connection, const QString& employeeCode) {
    ado::Recordset user;
    user.Open(
        ado::sql(
            "SELECT EmployeeID, Name, PasswordHash, DeptCode, Status, WrongTries, CASE WHEN LockedUntil > "
            "GETDATE() THEN DATEDIFF(second, GETDATE(), LockedUntil) ELSE 0 END AS SecondsLeft FROM "
            "PASSWORD..tbPasswordMain WHERE EmployeeID = '{}'",
            employeeCode),
        connection);
    return user;
}

/// Counts one more, in one statement: desks that guess at once lose no count. The waits are those of
/// PasswordTries::waitAfter().
void addWrongTry(ado::Connection& connection, const QString& employeeCode) {
    connection.Execute(ado::sql("UPDATE PASSWORD..tbPasswordMain SET WrongTries = WrongTries + 1, "
                                "LockedUntil = CASE WHEN WrongTries < 4 "
                                "THEN NULL WHEN WrongTries > 10 THEN DATEADD(second, 3600, GETDATE()) ELSE "
                                "DATEADD(second, 30 * POWER(2, "
                                "WrongTries - 4), GETDATE()) END WHERE EmployeeID = '{}'",
                                employeeCode));
}

void forgetWrongTries(ado::Connection& connection, const QString& employeeCode) {
    connection.Execute(ado::sql(
        "UPDATE PASSWORD..tbPasswordMain SET WrongTries = 0, LockedUntil = NULL WHERE EmployeeID = '{}'",
        employeeCode));
}

/// Seconds that the server wants the code to wait. Where its clock ran ahead when it locked the code, the
/// wait begins anew, so that it never outlasts its own length.
int secondsLocked(ado::Connection& connection, const QString& employeeCode, int tries, int secondsLeft) {
    const int wait = PasswordTries::waitAfter(tries);
    if (secondsLeft <= wait)
        return secondsLeft;
    connection.Execute(
        ado::sql("UPDATE PASSWORD..tbPasswordMain SET LockedUntil = DATEADD(second, {}, GETDATE()) "
                 "WHERE EmployeeID = '{}'",
                 wait, employeeCode));
    return wait;
}

/// Holds the password against the user's row and counts the try, here and on the server; the same wrong one
/// again counts as one where `sameGuessCounts` is false.
LogOnResult tryPassword(ado::Connection& connection, ado::Recordset& user, const QString& employeeCode,
                        const QString& password, bool sameGuessCounts) {
    const bool known = !user.Eof();
    const int tries = known ? int(base::Val(user.Fields("WrongTries").text())) : 0;
    int secondsLeft = known ? int(base::Val(user.Fields("SecondsLeft").text())) : 0;
    if (secondsLeft > 0)
        secondsLeft = secondsLocked(connection, employeeCode, tries, secondsLeft);
    if (secondsLeft > 0) {
        PasswordTries::mustWait(employeeCode, tries, secondsLeft);
        return LogOnResult::Wait;
    }
    if (!passwordMatches(known ? user.Fields("PasswordHash").text() : QString(), password)) {
        if (PasswordTries::isLastGuess(employeeCode, password) && !sameGuessCounts)
            return LogOnResult::Wrong;
        PasswordTries::wrong(employeeCode, tries);
        if (known)
            addWrongTry(connection, employeeCode);
        return LogOnResult::Wrong;
    }
    PasswordTries::right(employeeCode);
    if (tries > 0)
        forgetWrongTries(connection, employeeCode);
    const QString status = base::Trim(user.Fields("Status").text());
    return status == QLatin1StringView("A") ? LogOnResult::Good : LogOnResult::Inactive;
}

} // namespace

clsCurrentUser::clsCurrentUser() : m_connection(std::make_unique<ado::Connection>()) {}
clsCurrentUser::~clsCurrentUser() = default;

void clsCurrentUser::ShowMain() {
    frmLogOn dialog(*this);
    dialog.ShowModal();
}

bool clsCurrentUser::logOn(const QString& file, const QString& employeeCode, const QString& password) {
    return logOnTo(fileServer(file), employeeCode, password) == LogOnResult::Good;
}

LogOnResult clsCurrentUser::logOnTo(const std::shared_ptr<HospitalServer>& server,
                                    const QString& employeeCode, const QString& password) {
    if (PasswordTries::secondsToWait(employeeCode) > 0)
        return LogOnResult::Wait;
    auto connection = std::make_unique<ado::Connection>();
    connection->Open(server->open(employeeCode), server->connectionString());
    ado::Recordset user = readUser(*connection, employeeCode);
    const LogOnResult result = tryPassword(*connection, user, employeeCode, password, true);
    if (result == LogOnResult::Good) {
        controls::setKeptCharacters(server->keptCharacters(*connection));
        m_connection = std::move(connection);
        takeUser(user, server);
    }
    return result;
}

void clsCurrentUser::takeUser(ado::Recordset& user, const std::shared_ptr<HospitalServer>& server) {
    m_employeeCode = base::Trim(user.Fields("EmployeeID").text());
    m_employeeName = base::Trim(user.Fields("Name").text());
    if (base::Trim(user.Fields("DeptCode").text()) == QLatin1StringView("00"))
        m_passwordDeptCode = QStringLiteral("00");
    m_server = server;
    m_serverName = server->serverName();
    m_database = QStringLiteral("NUCLEAR");
    m_userId = m_employeeCode;
    m_serverPassword = newSessionPassword();
    m_connected = true;
}

bool clsCurrentUser::HAVE_RIGHTS(const QString& right) {
    ado::Recordset row;
    row.Open(
        ado::sql("SELECT RightsID FROM PASSWORD..tbPasswordRights WHERE EmployeeID = '{}' AND DeptCode = "
                 "'{}' AND RightsID = '{}'",
                 m_employeeCode, m_passwordDeptCode, base::Trim(right)),
        *m_connection);
    const bool allowed = !row.Eof();
    row.Close();
    return allowed;
}

bool clsCurrentUser::checkusersettings() {
    frmPassword dialog(*this);
    dialog.ShowModal();
    return dialog.Valid;
}

LogOnResult clsCurrentUser::checkPassword(const QString& password) {
    if (PasswordTries::secondsToWait(m_employeeCode) > 0)
        return LogOnResult::Wait;
    ado::Recordset user = readUser(*m_connection, m_employeeCode);
    return tryPassword(*m_connection, user, m_employeeCode, password, false);
}

std::unique_ptr<ado::Connection> clsCurrentUser::openReportConnection(const QString& server,
                                                                      const QString& database,
                                                                      const QString& login,
                                                                      const QString& password) {
    if (!m_server || server.compare(m_serverName, Qt::CaseInsensitive) != 0)
        throw base::RunTimeError(
            serverNotFound, QStringLiteral("Could not open a connection to the server '%1'.").arg(server),
            QStringLiteral("08001"), {});
    const bool knownLogin = login.compare(QLatin1StringView("sa"), Qt::CaseInsensitive) == 0 ||
                            login.compare(m_userId, Qt::CaseInsensitive) == 0;
    if (!knownLogin || password != m_serverPassword)
        throw base::RunTimeError(loginFailed, QStringLiteral("Login failed for user '%1'.").arg(login),
                                 QStringLiteral("28000"), {});
    auto connection = std::make_unique<ado::Connection>();
    // A connection string of its own: the services join the user's connection by that of the user.
    connection->Open(m_server->open(login), m_server->connectionString() + QStringLiteral(";Use=Report"));
    try {
        connection->setDefaultDatabase(database);
    } catch (const base::RunTimeError& error) {
        if (error.number() != unknownDatabase)
            throw;
        throw base::RunTimeError(
            cannotOpenDatabase,
            QStringLiteral("Cannot open database \"%1\" requested by the login. The login failed.")
                .arg(database),
            QStringLiteral("42000"), {});
    }
    return connection;
}

} // namespace session
