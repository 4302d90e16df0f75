#pragma once

#include "platform/report/evaluation/Expression.h"

namespace report {

/// What a sum takes of a value: text columns hold amounts, too. Null and "" are no values.
bool countsAsNumber(const base::Value& value);

/// Texts together or numbers (dates as their serial) together: -1, 0, 1. Texts do not tell cases apart, as
/// the server does not. Raises 13 for a text beside a number that it does not tell.
int compareValues(const base::Value& left, const base::Value& right);

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

/// One aggregate over the groups of one level, one after the other: a value a group is kept.
class GroupSums {
  public:
    explicit GroupSums(Aggregate aggregate) : m_aggregate(aggregate) {}

    /// What was added so far is a group of its own.
    void beginGroup();
    /// Raises 13 for what is no number, unless values are only counted or compared.
    void add(const base::Value& value);
    /// Of a group that was begun, from 0; the last one is as far as it goes.
    base::Value at(std::size_t group) const { return group < m_ended.size() ? m_ended[group] : open(); }

  private:
    base::Value open() const;

    Aggregate m_aggregate;
    std::vector<base::Value> m_ended;
    qint64 m_count = 0;
    Total m_total;
    base::Value m_least;
    base::Value m_most;
};

} // namespace report
