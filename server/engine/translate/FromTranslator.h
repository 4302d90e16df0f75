#pragma once

#include "server/engine/translate/ExpressionTranslator.h"

namespace engine {

/// FROM in SQLite's words: tables, views (which stand for their text), derived tables and joins.
class FromTranslator : public ExpressionTranslator {
  public:
    using ExpressionTranslator::ExpressionTranslator;

  protected:
    /// FROM ... ; "" without tables. Fills the scope.
    std::string from(const std::vector<std::unique_ptr<TableRef>>& tables, TableScope& scope);
    /// Raises 191 when a query is made of too many parts.
    void countWork(SourcePosition at);

  private:
    std::string tableText(const TableRef& table, TableScope& scope);
    std::string derivedText(const TableRef& table, TableScope& scope);
    std::string joinText(const TableRef& table, TableScope& scope);
    Subquery viewQuery(const Module& view, SourcePosition at);
    void addTable(TableScope& scope, std::string alias, std::vector<ScopeColumn> columns, SourcePosition at);

    int m_viewDepth = 0;
    int m_work = 0;
};

} // namespace engine
