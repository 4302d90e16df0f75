#include "server/engine/parser/ValueParser.h"

#include "server/engine/values/Ascii.h"

#include <algorithm>

namespace engine {
namespace {

constexpr int deepestExpression = 200;

SqlType parameterType(char mark) {
    if (isDigit(mark))
        return {TypeKind::Decimal, -1, mark - '0'};
    switch (mark) {
    case 'n':
        return {TypeKind::NVarchar};
    case 'i':
        return {TypeKind::Int};
    case 'b':
        return {TypeKind::BigInt};
    default:
        return {TypeKind::Varchar};
    }
}

} // namespace

ValueParser::ValueParser(std::string_view text, bool withParameters) : TokenReader(text, withParameters) {
    for (std::size_t i = 0; withParameters && !isKind(TokenKind::End, i); ++i) {
        if (isKind(TokenKind::Parameter, i))
            m_variables.push_back({{}, parameterType(peek(i).text[0])});
    }
}

int ValueParser::declareVariable(const std::string& variableName, const SqlType& type, SourcePosition at) {
    for (const Variable& variable : m_variables) {
        if (sameWord(variable.name, variableName))
            throw ScriptError(
                134,
                QStringLiteral("The variable name '%1' has already been declared. Variable names must be "
                               "unique within a query batch or stored procedure.")
                    .arg(toQString(variableName)),
                "42000", at);
    }
    m_variables.push_back({variableName, type});
    return int(m_variables.size()) - 1;
}

int ValueParser::slotOf(const std::string& variableName, SourcePosition at) const {
    for (std::size_t i = 0; i < m_variables.size(); ++i) {
        if (sameWord(m_variables[i].name, variableName))
            return int(i);
    }
    throw undeclaredVariable(variableName, at);
}

ExprPtr ValueParser::make(ExprKind kind, SourcePosition at, ExprPtr first, ExprPtr second) const {
    auto expr = std::make_unique<Expr>(kind, at);
    if (first)
        expr->children.push_back(std::move(first));
    if (second)
        expr->children.push_back(std::move(second));
    return finished(std::move(expr));
}

ExprPtr ValueParser::finished(ExprPtr expr) const {
    for (const ExprPtr& child : expr->children) {
        if (child)
            expr->depth = std::max(expr->depth, child->depth + 1);
    }
    if (expr->depth > deepestExpression)
        throw nestedTooDeeply(expr->position);
    return expr;
}

bool ValueParser::startsQuery() const {
    std::size_t ahead = 0;
    while (isSymbol("(", ahead))
        ++ahead;
    return isWord("SELECT", ahead);
}

ExprPtr ValueParser::literal() {
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

ExprPtr ValueParser::primary() {
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

ExprPtr ValueParser::parenthesis() {
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

ExprPtr ValueParser::wordExpression() {
    if (isWord("CASE"))
        return caseExpression();
    if (isWord("CAST") && isSymbol("(", 1))
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

ExprPtr ValueParser::caseExpression() {
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

SqlType ValueParser::castType() {
    SqlType type = typeName();
    const bool lengthLeftOut = lastEnd() > 0 && source()[lastEnd() - 1] != ')';
    if (lengthLeftOut && isText(type) && type.kind != TypeKind::Text)
        type.length = 30;
    return type;
}

ExprPtr ValueParser::castExpression() {
    const SourcePosition at = next().position;
    expectSymbol("(");
    ExprPtr expr = make(ExprKind::Cast, at, expression());
    expectWord("AS");
    expr->type = castType();
    expectSymbol(")");
    return expr;
}

ExprPtr ValueParser::convertExpression() {
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

ExprPtr ValueParser::functionCall(std::string functionName, std::string database, bool ownFunction,
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

ExprPtr ValueParser::columnOrFunction() {
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
