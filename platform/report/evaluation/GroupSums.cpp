#include "platform/report/evaluation/GroupSums.h"

#include "platform/base/Conversion.h"

namespace report {

bool countsAsNumber(const base::Value& value) {
    return !value.isNull() && !(value.asText() && base::Trim(*value.asText()).isEmpty());
}

int compareValues(const base::Value& left, const base::Value& right) {
    if (left.asText() && right.asText()) {
        const int order = left.asText()->compare(*right.asText(), Qt::CaseInsensitive);
        return order < 0 ? -1 : int(order > 0);
    }
    const auto number = [](const base::Value& value) {
        const base::DateTime* moment = value.asDateTime();
        return moment ? base::toSerial(*moment) : base::CDbl(value);
    };
    const double a = number(left);
    const double b = number(right);
    return a < b ? -1 : int(a > b);
}

void GroupSums::beginGroup() {
    m_ended.push_back(open());
    m_count = 0;
    m_total = {};
    m_least = {};
    m_most = {};
}

void GroupSums::add(const base::Value& value) {
    if (!countsAsNumber(value))
        return;
    switch (m_aggregate) {
    case Aggregate::Sum:
    case Aggregate::Average:
        m_total.add(base::CDbl(value));
        break;
    case Aggregate::Minimum:
        if (m_least.isNull() || compareValues(value, m_least) < 0)
            m_least = value;
        break;
    case Aggregate::Maximum:
        if (m_most.isNull() || compareValues(value, m_most) > 0)
            m_most = value;
        break;
    default:
        break;
    }
    ++m_count;
}

base::Value GroupSums::open() const {
    switch (m_aggregate) {
    case Aggregate::Sum:
        return m_total.sum;
    case Aggregate::Count:
        return m_count;
    case Aggregate::Average:
        return m_count == 0 ? base::Value() : base::Value(m_total.sum / double(m_count));
    case Aggregate::Minimum:
        return m_least;
    case Aggregate::Maximum:
        return m_most;
    case Aggregate::Running: // has a way of its own
        break;
    }
    return {};
}

} // namespace report
