#include "server/engine/translate/ExpressionTranslator.h"

#include "server/engine/translate/Builtins.h"
#include "server/engine/values/Ascii.h"
#include "server/engine/values/Collation.h"

#include <algorithm>

namespace engine {
namespace {

constexpr SqlType intType{TypeKind::Int};

std::string firstToken(const Expr& expr) {
    switch (expr.kind) {
    case ExprKind::Comparison:
        return expr.text;
    case ExprKind::And:
        return "AND";
    case ExprKind::Or:
        return "OR";
    case ExprKind::Not:
        return "NOT";
    case ExprKind::IsNull:
        return "IS";
    case ExprKind::In:
        return "IN";
    case ExprKind::Between:
        return "BETWEEN";
    case ExprKind::Like:
        return "LIKE";
    case ExprKind::Exists:
        return "EXISTS";
    default:
        return expr.text;
    }
}

} // namespace

ExpressionTranslator::ExpressionTranslator(Catalogue& catalogue, std::string database,
                                           const std::vector<Variable>& variables)
    : m_catalogue(catalogue), m_database(std::move(database)), m_variables(variables) {}

const std::string& ExpressionTranslator::databaseOf(const ObjectName& name) {
    return name.database.empty() ? m_database : m_catalogue.database(name.database);
}

Term ExpressionTranslator::value(const Expr& expr) {
    constexpr std::size_t longest = 1 << 18;
    Term term = translatedValue(expr);
    if (term.sql.size() > longest)
        throw nestedTooDeeply(expr.position);
    return term;
}

Term ExpressionTranslator::translatedValue(const Expr& expr) {
    switch (expr.kind) {
    case ExprKind::Null:
    case ExprKind::TextLiteral:
    case ExprKind::IntegerLiteral:
    case ExprKind::DecimalLiteral:
    case ExprKind::FloatLiteral:
        return literalTerm(expr);
    case ExprKind::Variable:
        return {placeholder(expr.slot), m_variables[std::size_t(expr.slot)].type, false, true, true};
    case ExprKind::Global:
        return global(expr);
    case ExprKind::Column:
        return column(expr);
    case ExprKind::Negate: {
        Term term = value(*expr.children.front());
        if (isText(term.type))
            term = {converted(term, intType), intType, false, term.constant};
        term.sql = "(-" + term.sql + ")";
        term.collated = false;
        term.chain = '\0';
        return term;
    }
    case ExprKind::Arithmetic:
        return arithmetic(expr);
    case ExprKind::Subquery:
        return scalarSubquery(expr);
    case ExprKind::Case:
        return caseValue(expr);
    case ExprKind::Function:
        return function(expr);
    case ExprKind::Cast:
        if (expr.flag)
            return tryCast(expr);
        return cast(value(*expr.children.front()), expr.type,
                    expr.children.size() > 1 ? converted(value(*expr.children[1]), intType) : "0");
    default:
        throw syntaxError(firstToken(expr), expr.position);
    }
}

std::string ExpressionTranslator::condition(const Expr& expr) {
    switch (expr.kind) {
    case ExprKind::Comparison:
        return compared(value(*expr.children[0]), expr.text, value(*expr.children[1]));
    case ExprKind::And:
    case ExprKind::Or:
        return "(" + chain(expr, expr.kind) + ")";
    case ExprKind::Not:
        return "(NOT " + condition(*expr.children.front()) + ")";
    case ExprKind::IsNull:
        return "(" + value(*expr.children.front()).sql + (expr.flag ? " IS NOT NULL)" : " IS NULL)");
    case ExprKind::In:
        return in(expr);
    case ExprKind::Between:
        return between(expr);
    case ExprKind::Like:
        return like(expr);
    case ExprKind::Exists:
        return "EXISTS (" + subquery(*expr.query).sql + ")";
    default:
        throw ScriptError(
            4145,
            QStringLiteral("An expression of non-boolean type specified in a context where a condition "
                           "is expected, near '%1'.")
                .arg(toQString(expr.text)),
            "42000", expr.position);
    }
}

/// a AND b AND c without a parenthesis for each: SQLite's parser has room for a hundred of them only.
std::string ExpressionTranslator::chain(const Expr& expr, ExprKind kind) {
    if (expr.kind != kind)
        return condition(expr);
    const char* word = kind == ExprKind::And ? " AND " : " OR ";
    std::string left = chain(*expr.children[0], kind);
    return left + word + chain(*expr.children[1], kind);
}

/// A parenthesis less around a term that goes on with signs of the same strength.
std::string ExpressionTranslator::opened(const Term& term, char strength) {
    const bool isOpen = term.chain == strength && term.sql.front() == '(';
    return isOpen ? term.sql.substr(1, term.sql.size() - 2) : term.sql;
}

Term ExpressionTranslator::column(const Expr& expr) {
    bool aliasSeen = expr.qualifier.empty();
    for (const TableScope* scope = m_scope; scope; scope = scope->outer) {
        const ScopeTable* table = nullptr;
        const ScopeColumn* found = nullptr;
        for (const ScopeTable& candidate : scope->tables) {
            if (!expr.qualifier.empty() && !sameWord(candidate.alias, expr.qualifier))
                continue;
            aliasSeen = true;
            for (const ScopeColumn& named : candidate.columns) {
                if (!sameWord(named.name, expr.text))
                    continue;
                if (found)
                    throw ambiguousColumn(expr.text, expr.position);
                found = &named;
                table = &candidate;
            }
        }
        if (found)
            return {quotedName(table->alias) + "." + quotedName(found->name), found->type, found->collated,
                    false, true};
    }
    if (!aliasSeen)
        throw unboundIdentifier(expr.qualifier + "." + expr.text, expr.position);
    throw invalidColumn(expr.text, expr.position);
}

Term ExpressionTranslator::global(const Expr& expr) {
    if (expr.text == "@@ROWCOUNT")
        return sessionValue(SessionValue::RowCount, intType);
    if (expr.text == "@@SPID")
        return sessionValue(SessionValue::ProcessId, intType);
    if (expr.text == "@@IDENTITY")
        return sessionValue(SessionValue::ScopeIdentity, {TypeKind::Decimal});
    if (expr.text == "@@TRANCOUNT")
        return sessionValue(SessionValue::TransactionCount, intType);
    if (expr.text == "@@ERROR") // an error never leads to the next statement here
        return {"0", intType, false, true, true};
    throw notSupported(expr.text, expr.position);
}

Term ExpressionTranslator::arithmetic(const Expr& expr) {
    Term left = value(*expr.children[0]);
    Term right = value(*expr.children[1]);
    const std::string& sign = expr.text;
    const bool bothText = (isText(left.type) || classOf(left.type) == TypeClass::Null) &&
                          (isText(right.type) || classOf(right.type) == TypeClass::Null);
    const bool constant = left.constant && right.constant;
    if (sign == "+" && bothText && (isText(left.type) || isText(right.type))) {
        SqlType type = commonType(left.type, right.type);
        type.length =
            left.type.length < 0 || right.type.length < 0 ? -1 : left.type.length + right.type.length;
        Term joined{"(" + opened(left, '|') + " || " + right.sql + ")", type, false, constant};
        joined.chain = '|';
        return joined;
    }
    if (bothText)
        throw ScriptError(
            402,
            QStringLiteral("The data types varchar and varchar are incompatible in the '%1' operator.")
                .arg(toQString(sign)),
            "42000", expr.position);
    return sum(left, right, sign);
}

Term ExpressionTranslator::sum(const Term& left, const Term& right, const std::string& sign) {
    const bool constant = left.constant && right.constant;
    SqlType type = commonType(left.type, right.type);
    if (classOf(type) == TypeClass::Moment) {
        // a number beside a moment counts days
        const bool leftMoment = classOf(left.type) == TypeClass::Moment;
        const Term& moment = leftMoment ? left : right;
        const Term& other = leftMoment ? right : left;
        const char* operation = sign == "-" ? "1" : "0";
        m_translation.mayFailHalfway = true;
        return {"ts_movedays(" + moment.sql + ", " +
                    (isNumber(other.type) ? other.sql : converted(other, type)) + ", " + operation + ")",
                {TypeKind::DateTime},
                false,
                constant};
    }
    if (type.kind == TypeKind::Bit)
        type = intType;
    const char strength = sign == "+" || sign == "-"                  ? '+'
                          : sign == "*" || sign == "/" || sign == "%" ? '*'
                                                                      : '&';
    std::string first = converted(left, type);
    std::string second = converted(right, type);
    if (first == left.sql)
        first = opened(left, strength);
    if (type.kind == TypeKind::Decimal) {
        const int scale = left.type.scale + right.type.scale;
        type.scale = sign == "*"   ? scale
                     : sign == "/" ? std::max(6, left.type.scale + 1)
                                   : std::max(left.type.scale, right.type.scale);
    }
    if (sign == "/" || sign == "%") {
        m_translation.mayFailHalfway = true;
        second = "ts_divisor(" + second + ")";
    }
    Term result{"(" + first + " " + sign + " " + second + ")", type, false, constant,
                classOf(type) == TypeClass::Integer};
    result.chain = strength;
    return result;
}

Term ExpressionTranslator::caseValue(const Expr& expr) {
    const auto& children = expr.children;
    std::vector<std::string> conditions;
    std::vector<Term> results;
    SqlType type;
    for (std::size_t i = 2; i + 1 < children.size(); i += 2) {
        results.push_back(value(*children[i]));
        type = commonType(type, results.back().type);
    }
    std::string sql = "CASE";
    if (children.front()) {
        sql += caseOperand(expr, conditions);
    } else {
        for (std::size_t i = 1; i + 2 < children.size(); i += 2)
            conditions.push_back(condition(*children[i]));
    }
    if (const Expr* otherwise = children.back().get()) {
        results.push_back(value(*otherwise));
        type = commonType(type, results.back().type);
    }
    for (std::size_t i = 0; i < conditions.size(); ++i)
        sql += " WHEN " + conditions[i] + " THEN " + converted(results[i], type);
    if (results.size() > conditions.size())
        sql += " ELSE " + converted(results.back(), type);
    return {sql + " END", type, false, false};
}

std::string ExpressionTranslator::caseOperand(const Expr& expr, std::vector<std::string>& values) {
    const Term operand = value(*expr.children.front());
    std::vector<Term> terms;
    SqlType type = operand.type;
    for (std::size_t i = 1; i + 2 < expr.children.size(); i += 2) {
        terms.push_back(value(*expr.children[i]));
        type = commonType(type, terms.back().type);
    }
    for (const Term& term : terms)
        values.push_back(converted(term, type));
    return " " + converted(operand, type) + (isText(type) && !operand.collated ? textOrder : "");
}

Term ExpressionTranslator::function(const Expr& expr) {
    if (expr.flag)
        return ownFunction(expr);
    return builtins::call(*this, expr);
}

Term ExpressionTranslator::ownFunction(const Expr& expr) {
    const std::string& database = expr.qualifier.empty() ? m_database : m_catalogue.database(expr.qualifier);
    const std::shared_ptr<Module> module = m_catalogue.module(database, expr.text);
    if (!module || module->definition->kind != ModuleKind::Function)
        throw ScriptError(
            4121,
            QStringLiteral("Cannot find either column \"dbo\" or the user-defined function or aggregate "
                           "\"dbo.%1\", or the name is ambiguous.")
                .arg(toQString(expr.text)),
            "42000", expr.position);
    const auto& parameters = module->definition->parameters;
    if (expr.children.size() < parameters.size())
        throw ScriptError(
            313,
            QStringLiteral("An insufficient number of arguments were supplied for the procedure or "
                           "function dbo.%1.")
                .arg(toQString(expr.text)),
            "42000", expr.position);
    if (expr.children.size() > parameters.size())
        throw ScriptError(8144, tooManyArguments("dbo." + module->name).description(), "42000",
                          expr.position);
    m_translation.functions.push_back(module);
    Term term{functionName(*module) + "(", module->definition->returns, false, false, true};
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const SqlType& type = module->script().variables[std::size_t(parameters[i].slot)].type;
        term.sql += (i > 0 ? ", " : "") + converted(value(*expr.children[i]), type);
    }
    term.sql += ")";
    m_translation.mayFailHalfway = true;
    return term;
}

