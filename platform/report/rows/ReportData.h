#pragma once

#include "platform/ado/Provider.h"
#include "platform/base/DateTime.h"
#include "platform/report/definition/ReportDefinition.h"
#include "platform/report/evaluation/LinkedValues.h"
#include "platform/report/rows/RowSource.h"

#include <memory>
#include <vector>

namespace report {

/// Everything that one run of a report lays out. Not changed once the layout has begun, but for rows that are
/// added to `details`.
struct ReportData {
    std::shared_ptr<const ReportDefinition> definition;
    std::vector<ado::Rows> tables; ///< in the definition's order
    /// The first table's rows, where they are not held whole in `tables`; they may still be arriving.
    std::shared_ptr<const RowSource> details;
    std::vector<base::Value> parameters;
    std::vector<Expression> formulas;
    std::vector<std::shared_ptr<const ReportData>> subReports; ///< in the definition's order
    std::vector<ReadLinked> linked;                            ///< likewise, for those placed with links
    QString headingName;
    QString headingAddress;
    QString watermark; ///< in place of the definition's; "" leaves that
    base::DateTime printedAt;
    QString printedBy; ///< "" where nobody is known
};

} // namespace report
