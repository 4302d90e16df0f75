#include "app/AppScreens.h"

#include "charges/frmBuildFile.h"
#include "charges/frmCSEntry.h"
#include "charges/frmNucCharges.h"
#include "charges/frmNuclearChargesBuildFile.h"
#include "charges/frmNuclearPackage.h"
#include "charges/frmPHEntry.h"
#include "charges/frmReceivableEntry.h"
#include "charges/frmReceivableSearch.h"
#include "ledger/frmClearPatient.h"
#include "ledger/frmDischargeNotice.h"
#include "ledger/frmListDeposits.h"
#include "ledger/frmPatientLedger.h"
#include "ledger/frmVerification.h"
#include "lookup/clsOutPatientSearch.h"
#include "lookup/frmListPatient.h"
#include "lookup/frmWalkInMaster.h"
#include "menu/frmMainMenu.h"
#include "orders/frmAssessment.h"
#include "orders/frmListCashComm.h"
#include "orders/frmNurseCommunication.h"
#include "orders/frmOutRequest.h"
#include "orders/frmPrepaidRequest.h"
#include "orders/frmRequest.h"
#include "platform/controls/screen/Screen.h"
#include "results/frmRequestMaster.h"
#include "results/frmResultMaster.h"
#include "revocation/frmAssessmentStatus.h"
#include "revocation/frmCancelRequest.h"
#include "revocation/frmRePrint.h"
#include "session/rights/frmUserRights.h"

#include <QMenuBar>

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

template <typename T>
void unfoldPackage(const session::PackageHandOver& grids) {
    T& screen = SharedScreen<T>::fresh();
    screen.SourceGrid = grids.SourceGrid;
    screen.PackageGrid = grids.PackageGrid;
    screen.ShowModal();
}

} // namespace

AppScreens::AppScreens()
    : m_table{{session::MenuScreen::Assessment,
               [](const QString&) { orders::frmAssessment::ShowForEachPatient(); }},
              {session::MenuScreen::ListPatient, showModal<lookup::frmListPatient>},
              {session::MenuScreen::CSEntry, showModal<charges::frmCSEntry>},
              {session::MenuScreen::PHEntry, showModal<charges::frmPHEntry>},
              {session::MenuScreen::ListCashComm, showModal<orders::frmListCashComm>},
              {session::MenuScreen::NurseCommunication, showModal<orders::frmNurseCommunication>},
              {session::MenuScreen::PrepaidRequest, showModal<orders::frmPrepaidRequest>},
              {session::MenuScreen::RequestMaster, showInMode<results::frmRequestMaster>},
              {session::MenuScreen::ResultMaster, showInMode<results::frmResultMaster>},
              {session::MenuScreen::CancelRequest, [](const QString&) { revocation::openCancelRequest(); }},
              {session::MenuScreen::RePrint, showModal<revocation::frmRePrint>},
              {session::MenuScreen::AssessmentStatus, showModal<revocation::frmAssessmentStatus>},
              {session::MenuScreen::WalkInMaster, showModal<lookup::frmWalkInMaster>},
              {session::MenuScreen::BuildFile, showModal<charges::frmBuildFile>},
              {session::MenuScreen::PatientLedger, showModal<ledger::frmPatientLedger>},
              {session::MenuScreen::Verification, showModal<ledger::frmVerification>},
              {session::MenuScreen::ListDeposits, showModal<ledger::frmListDeposits>},
              {session::MenuScreen::NuclearChargesBuildFile, showModal<charges::frmNuclearChargesBuildFile>},
              {session::MenuScreen::ReceivableSearch, showModal<charges::frmReceivableSearch>},
              {session::MenuScreen::UserRights, showModal<session::frmUserRights>}} {}

void AppScreens::showMainMenu() {
    auto& screen = SharedScreen<menu::frmMainMenu>::fresh();
    m_guide.addHelp(*screen.findChild<QMenuBar*>());
    screen.Show();
}

void AppScreens::endProgram() {
    QCoreApplication::exit(0);
}

void AppScreens::open(session::MenuScreen screen, const QString& formMode) {
    if (const auto opener = m_table.find(screen); opener != m_table.end())
        opener->second(formMode);
}

void AppScreens::openRequest(const session::RequestEntry& entry) {
    auto& screen = SharedScreen<orders::frmRequest>::fresh();
    screen.entry = entry;
    screen.ShowModal();
}

void AppScreens::openOutRequest(const session::OutRequestEntry& entry) {
    auto& screen = SharedScreen<orders::frmOutRequest>::fresh();
    screen.take(entry);
    screen.ShowModal();
}

void AppScreens::openNuclearPackage(const session::PackageHandOver& grids) {
    unfoldPackage<charges::frmNuclearPackage>(grids);
}

void AppScreens::openNucCharges(const session::PackageHandOver& grids) {
    unfoldPackage<charges::frmNucCharges>(grids);
}

void AppScreens::enableRequestSaves() {
    SharedScreen<orders::frmRequest>::current().enableSaves(true);
    SharedScreen<orders::frmOutRequest>::current().enableSaves(true);
    SharedScreen<charges::frmReceivableEntry>::current().enableSaves(true);
}

session::ChosenPatient AppScreens::openDischargeNotice() {
    auto& screen = SharedScreen<ledger::frmDischargeNotice>::fresh();
    screen.ShowModal();
    return {.Valid = screen.Valid, .IdNum = screen.IdNum};
}

void AppScreens::openClearPatient(const QString& IdNum) {
    auto& screen = SharedScreen<ledger::frmClearPatient>::fresh();
    screen.IdNum = IdNum;
    screen.ShowModal();
}

void AppScreens::openRePrint(const session::SlipAgain& slip) {
    auto& screen = SharedScreen<revocation::frmRePrint>::fresh();
    screen.wanted = slip;
    screen.ShowModal();
}

void AppScreens::openAssessmentStatus(const session::SlipAgain& slip) {
    auto& screen = SharedScreen<revocation::frmAssessmentStatus>::fresh();
    screen.wanted = slip;
    screen.ShowModal();
}

std::optional<session::FoundOutPatient> AppScreens::findOutPatient(const QString& searchText) {
    lookup::clsOutPatientSearch search;
    if (!search.ValidatePatient(searchText))
        return std::nullopt;
    return session::FoundOutPatient{.IdNumber = search.IdNumber(),
                                    .BillingDate = search.BillingDate(),
                                    .InvoiceNumber = search.InvoiceNumber(),
                                    .LateCharges = search.LateCharges()};
}

} // namespace app
