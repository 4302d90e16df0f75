#pragma once

#include "platform/report/layout/BandLayout.h"

#include <list>
#include <map>

namespace report {

/// Sub-reports laid out for the values that are linked to them. Rows that were read for some values are kept
/// to the end of the run, so a page made again comes out the same; of the strips only those last used.
class LinkedStrips {
  public:
    explicit LinkedStrips(std::shared_ptr<const ReportData> data) : m_data(std::move(data)) {}

    /// Raises what the server and layStrip() raise, and 20515 when all rows together are too many.
    const LaidBand& strip(int subReport, const LinkedValues& values);

    struct Statistics {
        int reads = 0;
        int layouts = 0;
    };
    const Statistics& statistics() const { return m_statistics; }

  private:
    using Key = std::pair<int, QString>;
    struct Kept {
        Key key;
        LaidBand strip;
    };
    const std::shared_ptr<const ReportData>& rowsOf(const Key& key, const LinkedValues& values);

    std::shared_ptr<const ReportData> m_data;
    std::map<Key, std::shared_ptr<const ReportData>> m_rows;
    qsizetype m_cells = 0;
    std::list<Kept> m_strips; ///< last used first
    Statistics m_statistics;
};

} // namespace report
