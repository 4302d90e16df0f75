#pragma once

#include <QString>

namespace report {

/// Numbers of the errors that reports raise.
inline constexpr int errorMissing = 20507;
inline constexpr int errorDamaged = 20515;
inline constexpr int errorFile = 75;
inline constexpr int errorDivision = 11;

/// True for "DATABASE..table" and "DATABASE.owner.procedure": letters, digits and _ only.
bool isLocation(const QString& text);

} // namespace report
