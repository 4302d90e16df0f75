#pragma once

#include "platform/report/Progress.h"
#include "platform/report/layout/PageDocument.h"
#include "platform/report/rows/ReportData.h"

namespace report {

/// A document of the definition's paper and title, without pages so far.
std::unique_ptr<PageDocument> emptyDocument(const ReportDefinition& definition);

class LaidPages;
/// Gives the document the rows and new pages, none laid out so far. Owned by the document.
LaidPages& beginPages(PageDocument& document, const std::shared_ptr<const ReportData>& data);

/// Lays the report out at a stretch; all rows must have arrived. A first pass finds where the pages begin, so
/// that "page n of m" is known when a page is made. Null when `progress` gave it up. Raises 20515 for a
/// column that is missing or a page without room, 13 for a value of the wrong kind.
std::unique_ptr<PageDocument> layout(std::shared_ptr<const ReportData> data,
                                     const ProgressCall& progress = {});

} // namespace report
