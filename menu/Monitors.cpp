#include "menu/Monitors.h"

#include "menu/ServerMonitors.h"
#include "menu/TestDoors.h"

namespace menu {

namespace {

MonitorMaker otherMaker;

} // namespace

std::unique_ptr<Monitors> makeMonitors(const Indicators& indicators) {
    if (otherMaker)
        return otherMaker(indicators);
    return std::make_unique<ServerMonitors>(indicators);
}

void setMonitorMaker(MonitorMaker maker) {
    otherMaker = std::move(maker);
}

} // namespace menu
