#pragma once

#include "tools/scintra-tour/Walk.h"

namespace tour {

/// What the walks wait for, and what they do, again and again.

/// The window on top.
Sight seen(const char* window);
/// The window, once the control in it is shown and holds the focus.
Sight focused(const char* window, const char* name);
/// The current cell of the grid, once its edit box (or list) floats over it.
Sight editing(const char* window, const char* grid, const char* editor, int row, int column);
/// A box that says this.
Sight boxSaying(const QString& text);
/// Enter, to whatever has the focus.
void pressEnter(QWidget& window);
/// The menu, once its sub-menu shows a command of that caption.
Sight offered(const char* caption);
/// Types into the control, then presses the key.
Deed typed(const char* name, const QString& text, Qt::Key key);
Deed clicked(const char* name);
/// Clicks the sub-menu's command of that caption.
Deed commanded(const char* caption);

} // namespace tour
