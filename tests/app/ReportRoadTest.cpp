// Every report command of the menu, over its dialog into the viewer, on the hospital that comes along: what
// is printed shows that each value arrived where the definition takes it.
#include "app/AppScreens.h"
#include "menu/frmMainMenu.h"
#include "platform/controls/screen/TestDoors.h"
#include "platform/report/layout/PageDocument.h"
#include "platform/report/viewer/Viewer.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/reports/ReportLaunch.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"

#include <QAction>
#include <QTest>

#include <ostream>

namespace {

using controls::SharedScreen;
using tests::child;
using tests::click;

constexpr int longest = 60'000; // milliseconds

struct Road {
    const char* command; ///< menu bar item, or "3.0" for a flat button
    const char* dialog;  ///< "" for none
    const char* title;   ///< of the viewer
    QStringList texts;   ///< on the first or the last page
    bool tree = false;
};

void PrintTo(const Road& road, std::ostream* stream) {
    *stream << road.command;
}

class ReportRoads : public tests::LoggedOn {
  protected:
    ReportRoads() {
        session::setProgramFolder(SCINTRA_SOURCE_DIR);
        session::setScreens(&router);
        SharedScreen<menu::frmMainMenu>::fresh().Show();
    }
    ~ReportRoads() override {
        controls::release<menu::frmMainMenu>();
        session::setScreens(&screens);
        session::setProgramFolder({});
    }
    static menu::frmMainMenu& menuScreen() { return SharedScreen<menu::frmMainMenu>::current(); }
    static void launch(const QString& command) {
        if (QAction* item = menuScreen().findChild<QAction*>(command))
            return item->trigger();
        click(child<QWidget>(menuScreen(), "cmdMainMenu_3"));
        click(child<QWidget>(menuScreen(), qPrintable("fltSubMenu_" + command.section(u'.', 1))));
    }
    /// Once the report is printed to its end.
    static const report::PageDocument& paperIn(QWidget& window) {
        EXPECT_EQ(window.objectName(), "frmReportViewer");
        const auto& viewer = child<report::Viewer>(window, "CRViewer1");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !viewer.isRunning(); }, longest));
        return *viewer.document();
    }

    app::AppScreens router;
};

class ReportRoad : public ReportRoads, public testing::WithParamInterface<Road> {
  protected:
    /// 11/01/2026 to 11/20/2026, or 11/19/2026 where one day is wanted.
    static void takeDates(QWidget& window) {
        const QString name = window.objectName();
        EXPECT_EQ(name, GetParam().dialog);
        const bool daily = name == "frmDailyReport";
        auto& end = child<QWidget>(window, daily ? "dtpEndDate" : "dtEnd");
        tests::keys(child<QWidget>(window, daily ? "dtpReportDate" : "dtStart"),
                    tests::toServerDays(QString(end.isVisible() ? "11/01/2026" : "11/19/2026")));
        if (end.isVisible())
            tests::keys(end, tests::toServerDays(QString("11/20/2026")));
        click(child<QWidget>(window, daily                    ? "cmdOptions_3"
                                     : name == "frmDateEntry" ? "cmdDate_0"
                                                              : "cmdEnter"));
    }
    static void look(QWidget& window) {
        const report::PageDocument& document = paperIn(window);
        EXPECT_EQ(window.windowTitle(), GetParam().title);
        EXPECT_EQ(child<report::Viewer>(window, "CRViewer1").isGroupTreeShown(), GetParam().tree);
        const QString text =
            tests::toTestDays(report::textOf(*document.page(0)) + '\n' +
                              report::textOf(*document.page(document.pageCount() - 1)) + '\n');
        const QStringList heading{"Kerova General Hospital\n", "114 Rizal Avenue, Santa Rosa, Laguna\n"};
        for (const QString& one : heading + GetParam().texts)
            EXPECT_TRUE(text.contains(one)) << qPrintable(one) << "\nin\n" << qPrintable(text.left(3000));
        window.close();
    }
};

} // namespace

TEST_F(ReportRoads, AReportLaunchedWithoutDatesSaysThatNoneWereChosen) {
    session::gReportFrom.clear();
    session::gReportTo.clear();
    const auto cancel = [](QWidget& dialog) { click(child<QWidget>(dialog, "cmdDate_1")); };
    const auto escape = [](QWidget& dialog) { tests::keysToFocus(dialog, "<Esc>"); };
    const auto look = [](QWidget& window) {
        const QString text = report::textOf(*paperIn(window).page(0));
        EXPECT_TRUE(text.contains("No dates were chosen\n")) << qPrintable(text);
        EXPECT_TRUE(text.contains("Choose a first and a last day to print this report.\n"))
            << qPrintable(text);
        window.close();
    };
    for (const char* command : {"mnuReportReadersFee", "mnuReportDoctorPD"}) {
        tests::runModal([command] { launch(command); }, {escape, look}); // nothing was ever chosen
        tests::runModal([command] { launch(command); }, {cancel, look});
        session::gReportFrom.clear();
    }
}

