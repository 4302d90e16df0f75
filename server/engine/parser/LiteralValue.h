#pragma once

#include "server/engine/parser/Ast.h"
#include "server/engine/values/Cell.h"

namespace engine {

/// A literal, its sign included, or NULL.
bool isLiteral(const Expr& expr);
/// The literal's value; gives its type. A number keeps its text when it goes to a text.
SqlType readLiteral(const Expr& expr, Cell& cell);
/// The literal as a value of the type, in the words of an argument's or a statement's error.
void readLiteralAs(const Expr& expr, const SqlType& type, bool argument, Cell& cell);

} // namespace engine
