#include "session/reports/ReportLaunch.h"
#include "platform/controls/look/HeaderBand.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/logon/clsCurrentUser.h"
#include "tests/menu/MenuBench.h"
#include "tests/support/screens/ErrorRecorder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QTest>

namespace {

using base::Value;

constexpr const char* hospital = "Kerova General Hospital";
constexpr const char* address = "1 Harbour Road";
constexpr const char* user = "REYES, JOAN P.";

/// One way to a report: a command and what must come of it. `dialog` is "" for none.
struct Way {
    const char* command; ///< menu bar item, or "3.2" for a flat button
    const char* dialog;
    const char* file;
    const char* database;
    std::vector<Value> values;
    const char* title;
    bool groupTree = false;
};

class Report : public tests::MenuBench {
  protected:
    void SetUp() override {
        grantRights();
        openMenu();
    }
    void run(const QString& command) {
        if (!command.contains(u'.'))
            return trigger(command);
        clickGroup(command.section(u'.', 0, 0).toInt());
        clickSubMenu(command.section(u'.', 1, 1).toInt());
    }
    /// Dates 11/01/2026 to 11/20/2026, then the button that takes them.
    /// `report`: what the dialog says that the dates are for; null where that does not matter.
    void takeDates(const QString& dialog, const char* report = nullptr) {
        inModal([dialog, report](QWidget& window) {
            EXPECT_EQ(window.objectName(), dialog);
            if (report) {
                EXPECT_EQ(tests::child<controls::HeaderBand>(window, "header").subtitle(), report);
            }
            const bool daily = dialog == "frmDailyReport";
            tests::keys(tests::child<QWidget>(window, daily ? "dtpReportDate" : "dtStart"), "11/01/2026");
            auto& end = tests::child<QWidget>(window, daily ? "dtpEndDate" : "dtEnd");
            if (end.isVisible())
                tests::keys(end, "11202026");
            tests::click(tests::child<QWidget>(window, daily                      ? "cmdOptions_3"
                                                       : dialog == "frmDateEntry" ? "cmdDate_0"
                                                                                  : "cmdEnter"));
        });
    }
    void cancel(const char* button) {
        inModal([button](QWidget& window) { tests::click(tests::child<QWidget>(window, button)); });
    }
    void escape() {
        inModal([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    }
};

class ReportWay : public Report, public testing::WithParamInterface<Way> {};

TEST_P(ReportWay, FeedsTheReportAsTold) {
    const Way& way = GetParam();
    if (*way.dialog)
        takeDates(way.dialog, way.title);
    run(way.command);
    EXPECT_EQ(events, (QStringList{"prepare", "show"}));
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].path, session::programFolder() + "\\Reports\\" + way.file);
    EXPECT_EQ(reports[0].database, way.database);
    EXPECT_EQ(reports[0].values, way.values);
    EXPECT_EQ(reports[0].title, way.title);
    EXPECT_EQ(reports[0].groupTree, way.groupTree);
    EXPECT_FALSE(reports[0].directPrint);
}

const Value from = "11/01/2026";
const Value to = "11/20/2026";

INSTANTIATE_TEST_SUITE_P(
    Menu, ReportWay,
    testing::Values(
        Way{"3.0",
            "frmReportDate",
            "NuclearTrans.RPT",
            "NUCLEAR",
            {from, to, hospital, address},
            "Nuclear Transaction Report"},
        Way{"mnuAuditReport",
            "frmReportDate",
            "NuclearTrans.RPT",
            "Nuclear",
            {hospital, address, from, to},
            "Nuclear Transaction Report"},
        Way{"3.2", "frmReportDate", "NucStatisticalReport.RPT", "NUCLEAR", {from, to}, "Statistical Report"},
        Way{"mnuStatisticalReport",
            "frmReportDate",
            "NucStatisticalReport.RPT",
            "NUCLEAR",
            {from, to},
            "Statistical Report"},
        Way{"3.4",
            "frmReportDate",
            "NucCancelledProcedures.RPT",
            "NUCLEAR",
            {from, to},
            "Report on Cancelled Procedures"},
        Way{"mnuCancelledProcedures",
            "frmReportDate",
            "NucCancelledProcedures.RPT",
            "NUCLEAR",
            {from, to},
            "Report on Cancelled Procedures"},
        Way{"3.5", "", "NucExams.RPT", "NUCLEAR", {}, "List of Nuclear Procedures"},
        Way{"mnuNucExams", "", "NucExams.RPT", "BUILD_FILE", {}, "List of Nuclear Procedures"},
        Way{"mnuMonthlyByDate",
            "frmReportDate",
            "NucMonthlyReport.RPT",
            "NUCLEAR",
            {from, to},
            "Monthly Performance Report"},
        Way{"mnuMonthlyByExam",
            "frmReportDate",
            "NucMonthlyReportPerExam.RPT",
            "NUCLEAR",
            {from, to},
            "Monthly Performance Report"},
        Way{"mnuRequestingDoctorReport",
            "frmReportDate",
            "NucRequestingDoctorreport.RPT",
            "NUCLEAR",
            {from, to},
            "Requesting Doctor Report"},
        Way{"mnuDailyIncomeOPDIPD",
            "frmReportDate",
            "NucDailyIncomeReport.RPT",
            "NUCLEAR",
            {"A", from},
            "Daily Income Report"},
        Way{"mnuDailyIncomeCashPatient",
            "frmReportDate",
            "NucDailyIncomeReport.RPT",
            "NUCLEAR",
            {"B", from},
            "Daily Income Report"},
        Way{"mnuReportAudit",
            "frmDailyReport",
            "NuclearMonthlyReport.RPT",
            "NUCLEAR",
            {from, to, "3", address},
            "Transaction Report"},
        Way{"mnuReportReadersFee",
            "frmDateEntry",
            "ReaderReport.RPT",
            "NUCLEAR",
            {hospital, address, from, to},
            "Reader Report"},
        Way{"mnuReportDoctorTD",
            "frmDateEntry",
            "DoctorsCommisionReport.RPT",
            "CARDIO",
            {hospital, address, "NU", user, from, to},
            "Reader Report"},
        Way{"mnuReportDoctorPD",
            "frmDateEntry",
            "DoctorsCommisionPaid.RPT",
            "CARDIO",
            {from, to, "NU", hospital, address, user},
            "Reader Report"}));

TEST_F(Report, HoldsItsButtonAndTheHourglassUntilItIsLeft) {
    clickGroup(3);
    auto* button = child<QAbstractButton>("fltSubMenu_5");
    bool wasEnabled = true;
    Qt::CursorShape cursor = Qt::ArrowCursor;
    session::otherReportLaunchers().showReport = [&](bool, const QString&, bool) {
        wasEnabled = button->isEnabled();
        cursor = menuScreen().cursor().shape();
    };
    clickSubMenu(5);
    EXPECT_FALSE(wasEnabled);
    EXPECT_EQ(cursor, Qt::WaitCursor);
    EXPECT_TRUE(button->isEnabled());
    EXPECT_TRUE(button->hasFocus());
    EXPECT_EQ(menuScreen().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Report, AllPatientCensusRunsItsProcedureAndShowsTheTree) {
    run("mnuReportCensusAllPatient");
    EXPECT_EQ(texts(), QStringList{"Patient_Data..sp_adm_censusallpatient '2026/11/21',''"});
    EXPECT_EQ(events, (QStringList{"prepare", "show"}));
    EXPECT_TRUE(reports[0].path.endsWith("\\Reports\\GrandCensus_NVH.RPT"));
    EXPECT_EQ(reports[0].database, "Patient_Data");
    EXPECT_EQ(reports[0].values, std::vector<Value>{"2026/11/21"});
    EXPECT_EQ(reports[0].title, "Census By Station");
    EXPECT_TRUE(reports[0].groupTree);
}

TEST_F(Report, CensusByStationPreparesItsSummary) {
    run("mnuReportCensusbyStation");
    EXPECT_EQ(texts(), QStringList{"PATIENT_DATA..sp_adm_censusbystation '2026/11/21',''"});
    EXPECT_EQ(events, (QStringList{"prepare", "sub-report", "show"}));
    EXPECT_TRUE(reports[0].path.endsWith("\\Reports\\CensusByStation_Nvh.RPT"));
    EXPECT_EQ(reports[0].database, "PATIENT_DATA");
    EXPECT_EQ(reports[0].values, std::vector<Value>{"11/21/2026"});
    EXPECT_EQ(reports[0].subReport, "Summary");
    EXPECT_EQ(reports[0].subValues, (std::vector<Value>{"PATIENT_DATA", "2026/11/21"}));
    EXPECT_EQ(reports[0].title, "Census by Station");
    EXPECT_FALSE(reports[0].groupTree);
}

TEST_F(Report, ACensusRunsItsProcedureBeforeTheReportIsOpened) {
    QList<qsizetype> sent;
    const auto record = session::otherReportLaunchers().prepareReport;
    session::otherReportLaunchers().prepareReport = [&](const auto& path, const auto& database,
                                                        const auto& values) {
        sent << texts().size();
        record(path, database, values);
    };
    run("mnuReportCensusAllPatient");
    run("mnuReportCensusbyStation");
    EXPECT_EQ(sent, (QList<qsizetype>{1, 2}));
}

TEST_F(Report, TheAuditGetsItsDatesInFullHoweverTheyStand) {
    session::gReportFrom = "3/4/2026";
    session::gReportTo = "2026-03-05";
    session::gReportOption = "2";
    escape();
    run("mnuReportAudit");
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].values, (std::vector<Value>{"03/04/2026", "03/05/2026", "2", address}));
}

