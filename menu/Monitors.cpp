#include "menu/Monitors.h"

#include "menu/TestDoors.h"

namespace menu {

namespace {

std::function<std::unique_ptr<Monitors>(frmMainMenu&)> otherMaker;

} // namespace

std::unique_ptr<Monitors> makeMonitors(frmMainMenu& mainMenu) {
    return otherMaker ? otherMaker(mainMenu) : nullptr;
}

void setMonitorMaker(std::function<std::unique_ptr<Monitors>(frmMainMenu&)> maker) {
    otherMaker = std::move(maker);
}

} // namespace menu
