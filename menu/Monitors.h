#pragma once

#include <memory>

namespace menu {

class frmMainMenu;

/// What watches the server while the menu is open and shows it on the menu's indicators. Lives as long as the
/// menu is loaded.
class Monitors {
  public:
    virtual ~Monitors() = default;
    /// At the very start of loading, also without a connection: the character is loaded, the timers begin.
    virtual void start() = 0;
    /// At the end of loading with a connection: one immediate round.
    virtual void checkNow() = 0;
};

/// The monitors of a menu that loads; null for none.
std::unique_ptr<Monitors> makeMonitors(frmMainMenu& mainMenu);

} // namespace menu
