#pragma once

#include "server/engine/parser/TokenReader.h"

namespace engine {

/// The single values of an expression: literals, variables, columns, functions, CASE, CAST and what stands in
/// parentheses. Knows the variables of the text.
class ValueParser : public TokenReader {
  public:
    ValueParser(std::string_view text, bool withParameters);
    virtual ~ValueParser() = default;

  protected:
    /// SELECT ... [UNION ...] [ORDER BY ...]
    virtual std::unique_ptr<Select> query() = 0;
    virtual ExprPtr expression() = 0;

    ExprPtr primary();
    /// A literal, with its sign, or NULL; null when there is none.
    ExprPtr literal();
    bool startsQuery() const;
    /// Raises 134 when the name is taken.
    int declareVariable(const std::string& variableName, const SqlType& type, SourcePosition at);
    /// Raises 137.
    int slotOf(const std::string& variableName, SourcePosition at) const;
    ExprPtr make(ExprKind kind, SourcePosition at, ExprPtr first = nullptr, ExprPtr second = nullptr) const;
    /// Counts the levels below, and raises 191 when they are too many.
    ExprPtr finished(ExprPtr expr) const;

    std::vector<Variable> m_variables;

  private:
    ExprPtr parenthesis();
    ExprPtr wordExpression();
    ExprPtr caseExpression();
    ExprPtr castExpression();
    ExprPtr convertExpression();
    /// The type of a CAST: a text without a length has 30 characters there.
    SqlType castType();
    ExprPtr functionCall(std::string functionName, std::string database, bool ownFunction, SourcePosition at);
    ExprPtr columnOrFunction();
};

} // namespace engine
