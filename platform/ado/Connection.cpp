#include "platform/ado/Connection.h"

#include <QElapsedTimer>

#include <algorithm>
#include <tuple>
#include <utility>

namespace ado {
namespace {

std::vector<Connection*>& openConnections() {
    static std::vector<Connection*> connections;
    return connections;
}

} // namespace

void Observer::beforeStatement(const QString&, StatementKind) {}
void Observer::afterStatement(const StatementEvent&) {}
void Observer::transactionStep(TransactionStep) {}

Connection::~Connection() {
    std::erase(openConnections(), this);
}

void Connection::Open(std::unique_ptr<Provider> provider, const QString& connectionString) {
    if (m_provider)
        throw base::RunTimeError(base::errors::objectOpen);
    m_provider = std::move(provider);
    m_connectionString = connectionString;
    openConnections().push_back(this);
}

void Connection::Close() {
    provider();
    std::erase(openConnections(), this);
    m_provider.reset();
}

void Connection::setDefaultDatabase(const QString& name) {
    provider().useDatabase(name);
    m_defaultDatabase = name;
}

Recordset Connection::Execute(const Statement& statement) {
    Recordset recordset;
    recordset.take(*this, statement, LockType::ReadOnly);
    return recordset;
}

void Connection::BeginTrans() {
    provider();
    tell(TransactionStep::Begin);
    m_commitFailed = false;
    m_provider->begin();
}

void Connection::CommitTrans() {
    provider();
    tell(TransactionStep::Commit);
    try {
        m_provider->commit();
    } catch (const base::RunTimeError&) {
        m_commitFailed = !m_provider->inTransaction();
        throw;
    }
}

void Connection::RollbackTrans() {
    provider();
    tell(TransactionStep::Rollback);
    // The commit took the transaction along as it failed: nothing is left to take back, and nothing wrong in
    // asking.
    if (std::exchange(m_commitFailed, false) && !m_provider->inTransaction())
        return;
    m_provider->rollback();
}

void Connection::addObserver(Observer* observer) {
    m_observers.push_back(observer);
}

void Connection::removeObserver(Observer* observer) {
    std::erase(m_observers, observer);
}

Connection* Connection::byConnectionString(const QString& connectionString) {
    const auto& connections = openConnections();
    const auto found =
        std::find_if(connections.begin(), connections.end(), [&](const Connection* connection) {
            return connection->ConnectionString() == connectionString;
        });
    return found == connections.end() ? nullptr : *found;
}

/// Runs the call between the observers' two looks; it gives what came of it and the rows fetched and written.
template <typename Call>
auto Connection::observed(const QString& text, StatementKind kind, Call call) {
    Provider& server = provider();
    QElapsedTimer timer;
    if (!m_observers.empty())
        timer.start();
    const auto spent = [&timer] { return timer.isValid() ? timer.nsecsElapsed() : 0; };
    try {
        for (Observer* observer : m_observers)
            observer->beforeStatement(text, kind);
        auto [result, rows, affected] = call(server);
        const StatementEvent event{text, kind, rows, affected, spent(), nullptr};
        for (Observer* observer : m_observers)
            observer->afterStatement(event);
        return std::move(result);
    } catch (const base::RunTimeError& caught) {
        const base::RunTimeError error = caught.withStatement(text);
        const StatementEvent event{text, kind, 0, -1, spent(), &error};
        for (Observer* observer : m_observers)
            observer->afterStatement(event);
        throw base::RunTimeError(error);
    }
}

Result Connection::send(const Statement& statement, StatementKind kind) {
    return observed(statement.text(), kind, [&](Provider& server) {
        Result result = server.execute(statement.text());
        const qint64 rows = result.rows.count();
        const qint64 affected = result.affected;
        return std::tuple(std::move(result), rows, affected);
    });
}

Streamed Connection::stream(const Statement& statement, RowSink& sink) {
    return observed(statement.text(), StatementKind::Text, [&](Provider& server) {
        const Streamed end = server.stream(statement.text(), sink);
        return std::tuple(end, end.rows, end.affected);
    });
}

Provider& Connection::provider() {
    if (!m_provider)
        throw base::RunTimeError(base::errors::objectClosed);
    return *m_provider;
}

void Connection::tell(TransactionStep step) {
    for (Observer* observer : m_observers)
        observer->transactionStep(step);
}

} // namespace ado
