#pragma once

#include "session/services/Services.h"

#include <QString>

namespace lookup {

/// The rate of an exam for a room class: "A" to "E" give RateA to RateE. The comparison is exact, so "a", "A
/// " and "OPD" give 0. A rate that is Null reads 0. Raises 13 on a rate that is no number.
double rateForClass(const session::NuclearExamRecord& exam, const QString& roomClass);
/// A rate of an exam; Null reads 0. Raises 13 on one that is no number.
double rateOrZero(const base::Value& rate);

} // namespace lookup
