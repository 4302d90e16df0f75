#include "app/AppScreens.h"
#include "menu/frmMainMenu.h"
#include "platform/base/TestDoors.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/logon/HospitalServer.h"
#include "session/logon/clsCurrentUser.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QLabel>
#include <QTest>

namespace {

using controls::SharedScreen;

/// The program's screens; it does not end with them.
class ProgramScreens : public app::AppScreens {
  public:
    void endProgram() override { ++ended; }
    int ended = 0;
};

/// The program as main() puts it together, on a demo hospital.
class SessionChange : public testing::Test {
  protected:
    SessionChange() {
        session::setHospitalServers({tests::serverOf(hospital)});
        session::setScreens(&screens);
    }
    ~SessionChange() override {
        controls::release<menu::frmMainMenu>();
        session::forgetSession();
        session::setScreens(nullptr);
        session::setHospitalServers({});
    }
    static tests::Step logOn(const QString& code, const QString& password) {
        return [=](QWidget& window) {
            EXPECT_EQ(window.objectName(), "frmLogOn");
            tests::keys(tests::child<QWidget>(window, "txtEmployeeCode"),
                        code + "<Enter>" + password + "<Enter>");
        };
    }
    static void giveUp(QWidget& window) { tests::keysToFocus(window, "<Esc>"); }
    static menu::frmMainMenu& menuScreen() { return SharedScreen<menu::frmMainMenu>::current(); }
    static QString panel(const char* name) { return tests::child<QLabel>(menuScreen(), name).text(); }
    static void startAs(const QString& code, const QString& password) {
        tests::runModal([] { session::Main(); }, {logOn(code, password)});
    }
    /// "Change Active User", then what is done in the log-on that follows in the program's loop.
    static void changeUser(const tests::Step& step) {
        menuScreen().findChild<QAction*>("mnuLogOff")->trigger();
        tests::runModal([] { QCoreApplication::processEvents(); }, {step});
    }

    tests::TestHospital hospital;
    base::FixedClock clock{tests::demoMoment()};
    ProgramScreens screens;
};

TEST_F(SessionChange, TheLogOnOpensTheMenu) {
    startAs("1001", "kerova");
    EXPECT_TRUE(menuScreen().isVisible());
    EXPECT_TRUE(panel("StatusBar1_Panel1").startsWith("CurrentUser Name:  (1001)  REYES"));
    EXPECT_EQ(panel("StatusBar1_Panel2"), "");
    EXPECT_EQ(screens.ended, 0);
}

TEST_F(SessionChange, GivingUpTheLogOnShowsNothing) {
    tests::runModal([] { session::Main(); }, {giveUp});
    EXPECT_TRUE(controls::Screen::openScreens().empty());
    EXPECT_EQ(session::gConnection, nullptr);
}

TEST_F(SessionChange, ChangeActiveUserBringsANewUserWithNothingOfTheFormer) {
    startAs("1001", "kerova");
    const QString formerPassword = session::gServerPassword;
    bool closed = false;
    changeUser([&](QWidget& window) {
        closed = !session::gUser->Connected() && session::gEmployeeCode.isEmpty();
        logOn("1002", "scintra")(window);
    });
    EXPECT_TRUE(closed);
    EXPECT_TRUE(menuScreen().isVisible());
    EXPECT_EQ(session::gUser->employeecode(), "1002");
    EXPECT_EQ(session::gEmployeeCode, "1002");
    EXPECT_NE(session::gServerPassword, formerPassword);
    EXPECT_TRUE(panel("StatusBar1_Panel1").startsWith("CurrentUser Name:  (1002)  BAUTISTA"));
    EXPECT_EQ(panel("StatusBar1_Panel2"), "Happy BirthDay!!!");
    EXPECT_EQ(menuScreen().currentGroup(), 4);
    EXPECT_EQ(screens.ended, 0);
}

TEST_F(SessionChange, GivingUpTheNextLogOnEndsTheProgram) {
    startAs("1001", "kerova");
    changeUser(giveUp);
    EXPECT_EQ(screens.ended, 1);
    EXPECT_TRUE(controls::Screen::openScreens().empty());
}

TEST_F(SessionChange, ChangeActiveUserPressedTwiceAsksForOneLogOn) {
    startAs("1001", "kerova");
    tests::click(tests::child<QWidget>(menuScreen(), "cmdMainMenu_0"));
    tests::click(tests::child<QWidget>(menuScreen(), "cmdMainMenu_4"));
    auto& logOff = tests::child<QAbstractButton>(menuScreen(), "fltSubMenu_1");
    ASSERT_EQ(logOff.text(), "LogOff");
    QTest::mouseClick(&logOff, Qt::LeftButton);
    QTest::mouseClick(&logOff, Qt::LeftButton);
    int logOns = 0;
    tests::runModal([] { QCoreApplication::processEvents(); }, {[&](QWidget& window) {
                        QCoreApplication::processEvents(); // a second start would come here
                        for (const QWidget* open : QApplication::topLevelWidgets())
                            logOns += open->isVisible() && open->objectName() == "frmLogOn";
                        logOn("1002", "scintra")(window);
                    }});
    EXPECT_EQ(logOns, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(session::gUser->employeecode(), "1002");
    EXPECT_TRUE(menuScreen().isVisible());
    EXPECT_EQ(screens.ended, 0);
}

TEST_F(SessionChange, TheRightsComeFromTheServerAtEveryCommand) {
    startAs("1006", "scintra"); // a row without rights
    tests::MessageScript boxes{{"Access denied", 16}};
    tests::click(tests::child<QWidget>(menuScreen(), "cmdMainMenu_0"));
    tests::click(tests::child<QWidget>(menuScreen(), "fltSubMenu_2"));
    EXPECT_EQ(boxes.boxes().size(), 1U);

    session::Run(ado::sql("NUCLEAR..spNuclear_SaveUserRights '1006','|3','1001'"));
    tests::runModal([] { tests::click(tests::child<QWidget>(menuScreen(), "fltSubMenu_2")); },
                    {[](QWidget& window) {
                        EXPECT_EQ(window.objectName(), "frmListPatient");
                        window.close();
                    }});
}

TEST_F(SessionChange, AUserWithoutARowReachesTheScreenByTheFunctionKey) {
    startAs("1007", "scintra");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&menuScreen()));
    tests::runModal([] { tests::keysToFocus(menuScreen(), "<F1>"); }, {[](QWidget& window) {
                        EXPECT_EQ(window.objectName(), "frmListPatient");
                        window.close();
                    }});
}

} // namespace
