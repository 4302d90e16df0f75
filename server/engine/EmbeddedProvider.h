#pragma once

#include "platform/ado/Provider.h"

#include <QStringList>

#include <functional>
#include <memory>

struct sqlite3;

namespace engine {

struct Options {
    /// HOST_NAME(), and the workstation in the trace.
    QString hostName;
    /// APP_NAME()
    QString programName;
    /// SUSER_SNAME()
    QString loginName;
    /// A file that is missing is made, with these databases. None: it must be there.
    QStringList newDatabases;
    /// How long a statement waits for another workstation's transaction before it fails with 1222.
    int busyMilliseconds = 30'000;
    /// Told each second while one waits so, on the thread that waits. Raises nothing.
    std::function<void(int seconds)> waiting;
};

/// The hospital server that comes along: T-SQL run on one SQLite file. Several providers, also of several
/// processes, may have the same file open; each belongs to one thread. A session begins in the first of the
/// databases that the file was made with.
///
/// A batch outside of begin() is one transaction by itself: all of it is written, or, after an error,
/// nothing. A batch that writes takes the write lock before its first read, so that a number that it reads
/// and then raises is drawn by no other workstation in between. Between begin() and commit() an error undoes
/// the failed statement only, and the transaction stays open. An error that takes all of it back (a full
/// disk) leaves it to be ended: until then every text raises -2147168242, and so does the commit.
class EmbeddedProvider : public ado::Provider {
  public:
    /// Raises 4060 when the file cannot be opened, or is no hospital file.
    static std::unique_ptr<EmbeddedProvider> open(const QString& file, const Options& options);
    /// An open transaction is rolled back.
    ~EmbeddedProvider() override;
    EmbeddedProvider(const EmbeddedProvider&) = delete;
    EmbeddedProvider& operator=(const EmbeddedProvider&) = delete;

    ado::Result execute(const QString& text) override;
    /// Hands rows over as they are stepped, and sorts on disk where that takes more than a little memory.
    ado::Streamed stream(const QString& text, ado::RowSink& sink) override;
    /// Takes the write lock at once; waits for another workstation that has it. Raises -2147168237 when a
    /// transaction is open already, 1222 when the wait was too long.
    void begin() override;
    /// Raises 3902 without a transaction. Whatever it raises, nothing was kept and no transaction is open.
    void commit() override;
    /// Raises 3903 without a transaction.
    void rollback() override;
    bool inTransaction() const override;
    void useDatabase(const QString& name) override;
    QStringList primaryKey(const QString& table) override;

    const QString& file() const;
    QString database() const;
    /// The name of a database, as the file writes it.
    bool hasDatabase(const QString& name) const;
    /// Kept in the file; "" when there is none of that name.
    QString setting(const QString& name);
    void setSetting(const QString& name, const QString& value);
    /// Whether every open provider of the file writes its statements to "<file>.trace.txt". Seen by the
    /// others within a second.
    bool isTracing();
    void setTracing(bool on);
    /// What is wrong with the file: pages, and modules that do not fit the tables. Empty when all is well.
    QStringList check();
    /// For bulk loading: the SQLite connection, owned by the provider.
    sqlite3* handle() const;

  private:
    class Private;
    explicit EmbeddedProvider(std::unique_ptr<Private> self);
    std::unique_ptr<Private> d;
};

/// "NUCLEAR..tbNucSlip" as SQLite takes it, quotes included: "\"NUCLEAR.tbNucSlip\"".
QString sqliteName(const QString& table);

} // namespace engine
