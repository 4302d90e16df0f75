#include "tests/app/ScreenOpeners.h"

#include "app/AppScreens.h"
#include "charges/frmBuildFile.h"
#include "charges/frmCSEntry.h"
#include "charges/frmNucCharges.h"
#include "charges/frmNuclearChargesBuildFile_items.h"
#include "charges/frmNuclearPackage.h"
#include "charges/frmPHEntry.h"
#include "charges/frmReceivableEntry.h"
#include "entry/RequestColumns.h"
#include "ledger/frmClearPatient.h"
#include "ledger/frmDischargeNotice.h"
#include "ledger/frmPatientLedger.h"
#include "lookup/frmAddWalkIn.h"
#include "lookup/frmPatientList.h"
#include "lookup/frmRegisteredOPD.h"
#include "lookup/frmSearch.h"
#include "menu/frmMainMenu.h"
#include "orders/frmAssessment.h"
#include "orders/frmRequestForm.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/TestDoors.h"
#include "platform/report/layout/PageDocument.h"
#include "platform/report/viewer/Viewer.h"
#include "results/frmResult.h"
#include "results/frmResultEntry.h"
#include "results/frmResultEntryGFR.h"
#include "results/frmResultEntryMPI.h"
#include "results/frmResultRadioImmuno.h"
#include "results/frmSymbols.h"
#include "revocation/frmCancelRequest.h"
#include "revocation/frmCancellation.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/logon/frmDatabaseLogin.h"
#include "session/logon/frmLogOn.h"
#include "session/reports/ReportLaunch.h"
#include "session/reports/frmDailyReport.h"
#include "session/reports/frmDateEntry.h"
#include "session/reports/frmReportDate.h"
#include "session/rights/frmAccess.h"
#include "session/rights/frmPassword.h"
#include "session/rights/frmProgSettings.h"
#include "session/services/Services.h"
#include "tests/support/screens/Driver.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace tests {

