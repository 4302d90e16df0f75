#include "menu/MenuLinks.h"

#include "menu/Monitors.h"
#include "session/reports/ReportLaunch.h"

namespace menu {

MenuLinks defaultLinks() {
    MenuLinks fresh;
    fresh.prepareReport = session::PrepareReport;
    fresh.prepareSubReport = session::PrepareSubReport;
    fresh.showReport = session::ShowReport;
    return fresh;
}

MenuLinks& links() {
    static MenuLinks links = defaultLinks();
    return links;
}

} // namespace menu
