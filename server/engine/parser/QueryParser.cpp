#include "server/engine/parser/QueryParser.h"

#include "server/engine/values/Ascii.h"

namespace engine {
namespace {

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

bool QueryParser::startsQuery() const {
    std::size_t ahead = 0;
    while (isSymbol("(", ahead))
        ++ahead;
    return isWord("SELECT", ahead);
}

} // namespace engine
