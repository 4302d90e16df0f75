#pragma once

#include "server/engine/translate/ExpressionTranslator.h"

/// The system functions in SQLite's words.
namespace engine::builtins {

/// Raises 174 and 195.
Term call(ExpressionTranslator& translator, const Expr& expr);

// what the translations share

inline constexpr SqlType intType{TypeKind::Int};
inline constexpr SqlType floatType{TypeKind::Float};
inline constexpr SqlType varcharType{TypeKind::Varchar};
inline constexpr SqlType momentType{TypeKind::DateTime};

inline const Expr& argument(const Expr& expr, std::size_t index) {
    return *expr.children[index];
}

/// The argument as the type, in SQLite's words.
inline std::string as(ExpressionTranslator& translator, const Expr& expr, std::size_t index,
                      const SqlType& type) {
    return translator.converted(translator.value(argument(expr, index)), type);
}

/// No argument reads a row.
inline bool allConstant(const Expr& expr, std::size_t first = 0) {
    if (expr.kind == ExprKind::Column || expr.query || (expr.kind == ExprKind::Function && expr.flag))
        return false;
    for (std::size_t i = first; i < expr.children.size(); ++i) {
        if (expr.children[i] && !allConstant(*expr.children[i]))
            return false;
    }
    return true;
}

Term dateAdd(ExpressionTranslator& translator, const Expr& expr);
Term dateDiff(ExpressionTranslator& translator, const Expr& expr);
Term datePartOf(ExpressionTranslator& translator, const Expr& expr);
Term dateName(ExpressionTranslator& translator, const Expr& expr);
Term isDate(ExpressionTranslator& translator, const Expr& expr);
/// YEAR, MONTH, DAY
Term partOfDate(ExpressionTranslator& translator, const Expr& expr, const char* part);

} // namespace engine::builtins
