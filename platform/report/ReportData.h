#pragma once

#include "platform/ado/Provider.h"
#include "platform/base/DateTime.h"
#include "platform/report/ReportDefinition.h"

#include <memory>
#include <vector>

namespace report {

/// Everything that one run of a report lays out. Not changed once the layout has begun.
struct ReportData {
    std::shared_ptr<const ReportDefinition> definition;
    std::vector<ado::Rows> tables; ///< in the definition's order
    std::vector<base::Value> parameters;
    std::vector<Expression> formulas;
    std::vector<std::shared_ptr<const ReportData>> subReports; ///< in the definition's order
    QString headingName;
    QString headingAddress;
    base::DateTime printedAt;
};

} // namespace report
