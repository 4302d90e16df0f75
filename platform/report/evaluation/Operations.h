#pragma once

#include "platform/report/evaluation/Expression.h"

namespace report {

/// Add to Divide calculate, and give Null where a side is Null; the others compare, and give False there.
/// Raises 11 on a division by zero, 13 where a side that is calculated with is no number.
base::Value operated(Operator sign, const base::Value& left, const base::Value& right);

} // namespace report
