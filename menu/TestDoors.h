#pragma once

#include "menu/Monitors.h"

#include <functional>

/// What tests do to the menu and no source of the program does.
namespace menu {

/// Monitors of another make; null for the program's own.
void setMonitorMaker(std::function<std::unique_ptr<Monitors>(frmMainMenu&)> maker);

} // namespace menu
