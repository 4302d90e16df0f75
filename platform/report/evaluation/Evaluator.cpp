#include "platform/report/evaluation/Evaluator.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/report/definition/ReportError.h"
#include "platform/report/evaluation/Formulas.h"
#include "platform/report/evaluation/Functions.h"

#include <QScopeGuard>

#include <algorithm>

namespace report {
namespace {

using base::Value;

Value compared(Operator sign, const Value& left, const Value& right) {
    if (left.isNull() || right.isNull())
        return false;
    const int order = compareValues(left, right);
    switch (sign) {
    case Operator::Equal:
        return order == 0;
    case Operator::NotEqual:
        return order != 0;
    case Operator::Less:
        return order < 0;
    case Operator::LessEqual:
        return order <= 0;
    case Operator::Greater:
        return order > 0;
    default:
        return order >= 0;
    }
}

Value calculated(Operator sign, const Value& left, const Value& right) {
    if (left.isNull() || right.isNull())
        return {};
    const double a = base::CDbl(left);
    const double b = base::CDbl(right);
    switch (sign) {
    case Operator::Add:
        return a + b;
    case Operator::Subtract:
        return a - b;
    case Operator::Multiply:
        return a * b;
    default:
        if (b == 0.0)
            throw base::RunTimeError(errorDivision, QStringLiteral("Division by zero"));
        return a / b;
    }
}

} // namespace

Evaluator::Evaluator(std::shared_ptr<const ReportData> data) : m_data(std::move(data)) {
    if (m_data->details) {
        m_rows = m_data->details.get();
    } else if (!m_data->tables.empty()) {
        m_held.emplace(m_data->tables.front());
        m_rows = &*m_held;
    }
    const std::size_t groups = m_data->definition->groups.size();
    m_begins.resize(groups);
    m_keys.resize(groups);
    prepareSums();
}

Evaluator::~Evaluator() = default;

bool Evaluator::isVisible(const std::optional<Expression>& condition, const Scope& scope) {
    return !condition || isTrue(value(*condition, scope));
}

Value Evaluator::value(const Expression& expression, const Scope& scope) {
    switch (expression.kind) {
    case Expression::Kind::Constant:
        return expression.constant;
    case Expression::Kind::Parameter:
        return m_data->parameters.at(std::size_t(expression.index));
    case Expression::Kind::Column:
        return columnValue(expression, scope);
    case Expression::Kind::Formula:
        return value(m_data->formulas.at(std::size_t(expression.index)), scope);
    case Expression::Kind::Special:
        return specialValue(expression.special, scope);
    case Expression::Kind::Operation:
        return operationValue(expression, scope);
    case Expression::Kind::Aggregate:
        return aggregateValue(expression, scope);
    case Expression::Kind::Call: {
        std::vector<Value> arguments;
        for (const Expression& argument : expression.arguments)
            arguments.push_back(value(argument, scope));
        return functionAt(expression.index).run(arguments);
    }
    }
    return {};
}

/// An expression that is the number of pages, and nothing else.
bool isPageCount(const Expression* expression, const std::vector<Expression>& formulas) {
    while (expression->kind == Expression::Kind::Formula)
        expression = &formulas[std::size_t(expression->index)];
    return expression->kind == Expression::Kind::Special && expression->special == Special::PageCount;
}

Value Evaluator::shownValue(const Expression& expression, const Scope& scope) {
    if (scope.pageCount == unknownPages && isPageCount(&expression, m_data->formulas))
        return QStringLiteral("\u2026");
    return value(expression, scope);
}

qsizetype Evaluator::columnOf(const Expression& expression, const std::vector<ado::Column>& columns) const {
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const ado::Column& one) {
        return one.name.compare(expression.column, Qt::CaseInsensitive) == 0;
    });
    if (found == columns.end())
        throw base::RunTimeError(
            errorDamaged,
            QStringLiteral("Table %1 of the report gives no column %2.")
                .arg(m_data->definition->tables[std::size_t(expression.index)].name, expression.column));
    return found - columns.begin();
}

Value Evaluator::columnValue(const Expression& expression, const Scope& scope) {
    const bool isDetails = expression.index == 0 && m_rows;
    auto found = m_columns.constFind(&expression);
    if (found == m_columns.constEnd())
        found = m_columns.insert(
            &expression,
            columnOf(expression, isDetails ? m_rows->columns()
                                           : m_data->tables.at(std::size_t(expression.index)).columns));
    if (!isDetails) {
        const ado::Rows& rows = m_data->tables[std::size_t(expression.index)];
        return rows.count() == 0 ? Value() : rows.at(0, *found);
    }
    if (scope.row < 0 || (scope.row >= m_arrived && !hasRow(scope.row)))
        return {};
    return m_rows->at(scope.row, *found);
}

Value Evaluator::specialValue(Special special, const Scope& scope) const {
    switch (special) {
    case Special::PageNumber:
        return scope.pageNumber;
    case Special::PageCount:
        return scope.pageCount == unknownPages ? Value() : Value(scope.pageCount);
    case Special::RecordNumber:
        return qint64(scope.row + 1);
    case Special::PrintDate:
        return base::dateOnly(m_data->printedAt);
    case Special::PrintTime:
        return m_data->printedAt;
    case Special::HeadingName:
        return m_data->headingName;
    case Special::HeadingAddress:
        return m_data->headingAddress;
    }
    return {};
}

Value Evaluator::operationValue(const Expression& expression, const Scope& scope) {
    if (expression.operation == Operator::Join)
        return base::textOf(shownValue(expression.arguments[0], scope)) +
               base::textOf(shownValue(expression.arguments[1], scope));
    const Value left = value(expression.arguments[0], scope);
    switch (expression.operation) {
    case Operator::Not:
        return !isTrue(left);
    case Operator::Negate:
        return left.isNull() ? Value() : Value(-base::CDbl(left));
    case Operator::And:
        return isTrue(left) && isTrue(value(expression.arguments[1], scope));
    case Operator::Or:
        return isTrue(left) || isTrue(value(expression.arguments[1], scope));
    default:
        break;
    }
    const Value right = value(expression.arguments[1], scope);
    switch (expression.operation) {
    case Operator::Add:
    case Operator::Subtract:
    case Operator::Multiply:
    case Operator::Divide:
        return calculated(expression.operation, left, right);
    default:
        return compared(expression.operation, left, right);
    }
}

} // namespace report