Term ExpressionTranslator::scalarSubquery(const Expr& expr) {
    const Subquery inner = subquery(*expr.query);
    if (inner.columns.size() != 1)
        throw ScriptError(
            116,
            QStringLiteral("Only one expression can be specified in the select list when the subquery is "
                           "not introduced with EXISTS."),
            "42000", expr.position);
    return {"(" + inner.sql + ")", inner.columns.front().type, false, false, true};
}

std::string ExpressionTranslator::in(const Expr& expr) {
    const Term left = value(*expr.children.front());
    if (expr.query) {
        const Subquery inner = subquery(*expr.query);
        if (inner.columns.size() != 1)
            throw ScriptError(
                116,
                QStringLiteral("Only one expression can be specified in the select list when the "
                               "subquery is not introduced with EXISTS."),
                "42000", expr.position);
        const bool needsCase = isText(left.type) && !left.collated;
        return "(" + left.sql + (needsCase ? textOrder : "") + (expr.flag ? " NOT IN (" : " IN (") +
               inner.sql + "))";
    }
    SqlType type = left.type;
    std::vector<Term> items;
    for (std::size_t i = 1; i < expr.children.size(); ++i) {
        items.push_back(value(*expr.children[i]));
        type = commonType(type, items.back().type);
    }
    std::string sql = "(" + converted(left, type);
    if (isText(type) && !left.collated)
        sql += textOrder;
    sql += expr.flag ? " NOT IN (" : " IN (";
    for (std::size_t i = 0; i < items.size(); ++i)
        sql += (i > 0 ? ", " : "") + converted(items[i], type);
    return sql + "))";
}

