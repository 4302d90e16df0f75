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

void RecordedScreens::endProgram() {
    ++ends;
    if (whenEnding)
        whenEnding();
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

void RecordedScreens::openNuclearPackage(const session::PackageHandOver& grids) {
    packages.push_back(grids);
    pass();
}

void RecordedScreens::openNucCharges(const session::PackageHandOver& grids) {
    nucCharges.push_back(grids);
    pass();
}

void RecordedScreens::enableRequestSaves() {
    ++savesEnabled;
}

session::ChosenPatient RecordedScreens::openDischargeNotice() {
    ++dischargeNotices;
    pass();
    return notice;
}

void RecordedScreens::openClearPatient(const QString& IdNum) {
    cleared.push_back(IdNum);
    pass();
}

void RecordedScreens::openRePrint(const session::SlipAgain& slip) {
    rePrints.push_back(slip);
    pass();
}

void RecordedScreens::openAssessmentStatus(const session::SlipAgain& slip) {
    assessmentStatuses.push_back(slip);
    pass();
}

std::optional<session::FoundOutPatient> RecordedScreens::findOutPatient(const QString& searchText) {
    return outPatientSearch ? outPatientSearch(searchText) : std::nullopt;
}

void RecordedScreens::pass() {
    if (whileOpen)
        whileOpen();
}

} // namespace tests
