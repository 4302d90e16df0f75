#include "tests/menu/MenuBench.h"

#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/reports/ReportLaunch.h"

#include <QAction>
#include <QTest>

namespace tests {

MenuBench::MenuBench() {
    menu::setMonitorMaker(menu::noMonitors);
    recordReports();
    server.screens.whenEnding = [this] { events += "end"; };
    session::gHospitalName = "Kerova General Hospital";
    session::gHospitalAddress = "1 Harbour Road";
    session::gReportFrom.clear();
    session::gReportTo.clear();
    session::gReportOption.clear();
}

MenuBench::~MenuBench() {
    controls::release<menu::frmMainMenu>();
    session::otherReportLaunchers() = {};
    menu::setMonitorMaker({});
}

void MenuBench::recordReports() {
    session::ReportLaunchers& launchers = session::otherReportLaunchers();
    launchers.prepareReport = [this](const QString& path, const QString& database,
                                     const std::vector<base::Value>& values) {
        events += "prepare";
        RecordedReport report;
        report.path = path;
        report.database = database;
        report.values = values;
        reports.push_back(report);
    };
    launchers.prepareSubReport = [this](const QString& name, const std::vector<base::Value>& values) {
        events += "sub-report";
        reports.back().subReport = name;
        reports.back().subValues = values;
    };
    launchers.showReport = [this](bool groupTree, const QString& title, bool directPrint) {
        events += "show";
        reports.back().groupTree = groupTree;
        reports.back().title = title;
        reports.back().directPrint = directPrint;
    };
}

void MenuBench::answer(const QString& startsWith, const QString& columns,
                       const std::vector<std::vector<base::Value>>& rows, bool once) {
    server.server().answer(startsWith, ScriptedProvider::rowsOf(columns, rows), once);
}

menu::frmMainMenu& MenuBench::showMenu() {
    answer("SELECT BirthDate", "BirthDate", {});
    answer("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights", "RightsID", {});
    answer("SELECT RightsID FROM PASSWORD..tbPasswordRights", "RightsID", {});
    texts().clear();
    auto& screen = controls::SharedScreen<menu::frmMainMenu>::fresh();
    screen.Show();
    screen.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
    return screen;
}

menu::frmMainMenu& MenuBench::openMenu() {
    auto& screen = showMenu();
    texts().clear();
    return screen;
}

menu::frmMainMenu& MenuBench::menuScreen() {
    return controls::SharedScreen<menu::frmMainMenu>::current();
}

void MenuBench::trigger(const QString& actionName) {
    auto* action = child<QAction>(actionName);
    ASSERT_TRUE(action->isEnabled()) << actionName.toStdString();
    withSteps([action] { action->trigger(); });
}

void MenuBench::clickOn(const QString& name) {
    withSteps([this, &name] { click(*child<QWidget>(name)); });
}

void MenuBench::withSteps(const std::function<void()>& open) {
    if (m_steps.empty())
        open();
    else
        runModal(open, std::exchange(m_steps, {}));
}

QString MenuBench::nameOf(session::MenuScreen screen, const QString& formMode) {
    return (QString::number(int(screen)) + u' ' + formMode).trimmed();
}

QStringList MenuBench::opened() const {
    QStringList names;
    for (const RecordedScreens::Opened& each : server.screens.opened)
        names += nameOf(each.screen, each.formMode);
    return names;
}

} // namespace tests
