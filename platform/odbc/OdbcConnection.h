#pragma once

#include "platform/base/Error.h"
#include "platform/odbc/Handle.h"
#include "platform/odbc/OdbcProvider.h"
#include "platform/odbc/ResultReader.h"

#include <functional>
#include <memory>

namespace odbc {

/// The handles of one connection, and the running of texts on its one statement. Knows nothing of what an
/// error means for a transaction. Every member raises what the driver says.
class OdbcConnection {
  public:
    OdbcConnection(const QString& connection, const Options& options);
    /// Rolls back what is open, and disconnects.
    ~OdbcConnection();
    OdbcConnection(const OdbcConnection&) = delete;
    OdbcConnection& operator=(const OdbcConnection&) = delete;

    /// Takes a result that has columns; false when no further result is wanted.
    using TakeResult = std::function<bool(ResultReader& rows, std::vector<ado::Column>&& columns)>;
    /// Runs the text to the last result of the batch. Gives the rows written, -1 when not told.
    qint64 run(const QString& text, const TakeResult& take);
    /// Runs the text; the last rows of the batch.
    ado::Result fetch(const QString& text);

    /// Runs the text and hands its rows over, holding no more than a block of them.
    ado::Streamed stream(const QString& text, ado::RowSink& sink);

    void setAutocommit(bool on);
    /// SQL_COMMIT or SQL_ROLLBACK.
    void endTransaction(SQLSMALLINT how);
    bool lineIsDead() const;
    bool isSqlServer() const { return m_isSqlServer; }
    /// A text of SQLGetInfo; empty when the driver does not tell.
    QString info(SQLUSMALLINT what) const;

  private:
    base::RunTimeError logOnError(const QString& text) const;

    Handle m_environment = makeEnvironment();
    Handle m_connection;
    Handle m_statement;
    std::unique_ptr<ResultReader> m_reader;
    WideText m_text;
    bool m_isSqlServer = false;
    bool m_connected = false;
    bool m_autocommit = true;
};

} // namespace odbc
