#pragma once

#include "platform/base/Value.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace report {

struct ReportData;

/// Values for parameters of a sub-report, by the parameter's index.
using LinkedValues = std::vector<std::pair<int, base::Value>>;

/// Reads a sub-report's rows for such values. Raises what the server says.
using ReadLinked = std::function<std::shared_ptr<const ReportData>(const LinkedValues&)>;

} // namespace report
