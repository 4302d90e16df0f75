#pragma once

#include "platform/report/ReportData.h"

#include <QHash>

#include <map>
#include <tuple>

namespace report {

/// Where in the report an expression stands.
struct Scope {
    qsizetype row = -1; ///< of the first table; -1: none, its columns are Null
    int level = -1;     ///< group that sums belong to; -1: the whole report
    int pageNumber = 0; ///< from 1
    int pageCount = 0;  ///< 0 as long as it is not known
};

/// Tells the values of expressions over the rows of one run. A column that a table lacks raises 20515; a
/// value of the wrong kind raises 13.
class Evaluator {
  public:
    explicit Evaluator(std::shared_ptr<const ReportData> data);

    base::Value value(const Expression& expression, const Scope& scope);
    bool isVisible(const std::optional<Expression>& condition, const Scope& scope);

    qsizetype rowCount() const { return m_rowCount; }
    /// Outermost group that begins with the row; the number of groups when none does.
    int firstGroupBegun(qsizetype row) const { return m_begun[std::size_t(row)]; }
    /// Outermost group that ends with the row.
    int firstGroupEnded(qsizetype row) const;
    qsizetype groupBegin(int level, qsizetype row) const;
    /// Behind the group's last row.
    qsizetype groupEnd(int level, qsizetype row) const;

  private:
    base::Value columnValue(const Expression& expression, const Scope& scope);
    base::Value specialValue(Special special, const Scope& scope) const;
    base::Value operationValue(const Expression& expression, const Scope& scope);
    base::Value aggregateValue(const Expression& expression, const Scope& scope);
    base::Value runningValue(const Expression& expression, const Scope& scope);
    base::Value aggregateOver(const Expression& expression, qsizetype begin, qsizetype end);
    void findGroups();

    std::shared_ptr<const ReportData> m_data;
    qsizetype m_rowCount = 0;
    std::vector<std::uint8_t> m_begun;
    QHash<const Expression*, qsizetype> m_columns;
    using SumKey = std::tuple<const Expression*, int, qsizetype>;
    std::map<SumKey, base::Value> m_sums;
    /// Of a running total, the sum up to each row, by expression and group.
    std::map<std::pair<const Expression*, int>, std::vector<double>> m_running;
};

} // namespace report