TEST_P(ReportRoad, LeadsToItsPaper) {
    std::vector<tests::Step> steps;
    if (*GetParam().dialog)
        steps.emplace_back(takeDates);
    steps.emplace_back(look);
    tests::runModal([] { launch(GetParam().command); }, steps);
    EXPECT_FALSE(session::gReport);
}

namespace {

const QString period = QStringLiteral("From 11/01/2026 to 11/20/2026\n");

} // namespace

INSTANTIATE_TEST_SUITE_P(
    Menu, ReportRoad,
    testing::Values(
        Road{"3.0",
             "frmReportDate",
             "Nuclear Transaction Report",
             {period, "Nuclear Transaction Report\n", "Total, "}},
        Road{"mnuAuditReport",
             "frmReportDate",
             "Nuclear Transaction Report",
             {period, "Nuclear Transaction Report\n", "Total, "}},
        Road{"3.2",
             "frmReportDate",
             "Statistical Report",
             {period, "THYROGLOBULIN\t", "Requests by procedure"}},
        Road{
            "mnuStatisticalReport", "frmReportDate", "Statistical Report", {period, "Requests by procedure"}},
        Road{"3.4", "frmReportDate", "Report on Cancelled Procedures", {period, "Cancelled, "}},
        Road{"mnuCancelledProcedures",
             "frmReportDate",
             "Report on Cancelled Procedures",
             {period, "Cancelled, "}},
        Road{"3.5", "", "List of Nuclear Procedures", {"45 procedures", "IMAGING\n", "THERAPY\n"}},
        Road{"mnuNucExams", "", "List of Nuclear Procedures", {"45 procedures", "IMAGING\n", "THERAPY\n"}},
        Road{"mnuMonthlyByDate",
             "frmReportDate",
             "Monthly Performance Report",
             {period, "Monthly Performance Report by Transaction Date\n", "Total, "}},
        Road{"mnuMonthlyByExam",
             "frmReportDate",
             "Monthly Performance Report",
             {period, "Monthly Performance Report by Exam\n", "1207  ANTI-TG\n", "Total, "}},
        Road{"mnuRequestingDoctorReport",
             "frmReportDate",
             "Requesting Doctor Report",
             {period, "DR. ABELLA, CLARA\n", "All doctors, "}},
        Road{"mnuDailyIncomeOPDIPD",
             "frmReportDate",
             "Daily Income Report",
             {"11/19/2026\n", "Daily Income Report: In/Out Patient Charge\n", "IN-PATIENTS\n",
              "Income of the day\t"}},
        Road{"mnuDailyIncomeCashPatient",
             "frmReportDate",
             "Daily Income Report",
             {"11/19/2026\n", "Daily Income Report: Cash Patients\n", "CASH PATIENTS\n",
              "Income of the day\t4,600.00"}},
        Road{"mnuReportAudit",
             "frmDailyReport",
             "Transaction Report",
             {period, "ALL-PATIENT TRANSACTIONS\n", "IN-PATIENTS\n", "CASH PATIENTS\n", "Total, "}},
        Road{"mnuReportReadersFee",
             "frmDateEntry",
             "Reader Report",
             {period, "Readers Fee Report\n", "DR. SANTOS, ALBERTO\n", "All readers\t"}},
        Road{"mnuReportDoctorTD",
             "frmDateEntry",
             "Reader Report",
             {"Charged from 11/01/2026 to 11/20/2026\n", "Doctor's Commision Report\n",
              "DR. SANTOS, ALBERTO\n", "All doctors\t", "Printed by REYES, JOAN P., 11/21/2026"}},
        Road{"mnuReportDoctorPD",
             "frmDateEntry",
             "Reader Report",
             {"Paid from 11/01/2026 to 11/20/2026\n", "Doctor's Commision Paid\n", "DR. SANTOS, ALBERTO\n",
              "All doctors\t", "Printed by REYES, JOAN P., 11/21/2026"}},
        Road{"mnuReportCensusAllPatient",
             "",
             "Census By Station",
             {"As of 11/21/2026\n", "Grand Census\n", "ROOM CLASS A\n", "All patients: 75"},
             true},
        Road{"mnuReportCensusbyStation",
             "",
             "Census by Station",
             {"As of 11/21/2026\n", "Census by Station\n", "Summary\n", "All stations\t",
              "All patients: 75"}}));