TEST_F(Report, TheMenuBarAsksNoRight) {
    takeDates("frmReportDate", "Statistical Report");
    run("mnuStatisticalReport");
    EXPECT_EQ(texts(), QStringList());
}

// --- cancelled dialogs

class CancelledRange : public Report, public testing::WithParamInterface<const char*> {};

TEST_P(CancelledRange, LaunchesNothing) {
    session::gReportFrom = "01/01/2020";
    cancel("cmdClose");
    run(GetParam());
    EXPECT_EQ(events, QStringList());
    EXPECT_EQ(session::gReportFrom, "01/01/2020");
    escape();
    run(GetParam());
    EXPECT_EQ(events, QStringList());
}

INSTANTIATE_TEST_SUITE_P(Menu, CancelledRange,
                         testing::Values("mnuAuditReport", "mnuStatisticalReport", "mnuCancelledProcedures",
                                         "mnuMonthlyByDate", "mnuMonthlyByExam", "mnuRequestingDoctorReport",
                                         "mnuDailyIncomeOPDIPD", "mnuDailyIncomeCashPatient"));

TEST_F(Report, CancelledOnTheFlatTransactionReportLaunchesNothing) {
    cancel("cmdClose");
    run("3.0");
    EXPECT_EQ(events, QStringList());
}

