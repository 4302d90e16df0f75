#include "tests/support/screens/RecordedScreens.h"

namespace tests {

RecordedScreens::RecordedScreens() {
    session::setScreens(this);
}

RecordedScreens::~RecordedScreens() {
    session::setScreens(nullptr);
}

void RecordedScreens::showMainMenu() {
    ++mainMenus;
}

void RecordedScreens::open(session::MenuScreen screen, const QString& formMode) {
    opened.push_back({screen, formMode});
    pass();
}

void RecordedScreens::openRequest(const session::RequestEntry& entry) {
    requests.push_back(entry);
    pass();
}

void RecordedScreens::openOutRequest(const session::OutRequestEntry& entry) {
    outRequests.push_back(entry);
    pass();
}

bool RecordedScreens::openNuclearPackage(session::PackageHandOver&) {
    ++packages;
    pass();
    return hasPackageScreens;
}

bool RecordedScreens::openNucCharges(session::PackageHandOver&) {
    ++nucCharges;
    pass();
    return hasPackageScreens;
}

void RecordedScreens::pass() {
    if (whileOpen)
        whileOpen();
}

} // namespace tests
