#pragma once

#include <string_view>

namespace engine {

/// A word that cannot be a name unless it stands in brackets. In either case.
bool isReserved(std::string_view word);
/// A word that begins a statement; any other word at the start of a batch is a procedure's name.
bool beginsStatement(std::string_view word);

} // namespace engine
