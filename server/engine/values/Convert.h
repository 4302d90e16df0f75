#pragma once

#include "server/engine/values/Cell.h"
#include "server/engine/values/SqlType.h"

namespace engine {

/// Where a value changes its type decides which words an error has.
enum class ConversionPlace {
    Statement, ///< 245, 235, 241, ...
    Argument   ///< 8114 for everything; a text too long is cut
};

/// Makes the cell hold what a variable of the type `to` would. `from` is the type it has. Raises 235, 241,
/// 242, 245, 248, 8114 or 8115.
void convert(Cell& cell, const SqlType& from, const SqlType& to, ConversionPlace place, int style = 0);

/// Cuts a text to the type's length; anything else stays.
void cutToLength(Cell& cell, const SqlType& type);

} // namespace engine
