#pragma once

#include "platform/ado/Provider.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/Statement.h"
#include "platform/base/Error.h"

#include <QString>

#include <memory>
#include <vector>

namespace ado {

enum class StatementKind {
    Text,     ///< a text that a screen built
    WriteBack ///< the UPDATE that Recordset::Update makes of an edited row
};

enum class TransactionStep { Begin, Commit, Rollback };

struct StatementEvent {
    const QString& text;
    StatementKind kind;
    qint64 rows;                     ///< rows fetched
    qint64 affected;                 ///< rows written, -1 when not told
    qint64 nanoseconds;              ///< from the call to the last row
    const base::RunTimeError* error; ///< null when it went well
};

/// Sees everything that goes over a connection: a test's recorder, a fault injector.
class Observer {
  public:
    virtual ~Observer() = default;
    /// What it raises is raised instead of sending the statement.
    virtual void beforeStatement(const QString& text, StatementKind kind);
    virtual void afterStatement(const StatementEvent& event);
    /// Before the step is taken; what it raises is raised instead.
    virtual void transactionStep(TransactionStep step);
};

/// The live connection. Owns the provider.
class Connection {
  public:
    static constexpr int adStateClosed = 0;
    static constexpr int adStateOpen = 1;
    static constexpr int adUseServer = 2;
    static constexpr int adUseClient = 3;

    Connection() = default;
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// `connectionString` is what ConnectionString() tells from now on; it holds no password. Raises 3705
    /// when open.
    void Open(std::unique_ptr<Provider> provider, const QString& connectionString);
    /// An open transaction is rolled back. Raises 3704 when closed.
    void Close();
    int State() const { return m_provider ? adStateOpen : adStateClosed; }
    const QString& ConnectionString() const { return m_connectionString; }
    const QString& DefaultDatabase() const { return m_defaultDatabase; }
    void setDefaultDatabase(const QString& name);
    int CursorLocation() const { return m_cursorLocation; }
    void setCursorLocation(int location) { m_cursorLocation = location; }

    /// Sends the statement; the recordset is closed when it gave no columns.
    Recordset Execute(const Statement& statement);
    /// Sends the statement and hands its rows over as they come. Observers see it once, with the rows handed
    /// over, on the thread that calls.
    Streamed stream(const Statement& statement, RowSink& sink);
    void BeginTrans();
    void CommitTrans();
    /// Raises 3903 without a transaction, unless a commit has just failed and took it along.
    void RollbackTrans();
    bool inTransaction() const { return m_provider && m_provider->inTransaction(); }

    /// Not owned; must be removed before it dies.
    void addObserver(Observer* observer);
    void removeObserver(Observer* observer);

    /// The open connection of this process with that connection string; null when there is none.
    static Connection* byConnectionString(const QString& connectionString);

  private:
    friend class Recordset;
    friend class WriteBack;
    Result send(const Statement& statement, StatementKind kind);
    template <typename Call>
    auto observed(const QString& text, StatementKind kind, Call call);
    Provider& provider();
    void tell(TransactionStep step);

    std::unique_ptr<Provider> m_provider;
    QString m_connectionString;
    QString m_defaultDatabase;
    int m_cursorLocation = adUseServer;
    std::vector<Observer*> m_observers;
    bool m_commitFailed = false;
};

} // namespace ado
