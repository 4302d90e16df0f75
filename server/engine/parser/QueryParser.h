#pragma once

#include "server/engine/parser/ExpressionParser.h"

namespace engine {

/// SELECT and what it stands on.
class QueryParser : public ExpressionParser {
  public:
    using ExpressionParser::ExpressionParser;

  protected:
    std::unique_ptr<Select> query() override;
    /// FROM a, b JOIN c ON ...; nothing read when there is no FROM.
    void fromClause(std::vector<std::unique_ptr<TableRef>>& tables);
    std::vector<std::string> nameList();

  private:
    SelectCore core();
    void unionMember(Select& select);
    void topClause(SelectCore& core);
    SelectItem item();
    void orderBy(Select& select);
    std::unique_ptr<TableRef> joinedTable();
    std::unique_ptr<TableRef> table();
    bool acceptJoin(JoinKind& kind);
    void tableAlias(TableRef& table);
    void tableHints();
};

} // namespace engine
