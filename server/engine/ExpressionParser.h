#pragma once

#include "server/engine/TokenReader.h"

namespace engine {

/// Values and conditions, one function a level of precedence.
class ExpressionParser : public TokenReader {
  public:
    ExpressionParser(std::string_view text, bool withParameters);
    virtual ~ExpressionParser() = default;

  protected:
    /// SELECT ... [UNION ...] [ORDER BY ...]
    virtual std::unique_ptr<Select> query() = 0;

    ExprPtr expression();
    /// A literal, with its sign, or NULL; null when there is none.
    ExprPtr literal();
    bool startsQuery() const;
    /// Raises 134 when the name is taken.
    int declareVariable(const std::string& variableName, const SqlType& type, Position at);
    /// Raises 137.
    int slotOf(const std::string& variableName, Position at) const;

    std::vector<Variable> m_variables;

  private:
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
    ExprPtr functionCall(std::string functionName, std::string database, bool ownFunction, Position at);
    ExprPtr columnOrFunction();
    ExprPtr make(ExprKind kind, Position at, ExprPtr first = nullptr, ExprPtr second = nullptr) const;
    /// Counts the levels below, and raises 191 when they are too many.
    ExprPtr finished(ExprPtr expr) const;
};

} // namespace engine
