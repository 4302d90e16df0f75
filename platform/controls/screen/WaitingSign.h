#pragma once

namespace controls {

/// Says on the active window how long it has waited for the save of another desk. The program stands while it
/// waits, so this paints by itself; the sign goes when the program goes on. Does nothing off the program's
/// own thread.
void showWaiting(int seconds);

} // namespace controls
