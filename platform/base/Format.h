#pragma once

#include "platform/base/Value.h"

#include <QString>

namespace base {

/// Writes a number, a date or a text that reads as one through a pattern such as "0.00", "##,###.00" or
/// "mm/dd/yyyy hh:mm:ss AMPM". `m` behind an hour is minutes; AM/PM and AMPM make a 12-hour clock; halves are
/// rounded away from zero on the decimal digits. Null gives "", a text that is neither number nor date
/// itself.
QString Format(const Value& value, const QString& pattern);

} // namespace base
