#pragma once

#include "platform/ado/Connection.h"

#include <QStringList>

#include <deque>

namespace tests {

/// A provider with prepared answers: the first answer whose text starts the statement is taken (and stays,
/// unless it is `once`); a statement without an answer gives an empty result of no columns.
class ScriptedProvider : public ado::Provider {
  public:
    struct Answer {
        QString startsWith;
        ado::Result result;
        bool once = false;
    };

    /// Columns "A,B" and rows of texts.
    static ado::Result rowsOf(const QString& columns, const std::vector<std::vector<base::Value>>& rows = {});

    void answer(const QString& startsWith, ado::Result result, bool once = false) {
        m_answers.push_back({startsWith, std::move(result), once});
    }
    /// For the next statement that begins so, whatever else was prepared for it.
    void answerNext(const QString& startsWith, ado::Result result) {
        m_answers.push_front({startsWith, std::move(result), true});
    }
    QStringList keyColumns;

    ado::Result execute(const QString& text) override;
    void begin() override { m_inTransaction = true; }
    void commit() override { m_inTransaction = false; }
    void rollback() override { m_inTransaction = false; }
    bool inTransaction() const override { return m_inTransaction; }
    void useDatabase(const QString&) override {}
    QStringList primaryKey(const QString&) override { return keyColumns; }

  private:
    std::deque<Answer> m_answers;
    bool m_inTransaction = false;
};

/// Writes down every text, and "BEGIN", "COMMIT", "ROLLBACK" in their places. A write-back is led by "UPDATE:
/// ".
class StatementRecorder : public ado::Observer {
  public:
    explicit StatementRecorder(ado::Connection& connection) : m_connection(connection) {
        m_connection.addObserver(this);
    }
    ~StatementRecorder() override { m_connection.removeObserver(this); }
    StatementRecorder(const StatementRecorder&) = delete;
    StatementRecorder& operator=(const StatementRecorder&) = delete;

    void beforeStatement(const QString& text, ado::StatementKind kind) override;
    void transactionStep(ado::TransactionStep step) override;

    QStringList texts;

  private:
    ado::Connection& m_connection;
};

/// Fails the statement number `failing` (from 1) after it was armed, with the server's error `number`.
class FaultInjector : public ado::Observer {
  public:
    FaultInjector(ado::Connection& connection, int failing) : m_connection(connection), m_failing(failing) {
        m_connection.addObserver(this);
    }
    ~FaultInjector() override { m_connection.removeObserver(this); }
    FaultInjector(const FaultInjector&) = delete;
    FaultInjector& operator=(const FaultInjector&) = delete;

    void beforeStatement(const QString& text, ado::StatementKind kind) override;
    int seen() const { return m_seen; }

  private:
    ado::Connection& m_connection;
    int m_failing;
    int m_seen = 0;
};

} // namespace tests
