#pragma once

#include "server/engine/catalogue/Module.h"
#include "server/engine/file/SqliteFile.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace engine {

struct TableColumn {
    std::string name;
    SqlType type;
    bool nullable = true;
    bool identity = false;
    /// Place in the primary key from 1; 0 when it is no part of it.
    int keyOrdinal = 0;
    /// A value as it stands in the definition; empty when there is none.
    std::string defaultSource;
    /// The hospital file fills the default in by itself (a constant).
    bool defaultInFile = false;
};

struct Table {
    std::string database;
    std::string name;
    std::vector<TableColumn> columns;

    std::string fileName() const { return database + "." + name; }
    /// -1 when there is none.
    int find(std::string_view column) const;
};

/// What the hospital file holds: databases, tables, modules. Read at first use and kept until forget().
class Catalogue {
  public:
    explicit Catalogue(SqliteFile& file);

    /// The database's name as it is written in the file. Raises 911.
    const std::string& database(std::string_view name);
    bool hasDatabase(std::string_view name) const;
    /// The one that the file was made with before the others.
    const std::string& firstDatabase() const { return m_databases.front(); }
    /// Null when there is none of that name.
    const Table* table(std::string_view database, std::string_view name);
    /// Null when there is none of that name. Raises what its source is wrong in.
    std::shared_ptr<Module> module(std::string_view database, std::string_view name);
    struct ModuleKey {
        std::string database;
        std::string name;
    };
    std::vector<ModuleKey> modules();
    void forget();
    /// Changes with each forget().
    int generation() const { return m_generation; }

    std::optional<std::string> setting(std::string_view name);
    void setSetting(std::string_view name, std::string_view value);
    /// Tells every open provider of the file to read the catalogue anew. Part of each definition's
    /// transaction.
    void countChange();
    /// A number that changes with each definition.
    long long changes();

  private:
    std::unique_ptr<Table> readTable(std::string_view database, std::string_view name);
    std::shared_ptr<Module> readModule(std::string_view database, std::string_view name);

    SqliteFile& m_file;
    SqliteStatement m_columns;
    SqliteStatement m_source;
    std::vector<std::string> m_databases;
    // null stands for "looked for and not found"
    std::unordered_map<std::string, std::unique_ptr<Table>> m_tables;
    std::unordered_map<std::string, std::shared_ptr<Module>> m_modules;
    std::string m_key;
    int m_generation = 0;
};

} // namespace engine
