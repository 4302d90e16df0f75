// The transactions of a session: as the client asks for them, and in the engine.
#include "tests/support/tds/TdsSession.h"

#include <sqlite3.h>

#include <chrono>
#include <thread>

namespace tests::tds {
namespace {

enum Request { Begin = 5, Commit = 7, Rollback = 8 };
constexpr int noCommand = 0;

base::RunTimeError outOfTurn(int number, const char* what) {
    return base::RunTimeError(
        number, QStringLiteral("The %1 TRANSACTION request has no corresponding BEGIN TRANSACTION.")
                    .arg(QLatin1StringView(what)));
}

} // namespace

void TdsSession::answerTransaction(const QByteArray& data) {
    ByteReader reader(data);
    reader.skipTo(reader.number<quint32>()); // what comes with a request, its own length first
    const auto request = reader.number<quint16>();
    bool beginsAnother = false;
    if (request == Begin) {
        reader.byte(); // isolation level
    } else if (request == Commit || request == Rollback) {
        reader.take(2 * reader.byte()); // name
        beginsAnother = (reader.byte() & 1) != 0;
    } else {
        throw ProtocolError("a transaction request of a kind that is not known");
    }
    Answer answer;
    if (request == Begin && handled(answer, m_diary.step(QStringLiteral("BEGIN"))))
        return;
    if (request == Commit && handled(answer, m_diary.step(QStringLiteral("COMMIT"))))
        return;
    if (request == Rollback && (m_started || !m_isChained))
        m_diary.note(QStringLiteral("ROLLBACK"));
    try {
        endTransaction(answer, request);
        if (request == Begin || beginsAnother) {
            openTransaction(answer);
            m_isChained = request != Begin;
        }
        answer.done(End::Statement, state(0), noCommand);
    } catch (const base::RunTimeError& error) {
        tellTransactionLost(answer);
        fail(answer, error);
    }
    m_line.send(answer.out.bytes());
}

void TdsSession::endTransaction(Answer& answer, int request) {
    if (request == Begin)
        return;
    if (!m_open)
        throw request == Commit ? outOfTurn(3902, "COMMIT") : outOfTurn(3903, "ROLLBACK");
    if (m_started && request == Commit)
        m_provider->commit();
    else if (m_started)
        m_provider->rollback();
    closeTransaction(answer, request == Commit ? Environment::Committed : Environment::RolledBack);
}

void TdsSession::openTransaction(Answer& answer) {
    answer.changed(Environment::Begun, ++m_transaction);
    m_open = true;
    m_started = false;
}

void TdsSession::closeTransaction(Answer& answer, Environment how) {
    answer.changed(how, m_transaction);
    m_open = false;
    m_started = false;
}

void TdsSession::tellTransactionLost(Answer& answer) {
    if (m_started && !m_provider->inTransaction())
        closeTransaction(answer, Environment::RolledBack);
}

/// A server locks nothing before the first text of a transaction; the engine would with its begin().
void TdsSession::startInEngine() {
    if (!m_open || m_started)
        return;
    m_provider->begin();
    m_started = true;
}

/// A server waits for a lock as long as the client does.
int TdsSession::waitForLock(void* session, int) {
    if (static_cast<TdsSession*>(session)->m_line.isGivenUp())
        return 0;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return 1;
}

} // namespace tests::tds
