#pragma once

#include "platform/ado/Provider.h"
#include "platform/base/DateTime.h"
#include "platform/report/ReportDefinition.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace report {

/// Values for parameters of a sub-report, by the parameter's index.
using LinkedValues = std::vector<std::pair<int, base::Value>>;
struct ReportData;
/// Reads a sub-report's rows for such values. Raises what the server says.
using ReadLinked = std::function<std::shared_ptr<const ReportData>(const LinkedValues&)>;

/// Everything that one run of a report lays out. Not changed once the layout has begun.
struct ReportData {
    std::shared_ptr<const ReportDefinition> definition;
    std::vector<ado::Rows> tables; ///< in the definition's order
    std::vector<base::Value> parameters;
    std::vector<Expression> formulas;
    std::vector<std::shared_ptr<const ReportData>> subReports; ///< in the definition's order
    std::vector<ReadLinked> linked;                            ///< likewise, for those placed with links
    QString headingName;
    QString headingAddress;
    base::DateTime printedAt;
};

} // namespace report
