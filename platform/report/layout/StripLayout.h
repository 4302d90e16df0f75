#pragma once

#include "platform/report/layout/BandLayout.h"

namespace report {

/// Lays a sub-report out as one band without an end: what pages cut it into is up to the report around it.
/// Raises what layout() raises, and 20515 when it is beyond all measure.
LaidBand layStrip(std::shared_ptr<const ReportData> data);

} // namespace report
