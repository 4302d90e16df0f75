#pragma once

#include "server/engine/catalogue/Module.h"
#include "server/engine/run/SessionState.h"

namespace engine {

/// Gives a statement its values: of variables, which must outlive its run, and of the session.
void bindValues(const Query& query, const std::vector<Cell>& slots, const SessionState& session);

} // namespace engine
