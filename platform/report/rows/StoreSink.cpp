#include "platform/report/rows/StoreSink.h"

namespace report {
namespace {

constexpr qsizetype toldRows = 256;

} // namespace

void StoreSink::begin(const std::vector<ado::Column>& columns) {
    auto rows = std::make_shared<RowStore>(columns);
    const std::scoped_lock lock(m_mutex);
    m_rows = std::move(rows);
}

bool StoreSink::row(std::vector<base::Value>& values) {
    m_rows->append(values); // only this thread changes which store it is
    const qsizetype count = m_rows->count();
    if (m_progress && count % toldRows == 1 && !m_progress({count, 0, 0}))
        stop();
    return isWanted();
}

void StoreSink::finish() {
    if (!m_rows)
        begin({});
    m_rows->finish();
}

std::shared_ptr<RowStore> StoreSink::rows() const {
    const std::scoped_lock lock(m_mutex);
    return m_rows;
}

} // namespace report
