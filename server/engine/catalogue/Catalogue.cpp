#include "server/engine/catalogue/Catalogue.h"

#include "server/engine/parser/LiteralValue.h"
#include "server/engine/parser/Parser.h"
#include "server/engine/values/Ascii.h"

#include <algorithm>
#include <cstdlib>

namespace engine {
namespace {

constexpr const char* changesSetting = "catalogue.changes";

/// Columns that hold what nobody may read in a trace.
bool isSecret(std::string_view name) {
    const std::string upper = upperText(name);
    return upper.find("PASSWORDHASH") != std::string::npos;
}

} // namespace

int Table::find(std::string_view column) const {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (sameWord(columns[i].name, column))
            return int(i);
    }
    return -1;
}

Catalogue::Catalogue(SqliteFile& file)
    : m_file(file)
    , m_columns(file.prepare(
          "SELECT databaseName, tableName, name, type, length, scale, nullable, identity, keyOrdinal, "
          "defaultSource FROM \"scintra.columns\" WHERE databaseName = ? AND tableName = ? ORDER BY "
          "ordinal"))
    , m_source(file.prepare(
          "SELECT databaseName, name, source FROM \"scintra.modules\" WHERE databaseName = ? AND name = ?")) {
    const SqliteStatement databases = m_file.prepare("SELECT name FROM \"scintra.databases\" ORDER BY rowid");
    while (m_file.step(databases.get()))
        m_databases.push_back(columnText(databases.get(), 0));
}

bool Catalogue::hasDatabase(std::string_view name) const {
    return std::any_of(m_databases.begin(), m_databases.end(),
                       [&](const std::string& known) { return sameWord(known, name); });
}

const std::string& Catalogue::database(std::string_view name) {
    for (const std::string& known : m_databases) {
        if (sameWord(known, name))
            return known;
    }
    throw missingDatabase(name);
}

const Table* Catalogue::table(std::string_view database, std::string_view name) {
    m_key = upperText(database);
    m_key += '.';
    m_key += upperText(name);
    const auto found = m_tables.find(m_key);
    if (found != m_tables.end())
        return found->second.get();
    return (m_tables[m_key] = readTable(database, name)).get();
}

std::unique_ptr<Table> Catalogue::readTable(std::string_view database, std::string_view name) {
    sqlite3_stmt* statement = m_columns.get();
    const StatementReset reset(statement);
    bindText(statement, 1, database);
    bindText(statement, 2, name);
    std::unique_ptr<Table> table;
    while (m_file.step(statement)) {
        if (!table) {
            table = std::make_unique<Table>();
            table->database = columnText(statement, 0);
            table->name = columnText(statement, 1);
        }
        TableColumn column;
        column.name = columnText(statement, 2);
        typeFromWord(columnText(statement, 3), column.type);
        column.type.length = sqlite3_column_int(statement, 4);
        column.type.scale = sqlite3_column_int(statement, 5);
        column.nullable = sqlite3_column_int(statement, 6) != 0;
        column.identity = sqlite3_column_int(statement, 7) != 0;
        column.keyOrdinal = sqlite3_column_int(statement, 8);
        column.defaultSource = columnText(statement, 9);
        column.defaultInFile =
            !column.defaultSource.empty() && isLiteral(*Parser::value(column.defaultSource));
        table->columns.push_back(std::move(column));
    }
    return table;
}

std::shared_ptr<Module> Catalogue::module(std::string_view database, std::string_view name) {
    m_key.assign(database);
    m_key += '.';
    m_key += name;
    for (char& c : m_key)
        c = upperOf(c);
    const auto found = m_modules.find(m_key);
    if (found != m_modules.end())
        return found->second;
    const std::string key = m_key;
    return m_modules[key] = readModule(database, name);
}

std::shared_ptr<Module> Catalogue::readModule(std::string_view database, std::string_view name) {
    sqlite3_stmt* statement = m_source.get();
    const StatementReset reset(statement);
    bindText(statement, 1, database);
    bindText(statement, 2, name);
    if (!m_file.step(statement))
        return nullptr;
    auto module = std::make_shared<Module>();
    module->database = columnText(statement, 0);
    module->name = columnText(statement, 1);
    module->source = columnText(statement, 2);
    module->definition = Parser::module(module->source);
    module->queries.resize(std::size_t(module->script().statementCount));
    for (const Parameter& parameter : module->definition->parameters) {
        if (isSecret(module->script().variables[std::size_t(parameter.slot)].name))
            module->holdsSecret = true;
    }
    return module;
}

std::vector<Catalogue::ModuleKey> Catalogue::modules() {
    std::vector<ModuleKey> keys;
    const SqliteStatement statement =
        m_file.prepare("SELECT databaseName, name FROM \"scintra.modules\" ORDER BY 1, 2");
    while (m_file.step(statement.get()))
        keys.push_back({columnText(statement.get(), 0), columnText(statement.get(), 1)});
    return keys;
}

void Catalogue::forget() {
    ++m_generation;
    m_tables.clear();
    m_modules.clear();
}

std::optional<std::string> Catalogue::setting(std::string_view name) {
    const SqliteStatement statement = m_file.prepare("SELECT value FROM \"scintra.settings\" WHERE name = ?");
    bindText(statement.get(), 1, name);
    if (!m_file.step(statement.get()))
        return std::nullopt;
    return columnText(statement.get(), 0);
}

void Catalogue::setSetting(std::string_view name, std::string_view value) {
    const SqliteStatement statement =
        m_file.prepare("INSERT OR REPLACE INTO \"scintra.settings\" (name, value) VALUES (?, ?)");
    bindText(statement.get(), 1, name);
    bindText(statement.get(), 2, value);
    m_file.step(statement.get());
}

void Catalogue::countChange() {
    setSetting(changesSetting, std::to_string(changes() + 1));
}

long long Catalogue::changes() {
    const auto value = setting(changesSetting);
    return value ? std::strtoll(value->c_str(), nullptr, 10) : 0;
}

} // namespace engine
