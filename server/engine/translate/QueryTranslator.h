#pragma once

#include "server/engine/translate/FromTranslator.h"

namespace engine {

class GroupCheck;

/// SELECT in SQLite's words.
class QueryTranslator : public FromTranslator {
  public:
    using FromTranslator::FromTranslator;

    /// A SELECT whose rows go to the client or, when it assigns, to variables.
    Translation select(const Select& query);
    /// A value for SET, RETURN, PRINT: SELECT value.
    Translation single(const Expr& expr, const SqlType* type = nullptr);
    /// One row of several values, for THROW.
    Translation row(const std::vector<ExprPtr>& values);
    /// A condition for IF and WHILE: a row where it holds, else none. What stands behind AND is asked only
    /// where what stands before it holds.
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

  private:
    Core core(const SelectCore& core, const std::vector<OrderItem>* order, const std::vector<SqlType>* types,
              bool combined);
    std::string groupText(const SelectCore& core, GroupCheck& groups);
    void checkGroups(const SelectCore& core, const std::vector<OrderItem>* order,
                     const std::vector<Output>& outputs, GroupCheck& groups);
    void outputs(const SelectCore& core, const TableScope& scope, std::vector<Output>& outputs);
    void star(const SelectItem& item, const TableScope& scope, std::vector<Output>& outputs);
    Output itemOutput(const SelectItem& item);
    std::string outputList(std::vector<Output>& outputs, const std::vector<SqlType>* types, bool distinct);
    std::string orderText(const std::vector<OrderItem>& order, const std::vector<Output>& outputs,
                          bool namesOnly);
    Subquery combinedQuery(const Select& select, bool outermost);
    void checkAssignments(const Select& query, const std::vector<Output>& outputs);

    std::vector<Output> m_lastOutputs;
};

} // namespace engine
