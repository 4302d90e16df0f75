#pragma once

#include "server/engine/catalogue/Module.h"
#include "server/engine/run/SessionState.h"

#include <optional>

namespace engine {

/// Whether a condition of an IF or a WHILE holds, where texts or whole numbers are compared with each other:
/// variables, literals and @@ROWCOUNT. Most of a procedure's tests are of this kind, and to ask SQLite costs
/// as much as to write a row. None: it is of another kind, and SQLite is asked.
std::optional<bool> plainTest(const Expr& condition, const Module& module, const std::vector<Cell>& slots,
                              const SessionState& session);

} // namespace engine