TEST_F(Report, ReadersFeeIsLaunchedAlthoughCancelled) {
    session::gReportTo = "02/02/2020";
    cancel("cmdDate_1");
    run("mnuReportReadersFee");
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(session::gReportFrom, "CANCEL");
    EXPECT_EQ(reports[0].values, (std::vector<Value>{hospital, address, "CANCEL", "02/02/2020"}));
}

TEST_F(Report, DoctorByPaymentIsLaunchedAlthoughCancelled) {
    cancel("cmdDate_1");
    run("mnuReportDoctorPD");
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].values, (std::vector<Value>{"CANCEL", "", "NU", hospital, address, user}));
}

TEST_F(Report, DoctorByTransactionHeedsTheCancel) {
    cancel("cmdDate_1");
    run("mnuReportDoctorTD");
    EXPECT_EQ(events, QStringList());
}

TEST_F(Report, AuditHeedsTheCancel) {
    cancel("cmdOptions_4");
    run("mnuReportAudit");
    EXPECT_EQ(events, QStringList());
}

TEST_F(Report, EscapeKeepsTheDatesLastChosen) {
    session::gReportFrom = "03/04/2026";
    session::gReportTo = "03/05/2026";
    session::gReportOption = "1";
    escape();
    run("mnuReportAudit");
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].values, (std::vector<Value>{"03/04/2026", "03/05/2026", "1", address}));
}

