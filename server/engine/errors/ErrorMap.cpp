#include "server/engine/errors/ErrorMap.h"

#include "server/engine/errors/ServerError.h"

#include <QStringList>

namespace engine {
namespace {

struct NamedColumns {
    QString database;
    QString table;
    QStringList columns;
};

/// Reads "NUCLEAR.tbNucSlip.SlipID, NUCLEAR.tbNucSlip.Number" behind the colon of a constraint's message.
NamedColumns columnsOf(const QString& message) {
    NamedColumns named;
    for (const QString& column : message.section(QStringLiteral(": "), 1).split(QStringLiteral(", "))) {
        named.database = column.section(u'.', 0, 0);
        named.table = column.section(u'.', 1, -2);
        named.columns += column.section(u'.', -1);
    }
    return named;
}

base::RunTimeError notNull(const QString& message) {
    const NamedColumns named = columnsOf(message);
    return serverError(
        515,
        QStringLiteral("Cannot insert the value NULL into column '%1', table '%2.dbo.%3'; column does "
                       "not allow nulls. The statement has been terminated.")
            .arg(named.columns.constFirst(), named.database, named.table),
        "23000");
}

struct PrimaryKey {
    QString name;
    QStringList columns;
};

/// The primary key by the table's definition; led by PK_ when it was given no name.
PrimaryKey primaryKeyOf(sqlite3* handle, const NamedColumns& named) {
    sqlite3_stmt* statement = nullptr;
    PrimaryKey key;
    if (sqlite3_prepare_v2(
            handle,
            "SELECT keyName, name FROM \"scintra.columns\" WHERE databaseName = ? AND tableName = ? AND "
            "keyOrdinal > 0 ORDER BY keyOrdinal",
            -1, &statement, nullptr) == SQLITE_OK) {
        const QByteArray database = named.database.toUtf8();
        const QByteArray table = named.table.toUtf8();
        sqlite3_bind_text(statement, 1, database.constData(), int(database.size()), SQLITE_TRANSIENT);
        sqlite3_bind_text(statement, 2, table.constData(), int(table.size()), SQLITE_TRANSIENT);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            key.name = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
            key.columns +=
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 1)));
        }
    }
    sqlite3_finalize(statement);
    if (key.name.isEmpty())
        key.name = QStringLiteral("PK_") + named.table;
    return key;
}

base::RunTimeError duplicate(sqlite3* handle, const QString& message, bool primary) {
    const NamedColumns named = columnsOf(message);
    const PrimaryKey key = primaryKeyOf(handle, named);
    // beside an identity column the file keeps the primary key as a unique one
    if (primary || key.columns == named.columns)
        return serverError(
            2627,
            QStringLiteral("Violation of PRIMARY KEY constraint '%1'. Cannot insert duplicate key in "
                           "object 'dbo.%2'.")
                .arg(key.name, named.table),
            "23000");
    return serverError(
        2601,
        QStringLiteral("Cannot insert duplicate key row in object 'dbo.%1' with a unique index on "
                       "column '%2'.")
            .arg(named.table, named.columns.constFirst()),
        "23000");
}

} // namespace

base::RunTimeError errorOfSqlite(sqlite3* handle, int code) {
    const QString message = QString::fromUtf8(sqlite3_errmsg(handle));
    const int extended = sqlite3_extended_errcode(handle);
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return serverError(1222, QStringLiteral("Lock request time out period exceeded."), "40001");
    case SQLITE_CONSTRAINT:
        if (extended == SQLITE_CONSTRAINT_NOTNULL)
            return notNull(message);
        if (extended == SQLITE_CONSTRAINT_PRIMARYKEY || extended == SQLITE_CONSTRAINT_ROWID)
            return duplicate(handle, message, true);
        if (extended == SQLITE_CONSTRAINT_UNIQUE)
            return duplicate(handle, message, false);
        return serverError(547, message, "23000");
    case SQLITE_FULL:
        return serverError(1105,
                           QStringLiteral("Could not allocate space in the hospital file: the disk is full."),
                           "53100");
    case SQLITE_READONLY:
        return serverError(3906,
                           QStringLiteral("Failed to update the hospital file because it is read-only."));
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return serverError(824, QStringLiteral("The hospital file is damaged: %1.").arg(message), "HY000");
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
        return serverError(
            823, QStringLiteral("The hospital file cannot be read or written: %1.").arg(message), "HY000");
    case SQLITE_NOMEM:
        return serverError(701, QStringLiteral("There is insufficient system memory to run this query."),
                           "HY001");
    case SQLITE_TOOBIG:
        return serverError(8152, QStringLiteral("String or binary data would be truncated."), "22001");
    default:
        if (message.startsWith(QLatin1StringView("misuse of aggregate")))
            return serverError(
                147,
                QStringLiteral("An aggregate may not appear in the WHERE clause unless it is in a subquery "
                               "contained in a HAVING clause or a select list, and the column being "
                               "aggregated is an outer reference."));
        if (message.startsWith(QLatin1StringView("Expression tree is too large")) ||
            message.startsWith(QLatin1StringView("parser stack overflow")))
            return nestedTooDeeply({}); // NOLINT(cppcoreguidelines-slicing): there is no place to lose
        return serverError(50000, message);
    }
}

} // namespace engine
