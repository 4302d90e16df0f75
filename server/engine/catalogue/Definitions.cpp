#include "server/engine/catalogue/Definitions.h"

#include "server/engine/parser/LiteralValue.h"
#include "server/engine/parser/Parser.h"
#include "server/engine/values/Ascii.h"
#include "server/engine/values/NumberText.h"

#include <algorithm>

namespace engine {
namespace {

ScriptError existsAlready(const ObjectName& name) {
    return ScriptError(
        2714,
        QStringLiteral("There is already an object named '%1' in the database.").arg(toQString(name.name)),
        "42S01", name.position);
}

ScriptError missingKeyColumn(std::string_view column, const ObjectName& table) {
    return ScriptError(
        1911,
        QStringLiteral("Column name '%1' does not exist in the target table or view.").arg(toQString(column)),
        "42000", table.position);
}

/// The primary key of a definition; the column options and the constraints together.
KeyDefinition primaryKeyOf(const TableDefinition& table) {
    KeyDefinition key;
    int found = 0;
    for (const ColumnDefinition& column : table.columns) {
        if (column.primaryKey) {
            key.columns = {column.name};
            ++found;
        }
    }
    for (const KeyDefinition& constraint : table.keys) {
        if (constraint.primary) {
            key = constraint;
            ++found;
        }
    }
    if (found > 1)
        throw ScriptError(8110,
                          QStringLiteral("Cannot add multiple PRIMARY KEY constraints to table '%1'.")
                              .arg(toQString(table.name.name)),
                          "42000", table.name.position);
    return key;
}

std::string nameList(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "" : ", ") + quotedName(name);
    return list;
}

std::string literalText(const Cell& cell) {
    switch (cell.kind()) {
    case Cell::Kind::Integer:
        return std::to_string(cell.integer());
    case Cell::Kind::Real:
        return exactText(cell.real());
    case Cell::Kind::Text:
        return quotedText(cell.text());
    default:
        return "NULL";
    }
}

/// From 1; 0 when the name is not in the list.
int placeIn(const std::vector<std::string>& names, std::string_view name) {
    const auto found = std::find_if(names.begin(), names.end(),
                                    [&](const std::string& known) { return sameWord(known, name); });
    return found == names.end() ? 0 : int(found - names.begin()) + 1;
}

ScriptError columnTwice(const ColumnDefinition& column, std::string_view table) {
    return ScriptError(
        2705,
        QStringLiteral("Column names in each table must be unique. Column name '%1' in table '%2' is "
                       "specified more than once.")
            .arg(toQString(column.name), toQString(table)),
        "42S21", column.position);
}

void checkColumns(const TableDefinition& table) {
    std::vector<std::string> names;
    bool identitySeen = false;
    for (const ColumnDefinition& column : table.columns) {
        if (placeIn(names, column.name) > 0)
            throw columnTwice(column, table.name.name);
        if (column.identity && (identitySeen || classOf(column.type) != TypeClass::Integer))
            throw notSupported("IDENTITY", column.position);
        identitySeen = identitySeen || column.identity;
        names.push_back(column.name);
    }
    for (const KeyDefinition& key : table.keys) {
        for (const std::string& column : key.columns) {
            if (placeIn(names, column) == 0)
                throw missingKeyColumn(column, table.name);
        }
    }
}

} // namespace

void Definitions::run(const Stmt& statement, const std::string& database, const std::string& source) {
    switch (statement.kind) {
    case StmtKind::CreateTable:
        createTable(*statement.table, database);
        break;
    case StmtKind::AddColumns:
        addColumns(*statement.table, database);
        break;
    case StmtKind::CreateIndex:
        createIndex(*statement.index, database);
        break;
    case StmtKind::CreateModule:
        createModule(*statement.module, database, source);
        break;
    default:
        drop(statement, database);
    }
    m_catalogue.countChange();
    m_catalogue.forget();
}

std::string Definitions::databaseOf(const ObjectName& name, const std::string& database) {
    return name.database.empty() ? database : m_catalogue.database(name.database);
}

