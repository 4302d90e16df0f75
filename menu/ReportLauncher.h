#pragma once

#include "menu/ReportTable.h"
#include "platform/base/Value.h"

#include <vector>

namespace menu {

enum class Launch { Shown, Cancelled };

/// Asks for the dates that the row wants, runs its census, prepares the report and shows it in the viewer.
/// Cancelled when its dialog was left without a date and the row heeds that. Raises what the server and the
/// report engine raise.
Launch launchReport(const ReportRow& row);

/// The values of the row's parameters as they stand now, in the order in which the report takes them.
std::vector<base::Value> parametersOf(const ReportRow& row);

} // namespace menu
