#include "platform/report/Evaluator.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/report/Functions.h"
#include "platform/report/ReportError.h"

#include <cmath>

namespace report {
namespace {

using base::Value;

/// Texts together or numbers (dates as their serial) together: -1, 0, 1. Texts do not tell cases apart, as
/// the server does not.
int compare(const Value& left, const Value& right) {
    if (left.asText() && right.asText()) {
        const int order = left.asText()->compare(*right.asText(), Qt::CaseInsensitive);
        return order < 0 ? -1 : int(order > 0);
    }
    const auto number = [](const Value& value) {
        const base::DateTime* moment = value.asDateTime();
        return moment ? base::toSerial(*moment) : base::CDbl(value);
    };
    const double a = number(left);
    const double b = number(right);
    return a < b ? -1 : int(a > b);
}

Value compared(Operator sign, const Value& left, const Value& right) {
    if (left.isNull() || right.isNull())
        return false;
    const int order = compare(left, right);
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

/// What a sum takes of a value: text columns hold amounts, too. Null and "" are no values.
bool countsAsNumber(const Value& value) {
    return !value.isNull() && !(value.asText() && base::Trim(*value.asText()).isEmpty());
}

/// Kahan's: a year of amounts must still end in the right centavo.
struct Total {
    double sum = 0.0;
    double lost = 0.0;

    void add(double amount) {
        const double corrected = amount - lost;
        const double next = sum + corrected;
        lost = (next - sum) - corrected;
        sum = next;
    }
};

bool sameValue(const Value& left, const Value& right) {
    if (left.asText() && right.asText())
        return left.asText()->compare(*right.asText(), Qt::CaseInsensitive) == 0;
    return left == right;
}

} // namespace

Evaluator::Evaluator(std::shared_ptr<const ReportData> data) : m_data(std::move(data)) {
    if (!m_data->tables.empty())
        m_rowCount = m_data->tables.front().count();
    findGroups();
}

void Evaluator::findGroups() {
    const auto& groups = m_data->definition->groups;
    m_begun.assign(std::size_t(m_rowCount), std::uint8_t(groups.size()));
    std::vector<Value> before(groups.size());
    for (qsizetype row = 0; row < m_rowCount; ++row) {
        const Scope scope{row, -1, 0, 0};
        for (std::size_t level = groups.size(); level-- > 0;) {
            Value now = value(groups[level].by, scope);
            if (row == 0 || !sameValue(now, before[level]))
                m_begun[std::size_t(row)] = std::uint8_t(level);
            before[level] = std::move(now);
        }
    }
}

int Evaluator::firstGroupEnded(qsizetype row) const {
    return row + 1 < m_rowCount ? firstGroupBegun(row + 1) : 0;
}

qsizetype Evaluator::groupBegin(int level, qsizetype row) const {
    if (level < 0)
        return 0;
    while (row > 0 && firstGroupBegun(row) > level)
        --row;
    return row;
}

qsizetype Evaluator::groupEnd(int level, qsizetype row) const {
    if (level < 0)
        return m_rowCount;
    ++row;
    while (row < m_rowCount && firstGroupBegun(row) > level)
        ++row;
    return row;
}

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

Value Evaluator::columnValue(const Expression& expression, const Scope& scope) {
    const ado::Rows& rows = m_data->tables.at(std::size_t(expression.index));
    auto found = m_columns.constFind(&expression);
    if (found == m_columns.constEnd()) {
        qsizetype column = 0;
        while (column < qsizetype(rows.columns.size()) &&
               rows.columns[std::size_t(column)].name.compare(expression.column, Qt::CaseInsensitive) != 0)
            ++column;
        if (column == qsizetype(rows.columns.size()))
            throw base::RunTimeError(
                errorDamaged,
                QStringLiteral("Table %1 of the report gives no column %2.")
                    .arg(m_data->definition->tables[std::size_t(expression.index)].name, expression.column));
        found = m_columns.insert(&expression, column);
    }
    const qsizetype row = expression.index == 0 ? scope.row : 0;
    if (row < 0 || row >= rows.count())
        return {};
    return rows.at(row, *found);
}

Value Evaluator::specialValue(Special special, const Scope& scope) const {
    switch (special) {
    case Special::PageNumber:
        return scope.pageNumber;
    case Special::PageCount:
        return scope.pageCount;
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
    case Operator::Join:
        return base::textOf(left) + base::textOf(right);
    case Operator::Add:
    case Operator::Subtract:
    case Operator::Multiply:
    case Operator::Divide:
        return calculated(expression.operation, left, right);
    default:
        return compared(expression.operation, left, right);
    }
}

/// From the group's first row up to the one at hand; outside of rows there is none.
Value Evaluator::runningValue(const Expression& expression, const Scope& scope) {
    const int level = expression.index;
    if (scope.row < 0)
        return 0.0;
    std::vector<double>& totals = m_running[{&expression, level}];
    if (totals.empty()) {
        totals.reserve(std::size_t(m_rowCount));
        Total total;
        for (qsizetype row = 0; row < m_rowCount; ++row) {
            if (level >= 0 && firstGroupBegun(row) <= level)
                total = {};
            const Value one = value(expression.arguments.front(), Scope{row, -1, 0, 0});
            if (countsAsNumber(one))
                total.add(base::CDbl(one));
            totals.push_back(total.sum);
        }
    }
    return totals[std::size_t(scope.row)];
}

Value Evaluator::aggregateValue(const Expression& expression, const Scope& scope) {
    if (expression.aggregate == Aggregate::Running)
        return runningValue(expression, scope);
    const int level = expression.index >= 0 ? expression.index : scope.level;
    const qsizetype begin = level < 0 || scope.row < 0 ? 0 : groupBegin(level, scope.row);
    const SumKey key{&expression, level, begin};
    if (const auto kept = m_sums.find(key); kept != m_sums.end())
        return kept->second;
    const qsizetype end = m_rowCount == 0 ? 0 : groupEnd(level, begin);
    return m_sums[key] = aggregateOver(expression, begin, end);
}

Value Evaluator::aggregateOver(const Expression& expression, qsizetype begin, qsizetype end) {
    const Expression& counted = expression.arguments.front();
    qint64 count = 0;
    Total total;
    Value least;
    Value most;
    for (qsizetype row = begin; row < end; ++row) {
        const Value one = value(counted, Scope{row, -1, 0, 0});
        if (!countsAsNumber(one))
            continue;
        ++count;
        if (expression.aggregate == Aggregate::Sum || expression.aggregate == Aggregate::Average) {
            total.add(base::CDbl(one));
        } else if (expression.aggregate != Aggregate::Count) {
            if (least.isNull() || compare(one, least) < 0)
                least = one;
            if (most.isNull() || compare(one, most) > 0)
                most = one;
        }
    }
    switch (expression.aggregate) {
    case Aggregate::Sum:
        return total.sum;
    case Aggregate::Count:
        return count;
    case Aggregate::Average:
        return count == 0 ? Value() : Value(total.sum / double(count));
    case Aggregate::Minimum:
        return least;
    case Aggregate::Maximum:
        return most;
    case Aggregate::Running: // has a way of its own
        break;
    }
    return {};
}

} // namespace report
