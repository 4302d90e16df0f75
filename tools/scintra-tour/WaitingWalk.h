#pragma once

#include "tools/scintra-tour/Walk.h"

namespace tour {

/// From the menu back to it by keys alone: a ward's request is taken out of the in-tray and saved, then a
/// patient who may go home is cleared.
void addWaitingWalk(Walk& walk);

} // namespace tour
