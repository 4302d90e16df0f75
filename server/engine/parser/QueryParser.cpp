#include "server/engine/parser/QueryParser.h"

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

QueryParser::QueryParser(std::string_view text, bool withParameters) : TokenReader(text, withParameters) {
    for (std::size_t i = 0; withParameters && !isKind(TokenKind::End, i); ++i) {
        if (isKind(TokenKind::Parameter, i))
            m_variables.push_back({{}, parameterType(peek(i).text[0])});
    }
}

int QueryParser::declareVariable(const std::string& variableName, const SqlType& type, SourcePosition at) {
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

int QueryParser::slotOf(const std::string& variableName, SourcePosition at) const {
    for (std::size_t i = 0; i < m_variables.size(); ++i) {
        if (sameWord(m_variables[i].name, variableName))
            return int(i);
    }
    throw undeclaredVariable(variableName, at);
}

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

std::unique_ptr<Select> QueryParser::query() {
    const Level level(*this);
    auto select = std::make_unique<Select>();
    unionMember(*select);
    while (isWord("UNION") || isWord("EXCEPT") || isWord("INTERSECT")) {
        std::string sign = upperText(next().text);
        if (sign == "UNION" && acceptWord("ALL"))
            sign += " ALL";
        select->operators.push_back(sign);
        unionMember(*select);
    }
    orderBy(*select);
    if (isWord("FOR") || isWord("OPTION"))
        notSupportedHere();
    return select;
}

void QueryParser::unionMember(Select& select) {
    const Level level(*this);
    if (!acceptSymbol("(")) {
        select.cores.push_back(core());
        return;
    }
    unionMember(select);
    expectSymbol(")");
}

SelectCore QueryParser::core() {
    SelectCore core;
    core.position = position();
    expectWord("SELECT");
    core.distinct = acceptWord("DISTINCT");
    if (!core.distinct)
        acceptWord("ALL");
    topClause(core);
    do {
        core.items.push_back(item());
    } while (acceptSymbol(","));
    if (isWord("INTO"))
        notSupportedHere();
    fromClause(core.from);
    if (acceptWord("WHERE"))
        core.where = expression();
    if (acceptWord("GROUP")) {
        expectWord("BY");
        do {
            core.groupBy.push_back(expression());
        } while (acceptSymbol(","));
    }
    if (acceptWord("HAVING"))
        core.having = expression();
    return core;
}

void QueryParser::topClause(SelectCore& core) {
    if (!acceptWord("TOP"))
        return;
    if (acceptSymbol("(")) {
        core.top = expression();
        expectSymbol(")");
    } else {
        if (!isKind(TokenKind::Integer))
            failHere();
        core.top = literal();
    }
    if (isWord("PERCENT") || (isWord("WITH") && isWord("TIES", 1)))
        notSupportedHere();
}

SelectItem QueryParser::item() {
    SelectItem item;
    item.position = position();
    if (acceptSymbol("*")) {
        item.star = true;
        return item;
    }
    if (isName() && isSymbol(".", 1) && isSymbol("*", 2)) {
        item.star = true;
        item.starTable = name();
        next();
        next();
        return item;
    }
    if (isKind(TokenKind::Variable) && isSymbol("=", 1)) {
        item.slot = slotOf(peek().text, position());
        next();
        next();
        item.expr = expression();
        return item;
    }
    if ((isName() || isKind(TokenKind::Text)) && isSymbol("=", 1)) {
        item.alias = next().text;
        next();
        item.expr = expression();
        return item;
    }
    item.expr = expression();
    if (acceptWord("AS")) {
        if (isKind(TokenKind::Text))
            item.alias = next().text;
        else
            item.alias = name();
    } else if (isName()) {
        item.alias = name();
    } else if (isKind(TokenKind::Text)) {
        item.alias = next().text;
    }
    return item;
}

void QueryParser::orderBy(Select& select) {
    if (!acceptWord("ORDER"))
        return;
    expectWord("BY");
    do {
        OrderItem order;
        order.expr = expression();
        order.descending = acceptWord("DESC");
        if (!order.descending)
            acceptWord("ASC");
        select.orderBy.push_back(std::move(order));
    } while (acceptSymbol(","));
    if (isWord("OFFSET"))
        notSupportedHere();
}

void QueryParser::fromClause(std::vector<std::unique_ptr<TableRef>>& tables) {
    if (!acceptWord("FROM"))
        return;
    do {
        tables.push_back(joinedTable());
    } while (acceptSymbol(","));
}

bool QueryParser::acceptJoin(JoinKind& kind) {
    if (acceptWord("JOIN")) {
        kind = JoinKind::Inner;
        return true;
    }
    static constexpr struct {
        std::string_view word;
        JoinKind kind;
    } joins[] = {{"INNER", JoinKind::Inner},
                 {"LEFT", JoinKind::Left},
                 {"RIGHT", JoinKind::Right},
                 {"FULL", JoinKind::Full},
                 {"CROSS", JoinKind::Cross}};
    for (const auto& join : joins) {
        if (!acceptWord(join.word))
            continue;
        kind = join.kind;
        if (isWord("APPLY"))
            notSupportedHere();
        if (kind != JoinKind::Inner && kind != JoinKind::Cross)
            acceptWord("OUTER");
        expectWord("JOIN");
        return true;
    }
    return false;
}

std::unique_ptr<TableRef> QueryParser::joinedTable() {
    const Level level(*this);
    std::unique_ptr<TableRef> left = table();
    JoinKind kind;
    for (int joins = 0; acceptJoin(kind); ++joins) {
        if (joins > deepest)
            throw nestedTooDeeply(position());
        auto joined = std::make_unique<TableRef>();
        joined->position = left->position;
        joined->join = kind;
        joined->left = std::move(left);
        joined->right = table();
        if (kind != JoinKind::Cross) {
            expectWord("ON");
            joined->on = expression();
        }
        left = std::move(joined);
    }
    return left;
}

std::unique_ptr<TableRef> QueryParser::table() {
    auto table = std::make_unique<TableRef>();
    table->position = position();
    if (isSymbol("(")) {
        if (!startsQuery()) {
            next();
            table = joinedTable();
            expectSymbol(")");
            return table;
        }
        next();
        table->derived = query();
        expectSymbol(")");
        tableAlias(*table);
        if (table->alias.empty())
            failHere();
        if (isSymbol("("))
            table->derivedColumns = nameList();
        return table;
    }
    if (isKind(TokenKind::Variable))
        notSupportedHere();
    table->name = objectName();
    if (table->name.name.starts_with('#'))
        throw notSupported(table->name.name, table->position);
    if (isSymbol("(") && !isWord("NOLOCK", 1))
        notSupportedHere();
    tableHints();
    tableAlias(*table);
    tableHints();
    return table;
}

void QueryParser::tableAlias(TableRef& table) {
    if (acceptWord("AS") || isName())
        table.alias = name();
}

void QueryParser::tableHints() {
    // A lock hint asks for less than this server gives anyhow: one writer at a time, readers on a snapshot.
    static constexpr std::string_view hints[] = {"NOLOCK",  "UPDLOCK",  "HOLDLOCK", "ROWLOCK",
                                                 "TABLOCK", "TABLOCKX", "READPAST", "SERIALIZABLE"};
    const bool with = isWord("WITH") && isSymbol("(", 1);
    if (!with && !(isSymbol("(") && isWord("NOLOCK", 1)))
        return;
    if (with)
        next();
    next();
    do {
        bool known = false;
        for (const std::string_view hint : hints)
            known = known || acceptWord(hint);
        if (!known)
            notSupportedHere();
    } while (acceptSymbol(","));
    expectSymbol(")");
}

std::vector<std::string> QueryParser::nameList() {
    std::vector<std::string> names;
    expectSymbol("(");
    do {
        names.push_back(name());
    } while (acceptSymbol(","));
    expectSymbol(")");
    return names;
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

bool QueryParser::startsQuery() const {
    std::size_t ahead = 0;
    while (isSymbol("(", ahead))
        ++ahead;
    return isWord("SELECT", ahead);
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