const Table& Definitions::requireTable(const ObjectName& name, const std::string& database) {
    const Table* table = m_catalogue.table(databaseOf(name, database), name.name);
    if (!table)
        throw ScriptError(
            4902,
            QStringLiteral("Cannot find the object \"%1\" because it does not exist or you do not have "
                           "permissions.")
                .arg(toQString(name.text())),
            "42S02", name.position);
    return *table;
}

std::string Definitions::columnText(const ColumnDefinition& column) {
    if (column.identity)
        return quotedName(column.name) + " INTEGER PRIMARY KEY AUTOINCREMENT";
    std::string text = quotedName(column.name) + " " + storageType(column.type.kind);
    if (column.notNull)
        text += " NOT NULL";
    if (column.unique)
        text += " UNIQUE";
    if (column.defaultValue && isLiteral(*column.defaultValue)) {
        Cell cell;
        readLiteralAs(*column.defaultValue, column.type, false, cell);
        text += " DEFAULT " + literalText(cell);
    }
    return text;
}

void Definitions::saveColumn(const std::string& database, const std::string& table, int ordinal,
                             const ColumnDefinition& column, int keyOrdinal, const std::string& keyName) {
    const SqliteStatement statement =
        m_file.prepare("INSERT INTO \"scintra.columns\" VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    sqlite3_stmt* insert = statement.get();
    bindText(insert, 1, database);
    bindText(insert, 2, table);
    sqlite3_bind_int(insert, 3, ordinal);
    bindText(insert, 4, column.name);
    bindText(insert, 5, typeWord(column.type.kind));
    sqlite3_bind_int(insert, 6, column.type.length);
    sqlite3_bind_int(insert, 7, column.type.scale);
    sqlite3_bind_int(insert, 8, !column.notNull);
    sqlite3_bind_int(insert, 9, column.identity);
    sqlite3_bind_int(insert, 10, keyOrdinal);
    bindText(insert, 11, keyOrdinal > 0 ? keyName : std::string());
    bindText(insert, 12, column.defaultSource);
    m_file.step(insert);
}

void Definitions::createTable(const TableDefinition& table, const std::string& defaultDatabase) {
    const std::string database = databaseOf(table.name, defaultDatabase);
    if (m_catalogue.table(database, table.name.name) || m_catalogue.module(database, table.name.name))
        throw existsAlready(table.name);
    checkColumns(table);
    const KeyDefinition key = primaryKeyOf(table);
    std::string sql = "CREATE TABLE " + quotedName(database + "." + table.name.name) + " (";
    std::string identity;
    std::vector<int> keyOrdinals;
    for (const ColumnDefinition& column : table.columns) {
        const int ordinal = placeIn(key.columns, column.name);
        sql += (keyOrdinals.empty() ? "" : ", ") + columnText(column);
        if (ordinal > 0 && !column.notNull && !column.identity)
            sql += " NOT NULL";
        if (column.identity)
            identity = column.name;
        keyOrdinals.push_back(ordinal);
    }
    const bool identityIsKey = key.columns.size() == 1 && sameWord(key.columns.front(), identity);
    if (!key.columns.empty() && !identityIsKey)
        sql += (identity.empty() ? ", PRIMARY KEY (" : ", UNIQUE (") + nameList(key.columns) + ")";
    for (const KeyDefinition& constraint : table.keys) {
        if (!constraint.primary)
            sql += ", UNIQUE (" + nameList(constraint.columns) + ")";
    }
    m_file.execute((sql + ")").c_str());
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        saveColumn(database, table.name.name, int(i), table.columns[i], keyOrdinals[i], key.name);
}

void Definitions::addColumns(const TableDefinition& table, const std::string& database) {
    const Table& present = requireTable(table.name, database);
    checkColumns(table);
    int ordinal = int(present.columns.size());
    for (const ColumnDefinition& column : table.columns) {
        if (present.find(column.name) >= 0)
            throw columnTwice(column, present.name);
        if (column.identity || column.primaryKey || column.unique)
            throw notSupported("ALTER TABLE", column.position);
        if (column.notNull && (!column.defaultValue || !isLiteral(*column.defaultValue)))
            throw ScriptError(
                4901,
                QStringLiteral("ALTER TABLE only allows columns to be added that can contain nulls, or have "
                               "a DEFAULT definition specified. Column '%1' cannot be added to non-empty "
                               "table '%2' because it does not satisfy these conditions.")
                    .arg(toQString(column.name), toQString(present.name)),
                "42000", column.position);
        m_file.execute(
            ("ALTER TABLE " + quotedName(present.fileName()) + " ADD COLUMN " + columnText(column)).c_str());
        saveColumn(present.database, present.name, ordinal++, column, 0, {});
    }
}

void Definitions::createIndex(const IndexDefinition& index, const std::string& database) {
    const Table& table = requireTable(index.table, database);
    std::string sql = index.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
    sql += quotedName(table.fileName() + "." + index.name) + " ON " + quotedName(table.fileName()) + " (";
    for (std::size_t i = 0; i < index.columns.size(); ++i) {
        if (table.find(index.columns[i]) < 0)
            throw missingKeyColumn(index.columns[i], index.table);
        sql += (i > 0 ? ", " : "") + quotedName(index.columns[i]) + (index.descending[i] ? " DESC" : "");
    }
    m_file.execute((sql + ")").c_str());
}

void Definitions::createModule(const ModuleDefinition& module, const std::string& defaultDatabase,
                               const std::string& source) {
    static constexpr const char* kinds[] = {"P", "FN", "V"};
    const std::string database = databaseOf(module.name, defaultDatabase);
    if (m_catalogue.table(database, module.name.name))
        throw existsAlready(module.name);
    const std::shared_ptr<Module> present = m_catalogue.module(database, module.name.name);
    if (present && (!module.alter || present->definition->kind != module.kind))
        throw existsAlready(module.name);
    if (!present && !module.create)
        throw invalidObject(module.name.text(), module.name.position);
    const SqliteStatement statement = m_file.prepare(
        "INSERT OR REPLACE INTO \"scintra.modules\" (databaseName, name, kind, source) VALUES (?, ?, ?, ?)");
    bindText(statement.get(), 1, database);
    bindText(statement.get(), 2, module.name.name);
    bindText(statement.get(), 3, kinds[int(module.kind)]);
    bindText(statement.get(), 4, source);
    m_file.step(statement.get());
}

void Definitions::remove(const char* sql, const std::string& database, const std::string& name) {
    const SqliteStatement statement = m_file.prepare(sql);
    bindText(statement.get(), 1, database);
    bindText(statement.get(), 2, name);
    m_file.step(statement.get());
}

void Definitions::drop(const Stmt& statement, const std::string& defaultDatabase) {
    if (statement.text == "INDEX") {
        dropIndex(statement, defaultDatabase);
        return;
    }
    const std::string database = databaseOf(statement.name, defaultDatabase);
    const std::string& name = statement.name.name;
    bool found = false;
    if (statement.text == "TABLE") {
        if (const Table* table = m_catalogue.table(database, name)) {
            found = true;
            m_file.execute(("DROP TABLE " + quotedName(table->fileName())).c_str());
            remove("DELETE FROM \"scintra.columns\" WHERE databaseName = ? AND tableName = ?", database,
                   name);
        }
    } else if (const auto module = m_catalogue.module(database, name)) {
        static constexpr std::string_view kinds[] = {"PROCEDURE", "FUNCTION", "VIEW"};
        found = statement.text == kinds[int(module->definition->kind)];
        if (found)
            remove("DELETE FROM \"scintra.modules\" WHERE databaseName = ? AND name = ?", database, name);
    }
    if (!found && !statement.flag)
        throw ScriptError(
            3701,
            QStringLiteral("Cannot drop the %1 '%2', because it does not exist or you do not have "
                           "permission.")
                .arg(toQString(statement.text).toLower(), toQString(name)),
            "42S02", statement.name.position);
}

void Definitions::dropIndex(const Stmt& statement, const std::string& database) {
    const Table& table = requireTable(statement.name, database);
    const std::string index = quotedName(table.fileName() + "." + statement.index->name);
    m_file.execute(("DROP INDEX IF EXISTS " + index).c_str());
}

} // namespace engine
