#include "tests/support/screens/ScriptedSession.h"

#include "platform/base/Error.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/logon/PasswordCheck.h"
#include "session/logon/clsCurrentUser.h"

#include <sodium.h>

#include <array>
#include <stdexcept>

namespace tests {
namespace {

/// The cheapest hash there is: tests try many.
QString hashOf(const QString& password) {
    if (sodium_init() < 0)
        throw std::runtime_error("libsodium does not start");
    std::array<char, crypto_pwhash_STRBYTES> text{};
    const QByteArray secret = password.toUtf8();
    if (crypto_pwhash_str(text.data(), secret.constData(), static_cast<unsigned long long>(secret.size()),
                          crypto_pwhash_OPSLIMIT_MIN, crypto_pwhash_MEMLIMIT_MIN) != 0)
        throw std::runtime_error("out of memory for a hash");
    return QString::fromLatin1(text.data());
}

QString userStatement(const QString& code) {
    return QStringLiteral(
               "SELECT EmployeeID, Name, PasswordHash, DeptCode, Status, WrongTries, CASE WHEN LockedUntil > "
               "GETDATE() THEN DATEDIFF(second, GETDATE(), LockedUntil) ELSE 0 END AS SecondsLeft FROM "
               "PASSWORD..tbPasswordMain WHERE EmployeeID = '%1'")
        .arg(code);
}

class ServerSession : public ScriptedProvider {
  public:
    explicit ServerSession(ScriptedServer& server) : m_server(server) {}
    ado::Result execute(const QString& text) override {
        m_server.texts += text;
        if (!m_server.failing.isEmpty() && text.startsWith(m_server.failing))
            throw base::RunTimeError(50000, QStringLiteral("Scripted failure."));
        return ScriptedProvider::execute(text);
    }
    void useDatabase(const QString& name) override {
        if (!m_server.databases.contains(name, Qt::CaseInsensitive))
            throw base::RunTimeError(911, QStringLiteral("Database '%1' does not exist.").arg(name));
    }

  private:
    ScriptedServer& m_server;
};

} // namespace

ScriptedServer::ScriptedServer() {
    answer(QStringLiteral("SELECT EmployeeID, Name, PasswordHash"),
           ScriptedProvider::rowsOf(
               QStringLiteral("EmployeeID,Name,PasswordHash,DeptCode,Status,WrongTries,SecondsLeft")));
    answer(QStringLiteral("Select * from PATIENT_DATA..tbHospitalInfo"),
           ScriptedProvider::rowsOf(
               QStringLiteral("Company,Address1,Title,TinNo,OPDPassword"),
               {{"Kerova General Hospital", "1 Main Street", "Hospital", "123-456", "open"}}));
}

void ScriptedServer::addEmployee(const QString& code, const QString& name, const QString& password,
                                 const QString& deptCode, const QString& status) {
    answer(userStatement(code),
           ScriptedProvider::rowsOf(
               QStringLiteral("EmployeeID,Name,PasswordHash,DeptCode,Status,WrongTries,SecondsLeft"),
               {{code, name, hashOf(password), deptCode, status, 0, 0}}));
}

void ScriptedServer::answer(const QString& startsWith, ado::Result result) {
    m_answers.insert(m_answers.begin(), {startsWith, std::move(result), false});
}

void ScriptedServer::prepare(const std::function<void(int)>& progress) {
    for (const int percent : {0, 50, 100}) {
        progressTold += percent;
        progress(percent);
    }
    there = true;
}

std::unique_ptr<ado::Provider> ScriptedServer::open(const QString& login) {
    logins += login;
    auto opened = std::make_unique<ServerSession>(*this);
    for (const ScriptedProvider::Answer& prepared : m_answers)
        opened->answer(prepared.startsWith, prepared.result);
    return opened;
}

ScriptedSession::ScriptedSession() {
    class Watched : public ScriptedServer {
      public:
        ScriptedProvider* live = nullptr;
        std::unique_ptr<ado::Provider> open(const QString& login) override {
            auto opened = ScriptedServer::open(login);
            live = static_cast<ScriptedProvider*>(opened.get());
            return opened;
        }
    };
    session::forgetPasswordTries();
    const auto server = std::make_shared<Watched>();
    server->addEmployee(QStringLiteral("1001"), QStringLiteral("REYES, JOAN P."), QStringLiteral("secret"));
    auto user = std::make_unique<session::clsCurrentUser>();
    user->setPasswordDeptCode(QStringLiteral("5"));
    if (user->logOnTo(server, QStringLiteral("1001"), QStringLiteral("secret")) != session::LogOnResult::Good)
        throw std::runtime_error("the scripted log-on failed");
    m_live = server->live;
    if (!session::wireSession(std::move(user)))
        throw std::runtime_error("a service failed");
    m_recorder = std::make_unique<StatementRecorder>(*session::gConnection);
}

ScriptedSession::~ScriptedSession() {
    m_recorder.reset();
    session::forgetSession();
}

} // namespace tests
