#pragma once

#include "server/engine/ExpressionTranslator.h"

namespace engine {

class GroupCheck;

/// SELECT in SQLite's words.
class QueryTranslator : public ExpressionTranslator {
  public:
    using ExpressionTranslator::ExpressionTranslator;

    /// A SELECT whose rows go to the client or, when it assigns, to variables.
    Translation select(const Select& query);
    /// A value for SET, RETURN, PRINT: SELECT value.
    Translation single(const Expr& expr, const SqlType* type = nullptr);
    /// One row of several values, for THROW.
    Translation row(const std::vector<ExprPtr>& values);
    /// A condition for IF and WHILE: one row, 1 for true.
    Translation test(const Expr& expr);

  protected:
    struct Output {
        Term term;
        std::string name;
        int target = -1;
    };
    struct Core {
        /// Everything up to ORDER BY.
        std::string sql;
        std::string limit;
        std::vector<Output> outputs;
    };

    Subquery subquery(const Select& select) override;
    Subquery wholeQuery(const Select& select, bool outermost);
    /// FROM ... ; "" without tables. Fills the scope.
    std::string from(const std::vector<std::unique_ptr<TableRef>>& tables, Scope& scope);
    /// The text of a table in FROM, its columns in the scope. The table itself when it is none of a view.
    std::string tableText(const TableRef& table, Scope& scope);
    Subquery viewQuery(const Module& view, Position at);

  private:
    Core core(const SelectCore& core, const std::vector<OrderItem>* order, const std::vector<SqlType>* types,
              bool combined);
    std::string groupText(const SelectCore& core, GroupCheck& groups);
    void checkGroups(const SelectCore& core, const std::vector<OrderItem>* order, const std::vector<Output>& outputs,
                     GroupCheck& groups);
    void outputs(const SelectCore& core, const Scope& scope, std::vector<Output>& outputs);
    void star(const SelectItem& item, const Scope& scope, std::vector<Output>& outputs);
    Output itemOutput(const SelectItem& item);
    std::string outputList(std::vector<Output>& outputs, const std::vector<SqlType>* types, bool distinct);
    std::string orderText(const std::vector<OrderItem>& order, const std::vector<Output>& outputs,
                          bool namesOnly);
    Subquery combinedQuery(const Select& select, bool outermost);
    std::string joinText(const TableRef& table, Scope& scope);
    void checkAssignments(const Select& query, const std::vector<Output>& outputs);
    void addTable(Scope& scope, std::string alias, std::vector<ScopeColumn> columns, Position at);
    void countWork(Position at);

    int m_viewDepth = 0;
    int m_work = 0;
    std::vector<Output> m_lastOutputs;
};

} // namespace engine
