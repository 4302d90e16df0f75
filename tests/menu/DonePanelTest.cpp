#include "menu/ServerMonitors.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "session/WorkDone.h"
#include "tests/menu/MenuBench.h"

#include <QLabel>
#include <QTest>

namespace {

using session::tellDone;
using session::Work;

/// A menu with room for the list.
class Done : public tests::MenuBench {
  protected:
    void SetUp() override {
        grantRights();
        openMenu().resize(1366, 720);
        QCoreApplication::processEvents();
    }
    void TearDown() override { session::forgetWorkDone(); }

    controls::FlexGrid& list() { return *child<controls::FlexGrid>("grdDone"); }
    QString line(int row) {
        QStringList cells;
        for (int column = 1; column < list().Cols(); ++column)
            cells += list().TextMatrix(row, column);
        return cells.join(u'|');
    }
    void press(Qt::Key key) { QTest::keyClick(menuScreen().focusWidget(), key); }
    static void saveSlip() {
        tellDone({.work = Work::Slip,
                  .number = "C4711J",
                  .patient = "AGUILAR, ROSARIO CRUZ",
                  .IdNum = "26004078",
                  .PatientType = "I"});
    }
};

class Denied : public Done {
    void SetUp() override {}
};

TEST_F(Done, ListsWhatWasCarriedOutWithoutAStatement) {
    EXPECT_EQ(list().Rows(), 1);
    saveSlip();
    tellDone({.work = Work::CancelledCharge, .number = "90033", .patient = "LIM, PEDRO"});
    EXPECT_EQ(list().Rows(), 3);
    EXPECT_EQ(list().TextMatrix(1, 0), "08:30 AM");
    EXPECT_EQ(line(1), "Charge cancelled|90033|LIM, PEDRO|");
    EXPECT_EQ(line(2), "Request charged|C4711J|AGUILAR, ROSARIO CRUZ|Slip");
    EXPECT_EQ(texts(), QStringList());
}

TEST_F(Done, VGoesToTheListAndEnterToTheSlip) {
    saveSlip();
    press(Qt::Key_V);
    EXPECT_EQ(menuScreen().focusWidget(), &list());
    press(Qt::Key_Return);
    ASSERT_EQ(server.screens.rePrints.size(), 1U);
    EXPECT_EQ(server.screens.rePrints[0].number, "C4711J");
    EXPECT_EQ(server.screens.rePrints[0].IdNum, "26004078");
    EXPECT_EQ(server.screens.rePrints[0].PatientType, "I");
    const QStringList asked = std::exchange(texts(), {});
    clickGroup(2);
    clickSubMenu(1);
    EXPECT_EQ(opened(), QStringList{nameOf(session::MenuScreen::RePrint)});
    EXPECT_EQ(asked, texts()) << "the right of the command that leads there";
}

TEST_F(Denied, NothingIsShown) {
    openMenu().resize(1366, 720);
    QCoreApplication::processEvents();
    saveSlip();
    press(Qt::Key_V);
    boxes.expect({"Access denied", 16, ""});
    press(Qt::Key_Return);
    EXPECT_TRUE(server.screens.rePrints.empty());
}

TEST_F(Done, AnAssessmentLeadsToItsState) {
    tellDone({.work = Work::Assessment, .number = "NU12", .patient = "SANTOS, MARIA"});
    press(Qt::Key_V);
    press(Qt::Key_Return);
    ASSERT_EQ(server.screens.assessmentStatuses.size(), 1U);
    EXPECT_EQ(server.screens.assessmentStatuses[0].patient, "SANTOS, MARIA");
}

TEST_F(Done, AResultIsShownAsItsScreenPrintsIt) {
    tellDone({.work = Work::Result, .number = "90001", .IdNum = "26004078", .report = "NucResult.RPT"});
    press(Qt::Key_V);
    press(Qt::Key_Return);
    EXPECT_EQ(events, (QStringList{"prepare", "show"}));
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_TRUE(reports[0].path.endsWith("NucResult.RPT"));
    EXPECT_EQ(reports[0].database, "NUCLEAR");
    EXPECT_EQ(reports[0].values, (std::vector<base::Value>{"26004078", "90001"}));
    EXPECT_EQ(reports[0].title, "Imaging Section Report");
    EXPECT_FALSE(reports[0].directPrint);
}

TEST_F(Done, WhatLeadsNowhereSaysSo) {
    tellDone({.work = Work::Clearance, .number = "26004078", .patient = "AGUILAR"});
    press(Qt::Key_V);
    EXPECT_EQ(child<QLabel>("lblDone")->text(), "V goes to the list");
    press(Qt::Key_Return);
    EXPECT_EQ(texts(), QStringList());
    EXPECT_EQ(opened(), QStringList());
    saveSlip();
    EXPECT_EQ(child<QLabel>("lblDone")->text(), "V goes to the list, Enter shows the slip again");
}

TEST_F(Done, AnEmptyListDoesNothingOnEnter) {
    press(Qt::Key_V);
    EXPECT_EQ(menuScreen().focusWidget(), &list());
    press(Qt::Key_Return);
    EXPECT_EQ(texts(), QStringList());
    EXPECT_EQ(child<QLabel>("lblDone")->text(), "V goes to the list");
}

TEST_F(Done, LettersAndDigitsOnTheListAreTheMenus) {
    saveSlip();
    press(Qt::Key_V);
    press(Qt::Key_R);
    EXPECT_EQ(menuScreen().currentGroup(), 1);
}

TEST_F(Done, EscapeGoesBackToTheCommandsGroup) {
    saveSlip();
    clickGroup(2);
    press(Qt::Key_V);
    EXPECT_EQ(menuScreen().focusWidget(), &list());
    press(Qt::Key_Escape);
    EXPECT_EQ(menuScreen().focusWidget(), child<QWidget>("cmdMainMenu_2"));
}

TEST_F(Done, IsOutOfSightWhereTheCommandsNeedTheRoom) {
    saveSlip();
    EXPECT_TRUE(isShown("fraDone"));
    clickGroup(2);
    menuScreen().resize(1000, 480);
    QCoreApplication::processEvents();
    EXPECT_FALSE(isShown("fraDone"));
    press(Qt::Key_V);
    EXPECT_TRUE(isShown("fraDone")) << "until it is asked for";
    EXPECT_FALSE(isShown("picMainMenu"));
    EXPECT_EQ(menuScreen().focusWidget(), &list());
    press(Qt::Key_Escape);
    EXPECT_TRUE(isShown("picMainMenu"));
    EXPECT_EQ(menuScreen().focusWidget(), child<QWidget>("cmdMainMenu_2"));
    press(Qt::Key_V);
    press(Qt::Key_F); // the group that is active already
    EXPECT_TRUE(isShown("picMainMenu"));
}

TEST_F(Done, NothingOfItIsLeftBehindTheLogOff) {
    saveSlip();
    session::LogOff();
    EXPECT_EQ(list().Rows(), 1);
}

// --- what waits

TEST_F(Done, NothingIsSaidOfWhatNobodyAsked) {
    EXPECT_EQ(child<QLabel>("lblNothingWaiting")->text(), "Nobody has looked yet.");
    EXPECT_FALSE(isShown("lblChecked"));
}

TEST_F(Done, TheTimeOfTheLastPollStandsBesideWhatWaits) {
    menuScreen().Unload();
    menu::ServerMonitors* monitors = nullptr;
    menu::setMonitorMaker([&](const menu::Indicators& indicators) {
        auto made = std::make_unique<menu::ServerMonitors>(indicators);
        monitors = made.get();
        return made;
    });
    answer("sp_Nuclear_NurseCommunication", "recCount", {});
    answer("NUCLEAR..sp_Nuclear_PrepaidCheckRequest", "recCount", {});
    answer("Nuclear..spNuclear_LoadDischargeNoticeCount", "recCount", {{"0"}});
    openMenu();
    EXPECT_EQ(child<QLabel>("lblChecked")->text(), "checked 08:30:00 AM");
    EXPECT_TRUE(isShown("lblChecked"));
    EXPECT_EQ(child<QLabel>("lblNothingWaiting")->text(),
              "No requests of nurses, no prepaid requests, no discharge notices.");
    const base::FixedClock later = tests::fixedClock(2026, 11, 21, 9);
    for (const char* poll : {"tmrChkPendingRequests", "tmrPrepaid", "tmrGetDischargeNotice"}) {
        child<QLabel>("lblChecked")->clear();
        QMetaObject::invokeMethod(monitors->findChild<QTimer*>(poll), "timeout", Qt::DirectConnection);
        EXPECT_EQ(child<QLabel>("lblChecked")->text(), "checked 09:00:00 AM") << poll;
    }
    menu::setMonitorMaker(menu::noMonitors);
}

} // namespace