TEST_F(Report, EscapeAtTheReadersAndThePaymentsLaunchesWithWhatWasChosenLast) {
    session::gReportFrom = "03/04/2026";
    session::gReportTo = "03/05/2026";
    escape();
    run("mnuReportReadersFee");
    escape();
    run("mnuReportDoctorPD");
    escape();
    run("mnuReportDoctorTD");
    ASSERT_EQ(reports.size(), 3U);
    EXPECT_EQ(reports[0].values, (std::vector<Value>{hospital, address, "03/04/2026", "03/05/2026"}));
    EXPECT_EQ(reports[1].values,
              (std::vector<Value>{"03/04/2026", "03/05/2026", "NU", hospital, address, user}));
    EXPECT_EQ(reports[2].values,
              (std::vector<Value>{hospital, address, "NU", user, "03/04/2026", "03/05/2026"}));
    EXPECT_EQ(session::gReportFrom, "03/04/2026");
}

TEST_F(Report, ACancelIsForgottenOnceDatesAreChosen) {
    cancel("cmdDate_1");
    run("mnuReportDoctorTD");
    takeDates("frmDailyReport");
    run("mnuReportAudit");
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].values, (std::vector<Value>{from, to, "3", address}));
}

struct AuditOption {
    const char *button, *option, *title;
};

class AuditOf : public Report, public testing::WithParamInterface<AuditOption> {};

TEST_P(AuditOf, TheButtonIsTheOption) {
    inModal([](QWidget& window) {
        EXPECT_EQ(window.objectName(), "frmDailyReport");
        tests::click(tests::child<QWidget>(window, GetParam().button));
    });
    run("mnuReportAudit");
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].values,
              (std::vector<Value>{"11/21/2026", "11/21/2026", GetParam().option, address}));
    EXPECT_EQ(session::gReportOptionTitle, GetParam().title);
}

INSTANTIATE_TEST_SUITE_P(Menu, AuditOf,
                         testing::Values(AuditOption{"cmdOptions_0", "0", "IN-PATIENT TRANSACTIONS"},
                                         AuditOption{"cmdOptions_1", "1", "OUT-PATIENT TRANSACTIONS"},
                                         AuditOption{"cmdOptions_2", "2", "CASH-PATIENT TRANSACTIONS"},
                                         AuditOption{"cmdOptions_3", "3", "ALL-PATIENT TRANSACTIONS"}));

TEST_F(Report, EscapeWithoutAnyDateLaunchesNothing) {
    escape();
    run("mnuReportAudit");
    escape();
    run("mnuReportDoctorTD");
    EXPECT_EQ(events, QStringList());
}

// --- daily income

TEST_F(Report, DailyIncomeAsksForOneDate) {
    inModal([](QWidget& window) {
        EXPECT_TRUE(window.findChild<QWidget*>("dtStart")->isVisible());
        EXPECT_FALSE(window.findChild<QWidget*>("dtEnd")->isVisible());
        EXPECT_FALSE(window.findChild<QWidget*>("lblEnd")->isVisible());
        tests::click(tests::child<QWidget>(window, "cmdEnter"));
    });
    run("mnuDailyIncomeOPDIPD");
    EXPECT_EQ(reports[0].values, (std::vector<Value>{"A", "11/21/2026"}));
    // The next range has both dates again.
    inModal([](QWidget& window) {
        EXPECT_TRUE(window.findChild<QWidget*>("dtEnd")->isVisible());
        tests::click(tests::child<QWidget>(window, "cmdClose"));
    });
    run("mnuStatisticalReport");
}

