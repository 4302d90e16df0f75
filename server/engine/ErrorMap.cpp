#include "server/engine/ErrorMap.h"

#include "server/engine/ServerError.h"

namespace engine {
namespace {

struct NamedColumn {
    QString database;
    QString table;
    QString column;
};

/// Reads "NUCLEAR.tbNucSlip.SlipID" behind the colon of a constraint's message.
NamedColumn columnOf(const QString& message) {
    const QString first = message.section(QStringLiteral(": "), 1).section(QStringLiteral(", "), 0, 0);
    return {first.section(u'.', 0, 0), first.section(u'.', 1, -2), first.section(u'.', -1)};
}

base::RunTimeError notNull(const QString& message) {
    const NamedColumn column = columnOf(message);
    return serverError(
        515,
        QStringLiteral("Cannot insert the value NULL into column '%1', table '%2.dbo.%3'; column does "
                       "not allow nulls. The statement has been terminated.")
            .arg(column.column, column.database, column.table),
        "23000");
}

/// The name that the key has by its definition; the table's name led by PK_ when it was given none.
QString keyName(sqlite3* handle, const NamedColumn& column) {
    sqlite3_stmt* statement = nullptr;
    QString name;
    if (sqlite3_prepare_v2(
            handle,
            "SELECT keyName FROM \"scintra.columns\" WHERE databaseName = ? AND tableName = ? AND "
            "keyOrdinal > 0",
            -1, &statement, nullptr) == SQLITE_OK) {
        const QByteArray database = column.database.toUtf8();
        const QByteArray table = column.table.toUtf8();
        sqlite3_bind_text(statement, 1, database.constData(), int(database.size()), SQLITE_TRANSIENT);
        sqlite3_bind_text(statement, 2, table.constData(), int(table.size()), SQLITE_TRANSIENT);
        if (sqlite3_step(statement) == SQLITE_ROW)
            name = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    }
    sqlite3_finalize(statement);
    return name.isEmpty() ? QStringLiteral("PK_") + column.table : name;
}

base::RunTimeError duplicate(sqlite3* handle, const QString& message, bool primary) {
    const NamedColumn column = columnOf(message);
    if (primary)
        return serverError(
            2627,
            QStringLiteral("Violation of PRIMARY KEY constraint '%1'. Cannot insert duplicate key in "
                           "object 'dbo.%2'.")
                .arg(keyName(handle, column), column.table),
            "23000");
    return serverError(
        2601,
        QStringLiteral("Cannot insert duplicate key row in object 'dbo.%1' with a unique index on "
                       "column '%2'.")
            .arg(column.table, column.column),
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
        return serverError(50000, message);
    }
}

} // namespace engine
