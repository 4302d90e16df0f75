#include "app/AppScreens.h"

#include "lookup/frmListPatient.h"
#include "lookup/frmWalkInMaster.h"
#include "menu/frmMainMenu.h"
#include "orders/frmRequest.h"
#include "platform/controls/screen/Screen.h"
#include "results/frmRequestMaster.h"
#include "results/frmResultMaster.h"
#include "session/rights/frmUserRights.h"

namespace app {

using controls::SharedScreen;

namespace {

template <typename T>
void showModal(const QString&) {
    SharedScreen<T>::fresh().ShowModal();
}

template <typename T>
void showInMode(const QString& formMode) {
    T& screen = SharedScreen<T>::fresh();
    screen.FormMode = formMode;
    screen.ShowModal();
}

} // namespace

AppScreens::AppScreens()
    : m_table{{session::MenuScreen::ListPatient, showModal<lookup::frmListPatient>},
              {session::MenuScreen::RequestMaster, showInMode<results::frmRequestMaster>},
              {session::MenuScreen::ResultMaster, showInMode<results::frmResultMaster>},
              {session::MenuScreen::WalkInMaster, showModal<lookup::frmWalkInMaster>},
              {session::MenuScreen::UserRights, showModal<session::frmUserRights>}} {}

void AppScreens::showMainMenu() {
    SharedScreen<menu::frmMainMenu>::fresh().Show();
}

void AppScreens::open(session::MenuScreen screen, const QString& formMode) {
    if (const auto opener = m_table.find(screen); opener != m_table.end())
        opener->second(formMode);
}

void AppScreens::openRequest(const session::RequestEntry& entry) {
    orders::frmRequest& screen = SharedScreen<orders::frmRequest>::fresh();
    screen.PatIdNum = entry.PatIdNum;
    screen.PatientType = entry.PatientType;
    screen.CashBasis = entry.CashBasis;
    screen.NurseCommnunication = entry.NurseCommnunication;
    screen.CashOrNum = entry.CashOrNum;
    screen.CashPrice = entry.CashPrice;
    screen.NursingRemarks = entry.NursingRemarks;
    screen.RequestingNurse = entry.RequestingNurse;
    screen.PatientClass = entry.PatientClass;
    screen.Classification = entry.Classification;
    screen.ShowModal();
}

void AppScreens::openOutRequest(const session::OutRequestEntry&) {}

bool AppScreens::openNuclearPackage(session::PackageHandOver&) {
    return false;
}

bool AppScreens::openNucCharges(session::PackageHandOver&) {
    return false;
}

} // namespace app
