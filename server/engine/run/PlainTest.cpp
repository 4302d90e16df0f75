#include "server/engine/run/PlainTest.h"

#include "server/engine/values/Collation.h"

#include <charconv>

namespace engine {
namespace {

/// One side of a comparison; its class is Null where SQLite has to be asked.
struct Side {
    TypeClass kind = TypeClass::Null;
    bool isNull = false;
    std::string_view text;
    std::int64_t number = 0;
};

Side ofVariable(const SqlType& type, const Cell& cell) {
    const TypeClass kind = classOf(type);
    if (kind == TypeClass::Text && cell.kind() == Cell::Kind::Text)
        return {kind, false, cell.text(), 0};
    if (kind == TypeClass::Integer && cell.kind() == Cell::Kind::Integer)
        return {kind, false, {}, cell.integer()};
    if ((kind == TypeClass::Text || kind == TypeClass::Integer) && cell.isNull())
        return {kind, true, {}, 0};
    return {};
}

Side sideOf(const Expr& expr, const Module& module, const std::vector<Cell>& slots,
            const SessionState& session) {
    switch (expr.kind) {
    case ExprKind::Variable: {
        const auto slot = std::size_t(expr.slot);
        return ofVariable(module.script().variables[slot].type, slots[slot]);
    }
    case ExprKind::Global:
        if (expr.text == "@@ROWCOUNT")
            return {TypeClass::Integer, false, {}, session.rowCount};
        return {};
    case ExprKind::TextLiteral:
        return {TypeClass::Text, false, expr.text, 0};
    case ExprKind::IntegerLiteral: {
        std::int64_t number = 0;
        const char* end = expr.text.data() + expr.text.size();
        const auto [behind, error] = std::from_chars(expr.text.data(), end, number);
        if (error != std::errc() || behind != end)
            return {};
        return {TypeClass::Integer, false, {}, number};
    }
    default:
        return {};
    }
}

bool holds(std::string_view sign, int order) {
    if (sign == "=")
        return order == 0;
    if (sign == "<>")
        return order != 0;
    if (sign == "<")
        return order < 0;
    if (sign == "<=")
        return order <= 0;
    if (sign == ">")
        return order > 0;
    return order >= 0;
}

} // namespace

std::optional<bool> plainTest(const Expr& condition, const Module& module, const std::vector<Cell>& slots,
                              const SessionState& session) {
    if (condition.kind == ExprKind::And || condition.kind == ExprKind::Or) {
        const std::optional<bool> left = plainTest(*condition.children[0], module, slots, session);
        const std::optional<bool> right =
            left ? plainTest(*condition.children[1], module, slots, session) : std::nullopt;
        if (!right)
            return std::nullopt;
        return condition.kind == ExprKind::And ? *left && *right : *left || *right;
    }
    if (condition.kind != ExprKind::Comparison)
        return std::nullopt;
    const Side left = sideOf(*condition.children[0], module, slots, session);
    const Side right = sideOf(*condition.children[1], module, slots, session);
    if (left.kind == TypeClass::Null || left.kind != right.kind)
        return std::nullopt;
    if (left.isNull || right.isNull)
        return false;
    const int order = left.kind == TypeClass::Text
                          ? compareTexts(left.text, right.text)
                          : (left.number > right.number) - (left.number < right.number);
    return holds(condition.text, order);
}

} // namespace engine
