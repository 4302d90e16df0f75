#pragma once

namespace app {

/// Gives the menu what lies in other folders: the search for out-patients.
void linkMenu();

} // namespace app
