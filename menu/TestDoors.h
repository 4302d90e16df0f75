#pragma once

#include "menu/Monitors.h"

#include <functional>

/// What tests do to the menu and no source of the program does.
namespace menu {

using MonitorMaker = std::function<std::unique_ptr<Monitors>(const Indicators&)>;

/// Monitors of another make; null for the program's own.
void setMonitorMaker(MonitorMaker maker);
/// For a menu that watches nothing.
inline std::unique_ptr<Monitors> noMonitors(const Indicators&) {
    return nullptr;
}

} // namespace menu
