#include "platform/odbc/OdbcProvider.h"

#include "platform/ado/Literal.h"
#include "platform/ado/TransactionErrors.h"
#include "platform/base/Conversion.h"
#include "platform/odbc/Diagnostics.h"
#include "platform/odbc/Handle.h"
#include "platform/odbc/ResultReader.h"

#include <QHash>

#include <cstdint>
#include <functional>

namespace odbc {
namespace {

SQLPOINTER attribute(int value) {
    return reinterpret_cast<SQLPOINTER>(std::uintptr_t(value));
}

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

base::RunTimeError rolledBack() {
    return base::RunTimeError(
        errors::noTransaction,
        QStringLiteral("The server has rolled the transaction back: nothing of it was kept."),
        QStringLiteral("25000"), {});
}

base::RunTimeError lineLost() {
    return base::RunTimeError(base::errors::connectionInvalid,
                              QStringLiteral("The connection to the server is lost. Please log on again."),
                              QStringLiteral("08003"), {});
}

} // namespace

class OdbcProvider::Private {
  public:
    Private(const QString& text, const Options& options);
    ~Private();

    void run(const QString& text, const std::function<bool(ResultReader&, std::vector<ado::Column>&&)>& rows,
             qint64& affected);
    ado::Result fetch(const QString& text);
    void requireLine() const {
        if (dead)
            throw lineLost();
    }
    void afterError(const base::RunTimeError& error);
    bool lineIsDead();
    bool transactionIsGone();
    void setAutocommit(bool on);
    QString info(SQLUSMALLINT what) const;

    Handle environment = makeEnvironment();
    Handle connection;
    Handle statement;
    std::unique_ptr<ResultReader> reader;
    WideText wide;
    QHash<QString, QStringList> keys;
    bool isSqlServer = false;
    bool connected = false;
    bool inTransaction = false;
    bool rolledBackByServer = false;
    bool dead = false;
};

OdbcProvider::Private::Private(const QString& text, const Options& options)
    : connection(SQL_HANDLE_DBC, SQL_HANDLE_ENV, environment.get()) {
    // a driver without such a time-out says so with an error, which changes nothing
    SQLSetConnectAttrW(connection.get(), SQL_ATTR_LOGIN_TIMEOUT, attribute(options.connectSeconds), 0);
    wide.assign(text);
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(SQLDriverConnectW(connection.get(), nullptr, wide.data(), SQLSMALLINT(wide.size()),
                                         nullptr, 0, &length, SQL_DRIVER_NOPROMPT)))
        throw errorOf(SQL_HANDLE_DBC, connection.get());
    connected = true;
    isSqlServer = info(SQL_DBMS_NAME).contains(QLatin1StringView("SQL Server"), Qt::CaseInsensitive);
    statement = Handle(SQL_HANDLE_STMT, SQL_HANDLE_DBC, connection.get());
    SQLSetStmtAttrW(statement.get(), SQL_ATTR_QUERY_TIMEOUT, attribute(options.statementSeconds), 0);
    reader = std::make_unique<ResultReader>(statement.get());
}

OdbcProvider::Private::~Private() {
    reader.reset();
    statement.reset();
    if (!connected)
        return;
    if (inTransaction)
        SQLEndTran(SQL_HANDLE_DBC, connection.get(), SQL_ROLLBACK);
    SQLDisconnect(connection.get());
}

/// Runs the text and gives each result that has columns to `rows`, to the last result of the batch, or until
/// `rows` says false.
void OdbcProvider::Private::run(const QString& text,
                                const std::function<bool(ResultReader&, std::vector<ado::Column>&&)>& rows,
                                qint64& affected) {
    struct Finish {
        ResultReader& reader;
        ~Finish() { reader.finish(); }
    };
    wide.assign(text);
    const Finish finish{*reader};
    SQLRETURN code = SQLExecDirectW(statement.get(), wide.data(), wide.size());
    if (code == SQL_NO_DATA) { // an UPDATE or DELETE that found no row
        affected = 0;
        code = SQLMoreResults(statement.get());
    }
    for (; code != SQL_NO_DATA; code = SQLMoreResults(statement.get())) {
        if (!SQL_SUCCEEDED(code))
            throw errorOf(SQL_HANDLE_STMT, statement.get(), text);
        std::vector<ado::Column> columns = reader->columns();
        if (!columns.empty()) {
            if (!rows(*reader, std::move(columns)))
                return;
            reader->unbind();
            continue;
        }
        SQLLEN count = -1;
        if (SQL_SUCCEEDED(SQLRowCount(statement.get(), &count)) && count >= 0)
            affected = count;
    }
}

ado::Result OdbcProvider::Private::fetch(const QString& text) {
    ado::Result result;
    run(
        text,
        [&result](ResultReader& rows, std::vector<ado::Column>&& columns) {
            result.rows.columns = std::move(columns);
            result.rows.values.clear();
            while (rows.next(result.rows.values)) {
            }
            return true;
        },
        result.affected);
    return result;
}

