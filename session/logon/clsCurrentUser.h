#pragma once

#include "platform/ado/Connection.h"

#include <QString>

#include <memory>

namespace session {

class HospitalServer;

/// How a try to log on ended.
enum class LogOnResult {
    Good,
    Wrong,    ///< the code or the password is wrong
    Inactive, ///< right, but this employee's log-on has been closed
    Wait      ///< too many wrong tries: PasswordTries tells how long
};

/// The user object: the log-on dialog, the live connection, who is working.
class clsCurrentUser {
  public:
    clsCurrentUser();
    ~clsCurrentUser();

    QString PasswordDeptCode() const { return m_passwordDeptCode; }
    /// The department set by the program before the log-on; a good log-on replaces it with the user's own
    /// when that is the exam maintenance's "00".
    void setPasswordDeptCode(const QString& code) { m_passwordDeptCode = code; }
    /// Shows the log-on dialog; opens sqlconnection on a good log-on; returns when finished.
    void ShowMain();
    bool Connected() const { return m_connected; }
    ado::Connection& sqlconnection() { return *m_connection; }
    const QString& employeecode() const { return m_employeeCode; }
    const QString& employeename() const { return m_employeeName; }
    const QString& ServerName() const { return m_serverName; }
    const QString& Database() const { return m_database; }
    const QString& UserID() const { return m_userId; }
    const QString& serverpassword() const { return m_serverPassword; }
    bool HAVE_RIGHTS(const QString& right);
    /// Asks for the user's own password and says whether it was right.
    bool checkusersettings();

    /// A connection of its own for a report, to the same server. Raises 4060 for a database that is not
    /// there, 18456 for a wrong login, 53 for another server.
    std::unique_ptr<ado::Connection> openReportConnection(const QString& server, const QString& database,
                                                          const QString& login, const QString& password);

    /// Tests and the tour: logs on without the dialog. False when code or password are wrong.
    bool logOn(const QString& hospitalFile, const QString& employeeCode, const QString& password);
    /// What the log-on dialog does. Raises what the server says.
    LogOnResult logOnTo(const std::shared_ptr<HospitalServer>& server, const QString& employeeCode,
                        const QString& password);
    /// One try of the user's own password; counts like a try to log on.
    LogOnResult checkPassword(const QString& password);

  private:
    void takeUser(ado::Recordset& user, const std::shared_ptr<HospitalServer>& server);

    std::shared_ptr<HospitalServer> m_server;
    std::unique_ptr<ado::Connection> m_connection;
    bool m_connected = false;
    QString m_passwordDeptCode;
    QString m_employeeCode;
    QString m_employeeName;
    QString m_serverName;
    QString m_database;
    QString m_userId;
    QString m_serverPassword;
};

} // namespace session
