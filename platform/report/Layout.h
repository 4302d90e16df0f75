#pragma once

#include "platform/report/PageDocument.h"
#include "platform/report/ReportData.h"

namespace report {

/// Lays the report out: a first pass finds where the pages begin, so that "page n of m" is known when a page
/// is made. Raises 20515 for a column that is missing or a page without room, 13 for a value of the wrong
/// kind.
std::unique_ptr<PageDocument> layout(std::shared_ptr<const ReportData> data);

} // namespace report
