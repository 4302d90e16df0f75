#pragma once

#include <QString>

namespace attacks {

/// Says the line and ends the process, as its program does it: with 1, or for libFuzzer by abort().
[[noreturn]] void fault(const QString& line);

} // namespace attacks
