#pragma once

#include "server/engine/parser/TokenReader.h"

namespace engine {

/// SELECT and what stands in it: a method a rule, from the query down to the single value. Knows the
/// variables of the text.
class QueryParser : public TokenReader {
  public:
    QueryParser(std::string_view text, bool withParameters);

  protected:
    /// SELECT ... [UNION ...] [ORDER BY ...]
    std::unique_ptr<Select> query();
    bool startsQuery() const;
    /// FROM a, b JOIN c ON ...; nothing read when there is no FROM.
    void fromClause(std::vector<std::unique_ptr<TableRef>>& tables);
    /// A value or a condition.
    ExprPtr expression();
    /// A literal, with its sign, or NULL; null when there is none.
    ExprPtr literal();
    std::vector<std::string> nameList();

    /// Raises 134 when the name is taken.
    int declareVariable(const std::string& variableName, const SqlType& type, SourcePosition at);
    /// Raises 137.
    int slotOf(const std::string& variableName, SourcePosition at) const;

    std::vector<Variable> m_variables;

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

    // QueryParserExpressions.cpp; one a level of precedence
    ExprPtr conjunction();
    ExprPtr negation();
    ExprPtr predicate();
    ExprPtr predicateTail(ExprPtr left, bool negated);
    ExprPtr inList(ExprPtr left, bool negated);
    ExprPtr sum();
    ExprPtr product();
    ExprPtr factor();

    ExprPtr primary();
    ExprPtr parenthesis();
    ExprPtr wordExpression();
    ExprPtr caseExpression();
    ExprPtr castExpression();
    ExprPtr convertExpression();
    /// The type of a CAST: a text without a length has 30 characters there.
    SqlType castType();
    ExprPtr functionCall(std::string functionName, std::string database, bool ownFunction, SourcePosition at);
    ExprPtr columnOrFunction();

    ExprPtr make(ExprKind kind, SourcePosition at, ExprPtr first = nullptr, ExprPtr second = nullptr) const;
    /// Counts the levels below, and raises 191 when they are too many.
    ExprPtr finished(ExprPtr expr) const;
};

} // namespace engine
