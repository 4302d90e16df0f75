#pragma once

#include "platform/ado/Provider.h"

#include <memory>

namespace odbc {

struct Options {
    /// How long the server may take to answer at all.
    int connectSeconds = 15;
    /// How long one statement may take.
    int statementSeconds = 30;
};

/// Any ODBC data source; meant for SQL Server. Texts go as they are (no preparing), results are fetched
/// whole, forward only, and every result of a batch is taken before the next text goes. Belongs to one
/// thread.
///
/// Between begin() and commit() the driver commits nothing by itself. After an error there the server is
/// asked whether the transaction is still open; when it has rolled it back (a deadlock, a lost line), every
/// further text and commit() raises -2147168242 until rollback() is called, so that no half of a save can be
/// committed. Once the line is lost everything raises 3709.
class OdbcProvider : public ado::Provider {
  public:
    /// `connection` as the driver manager reads it ("DSN=Hospital;", see ConnectionText). Raises what the
    /// driver says: 18456 for a wrong login, SQLSTATE 08001, HYT00 or the like when there is no answer.
    static std::unique_ptr<OdbcProvider> open(const QString& connection, const Options& options = {});
    /// An open transaction is rolled back.
    ~OdbcProvider() override;
    OdbcProvider(const OdbcProvider&) = delete;
    OdbcProvider& operator=(const OdbcProvider&) = delete;

    ado::Result execute(const QString& text) override;
    /// Hands rows over block by block. A text that is stopped outside a transaction keeps what it wrote
    /// before.
    ado::Streamed stream(const QString& text, ado::RowSink& sink) override;
    void begin() override;
    /// Where the line is lost meanwhile, the error says that the outcome is not known.
    void commit() override;
    void rollback() override;
    bool inTransaction() const override;
    void useDatabase(const QString& name) override;
    /// Read from INFORMATION_SCHEMA once a table; a view of one table has the key of that table, which for a
    /// table of another database takes the right to see the view's text (VIEW DEFINITION).
    QStringList primaryKey(const QString& table) override;

    /// What the server calls itself: "Microsoft SQL Server".
    QString product() const;
    /// Texts the server gives in its answer to the log-on: its own name and version.
    QString serverName() const;
    QString version() const;

  private:
    class Private;
    explicit OdbcProvider(std::unique_ptr<Private> self);
    std::unique_ptr<Private> d;
};

} // namespace odbc
