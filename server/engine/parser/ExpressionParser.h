#pragma once

#include "server/engine/parser/ValueParser.h"

namespace engine {

/// Values and conditions, one function a level of precedence.
class ExpressionParser : public ValueParser {
  public:
    using ValueParser::ValueParser;

  protected:
    ExprPtr expression() override;

  private:
    ExprPtr conjunction();
    ExprPtr negation();
    ExprPtr predicate();
    ExprPtr predicateTail(ExprPtr left, bool negated);
    ExprPtr inList(ExprPtr left, bool negated);
    ExprPtr sum();
    ExprPtr product();
    ExprPtr factor();
};

} // namespace engine
