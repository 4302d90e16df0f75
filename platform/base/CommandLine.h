#pragma once

#include <functional>

namespace base {

/// True when the words held --help or --version and the program has nothing more to do: `tellUsage` was
/// called, or its name and version were printed. Asked before anything is made, so that it is answered
/// without a display.
bool answeredAtOnce(int argc, char** argv, const std::function<void()>& tellUsage);

} // namespace base
