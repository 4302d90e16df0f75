#include "server/engine/parser/LiteralValue.h"

#include "server/engine/values/Ascii.h"
#include "server/engine/values/Convert.h"
#include "server/engine/values/NumberText.h"

#include <cstdlib>

namespace engine {

bool isLiteral(const Expr& expr) {
    switch (expr.kind) {
    case ExprKind::Null:
    case ExprKind::TextLiteral:
    case ExprKind::IntegerLiteral:
    case ExprKind::DecimalLiteral:
    case ExprKind::FloatLiteral:
        return true;
    case ExprKind::Negate:
        return expr.children.front()->kind != ExprKind::TextLiteral && isLiteral(*expr.children.front());
    default:
        return false;
    }
}

SqlType readLiteral(const Expr& expr, Cell& cell) {
    switch (expr.kind) {
    case ExprKind::TextLiteral:
        cell.setText(expr.text);
        return {expr.flag ? TypeKind::NVarchar : TypeKind::Varchar};
    case ExprKind::IntegerLiteral:
        if (expr.text.size() < 19) {
            cell.setInteger(std::strtoll(expr.text.c_str(), nullptr, 10));
            return {std::llabs(cell.integer()) > 2147483647 ? TypeKind::BigInt : TypeKind::Int};
        }
        cell.setReal(literalNumber(expr.text));
        return {TypeKind::Decimal};
    case ExprKind::DecimalLiteral:
        cell.setReal(literalNumber(expr.text));
        return {TypeKind::Decimal, -1, int(expr.text.size() - expr.text.find('.') - 1)};
    case ExprKind::FloatLiteral:
        cell.setReal(literalNumber(expr.text));
        return {TypeKind::Float};
    case ExprKind::Negate: {
        const SqlType type = readLiteral(*expr.children.front(), cell);
        if (cell.kind() == Cell::Kind::Integer)
            cell.setInteger(-cell.integer());
        else if (cell.kind() == Cell::Kind::Real)
            cell.setReal(-cell.real());
        return type;
    }
    default:
        cell.setNull();
        return {};
    }
}

void readLiteralAs(const Expr& expr, const SqlType& type, bool argument, Cell& cell) {
    const SqlType from = readLiteral(expr, cell);
    convert(cell, from, type, argument ? ConversionPlace::Argument : ConversionPlace::Statement);
}

} // namespace engine
