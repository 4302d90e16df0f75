#pragma once

#include "server/engine/translate/QueryTranslator.h"

namespace engine {

/// INSERT, UPDATE and DELETE in SQLite's words. A view over one table may stand for its table.
class WriteTranslator : public QueryTranslator {
  public:
    using QueryTranslator::QueryTranslator;

    Translation insert(const Write& write);
    Translation update(const Write& write);
    Translation remove(const Write& write);
    /// The value of a column that a statement leaves out, in SQLite's words.
    std::string defaultValue(const TableColumn& column);

  private:
    struct Target {
        const Table* table = nullptr;
        std::string alias;
        /// The rows of a view: its condition; null for a table.
        const Expr* condition = nullptr;
        std::string database;
    };
    Target target(const Write& write);
    Target namedTarget(const ObjectName& name);
    std::vector<int> insertColumns(const Write& write, const Table& table);
    std::string insertedValue(const Expr* expr, const TableColumn& column, const Table& table);
    std::string stored(const Term& term, const TableColumn& column, const Table& table);
    std::string insertSource(const Write& write, const Table& table, const std::vector<int>& columns,
                             const std::vector<int>& defaulted);
    void addTarget(const Target& target, TableScope& scope);
    std::string conditions(const Write& write, const Target& target);
    std::string assignmentList(const Write& write, const Table& table, std::vector<std::string>& columns);
};

} // namespace engine
