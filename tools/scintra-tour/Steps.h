#pragma once

#include "tools/scintra-tour/Walk.h"

namespace tour {

/// What the walks wait for, and what they do, again and again.

/// The window on top.
Sight seen(const char* window);
/// The window, once the control in it is shown and holds the focus.
Sight focused(const char* window, const char* name);
/// The menu, once its sub-menu shows a command of that caption.
Sight offered(const char* caption);
/// Types into the control, then presses the key.
Deed typed(const char* name, const QString& text, Qt::Key key);
Deed clicked(const char* name);
/// Clicks the sub-menu's command of that caption.
Deed commanded(const char* caption);

} // namespace tour
