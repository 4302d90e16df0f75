#include "server/engine/parser/ExpressionParser.h"

#include "server/engine/values/Ascii.h"

#include <algorithm>

namespace engine {
ExprPtr ExpressionParser::expression() {
    const Level level(*this);
    ExprPtr left = conjunction();
    while (isWord("OR")) {
        const SourcePosition at = next().position;
        left = make(ExprKind::Or, at, std::move(left), conjunction());
    }
    return left;
}

ExprPtr ExpressionParser::conjunction() {
    ExprPtr left = negation();
    while (isWord("AND")) {
        const SourcePosition at = next().position;
        left = make(ExprKind::And, at, std::move(left), negation());
    }
    return left;
}

ExprPtr ExpressionParser::negation() {
    if (!isWord("NOT"))
        return predicate();
    const Level level(*this);
    const SourcePosition at = next().position;
    return make(ExprKind::Not, at, negation());
}

ExprPtr ExpressionParser::predicate() {
    if (isWord("EXISTS")) {
        ExprPtr exists = make(ExprKind::Exists, next().position);
        expectSymbol("(");
        exists->query = query();
        expectSymbol(")");
        return exists;
    }
    ExprPtr left = sum();
    if (isCondition(left->kind))
        return left;
    const bool negated = isWord("NOT") && (isWord("IN", 1) || isWord("LIKE", 1) || isWord("BETWEEN", 1));
    if (negated)
        next();
    return predicateTail(std::move(left), negated);
}

ExprPtr ExpressionParser::predicateTail(ExprPtr left, bool negated) {
    static constexpr std::string_view comparisons[] = {"=", "<>", "!=", "<", ">", "<=", ">=", "!<", "!>"};
    const SourcePosition at = position();
    if (acceptWord("IN"))
        return inList(std::move(left), negated);
    if (acceptWord("LIKE")) {
        ExprPtr like = make(ExprKind::Like, at, std::move(left), sum());
        like->flag = negated;
        if (isWord("ESCAPE"))
            notSupportedHere();
        return like;
    }
    if (acceptWord("BETWEEN")) {
        ExprPtr between = make(ExprKind::Between, at, std::move(left), sum());
        between->flag = negated;
        expectWord("AND");
        between->children.push_back(sum());
        return finished(std::move(between));
    }
    if (acceptWord("IS")) {
        ExprPtr isNull = make(ExprKind::IsNull, at, std::move(left));
        isNull->flag = acceptWord("NOT");
        expectWord("NULL");
        return isNull;
    }
    for (const std::string_view sign : comparisons) {
        if (!acceptSymbol(sign))
            continue;
        if (isWord("ALL") || isWord("ANY") || isWord("SOME"))
            notSupportedHere();
        ExprPtr comparison = make(ExprKind::Comparison, at, std::move(left), sum());
        comparison->text = sign == "!=" ? "<>" : sign == "!<" ? ">=" : sign == "!>" ? "<=" : sign;
        return comparison;
    }
    return left;
}

ExprPtr ExpressionParser::inList(ExprPtr left, bool negated) {
    ExprPtr in = make(ExprKind::In, position(), std::move(left));
    in->flag = negated;
    expectSymbol("(");
    if (startsQuery()) {
        in->query = query();
    } else {
        do {
            in->children.push_back(expression());
        } while (acceptSymbol(","));
    }
    expectSymbol(")");
    return finished(std::move(in));
}

ExprPtr ExpressionParser::sum() {
    ExprPtr left = product();
    while (isSymbol("+") || isSymbol("-") || isSymbol("&") || isSymbol("|")) {
        const Token sign = next();
        left = make(ExprKind::Arithmetic, sign.position, std::move(left), product());
        left->text = sign.text;
    }
    return left;
}

ExprPtr ExpressionParser::product() {
    ExprPtr left = factor();
    while (isSymbol("*") || isSymbol("/") || isSymbol("%")) {
        const Token sign = next();
        left = make(ExprKind::Arithmetic, sign.position, std::move(left), factor());
        left->text = sign.text;
    }
    return left;
}

ExprPtr ExpressionParser::factor() {
    if (!isSymbol("-") && !isSymbol("+"))
        return primary();
    const Level level(*this);
    const Token sign = next();
    ExprPtr operand = factor();
    return sign.text == "+" ? std::move(operand) : make(ExprKind::Negate, sign.position, std::move(operand));
}

} // namespace engine
