#pragma once

#include "session/logon/HospitalServer.h"
#include "tests/support/core/ScriptedProvider.h"
#include "tests/support/screens/RecordedScreens.h"

#include <functional>
#include <memory>

namespace tests {

/// A server of prepared answers that knows the employees it was given.
class ScriptedServer : public session::HospitalServer {
  public:
    ScriptedServer();

    void addEmployee(const QString& code, const QString& name, const QString& password,
                     const QString& deptCode = QStringLiteral("5"),
                     const QString& status = QStringLiteral("A"));
    /// For every session that is opened; the newest rule for a text counts.
    void answer(const QString& startsWith, ado::Result result);
    /// Databases that report log-ons may ask for; NUCLEAR is there.
    QStringList databases{QStringLiteral("NUCLEAR")};
    bool there = true;
    QList<int> progressTold;
    QStringList logins;
    /// Every text that any of its sessions was sent.
    QStringList texts;
    /// The statement that begins so fails from now on.
    void fail(const QString& startsWith) { failing = startsWith; }
    QString failing;

    QString name() const override { return QStringLiteral("Scripted"); }
    QString serverName() const override { return QStringLiteral("SCRIPTED"); }
    QString connectionString() const override { return QStringLiteral("Server=SCRIPTED"); }
    bool isThere() const override { return there; }
    void prepare(const std::function<void(int)>& progress) override;
    std::unique_ptr<ado::Provider> open(const QString& login) override;

  private:
    std::vector<ScriptedProvider::Answer> m_answers;
};

/// 1001, REYES, JOAN P., password "secret", logged on to a scripted server; services wired, screens recorded.
class ScriptedSession {
  public:
    ScriptedSession();
    ~ScriptedSession();
    ScriptedSession(const ScriptedSession&) = delete;
    ScriptedSession& operator=(const ScriptedSession&) = delete;

    RecordedScreens screens;
    /// The live session's own answers; ask it before the statement is sent.
    ScriptedProvider& server() { return *m_live; }
    /// The texts since the log-on.
    QStringList& texts() { return m_recorder->texts; }

  private:
    ScriptedProvider* m_live = nullptr;
    std::unique_ptr<StatementRecorder> m_recorder;
};

} // namespace tests
