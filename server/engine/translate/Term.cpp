#include "server/engine/translate/Term.h"

#include "server/engine/file/SqliteFile.h"
#include "server/engine/values/Ascii.h"

#include <cstdlib>

namespace engine {

Term literalTerm(const Expr& expr) {
    Term term;
    switch (expr.kind) {
    case ExprKind::TextLiteral:
        term.sql = quotedText(expr.text);
        term.type = {expr.flag ? TypeKind::NVarchar : TypeKind::Varchar, int(charactersOf(expr.text))};
        break;
    case ExprKind::IntegerLiteral:
        if (expr.text.size() > 18) {
            term.sql = expr.text + ".0";
            term.type = {TypeKind::Decimal};
        } else {
            term.sql = expr.text;
            term.type = {expr.text.size() > 9 && std::strtoll(expr.text.c_str(), nullptr, 10) > 2147483647
                             ? TypeKind::BigInt
                             : TypeKind::Int};
        }
        break;
    case ExprKind::DecimalLiteral: {
        const std::size_t point = expr.text.find('.');
        term.sql = expr.text.front() == '.' ? "0" + expr.text : expr.text;
        term.type = {TypeKind::Decimal, -1, int(expr.text.size() - point - 1)};
        break;
    }
    case ExprKind::FloatLiteral:
        term.sql = expr.text.front() == '.' ? "0" + expr.text : expr.text;
        term.type = {TypeKind::Float};
        break;
    default:
        term.sql = "NULL";
    }
    term.exact = true;
    return term;
}

} // namespace engine
