#pragma once

#include "platform/base/DateTime.h"

#include <optional>
#include <string>
#include <string_view>

namespace engine {

enum class DateReading { Good, NotADate, OutOfRange };

/// Reads what the server takes for a moment: "11/21/2026", "11/21/2026 8:30:00 PM", "2026/11/21", "20261121",
/// ISO, "Nov 21 2026  8:30AM", a time alone (on 1900-01-01), "" (1900-01-01). `style` 103 to 105 puts the day
/// before the month. Years of two digits are 1950 to 2049.
DateReading readDate(std::string_view text, int style, base::DateTime& moment);

/// "2026-11-21 08:30:00.000", as the hospital file keeps moments.
void writeIso(base::DateTime moment, std::string& text);
std::string isoText(base::DateTime moment);
/// The moment of an ISO text, or nothing.
std::optional<base::DateTime> fromIsoText(std::string_view text);

/// A moment in one of CONVERT's styles; false for a style that is not known.
bool writeDate(base::DateTime moment, int style, std::string& text);

} // namespace engine
