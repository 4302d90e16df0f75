#pragma once

#include <QString>

#include <functional>

namespace hospital {

/// Told now and then: 0 to 100, and what is being done.
using Progress = std::function<void(int percent, const QString& stage)>;

} // namespace hospital
