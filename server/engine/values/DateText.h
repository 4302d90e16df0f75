#pragma once

#include "platform/base/DateTime.h"

#include <optional>
#include <string>
#include <string_view>

namespace engine {

/// "2026-11-21 08:30:00.000", as the hospital file keeps moments.
void writeIso(base::DateTime moment, std::string& text);
std::string isoText(base::DateTime moment);
/// The moment of an ISO text, or nothing.
std::optional<base::DateTime> fromIsoText(std::string_view text);

/// A moment in one of CONVERT's styles; false for a style that is not known.
bool writeDate(base::DateTime moment, int style, std::string& text);

} // namespace engine