TEST_F(Report, CancelledDailyIncomeShowsTheSubMenuAgain) {
    clickGroup(0);
    clickSubMenu(1);
    ASSERT_FALSE(child<QWidget>("picMainMenu")->isVisible());
    cancel("cmdClose");
    run("mnuStatisticalReport");
    EXPECT_FALSE(child<QWidget>("picMainMenu")->isVisible());
    cancel("cmdClose");
    run("mnuDailyIncomeCashPatient");
    EXPECT_TRUE(child<QWidget>("picMainMenu")->isVisible());
}

// --- menus at the flat buttons

struct PopUp {
    int number;
    const char* menu;
    int entry; ///< from 1
    const char* file;
    std::vector<Value> values;
};

class PopUpMenu : public Report, public testing::WithParamInterface<PopUp> {};

TEST_P(PopUpMenu, OpensAtTheButtonAndLaunches) {
    run(QStringLiteral("3.%1").arg(GetParam().number));
    auto* popUp = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(popUp, nullptr);
    EXPECT_EQ(popUp->objectName(), GetParam().menu);
    EXPECT_EQ(events, QStringList());
    takeDates("frmReportDate");
    for (int i = 0; i < GetParam().entry; ++i)
        QTest::keyClick(popUp, Qt::Key_Down);
    withSteps([popUp] { QTest::keyClick(popUp, Qt::Key_Return); });
    EXPECT_EQ(events, (QStringList{"prepare", "show"}));
    EXPECT_EQ(reports[0].path, session::programFolder() + "\\Reports\\" + GetParam().file);
    EXPECT_EQ(reports[0].database, "NUCLEAR");
    EXPECT_EQ(reports[0].values, GetParam().values);
}

INSTANTIATE_TEST_SUITE_P(
    Menu, PopUpMenu,
    testing::Values(PopUp{1, "mnuMonthlyReport", 1, "NucMonthlyReport.RPT", {from, to}},
                    PopUp{1, "mnuMonthlyReport", 2, "NucMonthlyReportPerExam.RPT", {from, to}},
                    PopUp{3, "mnuDailyIncomeReport", 1, "NucDailyIncomeReport.RPT", {"A", from}},
                    PopUp{3, "mnuDailyIncomeReport", 2, "NucDailyIncomeReport.RPT", {"B", from}}));

// --- keys alone

TEST_F(Report, ALetterAndADigitLaunchAReport) {
    QTest::keyClick(&menuScreen(), Qt::Key_E);
    EXPECT_EQ(menuScreen().currentGroup(), 3);
    inModal([](QWidget& window) { QTest::keyClick(&window, Qt::Key_E, Qt::AltModifier); });
    withSteps([this] { QTest::keyClick(menuScreen().focusWidget(), Qt::Key_1); });
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_TRUE(reports[0].path.endsWith("NuclearTrans.RPT"));
    EXPECT_EQ(reports[0].values, (std::vector<Value>{"11/21/2026", "11/21/2026", hospital, address}));
    QTest::keyClick(menuScreen().focusWidget(), Qt::Key_6);
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_TRUE(reports[1].path.endsWith("NucExams.RPT"));
}

TEST_F(Report, AMissingFileIsTheEnginesErrorAndStopsTheProgram) {
    session::otherReportLaunchers() = {};
    tests::ErrorRecorder errors;
    session::setProgramFolder("/nowhere");
    trigger("mnuNucExams");
    session::setProgramFolder({});
    EXPECT_TRUE(controls::ErrorBoundary::isStopping());
    EXPECT_EQ(errors.take().number(), 20507);
    EXPECT_EQ(events, QStringList());
}

} // namespace
