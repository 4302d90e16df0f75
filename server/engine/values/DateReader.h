#pragma once

#include "platform/base/DateTime.h"

#include <string_view>

namespace engine {

enum class DateReading { Good, NotADate, OutOfRange };

/// Reads what the server takes for a moment: "11/21/2026", "11/21/2026 8:30:00 PM", "2026/11/21", "20261121",
/// ISO, "Nov 21 2026  8:30AM", a time alone (on 1900-01-01), "" (1900-01-01). `style` 103 to 105 puts the day
/// before the month. Years of two digits are 1950 to 2049.
DateReading readDate(std::string_view text, int style, base::DateTime& moment);

} // namespace engine