std::string ExpressionTranslator::between(const Expr& expr) {
    const Term left = value(*expr.children[0]);
    const std::string sql = "(" + compared(left, ">=", value(*expr.children[1])) + " AND " +
                            compared(left, "<=", value(*expr.children[2])) + ")";
    return expr.flag ? "(NOT " + sql + ")" : sql;
}

std::string ExpressionTranslator::like(const Expr& expr) {
    const Term left = value(*expr.children[0]);
    const Term right = value(*expr.children[1]);
    const SqlType text{TypeKind::Varchar};
    const std::string subject = converted(left, text);
    const std::string pattern = converted(right, text);
    const std::string match = "ts_like(" + pattern + ", " + subject + ")";
    if (expr.flag)
        return "(NOT " + match + ")";
    // What stands before the first wild card bounds the column, so that an index on it is of use.
    if (left.collated && right.constant && isText(left.type))
        return "(" + left.sql + " >= ts_likelow(" + pattern + ") AND " + left.sql + " < ts_likehigh(" +
               pattern + ") AND " + match + ")";
    return match;
}

Term ExpressionTranslator::tryCast(const Expr& expr) {
    const Term term = value(*expr.children.front());
    const bool isNull = classOf(term.type) == TypeClass::Null;
    if ((!isText(term.type) && !isNull) || isText(expr.type))
        throw notSupported("TRY_CAST", expr.position); // of a text into something else it is made for
    return {"ts_tryconvert(" + term.sql + ", " + std::to_string(int(expr.type.kind)) + ", " +
                std::to_string(expr.type.scale) + ")",
            expr.type, false, term.constant, true};
}

Term ExpressionTranslator::textTerm(const Expr& expr) {
    const Term term = value(expr);
    if (isText(term.type))
        return term;
    return {converted(term, {TypeKind::Varchar}), {TypeKind::Varchar}, false, term.constant, true};
}

} // namespace engine
