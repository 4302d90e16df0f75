#include "platform/report/evaluation/Evaluator.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/report/definition/ReportError.h"
#include "platform/report/evaluation/Formulas.h"
#include "platform/report/evaluation/Functions.h"
#include "platform/report/evaluation/Operations.h"

#include <QScopeGuard>

#include <algorithm>

namespace report {
namespace {

using base::Value;

/// A running total is kept before every so many rows; between two of them it is added up again.
constexpr qsizetype markedRows = 256;
/// Rows taken in at a stroke.
constexpr qsizetype strokeRows = 256;

bool sameValue(const Value& left, const Value& right) {
    if (left.asText() && right.asText())
        return left.asText()->compare(*right.asText(), Qt::CaseInsensitive) == 0;
    return left == right;
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

bool Evaluator::isVisible(const std::optional<Expression>& condition, const Standpoint& standpoint) {
    return !condition || isTrue(value(*condition, standpoint));
}

Value Evaluator::value(const Expression& expression, const Standpoint& standpoint) {
    switch (expression.kind) {
    case Expression::Kind::Constant:
        return expression.constant;
    case Expression::Kind::Parameter:
        return m_data->parameters.at(std::size_t(expression.index));
    case Expression::Kind::Column:
        return columnValue(expression, standpoint);
    case Expression::Kind::Formula:
        return value(m_data->formulas.at(std::size_t(expression.index)), standpoint);
    case Expression::Kind::Special:
        return specialValue(expression.special, standpoint);
    case Expression::Kind::Operation:
        return operationValue(expression, standpoint);
    case Expression::Kind::Aggregate:
        return aggregateValue(expression, standpoint);
    case Expression::Kind::Call: {
        std::vector<Value> arguments;
        for (const Expression& argument : expression.arguments)
            arguments.push_back(value(argument, standpoint));
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

Value Evaluator::shownValue(const Expression& expression, const Standpoint& standpoint) {
    if (standpoint.pageCount == unknownPages && isPageCount(&expression, m_data->formulas))
        return QStringLiteral("\u2026");
    return value(expression, standpoint);
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

Value Evaluator::columnValue(const Expression& expression, const Standpoint& standpoint) {
    const bool isDetails = expression.index == 0 && m_rows;
    auto found = m_columns.constFind(&expression);
    if (found == m_columns.constEnd())
        found = m_columns.insert(
            &expression,
            isDetails ? columnOf(expression, m_rows->columns())
                      : columnOf(expression, m_data->tables.at(std::size_t(expression.index)).columns));
    const qsizetype column = *found; // rows that are taken in meanwhile look their own columns up
    if (!isDetails) {
        const ado::Rows& rows = m_data->tables[std::size_t(expression.index)];
        return rows.count() == 0 ? Value() : rows.at(0, column);
    }
    if (standpoint.row < 0 || (standpoint.row >= m_arrived && !hasRow(standpoint.row)))
        return {};
    return m_rows->at(standpoint.row, column);
}

Value Evaluator::specialValue(Special special, const Standpoint& standpoint) const {
    switch (special) {
    case Special::PageNumber:
        return standpoint.pageNumber;
    case Special::PageCount:
        return standpoint.pageCount == unknownPages ? Value() : Value(standpoint.pageCount);
    case Special::RecordNumber:
        return qint64(standpoint.row + 1);
    case Special::PrintDate:
        return base::dateOnly(m_data->printedAt);
    case Special::PrintTime:
        return m_data->printedAt;
    case Special::PrintedBy:
        return m_data->printedBy;
    case Special::HeadingName:
        return m_data->headingName;
    case Special::HeadingAddress:
        return m_data->headingAddress;
    }
    return {};
}

Value Evaluator::operationValue(const Expression& expression, const Standpoint& standpoint) {
    if (expression.operation == Operator::Join)
        return base::textOf(shownValue(expression.arguments[0], standpoint)) +
               base::textOf(shownValue(expression.arguments[1], standpoint));
    const Value left = value(expression.arguments[0], standpoint);
    switch (expression.operation) {
    case Operator::Not:
        return !isTrue(left);
    case Operator::Negate:
        return left.isNull() ? Value() : Value(-base::CDbl(left));
    case Operator::And:
        return isTrue(left) && isTrue(value(expression.arguments[1], standpoint));
    case Operator::Or:
        return isTrue(left) || isTrue(value(expression.arguments[1], standpoint));
    default:
        break;
    }
    const Value right = value(expression.arguments[1], standpoint);
    return operated(expression.operation, left, right);
}

/// Sums that the bands tell are added up with the rows as they come, instead of in a walk of their own.
void Evaluator::prepareSums() {
    const ReportDefinition& definition = *m_data->definition;
    for (const auto* bands : {&definition.reportHeaders, &definition.pageHeaders, &definition.details,
                              &definition.pageFooters, &definition.reportFooters})
        prepareSums(*bands, -1);
    for (std::size_t level = 0; level < definition.groups.size(); ++level) {
        const Group& group = definition.groups[level];
        prepareSums(group.headers, int(level));
        prepareSums(group.footers, int(level));
        if (group.label)
            prepareSums(*group.label, int(level));
    }
}

void Evaluator::prepareSums(const std::vector<Band>& bands, int level) {
    for (const Band& band : bands) {
        if (band.visible)
            prepareSums(*band.visible, level);
        for (const Element& element : band.elements) {
            const bool isChart = element.kind == Element::Kind::Chart;
            for (const Expression* one :
                 {element.visible ? &*element.visible : nullptr, element.tint ? &*element.tint : nullptr})
                if (one)
                    prepareSums(*one, level);
            prepareSums(element.value, isChart ? element.index : level);
        }
    }
}

void Evaluator::prepareSums(const Expression& expression, int level) {
    if (expression.kind == Expression::Kind::Formula && expression.index >= 0 &&
        std::size_t(expression.index) < m_data->formulas.size())
        prepareSums(m_data->formulas[std::size_t(expression.index)], level);
    if (expression.kind == Expression::Kind::Aggregate) {
        if (expression.aggregate != Aggregate::Running)
            sumsOf(expression, expression.index >= 0 ? expression.index : level);
        return;
    }
    for (const Expression& argument : expression.arguments)
        prepareSums(argument, level);
}

Evaluator::Sums& Evaluator::sumsOf(const Expression& expression, int level) {
    const auto [found, isNew] =
        m_sums.try_emplace({&expression, level}, Sums{&expression, level, GroupSums(expression.aggregate)});
    Sums& sums = found->second;
    if (isNew && m_taken == 0 && !dependsOnSums(expression.arguments.front(), m_data->formulas)) {
        sums.isLive = true;
        m_live.push_back(&sums);
    }
    return sums;
}

void Evaluator::addRow(Sums& sums, qsizetype row) {
    const Value one = value(sums.expression->arguments.front(), Standpoint{row, -1, 0, 0});
    if (row > 0 && sums.level >= 0 && firstGroupBegun(row) <= sums.level)
        sums.groups.beginGroup();
    sums.groups.add(one);
    sums.rows = row + 1;
}

/// The row's place in the groups, and its part in the sums.
void Evaluator::takeRow(qsizetype row) {
    const auto& groups = m_data->definition->groups;
    auto begun = std::uint8_t(groups.size());
    const Standpoint standpoint{row, -1, 0, 0};
    for (std::size_t level = groups.size(); level-- > 0;) {
        Value now = value(groups[level].by, standpoint);
        if (row == 0 || !sameValue(now, m_keys[level]))
            begun = std::uint8_t(level);
        m_keys[level] = std::move(now);
    }
    m_begun.push_back(begun);
    for (std::size_t level = begun; level < groups.size(); ++level)
        m_begins[level].push_back(row);
    for (Sums* sums : m_live) {
        if (!sums->isLive)
            continue;
        try {
            addRow(*sums, row);
        } catch (const base::RunTimeError&) {
            sums->isLive = false; // nobody may ask for it; who does meets the error again
        }
    }
}

/// Takes in rows that have arrived; false when there are none.
bool Evaluator::takeSome() {
    if (m_complete || m_taking)
        return false;
    const bool isComplete = !m_rows || m_rows->isComplete();
    m_arrived = m_rows ? m_rows->count() : 0;
    if (m_taken == m_arrived) {
        m_complete = isComplete;
        return false;
    }
    m_taking = true;
    const auto done = qScopeGuard([this] { m_taking = false; });
    const qsizetype end = std::min(m_arrived, m_taken + strokeRows);
    while (m_taken < end) {
        takeRow(m_taken);
        ++m_taken;
    }
    return true;
}

qsizetype Evaluator::rowCount() {
    wait({RowsWanted::What::All, 0, 0}, [] { return false; });
    return m_taken;
}

/// Which of the level's groups the row belongs to, from 0.
std::size_t Evaluator::groupOf(int level, qsizetype row) const {
    const std::vector<qsizetype>& begins = m_begins[std::size_t(level)];
    return std::size_t(std::upper_bound(begins.begin(), begins.end(), row) - begins.begin()) - 1;
}

bool Evaluator::isKnown(const RowsWanted& wanted) const {
    switch (wanted.what) {
    case RowsWanted::What::Row:
        return m_complete || wanted.row < m_taken;
    case RowsWanted::What::GroupEnd:
        return m_complete ||
               groupOf(wanted.level, wanted.row) + 1 < m_begins[std::size_t(wanted.level)].size();
    case RowsWanted::What::All:
        return m_complete;
    }
    return false;
}

bool Evaluator::satisfy(const RowsWanted& wanted, const QDeadlineTimer& deadline) {
    while (!isKnown(wanted)) {
        if (!takeSome())
            return m_complete;
        if (deadline.hasExpired())
            return false;
    }
    return true;
}

/// From the group's first row up to the one at hand; outside of rows there is none.
Value Evaluator::runningValue(const Expression& expression, const Standpoint& standpoint) {
    if (standpoint.row < 0 || !hasRow(standpoint.row))
        return 0.0;
    Running& running = m_running[&expression];
    if (running.row == standpoint.row)
        return running.total.sum;
    if (running.marks.empty())
        running.marks.emplace_back();
    const qsizetype mark = std::min(standpoint.row / markedRows, qsizetype(running.marks.size()) - 1);
    qsizetype row = mark * markedRows;
    Total total = running.marks[std::size_t(mark)];
    if (running.row < standpoint.row && running.row >= row) {
        row = running.row + 1;
        total = running.total;
    }
    for (; row <= standpoint.row; ++row) {
        if (row % markedRows == 0 && std::size_t(row / markedRows) == running.marks.size())
            running.marks.push_back(total);
        if (expression.index >= 0 && firstGroupBegun(row) <= expression.index)
            total = {};
        const Value one = value(expression.arguments.front(), Standpoint{row, -1, 0, 0});
        if (countsAsNumber(one))
            total.add(base::CDbl(one));
    }
    running.row = standpoint.row;
    running.total = total;
    return total.sum;
}

Value Evaluator::aggregateValue(const Expression& expression, const Standpoint& standpoint) {
    if (m_taking)
        throw base::RunTimeError(errorDamaged,
                                 QStringLiteral("The report groups its rows by a sum of them."));
    if (expression.aggregate == Aggregate::Running)
        return runningValue(expression, standpoint);
    const int level = expression.index >= 0 ? expression.index : standpoint.level;
    Sums& sums = sumsOf(expression, level);
    std::size_t group = 0;
    if (level < 0 || !sums.isLive) {
        rowCount();
    } else {
        hasRow(std::max<qsizetype>(standpoint.row, 0));
    }
    if (level >= 0 && m_taken > 0) {
        const qsizetype row = std::max<qsizetype>(standpoint.row, 0);
        group = groupOf(level, row);
        const RowsWanted wanted{RowsWanted::What::GroupEnd, row, level};
        wait(wanted, [&] { return isKnown(wanted); });
    }
    while (sums.rows < m_taken)
        addRow(sums, sums.rows);
    return sums.groups.at(group);
}

} // namespace report
