#include "platform/odbc/OdbcProvider.h"

#include "platform/ado/Quoting.h"
#include "platform/ado/TransactionErrors.h"
#include "platform/base/Conversion.h"
#include "platform/odbc/Diagnostics.h"
#include "platform/odbc/OdbcConnection.h"

#include <QHash>
#include <QRegularExpression>

namespace odbc {
namespace {

/// A name without its brackets.
QString bare(QString name) {
    name = name.trimmed();
    if (name.startsWith(u'[') && name.endsWith(u']'))
        name = name.mid(1, name.size() - 2).replace(QLatin1StringView("]]"), QLatin1StringView("]"));
    return name;
}

/// Key columns of a table, or of the one table that a view reads.
QString keyStatement(const QString& database, const QString& table) {
    return QStringLiteral(
               "SELECT K.COLUMN_NAME FROM %1INFORMATION_SCHEMA.TABLE_CONSTRAINTS T INNER JOIN "
               "%1INFORMATION_SCHEMA.KEY_COLUMN_USAGE K ON K.CONSTRAINT_SCHEMA = T.CONSTRAINT_SCHEMA AND "
               "K.CONSTRAINT_NAME = T.CONSTRAINT_NAME WHERE T.CONSTRAINT_TYPE = 'PRIMARY KEY' AND "
               "(T.TABLE_NAME = %2 OR T.TABLE_NAME = (SELECT MIN(V.TABLE_NAME) FROM "
               "%1INFORMATION_SCHEMA.VIEW_TABLE_USAGE V WHERE V.VIEW_NAME = %2 HAVING COUNT(*) = 1)) "
               "ORDER BY K.ORDINAL_POSITION")
        .arg(database, ado::literal(base::Value(table)));
}

/// Of a view over another database a server tells neither table nor key, only its text (NULL without the
/// right).
QString viewStatement(const QString& database, const QString& view) {
    return QStringLiteral(
               "SELECT M.definition FROM %1sys.sql_modules M INNER JOIN %1sys.objects O ON O.object_id = "
               "M.object_id WHERE O.type = 'V' AND O.name = %2")
        .arg(database, ado::literal(base::Value(view)));
}

/// The one table of another database that a view with that text reads; empty when it reads more, or its own.
QString tableBelow(const QString& view) {
    static const QRegularExpression comment(QStringLiteral(R"(--[^\n]*|/\*.*?\*/)"),
                                            QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression from(
        QStringLiteral(
            R"(^(?:(?!\bFROM\b).)*\bFROM\s+((?:\[[^\]]+\]|\w+)\.(?:\[[^\]]+\]|\w+)?\.(?:\[[^\]]+\]|\w+)))"
            R"((?:\s+(?:AS\s+)?(?!WITH\b|WHERE\b)\w+)?(?:\s+WITH\s*\([^)]*\))?)"
            R"((?:\s+WHERE\b(?:(?!\b(?:FROM|UNION)\b).)*)?\s*;?\s*$)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    QString text = view;
    return from.match(text.remove(comment)).captured(1);
}

base::RunTimeError lineLost() {
    return base::RunTimeError(base::errors::connectionInvalid,
                              QStringLiteral("The connection to the server is lost. Please log on again."),
                              QStringLiteral("08003"), {});
}

base::RunTimeError outcomeUnknown(const base::RunTimeError& error) {
    return base::RunTimeError(
        error.number(),
        error.description() + QStringLiteral(" It is not known whether the server kept what was being saved: "
                                             "please look it up before saving it again."),
        error.sqlState(), error.statement());
}

} // namespace

class OdbcProvider::Private {
  public:
    Private(const QString& text, const Options& options) : connection(text, options) {}

    /// Runs `call`; an error in it tells what became of the line and of the transaction.
    template <typename Call>
    auto watched(Call call) {
        if (dead)
            throw lineLost();
        try {
            return call();
        } catch (const base::RunTimeError& error) {
            afterError(error);
            throw;
        }
    }
    template <typename Call>
    auto watchedText(const QString& text, Call call) {
        try {
            if (rolledBackByServer)
                throw ado::rolledBackByServer();
            return watched(call);
        } catch (const base::RunTimeError& error) {
            throw error.withStatement(text);
        }
    }

    /// Leaves no transaction behind; a line on which that fails is of no use any more.
    void endByRollback() {
        try {
            if (!dead) { // else the server rolls back as the line goes
                rollBackWhatIsThere();
                connection.setAutocommit(true);
            }
        } catch (const base::RunTimeError&) {
            dead = true;
        }
        rolledBackByServer = false;
    }

    OdbcConnection connection;
    QHash<QString, QStringList> keys;
    bool inTransaction = false;
    bool rolledBackByServer = false;
    bool dead = false;

  private:
    void rollBackWhatIsThere();
    void afterError(const base::RunTimeError& error);
    bool transactionIsGone();
};

/// Some drivers insist on a transaction to roll back, where the server has done so already.
void OdbcProvider::Private::rollBackWhatIsThere() {
    try {
        connection.endTransaction(SQL_ROLLBACK);
    } catch (const base::RunTimeError&) {
        if (!rolledBackByServer || !connection.isSqlServer())
            throw;
        connection.fetch(QStringLiteral("IF @@TRANCOUNT = 0 BEGIN TRANSACTION"));
        connection.endTransaction(SQL_ROLLBACK);
    }
}

/// Whether the transaction outlived the error. A server that has rolled it back would run the texts that
/// follow each for itself, and a save would be kept by half.
void OdbcProvider::Private::afterError(const base::RunTimeError& error) {
    dead = dead || isConnectionError(error) || connection.lineIsDead();
    if (inTransaction && !rolledBackByServer)
        rolledBackByServer = dead || transactionIsGone();
}

bool OdbcProvider::Private::transactionIsGone() {
    if (!connection.isSqlServer())
        return false;
    try {
        const ado::Result open = connection.fetch(QStringLiteral("SELECT @@TRANCOUNT"));
        const qint64* count = open.rows.count() == 1 ? open.rows.at(0, 0).asInteger() : nullptr;
        return count && *count == 0;
    } catch (const base::RunTimeError&) {
        dead = true;
        return true;
    }
}

std::unique_ptr<OdbcProvider> OdbcProvider::open(const QString& connection, const Options& options) {
    return std::unique_ptr<OdbcProvider>(new OdbcProvider(std::make_unique<Private>(connection, options)));
}

OdbcProvider::OdbcProvider(std::unique_ptr<Private> self) : d(std::move(self)) {}
OdbcProvider::~OdbcProvider() = default;

ado::Result OdbcProvider::execute(const QString& text) {
    return d->watchedText(text, [&] { return d->connection.fetch(text); });
}

ado::Streamed OdbcProvider::stream(const QString& text, ado::RowSink& sink) {
    return d->watchedText(text, [&] { return d->connection.stream(text, sink); });
}

void OdbcProvider::begin() {
    if (d->inTransaction)
        throw ado::transactionIsOpen();
    try {
        d->watched([&] { d->connection.setAutocommit(false); });
    } catch (const base::RunTimeError& error) {
        // a driver tells only that it could not begin; nothing is open yet that could be half done
        throw d->dead && error.number() != errors::timeOut ? lineLost() : error;
    }
    d->inTransaction = true;
}

void OdbcProvider::commit() {
    if (!d->inTransaction)
        throw ado::nothingToCommit();
    if (d->rolledBackByServer) {
        rollback();
        throw ado::rolledBackByServer();
    }
    d->inTransaction = false;
    try {
        d->watched([&] { d->connection.endTransaction(SQL_COMMIT); });
    } catch (const base::RunTimeError& error) {
        const bool unknown = d->dead || error.number() == errors::timeOut;
        d->endByRollback();
        throw unknown ? outcomeUnknown(error) : error;
    }
    try {
        d->connection.setAutocommit(true);
    } catch (const base::RunTimeError&) {
        d->dead = true; // the commit stands; what comes next is told
    }
}

void OdbcProvider::rollback() {
    if (!d->inTransaction)
        throw ado::nothingToRollBack();
    d->inTransaction = false;
    d->endByRollback();
}

bool OdbcProvider::inTransaction() const {
    return d->inTransaction;
}

void OdbcProvider::useDatabase(const QString& name) {
    execute(QStringLiteral("USE ") + ado::bracketed(name));
}

QStringList OdbcProvider::primaryKey(const QString& table) {
    const auto known = d->keys.constFind(table);
    if (known != d->keys.constEnd())
        return *known;
    const QStringList parts = table.split(u'.');
    const QString database =
        parts.size() > 2 ? ado::bracketed(bare(parts[parts.size() - 3])) + u'.' : QString();
    const ado::Result found = execute(keyStatement(database, bare(parts.constLast())));
    QStringList columns;
    for (qsizetype row = 0; row < found.rows.count(); ++row)
        columns += base::textOf(found.rows.at(row, 0));
    if (columns.isEmpty() && d->connection.isSqlServer()) {
        const ado::Result view = execute(viewStatement(database, bare(parts.constLast())));
        const QString below =
            view.rows.count() == 1 ? tableBelow(base::textOf(view.rows.at(0, 0))) : QString();
        if (!below.isEmpty())
            columns = primaryKey(below);
    }
    if (!columns.isEmpty())
        d->keys.insert(table, columns);
    return columns;
}

QString OdbcProvider::product() const {
    return d->connection.info(SQL_DBMS_NAME);
}

QString OdbcProvider::serverName() const {
    return d->connection.info(SQL_SERVER_NAME);
}

QString OdbcProvider::version() const {
    return d->connection.info(SQL_DBMS_VER);
}

} // namespace odbc
