#pragma once

#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"
#include "tests/support/tds/Diary.h"
#include "tests/support/tds/Line.h"
#include "tests/support/tds/LoginRequest.h"
#include "tests/support/tds/Tokens.h"

namespace tests::tds {

struct Hospital {
    QString file;
    /// Empty: any login.
    QString user;
    QString password;
};

/// One connection, from the log-on to its end. Made and used on one thread.
class TdsSession {
  public:
    TdsSession(qintptr descriptor, Hospital hospital, Diary& diary, const std::atomic<bool>& stopping);
    ~TdsSession();
    TdsSession(const TdsSession&) = delete;
    TdsSession& operator=(const TdsSession&) = delete;

    /// Returns when the client has gone or the server stops.
    void serve();

  private:
    class Collector;

    void answerPrelogin();
    bool logOn(const LoginRequest& login);
    void refuse(const std::vector<ServerMessage>& messages);
    void tellLogOn(const LoginRequest& login);

    void answer(const Message& message);
    void answerText(const QByteArray& data);
    void answerTransaction(const QByteArray& data);
    void answerAttention();

    void runText(Answer& answer, const QString& text);
    bool handled(Answer& answer, const std::optional<Fault>& fault);
    void strikeDeadlock(Answer& answer);
    void fail(Answer& answer, const base::RunTimeError& error);
    void tellResults(Answer& answer, const std::vector<ado::Rows>& results, qint64 affected, bool isCall);
    /// Whether the engine has lost the transaction that the client believes in.
    void tellTransactionLost(Answer& answer);
    void openTransaction(Answer& answer);
    void endTransaction(Answer& answer, int request);
    void closeTransaction(Answer& answer, Environment how);
    void startInEngine();
    int state(int bits) const { return bits | (m_open ? Answer::InTransaction : 0); }
    static int waitForLock(void* session, int calls);

    Hospital m_hospital;
    Diary& m_diary;
    Line m_line;
    quint32 m_version = 0;
    std::unique_ptr<engine::EmbeddedProvider> m_provider;
    quint64 m_transaction = 0; ///< the number of the latest
    bool m_open = false;       ///< as the client sees it
    bool m_started = false;    ///< in the engine: by the first text
    bool m_isChained = false;  ///< begun by the end of the one before, not asked for
    bool m_isDone = false;
};

} // namespace tests::tds
