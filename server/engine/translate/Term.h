#pragma once

#include "server/engine/parser/Ast.h"

#include <string>

namespace engine {

/// An expression in SQLite's words.
struct Term {
    std::string sql;
    SqlType type;
    /// SQLite knows by itself that case does not count: a column.
    bool collated = false;
    /// The same for every row.
    bool constant = true;
    /// Holds exactly what a column or variable of its type can hold: no rounding is due.
    bool exact = false;
    /// In parentheses around a row of '|' (joined texts), '+' (sums), '*' (products), '&'.
    char chain = '\0';
};

/// A literal or NULL as a term.
Term literalTerm(const Expr& expr);

} // namespace engine
