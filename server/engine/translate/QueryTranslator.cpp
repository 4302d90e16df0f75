#include "server/engine/translate/QueryTranslator.h"

#include "server/engine/translate/GroupCheck.h"
#include "server/engine/values/Ascii.h"
#include "server/engine/values/Collation.h"

#include <algorithm>

namespace engine {
namespace {

/// Lets the inner tables hide the outer ones while it lives.
class InnerScope {
  public:
    InnerScope(TableScope*& present, TableScope& inner) : m_present(present), m_saved(present) {
        inner.outer = present;
        present = &inner;
    }
    ~InnerScope() { m_present = m_saved; }
    InnerScope(const InnerScope&) = delete;
    InnerScope& operator=(const InnerScope&) = delete;

  private:
    TableScope*& m_present;
    TableScope* m_saved;
};

} // namespace

Translation QueryTranslator::select(const Select& query) {
    const Subquery whole = wholeQuery(query, true);
    m_translation.sql = whole.sql;
    for (const Output& output : m_lastOutputs) {
        m_translation.columns.push_back({output.name, output.term.type});
        m_translation.targets.push_back(output.target);
    }
    checkAssignments(query, m_lastOutputs);
    return std::move(m_translation);
}

void QueryTranslator::checkAssignments(const Select& query, const std::vector<Output>& outputs) {
    const auto assigned =
        std::count_if(outputs.begin(), outputs.end(), [](const Output& o) { return o.target >= 0; });
    const SourcePosition at = query.cores.front().position;
    if (assigned == 0) {
        m_translation.targets.clear();
        return;
    }
    if (std::size_t(assigned) != outputs.size())
        throw ScriptError(
            141,
            QStringLiteral("A SELECT statement that assigns a value to a variable must not be combined "
                           "with data-retrieval operations."),
            "42000", at);
    if (query.cores.size() > 1)
        throw notSupported("UNION", at);
    // SELECT @a = @a + column would need one variable to change from row to row
    const SelectCore& core = query.cores.front();
    for (const SelectItem& item : core.items) {
        const auto& slots = m_translation.slots;
        const bool readsItself = std::find(slots.begin(), slots.end(), item.slot) != slots.end();
        const bool oneRow = core.from.empty() || core.top || core.where || !core.groupBy.empty();
        if (readsItself && !oneRow && item.expr->kind == ExprKind::Arithmetic)
            throw notSupported("SELECT @x = @x + ...", item.position);
    }
}

Translation QueryTranslator::single(const Expr& expr, const SqlType* type) {
    Term term = value(expr);
    if (type) {
        term.sql = assigned(term, *type);
        term.type = *type;
    }
    m_translation.sql = "SELECT " + term.sql;
    m_translation.columns.push_back({{}, term.type});
    return std::move(m_translation);
}

Translation QueryTranslator::row(const std::vector<ExprPtr>& values) {
    for (const ExprPtr& expr : values)
        m_translation.sql += (m_translation.sql.empty() ? "SELECT " : ", ") + value(*expr).sql;
    return std::move(m_translation);
}

Translation QueryTranslator::test(const Expr& expr) {
    m_translation.sql = "SELECT 1 WHERE " + condition(expr);
    m_translation.columns.push_back({{}, {TypeKind::Int}});
    return std::move(m_translation);
}

ExpressionTranslator::Subquery QueryTranslator::subquery(const Select& select) {
    return wholeQuery(select, false);
}

ExpressionTranslator::Subquery QueryTranslator::wholeQuery(const Select& select, bool outermost) {
    countWork(select.cores.front().position);
    if (select.cores.size() > 1)
        return combinedQuery(select, outermost);
    Core whole = core(select.cores.front(), &select.orderBy, nullptr, false);
    Subquery result{whole.sql + whole.limit, {}};
    for (const Output& output : whole.outputs) {
        if (!outermost && output.target >= 0)
            throw syntaxError("=", select.cores.front().position);
        result.columns.push_back({output.name, output.term.type, output.term.collated});
    }
    m_lastOutputs = std::move(whole.outputs);
    return result;
}

ExpressionTranslator::Subquery QueryTranslator::combinedQuery(const Select& select, bool outermost) {
    // The first round tells the types, the second one writes every member with the common ones.
    std::vector<SqlType> types;
    std::vector<Output> outputs;
    for (const SelectCore& member : select.cores) {
        Core first = core(member, nullptr, nullptr, true);
        if (types.empty())
            types.resize(first.outputs.size());
        if (types.size() != first.outputs.size())
            throw ScriptError(
                205,
                QStringLiteral("All queries combined using a UNION, INTERSECT or EXCEPT operator must "
                               "have an equal number of expressions in their target lists."),
                "42000", member.position);
        for (std::size_t i = 0; i < types.size(); ++i)
            types[i] = commonType(types[i], first.outputs[i].term.type);
        if (outputs.empty())
            outputs = std::move(first.outputs);
    }
    Subquery result;
    for (std::size_t i = 0; i < select.cores.size(); ++i) {
        Core member = core(select.cores[i], nullptr, &types, true);
        if (i > 0)
            result.sql += " " + select.operators[i - 1] + " ";
        result.sql += member.limit.empty() ? member.sql : "SELECT * FROM (" + member.sql + member.limit + ")";
    }
    for (std::size_t i = 0; i < types.size(); ++i) {
        if (outputs[i].target >= 0)
            throw outermost ? notSupported("UNION", select.cores.front().position)
                            : syntaxError("=", select.cores.front().position);
        outputs[i].term = {{}, types[i]};
        result.columns.push_back({outputs[i].name, types[i], false});
    }
    if (!select.orderBy.empty())
        result.sql += orderText(select.orderBy, outputs, true);
    m_lastOutputs = std::move(outputs);
    return result;
}

QueryTranslator::Core QueryTranslator::core(const SelectCore& core, const std::vector<OrderItem>* order,
                                            const std::vector<SqlType>* types, bool combined) {
    countWork(core.position);
    Core result;
    TableScope scope;
    const InnerScope inner(m_scope, scope);
    const std::string tables = from(core.from, scope);
    outputs(core, scope, result.outputs);
    result.sql = core.distinct ? "SELECT DISTINCT " : "SELECT ";
    result.sql += outputList(result.outputs, types, core.distinct || combined) + tables;
    if (core.where)
        result.sql += " WHERE " + condition(*core.where);
    GroupCheck groups(*this, scope);
    result.sql += groupText(core, groups);
    if (core.having)
        result.sql += " HAVING " + condition(*core.having);
    if (order && !order->empty())
        result.sql += orderText(*order, result.outputs, false);
    checkGroups(core, order, result.outputs, groups);
    if (core.top)
        result.limit = " LIMIT CAST(" + converted(value(*core.top), {TypeKind::BigInt}) + " AS INTEGER)";
    return result;
}

std::string QueryTranslator::groupText(const SelectCore& core, GroupCheck& groups) {
    std::string sql;
    for (const ExprPtr& key : core.groupBy) {
        const Term term = value(*key);
        if (term.constant)
            throw ScriptError(
                164,
                QStringLiteral("Each GROUP BY expression must contain at least one column that is not an "
                               "outer reference."),
                "42000", key->position);
        sql += (sql.empty() ? " GROUP BY " : ", ") + keyed(term);
        groups.addKey(term.sql);
    }
    return sql;
}

void QueryTranslator::checkGroups(const SelectCore& core, const std::vector<OrderItem>* order,
                                  const std::vector<Output>& outputs, GroupCheck& groups) {
    for (const SelectItem& item : core.items) {
        if (!item.star)
            groups.lookAt(*item.expr);
    }
    if (core.having)
        groups.lookAt(*core.having);
    for (const SelectItem& item : core.items) {
        if (item.star)
            groups.checkStar(item);
        else
            groups.check(*item.expr, GroupCheck::Clause::SelectList);
    }
    if (core.having)
        groups.check(*core.having, GroupCheck::Clause::Having);
    if (!order)
        return;
    for (const OrderItem& item : *order) {
        const bool byAlias = item.expr->kind == ExprKind::Column && item.expr->qualifier.empty() &&
                             std::any_of(outputs.begin(), outputs.end(), [&](const Output& output) {
                                 return sameWord(output.name, item.expr->text);
                             });
        if (!byAlias)
            groups.check(*item.expr, GroupCheck::Clause::OrderBy);
    }
}

void QueryTranslator::outputs(const SelectCore& core, const TableScope& scope, std::vector<Output>& outputs) {
    for (const SelectItem& item : core.items) {
        if (item.star)
            star(item, scope, outputs);
        else
            outputs.push_back(itemOutput(item));
    }
}

void QueryTranslator::star(const SelectItem& item, const TableScope& scope, std::vector<Output>& outputs) {
    bool found = false;
    for (const ScopeTable& table : scope.tables) {
        if (!item.starTable.empty() && !sameWord(table.alias, item.starTable))
            continue;
        found = true;
        for (const ScopeColumn& column : table.columns) {
            const std::string sql = quotedName(table.alias) + "." + quotedName(column.name);
            Output& output = outputs.emplace_back();
            output.term = Term{sql, column.type, column.collated, false, true};
            output.name = column.name;
        }
    }
    if (found)
        return;
    if (item.starTable.empty())
        throw ScriptError(263, QStringLiteral("Must specify table to select from."), "42000", item.position);
    throw ScriptError(
        107,
        QStringLiteral("The column prefix '%1' does not match with a table name or alias name used in the "
                       "query.")
            .arg(toQString(item.starTable)),
        "42000", item.position);
}

QueryTranslator::Output QueryTranslator::itemOutput(const SelectItem& item) {
    Output output;
    output.term = value(*item.expr);
    output.name = item.alias.empty() && item.expr->kind == ExprKind::Column ? item.expr->text : item.alias;
    output.target = item.slot;
    if (item.slot >= 0) {
        const SqlType& type = m_variables[std::size_t(item.slot)].type;
        output.term = {assigned(output.term, type), type, output.term.collated, output.term.constant, true};
    }
    return output;
}

std::string QueryTranslator::outputList(std::vector<Output>& outputs, const std::vector<SqlType>* types,
                                        bool distinct) {
    std::string sql;
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        Output& output = outputs[i];
        if (types && (*types)[i].kind != output.term.type.kind)
            output.term = {converted(output.term, (*types)[i]), (*types)[i]};
        sql += (i > 0 ? ", " : "") + (distinct ? keyed(output.term) : output.term.sql);
        if (!output.name.empty())
            sql += " AS " + quotedName(output.name);
    }
    return sql;
}