namespace {

using controls::SharedScreen;
using session::MenuScreen;

/// Looks at the window that `call` opens modally, and leaves it.
void lookAtModal(const std::function<void()>& call, const Look& look) {
    runModal(call, {[&](QWidget& window) {
                 QCoreApplication::processEvents();
                 const QPointer<QWidget> open(&window);
                 look(window);
                 if (!open)
                     return;
                 if (auto* screen = qobject_cast<controls::Screen*>(&window))
                     screen->hideScreen();
                 else
                     window.close();
             }});
}

void lookAt(controls::Screen& screen, const Look& look) {
    screen.Show();
    QCoreApplication::processEvents();
    look(screen);
    screen.hideScreen();
}

template <typename T>
void plain(const Look& look) {
    T screen;
    lookAt(screen, look);
}

template <typename T>
void shared(const Look& look) {
    lookAt(SharedScreen<T>::fresh(), look);
    controls::release<T>();
}

/// What the menu opens.
template <MenuScreen screen>
void ofTheMenu(const Look& look) {
    const QString mode = screen == MenuScreen::RequestMaster || screen == MenuScreen::ResultMaster
                             ? QStringLiteral("R")
                             : QString();
    lookAtModal([&] { app::AppScreens().open(screen, mode); }, look);
}

void logOn(const Look& look) {
    session::clsCurrentUser user;
    session::frmLogOn screen(user);
    lookAt(screen, look);
}

void password(const Look& look) {
    session::frmPassword screen(*session::gUser);
    lookAt(screen, look);
}

void databaseLogin(const Look& look) {
    const auto server = session::fileServer(session::hospitalFile());
    session::frmDatabaseLogin screen(*server);
    lookAt(screen, look);
}

void pickList(const Look& look) {
    lookAtModal([] { session::gCodeFind->SearchListing({}, session::clsLookupPad::doctors); }, look);
}

void reportViewer(const Look& look) {
    session::PrepareReport(session::reportPath(QStringLiteral("NucExams.RPT")), QStringLiteral("NUCLEAR"),
                           {});
    lookAtModal([] { session::ShowReport(true, QStringLiteral("Examinations"), false); }, look);
    session::gReport.reset();
}

template <typename T>
void patientList(const Look& look) {
    T screen;
    screen.ListCaption = QStringLiteral("Regular Patients");
    screen.PatientQuery = "spGlobal_RegularPatients '#1','#2','#3'";
    screen.EnableAddPatient = true;
    lookAt(screen, look);
}

void search(const Look& look) {
    lookup::frmSearch screen;
    screen.SearchCaption = QStringLiteral("Revenue Codes");
    screen.Criteria = QStringLiteral("N");
    screen.Query = "spNuclear_SearchRevenue '0','##'";
    lookAt(screen, look);
}

void outRequest(const Look& look) {
    const QString id =
        session::Read(ado::sql("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS "
                               "NULL ORDER BY IdNum"))
            .Fields(0)
            .text();
    lookAtModal([&] { app::AppScreens().openOutRequest({.IdNumber = id}); }, look);
}

void request(const Look& look) {
    lookAtModal([] { app::AppScreens().openRequest({.PatIdNum = "26004078", .PatientType = "I"}); }, look);
}

/// A store's screen with a patient taken and a line begun.
template <MenuScreen screen>
void itemRequest(const Look& look) {
    lookAtModal([] { app::AppScreens().open(screen); },
                [&](QWidget& window) {
                    click(child<QRadioButton>(window, "optType_2"));
                    keys(child<QLineEdit>(window, "txtPName"), QStringLiteral("26004078<Enter>"));
                    keysToFocus(window, screen == MenuScreen::PHEntry ? QStringLiteral("30001<Enter>")
                                                                      : QStringLiteral("40001<Enter>"));
                    look(window);
                    static_cast<controls::Screen&>(window).Unload(); // the next one begins without a patient
                });
    controls::release<charges::frmPHEntry>();
    controls::release<charges::frmCSEntry>();
}

void requestForm(const Look& look) {
    orders::frmRequestForm screen;
    ado::Recordset request =
        session::Read(ado::sql("NUCLEAR..sp_Nuclear_GetPrepaidPatientInfo '{}'", QStringLiteral("PS401")));
    screen.take(request);
    lookAt(screen, look);
}

/// With the items of its first package.
template <typename T>
void package(const Look& look) {
    controls::FlexGrid lines, unused;
    lines.setCols(entry::requestColumnCount);
    unused.setCols(8);
    T screen;
    screen.SourceGrid = &lines;
    screen.PackageGrid = &unused;
    lookAt(screen, [&](QWidget& window) {
        keysToFocus(window, QStringLiteral("<Enter>"));
        QCoreApplication::processEvents();
        look(window);
    });
}

/// With the list of what was charged before.
void receivableEntry(const Look& look) {
    charges::frmReceivableEntry screen;
    screen.load();
    screen.setText("txtLname", QStringLiteral("AGUILAR"));
    screen.setText("txtIdNum", QStringLiteral("26004078"));
    lookAt(screen, [&](QWidget& window) {
        child<QPushButton>(window, "cmdListCharges").click();
        QCoreApplication::processEvents();
        look(window);
    });
}

template <typename T>
void resultEntry(const Look& look) {
    T screen;
    screen.load();
    screen.PatientType = "I";
    screen.RequestNum = "90001";
    screen.setText("txtPName", "AGUILAR, ROSARIO CRUZ");
    screen.setText("txtHospNum", "104078");
    screen.setText("txtIdNum", "26004078");
    screen.setText("lblProcedure", "1001 BONE SCAN, WHOLE BODY");
    lookAt(screen, look);
}

void requestsOfAPatient(const Look& look) {
    results::frmResult screen;
    screen.load();
    screen.HospitalNumber = QStringLiteral("104078");
    screen.FormMode = QStringLiteral("R");
    screen.setPatientName(QStringLiteral("AGUILAR, ROSARIO CRUZ"));
    screen.Init_Grid();
    screen.showRequests(session::Read(ado::sql("sp_Nuclear_getRequest '{}'", screen.HospitalNumber)));
    lookAt(screen, look);
}

/// A request that waits, as the search hands it over.
void cancellation(const Look& look) {
    const QString request =
        session::Read(ado::sql("SELECT TOP 1 RequestNum FROM tbNucMaster WHERE RequestStatus "
                               "= '' AND RevenueID = 'NU' ORDER BY RequestNum DESC"))
            .Fields(0)
            .text();
    revocation::frmCancelRequest search;
    revocation::frmCancellation screen;
    search.handOver(screen, request);
    lookAt(screen, look);
}

void editedExam(const Look& look) {
    charges::frmBuildFile screen;
    screen.Show();
    child<QPushButton>(screen, "btnEdit").click();
    lookAt(screen, look);
}

void patientLedger(const Look& look) {
    ledger::frmPatientLedger screen;
    screen.Show();
    child<QComboBox>(screen, "cmbPatientClass").setCurrentIndex(0);
    auto& number = child<QLineEdit>(screen, "txtIdNum");
    number.setText("26004022");
    QTest::keyClick(&number, Qt::Key_Return);
    const auto& viewer = child<report::Viewer>(screen, "Viewer");
    (void)QTest::qWaitFor([&] { return viewer.document() && viewer.document()->isComplete(); }, 60'000);
    lookAt(screen, look);
    screen.Unload();
}

void clearPatient(const Look& look) {
    ledger::frmClearPatient screen;
    screen.IdNum =
        session::Read(ado::sql("SELECT TOP 1 IdNum FROM STATION..tbDischargeNotice ORDER BY IdNum"))
            .Fields(0)
            .text();
    lookAt(screen, look);
    controls::release<ledger::frmDischargeNotice>();
}

} // namespace

const std::vector<ScreenOpener>& screenOpeners() {
    static const std::vector<ScreenOpener> openers{
        {"frmLogOn", logOn},
        {"frmDatabaseLogin", databaseLogin},
        {"frmAccess", plain<session::frmAccess>},
        {"frmPassword", password},
        {"frmUserRights", ofTheMenu<MenuScreen::UserRights>},
        {"frmProgSettings", plain<session::frmProgSettings>},
        {"frmReportDate", plain<session::frmReportDate>},
        {"frmDailyReport", plain<session::frmDailyReport>},
        {"frmDateEntry", plain<session::frmDateEntry>},
        {"frmReportViewer", reportViewer},
        {"frmPickList", pickList},
        {"frmMainMenu", shared<menu::frmMainMenu>},
        {"frmListPatient", ofTheMenu<MenuScreen::ListPatient>},
        {"frmPatientList", patientList<lookup::frmPatientList>},
        {"frmRegisteredOPD", patientList<lookup::frmRegisteredOPD>},
        {"frmSearch", search},
        {"frmAddWalkIn", plain<lookup::frmAddWalkIn>},
        {"frmWalkInMaster", ofTheMenu<MenuScreen::WalkInMaster>},
        {"frmAssessment", shared<orders::frmAssessment>}, // the menu's comes again after each save
        {"frmOutRequest", outRequest},
        {"frmRequest", request},
        {"frmNurseCommunication", ofTheMenu<MenuScreen::NurseCommunication>},
        {"frmListCashComm", ofTheMenu<MenuScreen::ListCashComm>},
        {"frmPrepaidRequest", ofTheMenu<MenuScreen::PrepaidRequest>},
        {"frmRequestForm", requestForm},
        {"frmPHEntry", itemRequest<MenuScreen::PHEntry>},
        {"frmCSEntry", itemRequest<MenuScreen::CSEntry>},
        {"frmNuclearPackage", package<charges::frmNuclearPackage>},
        {"frmNucCharges", package<charges::frmNucCharges>},
        {"frmReceivableSearch", ofTheMenu<MenuScreen::ReceivableSearch>},
        {"frmReceivableEntry", receivableEntry},
        {"frmNuclearChargesBuildFile", ofTheMenu<MenuScreen::NuclearChargesBuildFile>},
        {"frmNuclearChargesBuildFile_items", plain<charges::frmNuclearChargesBuildFile_items>},
        {"frmRequestMaster", ofTheMenu<MenuScreen::RequestMaster>},
        {"frmResultMaster", ofTheMenu<MenuScreen::ResultMaster>},
        {"frmResult", requestsOfAPatient},
        {"frmResultEntry", resultEntry<results::frmResultEntry>},
        {"frmResultEntryMPI", resultEntry<results::frmResultEntryMPI>},
        {"frmResultEntryGFR", resultEntry<results::frmResultEntryGFR>},
        {"frmResultRadioImmuno", resultEntry<results::frmResultRadioImmuno>},
        {"frmSymbols", plain<results::frmSymbols>},
        {"frmCancelRequest", ofTheMenu<MenuScreen::CancelRequest>},
        {"frmCancellation", cancellation},
        {"frmRePrint", ofTheMenu<MenuScreen::RePrint>},
        {"frmAssessmentStatus", ofTheMenu<MenuScreen::AssessmentStatus>},
        {"frmBuildFile", editedExam},
        {"frmPatientLedger", patientLedger},
        {"frmVerification", ofTheMenu<MenuScreen::Verification>},
        {"frmListDeposits", ofTheMenu<MenuScreen::ListDeposits>},
        {"frmDischargeNotice", plain<ledger::frmDischargeNotice>},
        {"frmClearPatient", clearPatient},
    };
    return openers;
}

} // namespace tests
