#pragma once

#include "server/engine/catalogue/Catalogue.h"

namespace engine {

/// CREATE, ALTER and DROP carried out. `database` is the one that names without a prefix belong to.
/// Raises 208, 1769, 2705, 2714, 3701 and what the source of a module is wrong in.
class Definitions {
  public:
    Definitions(SqliteFile& file, Catalogue& catalogue) : m_file(file), m_catalogue(catalogue) {}

    void run(const Stmt& statement, const std::string& database, const std::string& source);

  private:
    void createTable(const TableDefinition& table, const std::string& database);
    void addColumns(const TableDefinition& table, const std::string& database);
    void createIndex(const IndexDefinition& index, const std::string& database);
    void createModule(const ModuleDefinition& module, const std::string& database, const std::string& source);
    void drop(const Stmt& statement, const std::string& database);
    void dropIndex(const Stmt& statement, const std::string& database);
    std::string columnText(const ColumnDefinition& column);
    void saveColumn(const std::string& database, const std::string& table, int ordinal,
                    const ColumnDefinition& column, int keyOrdinal, const std::string& keyName);
    const Table& requireTable(const ObjectName& name, const std::string& database);
    std::string databaseOf(const ObjectName& name, const std::string& database);
    void remove(const char* sql, const std::string& database, const std::string& name);

    SqliteFile& m_file;
    Catalogue& m_catalogue;
};

} // namespace engine