std::string QueryTranslator::orderText(const std::vector<OrderItem>& order,
                                       const std::vector<Output>& outputs, bool namesOnly) {
    std::string sql;
    for (const OrderItem& item : order) {
        sql += sql.empty() ? " ORDER BY " : ", ";
        const Expr& expr = *item.expr;
        std::size_t place = 0; // of the output column, from 1
        if (expr.kind == ExprKind::IntegerLiteral) {
            place = std::size_t(std::strtoull(expr.text.c_str(), nullptr, 10));
            if (place == 0 || place > outputs.size())
                throw ScriptError(
                    108,
                    QStringLiteral("The ORDER BY position number %1 is out of range of the number of "
                                   "items in the select list.")
                        .arg(toQString(expr.text)),
                    "42000", expr.position);
        } else if (expr.kind == ExprKind::Column && (expr.qualifier.empty() || namesOnly)) {
            for (std::size_t i = 0; i < outputs.size() && place == 0; ++i) {
                if (sameWord(outputs[i].name, expr.text))
                    place = i + 1;
            }
        }
        if (place == 0 && namesOnly)
            throw ScriptError(
                104,
                QStringLiteral("ORDER BY items must appear in the select list if the statement contains a "
                               "UNION, INTERSECT or EXCEPT operator."),
                "42000", expr.position);
        if (place > 0) {
            sql += std::to_string(place);
            if (isText(outputs[place - 1].term.type) && !outputs[place - 1].term.collated)
                sql += textOrder;
        } else {
            sql += keyed(value(expr));
        }
        if (item.descending)
            sql += " DESC";
    }
    return sql;
}

} // namespace engine
