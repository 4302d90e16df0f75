#pragma once

#include "platform/report/evaluation/GroupSums.h"
#include "platform/report/rows/ReportData.h"
#include "platform/report/rows/RowSource.h"

#include <QDeadlineTimer>
#include <QHash>

#include <limits>
#include <map>
#include <optional>

namespace report {

/// Where in the report an expression stands.
struct Standpoint {
    qsizetype row = -1; ///< of the first table; -1: none, its columns are Null
    int level = -1;     ///< group that sums belong to; -1: the whole report
    int pageNumber = 0; ///< from 1
    int pageCount = 0;  ///< unknownPages: it will only be known at the end
};

/// Stands for the number of pages while there may come more: shown as "…", calculates as Null.
inline constexpr int unknownPages = -1;

/// What cannot be told before further rows have arrived. Raised by an Evaluator over rows that are still
/// arriving, and by nothing else; no error, and never seen by screens.
struct RowsWanted {
    enum class What { Row, GroupEnd, All };
    What what = What::All;
    qsizetype row = 0; ///< the row, or one of the group
    int level = 0;     ///< of the group
};

/// Tells the values of expressions over the rows of one run. Rows are taken in as they are asked for: groups
/// and sums are found on the way. A column that a table lacks raises 20515; a value of the wrong kind raises
/// 13; what needs rows that have not arrived raises RowsWanted.
class Evaluator {
  public:
    explicit Evaluator(std::shared_ptr<const ReportData> data);
    ~Evaluator();

    base::Value value(const Expression& expression, const Standpoint& standpoint);
    /// As a field shows it: "…" for a number of pages that is not known yet.
    base::Value shownValue(const Expression& expression, const Standpoint& standpoint);
    bool isVisible(const std::optional<Expression>& condition, const Standpoint& standpoint);

    /// False behind the last row.
    bool hasRow(qsizetype row) {
        return row < m_taken || wait({RowsWanted::What::Row, row, 0}, [&] { return row < m_taken; });
    }
    /// All rows; waits for the last one.
    qsizetype rowCount();
    /// Outermost group that begins with the row; the number of groups when none does.
    int firstGroupBegun(qsizetype row) const { return m_begun[std::size_t(row)]; }
    /// Outermost group that ends with the row.
    int firstGroupEnded(qsizetype row) { return hasRow(row + 1) ? firstGroupBegun(row + 1) : 0; }

    /// How many rows an expression may take in at once before it raises RowsWanted although they are there.
    void setPatience(qsizetype rows) { m_patience = rows; }
    /// Takes rows in for what was wanted, until the deadline; true when it can be told now.
    bool satisfy(const RowsWanted& wanted, const QDeadlineTimer& deadline);
    /// True when every row that has arrived is taken in.
    bool isUpToDate() const { return !m_rows || m_taken == m_rows->count(); }

  private:
    struct Sums {
        const Expression* expression;
        int level;
        GroupSums groups;
        qsizetype rows = 0;  ///< added so far
        bool isLive = false; ///< row by row; else when it is asked for
    };
    struct Running {
        std::vector<Total> marks; ///< before every so many rows
        qsizetype row = -1;       ///< the last one asked for
        Total total;              ///< up to it
    };

    base::Value columnValue(const Expression& expression, const Standpoint& standpoint);
    base::Value specialValue(Special special, const Standpoint& standpoint) const;
    base::Value operationValue(const Expression& expression, const Standpoint& standpoint);
    base::Value aggregateValue(const Expression& expression, const Standpoint& standpoint);
    base::Value runningValue(const Expression& expression, const Standpoint& standpoint);

    void prepareSums();
    void prepareSums(const std::vector<Band>& bands, int level);
    void prepareSums(const Expression& expression, int level);
    Sums& sumsOf(const Expression& expression, int level);
    void addRow(Sums& sums, qsizetype row);

    bool isKnown(const RowsWanted& wanted) const;
    std::size_t groupOf(int level, qsizetype row) const;
    template <typename Known>
    bool wait(const RowsWanted& wanted, Known known);
    bool takeSome();
    void takeRow(qsizetype row);
    qsizetype columnOf(const Expression& expression, const std::vector<ado::Column>& columns) const;

    std::shared_ptr<const ReportData> m_data;
    std::optional<HeldRows> m_held;
    const RowSource* m_rows = nullptr; ///< of the first table; null: no table
    qsizetype m_arrived = 0;
    qsizetype m_taken = 0;
    bool m_complete = false; ///< every row is taken in
    bool m_taking = false;
    qsizetype m_patience = std::numeric_limits<qsizetype>::max();

    std::vector<std::uint8_t> m_begun;            ///< by row
    std::vector<std::vector<qsizetype>> m_begins; ///< by level, the first row of each group
    std::vector<base::Value> m_keys;              ///< by level, of the last row
    QHash<const Expression*, qsizetype> m_columns;
    std::map<std::pair<const Expression*, int>, Sums> m_sums;
    std::vector<Sums*> m_live;
    std::map<const Expression*, Running> m_running;
};

/// True once it is known; false when all rows are there and it is not. Raises RowsWanted while more may come.
template <typename Known>
bool Evaluator::wait(const RowsWanted& wanted, Known known) {
    const qsizetype before = m_taken;
    while (!known()) {
        if (m_complete)
            return false;
        if (m_taken - before >= m_patience)
            throw RowsWanted(wanted);
        if (!takeSome() && !m_complete)
            throw RowsWanted(wanted);
    }
    return true;
}

} // namespace report
