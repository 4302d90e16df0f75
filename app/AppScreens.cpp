#include "app/AppScreens.h"

#include "menu/frmMainMenu.h"
#include "platform/controls/Screen.h"

namespace app {

using controls::SharedScreen;

AppScreens::AppScreens() = default;

void AppScreens::showMainMenu() {
    SharedScreen<menu::frmMainMenu>::fresh().Show();
}

void AppScreens::open(session::MenuScreen screen, const QString& formMode) {
    if (const auto opener = m_table.find(screen); opener != m_table.end())
        opener->second(formMode);
}

void AppScreens::openRequest(const session::RequestEntry&) {}

void AppScreens::openOutRequest(const session::OutRequestEntry&) {}

bool AppScreens::openNuclearPackage(session::PackageHandOver&) {
    return false;
}

bool AppScreens::openNucCharges(session::PackageHandOver&) {
    return false;
}

} // namespace app
