#include "server/engine/translate/GroupCheck.h"

#include "server/engine/values/Ascii.h"

#include <algorithm>
#include <iterator>

namespace engine {
namespace {

bool isOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view known) { return sameWord(word, known); });
}

bool isAggregate(const Expr& expr) {
    return expr.kind == ExprKind::Function && !expr.flag &&
           isOneOf(expr.text, {"COUNT", "COUNT_BIG", "SUM", "AVG", "MIN", "MAX"});
}

/// The first argument is the word of a part of a date, no column.
bool beginsWithDatePart(const Expr& expr) {
    return expr.kind == ExprKind::Function && !expr.flag &&
           isOneOf(expr.text, {"DATEADD", "DATEDIFF", "DATEPART", "DATENAME"});
}

} // namespace

bool GroupCheck::holdsAggregate(const Expr& expr) {
    return isAggregate(expr) ||
           std::any_of(expr.children.begin(), expr.children.end(),
                       [](const ExprPtr& child) { return child && holdsAggregate(*child); });
}

void GroupCheck::addKey(std::string sql) {
    m_grouped = true;
    m_keys.push_back(std::move(sql));
}

bool GroupCheck::isKey(const std::string& sql) const {
    return std::find(m_keys.begin(), m_keys.end(), sql) != m_keys.end();
}

void GroupCheck::check(const Expr& expr, Clause clause) {
    if (!m_grouped || isAggregate(expr) || expr.query)
        return;
    const bool mayBeKey = !isCondition(expr.kind) && expr.kind != ExprKind::Star && !m_keys.empty();
    if (mayBeKey && !holdsAggregate(expr) && isKey(m_translator.value(expr).sql))
        return;
    if (expr.kind == ExprKind::Column) {
        for (const ScopeTable& table : m_scope.tables) {
            if (!expr.qualifier.empty() && !sameWord(table.alias, expr.qualifier))
                continue;
            for (const ScopeColumn& column : table.columns) {
                if (sameWord(column.name, expr.text))
                    fail(table.alias, column.name, clause, expr.position);
            }
        }
        return; // of a query around this one
    }
    for (std::size_t i = beginsWithDatePart(expr) ? 1 : 0; i < expr.children.size(); ++i) {
        if (expr.children[i])
            check(*expr.children[i], clause);
    }
}

void GroupCheck::checkStar(const SelectItem& item) {
    if (!m_grouped)
        return;
    for (const ScopeTable& table : m_scope.tables) {
        if (!item.starTable.empty() && !sameWord(table.alias, item.starTable))
            continue;
        for (const ScopeColumn& column : table.columns) {
            if (!isKey(quotedName(table.alias) + "." + quotedName(column.name)))
                fail(table.alias, column.name, Clause::SelectList, item.position);
        }
    }
}

void GroupCheck::fail(const std::string& table, const std::string& column, Clause clause,
                      SourcePosition at) const {
    static constexpr struct {
        int number;
        const char* name;
    } clauses[] = {{8120, "select list"}, {8121, "HAVING clause"}, {8127, "ORDER BY clause"}};
    throw ScriptError(
        clauses[int(clause)].number,
        QStringLiteral("Column '%1.%2' is invalid in the %3 because it is not contained in either an "
                       "aggregate function or the GROUP BY clause.")
            .arg(toQString(table), toQString(column), QLatin1StringView(clauses[int(clause)].name)),
        "42000", at);
}

} // namespace engine
