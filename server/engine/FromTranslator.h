#pragma once

#include "server/engine/ExpressionTranslator.h"

namespace engine {

/// FROM in SQLite's words: tables, views (which stand for their text), derived tables and joins.
class FromTranslator : public ExpressionTranslator {
  public:
    using ExpressionTranslator::ExpressionTranslator;

  protected:
    /// FROM ... ; "" without tables. Fills the scope.
    std::string from(const std::vector<std::unique_ptr<TableRef>>& tables, Scope& scope);
    /// Raises 191 when a query is made of too many parts.
    void countWork(Position at);

  private:
    std::string tableText(const TableRef& table, Scope& scope);
    std::string derivedText(const TableRef& table, Scope& scope);
    std::string joinText(const TableRef& table, Scope& scope);
    Subquery viewQuery(const Module& view, Position at);
    void addTable(Scope& scope, std::string alias, std::vector<ScopeColumn> columns, Position at);

    int m_viewDepth = 0;
    int m_work = 0;
};

} // namespace engine
