#include "server/engine/parser/QueryParser.h"

#include "server/engine/values/Ascii.h"

#include <algorithm>

namespace engine {
namespace {

constexpr int deepestExpression = 200;

} // namespace

ExprPtr QueryParser::make(ExprKind kind, SourcePosition at, ExprPtr first, ExprPtr second) const {
    auto expr = std::make_unique<Expr>(kind, at);
    if (first)
        expr->children.push_back(std::move(first));
    if (second)
        expr->children.push_back(std::move(second));
    return finished(std::move(expr));
}

ExprPtr QueryParser::finished(ExprPtr expr) const {
    for (const ExprPtr& child : expr->children) {
        if (child)
            expr->depth = std::max(expr->depth, child->depth + 1);
    }
    if (expr->depth > deepestExpression)
        throw nestedTooDeeply(expr->position);
    return expr;
}

ExprPtr QueryParser::expression() {
    const Level level(*this);
    ExprPtr left = conjunction();
    while (isWord("OR")) {
        const SourcePosition at = next().position;
        left = make(ExprKind::Or, at, std::move(left), conjunction());
    }
    return left;
}

ExprPtr QueryParser::conjunction() {
    ExprPtr left = negation();
    while (isWord("AND")) {
        const SourcePosition at = next().position;
        left = make(ExprKind::And, at, std::move(left), negation());
    }
    return left;
}

ExprPtr QueryParser::negation() {
    if (!isWord("NOT"))
        return predicate();
    const Level level(*this);
    const SourcePosition at = next().position;
    return make(ExprKind::Not, at, negation());
}

ExprPtr QueryParser::predicate() {
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

ExprPtr QueryParser::predicateTail(ExprPtr left, bool negated) {
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

ExprPtr QueryParser::inList(ExprPtr left, bool negated) {
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

ExprPtr QueryParser::sum() {
    ExprPtr left = product();
    while (isSymbol("+") || isSymbol("-") || isSymbol("&") || isSymbol("|")) {
        const Token sign = next();
        left = make(ExprKind::Arithmetic, sign.position, std::move(left), product());
        left->text = sign.text;
    }
    return left;
}

ExprPtr QueryParser::product() {
    ExprPtr left = factor();
    while (isSymbol("*") || isSymbol("/") || isSymbol("%")) {
        const Token sign = next();
        left = make(ExprKind::Arithmetic, sign.position, std::move(left), factor());
        left->text = sign.text;
    }
    return left;
}

ExprPtr QueryParser::factor() {
    if (!isSymbol("-") && !isSymbol("+"))
        return primary();
    const Level level(*this);
    const Token sign = next();
    ExprPtr operand = factor();
    return sign.text == "+" ? std::move(operand) : make(ExprKind::Negate, sign.position, std::move(operand));
}

ExprPtr QueryParser::literal() {
    const bool signedNumber =
        (isSymbol("-") || isSymbol("+")) &&
        (isKind(TokenKind::Integer, 1) || isKind(TokenKind::Decimal, 1) || isKind(TokenKind::Float, 1));
    const std::string sign = signedNumber && next().text == "-" ? "-" : "";
    const Token& token = peek();
    ExprKind kind;
    switch (token.kind) {
    case TokenKind::Text:
    case TokenKind::NText:
        kind = ExprKind::TextLiteral;
        break;
    case TokenKind::Integer:
        kind = ExprKind::IntegerLiteral;
        break;
    case TokenKind::Decimal:
        kind = ExprKind::DecimalLiteral;
        break;
    case TokenKind::Float:
        kind = ExprKind::FloatLiteral;
        break;
    default:
        if (!isWord("NULL"))
            return nullptr;
        kind = ExprKind::Null;
    }
    ExprPtr expr = make(kind, token.position);
    if (kind != ExprKind::Null)
        expr->text = sign + token.text;
    expr->flag = token.kind == TokenKind::NText;
    next();
    return expr;
}

ExprPtr QueryParser::primary() {
    if (ExprPtr constant = literal())
        return constant;
    const Token& token = peek();
    switch (token.kind) {
    case TokenKind::Variable: {
        ExprPtr expr = make(ExprKind::Variable, token.position);
        expr->text = token.text;
        expr->slot = slotOf(token.text, token.position);
        next();
        return expr;
    }
    case TokenKind::Parameter: {
        ExprPtr expr = make(ExprKind::Variable, token.position);
        expr->slot = token.parameter;
        next();
        return expr;
    }
    case TokenKind::Global: {
        ExprPtr expr = make(ExprKind::Global, token.position);
        expr->text = upperText(token.text);
        next();
        return expr;
    }
    case TokenKind::Symbol:
        return parenthesis();
    default:
        return wordExpression();
    }
}

ExprPtr QueryParser::parenthesis() {
    const Level level(*this);
    const SourcePosition at = position();
    const bool subquery = isSymbol("(") && startsQuery();
    expectSymbol("(");
    ExprPtr expr;
    if (subquery) {
        expr = make(ExprKind::Subquery, at);
        expr->query = query();
    } else {
        expr = expression();
    }
    expectSymbol(")");
    return expr;
}

ExprPtr QueryParser::wordExpression() {
    if (isWord("CASE"))
        return caseExpression();
    if ((isWord("CAST") || isWord("TRY_CAST")) && isSymbol("(", 1))
        return castExpression();
    if (isWord("CONVERT") && isSymbol("(", 1))
        return convertExpression();
    // reserved words that are functions when a parenthesis follows
    static constexpr std::string_view functions[] = {"LEFT", "RIGHT", "COALESCE", "NULLIF"};
    for (const std::string_view function : functions) {
        if (isWord(function) && isSymbol("(", 1)) {
            const Token token = next();
            return functionCall(token.text, {}, false, token.position);
        }
    }
    return columnOrFunction();
}

ExprPtr QueryParser::caseExpression() {
    const Level level(*this);
    ExprPtr expr = make(ExprKind::Case, next().position);
    expr->children.push_back(isWord("WHEN") ? nullptr : expression());
    if (!isWord("WHEN"))
        failHere();
    while (acceptWord("WHEN")) {
        expr->children.push_back(expression());
        expectWord("THEN");
        expr->children.push_back(expression());
    }
    expr->children.push_back(acceptWord("ELSE") ? expression() : nullptr);
    expectWord("END");
    return finished(std::move(expr));
}

SqlType QueryParser::castType() {
    SqlType type = typeName();
    const bool lengthLeftOut = lastEnd() > 0 && source()[lastEnd() - 1] != ')';
    if (lengthLeftOut && isText(type) && type.kind != TypeKind::Text)
        type.length = 30;
    return type;
}

ExprPtr QueryParser::castExpression() {
    const bool tries = isWord("TRY_CAST");
    const SourcePosition at = next().position;
    expectSymbol("(");
    ExprPtr expr = make(ExprKind::Cast, at, expression());
    expectWord("AS");
    expr->type = castType();
    expr->flag = tries;
    expectSymbol(")");
    return expr;
}

ExprPtr QueryParser::convertExpression() {
    const SourcePosition at = next().position;
    expectSymbol("(");
    const SqlType type = castType();
    expectSymbol(",");
    ExprPtr expr = make(ExprKind::Cast, at, expression());
    expr->type = type;
    if (acceptSymbol(","))
        expr->children.push_back(expression());
    expectSymbol(")");
    return finished(std::move(expr));
}

ExprPtr QueryParser::functionCall(std::string functionName, std::string database, bool ownFunction,
                                  SourcePosition at) {
    ExprPtr expr = make(ExprKind::Function, at);
    expr->text = std::move(functionName);
    expr->qualifier = std::move(database);
    expr->flag = ownFunction;
    expectSymbol("(");
    if (isSymbol("*")) {
        expr->children.push_back(make(ExprKind::Star, next().position));
    } else if (!isSymbol(")")) {
        expr->distinct = acceptWord("DISTINCT");
        do {
            expr->children.push_back(expression());
        } while (acceptSymbol(","));
    }
    expectSymbol(")");
    if (isWord("OVER"))
        notSupportedHere();
    return finished(std::move(expr));
}

ExprPtr QueryParser::columnOrFunction() {
    const SourcePosition at = position();
    std::vector<std::string> parts{name()};
    while (acceptSymbol(".")) {
        if (isSymbol("."))
            parts.emplace_back();
        else
            parts.push_back(name());
    }
    if (isSymbol("(")) {
        if (parts.size() > 3)
            failHere();
        const bool own = parts.size() > 1;
        if (own && !parts[parts.size() - 2].empty() && !sameWord(parts[parts.size() - 2], "DBO"))
            throw notSupported(parts[parts.size() - 2] + "." + parts.back(), at);
        return functionCall(parts.back(), parts.size() == 3 ? parts.front() : std::string(), own, at);
    }
    ExprPtr expr = make(ExprKind::Column, at);
    expr->text = parts.back();
    if (parts.size() > 1)
        expr->qualifier = parts[parts.size() - 2];
    if (expr->text.empty() || (parts.size() > 1 && expr->qualifier.empty()))
        failHere();
    return expr;
}

} // namespace engine
