#pragma once

#include "platform/base/Error.h"

#include <functional>

namespace tests {

/// The run-time error that the body ends with; where there is none the test fails, and it is 0.
base::RunTimeError raised(const std::function<void()>& body);

} // namespace tests