/// Whether the transaction outlived the error. A server that has rolled it back would run the texts that
/// follow each for itself, and a save would be kept by half.
void OdbcProvider::Private::afterError(const base::RunTimeError& error) {
    dead = dead || isConnectionError(error) || lineIsDead();
    if (inTransaction && !rolledBackByServer)
        rolledBackByServer = dead || transactionIsGone();
}

bool OdbcProvider::Private::lineIsDead() {
    SQLUINTEGER state = SQL_CD_FALSE;
    return SQL_SUCCEEDED(SQLGetConnectAttrW(connection.get(), SQL_ATTR_CONNECTION_DEAD, &state,
                                            SQL_IS_UINTEGER, nullptr)) &&
           state == SQL_CD_TRUE;
}

bool OdbcProvider::Private::transactionIsGone() {
    if (!isSqlServer)
        return false;
    try {
        const ado::Result open = fetch(QStringLiteral("SELECT @@TRANCOUNT"));
        const qint64* count = open.rows.count() == 1 ? open.rows.at(0, 0).asInteger() : nullptr;
        return count && *count == 0;
    } catch (const base::RunTimeError&) {
        dead = true;
        return true;
    }
}

void OdbcProvider::Private::setAutocommit(bool on) {
    if (!SQL_SUCCEEDED(SQLSetConnectAttrW(connection.get(), SQL_ATTR_AUTOCOMMIT,
                                          attribute(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF),
                                          SQL_IS_UINTEGER)))
        throw errorOf(SQL_HANDLE_DBC, connection.get());
}

QString OdbcProvider::Private::info(SQLUSMALLINT what) const {
    std::vector<SQLWCHAR> text(256);
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(connection.get(), what, text.data(),
                                   SQLSMALLINT(text.size() * sizeof(SQLWCHAR)), &bytes)))
        return {};
    const auto units = std::size_t(bytes) / sizeof(SQLWCHAR);
    return fromWide(text.data(), qsizetype(std::min(units, text.size() - 1)));
}

std::unique_ptr<OdbcProvider> OdbcProvider::open(const QString& connection, const Options& options) {
    return std::unique_ptr<OdbcProvider>(new OdbcProvider(std::make_unique<Private>(connection, options)));
}

OdbcProvider::OdbcProvider(std::unique_ptr<Private> self) : d(std::move(self)) {}
OdbcProvider::~OdbcProvider() = default;

ado::Result OdbcProvider::execute(const QString& text) {
    if (d->rolledBackByServer)
        throw rolledBack().withStatement(text);
    d->requireLine();
    try {
        return d->fetch(text);
    } catch (const base::RunTimeError& error) {
        d->afterError(error);
        throw error.withStatement(text);
    }
}

void OdbcProvider::begin() {
    d->requireLine();
    if (d->inTransaction)
        throw ado::transactionIsOpen();
    try {
        d->setAutocommit(false);
    } catch (const base::RunTimeError& error) {
        d->afterError(error);
        throw;
    }
    d->inTransaction = true;
}

void OdbcProvider::commit() {
    if (!d->inTransaction)
        throw ado::nothingToCommit();
    if (d->rolledBackByServer) {
        rollback();
        throw rolledBack();
    }
    d->inTransaction = false;
    if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, d->connection.get(), SQL_COMMIT))) {
        const base::RunTimeError error = errorOf(SQL_HANDLE_DBC, d->connection.get());
        d->afterError(error);
        const bool unknown = d->dead || error.number() == errors::timeOut;
        if (!d->dead) {
            SQLEndTran(SQL_HANDLE_DBC, d->connection.get(), SQL_ROLLBACK);
            d->setAutocommit(true);
        }
        if (unknown)
            throw base::RunTimeError(
                error.number(),
                error.description() +
                    QStringLiteral(" It is not known whether the server kept what was being saved: please "
                                   "look it up before saving it again."),
                error.sqlState(), error.statement());
        throw base::RunTimeError(error);
    }
    d->setAutocommit(true);
}

void OdbcProvider::rollback() {
    if (!d->inTransaction)
        throw ado::nothingToRollBack();
    const bool gone = d->rolledBackByServer;
    d->inTransaction = false;
    d->rolledBackByServer = false;
    if (d->dead)
        return; // the server rolls back as the line goes
    const bool done = SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, d->connection.get(), SQL_ROLLBACK));
    if (!done && !gone) {
        const base::RunTimeError error = errorOf(SQL_HANDLE_DBC, d->connection.get());
        d->afterError(error);
        throw base::RunTimeError(error);
    }
    d->setAutocommit(true);
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
    if (!columns.isEmpty())
        d->keys.insert(table, columns);
    return columns;
}

QString OdbcProvider::product() const {
    return d->info(SQL_DBMS_NAME);
}

QString OdbcProvider::serverName() const {
    return d->info(SQL_SERVER_NAME);
}

QString OdbcProvider::version() const {
    return d->info(SQL_DBMS_VER);
}

} // namespace odbc
