#include "menu/BirthdayGreeting.h"
#include "menu/Monitors.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/logon/PasswordCheck.h"
#include "session/logon/clsCurrentUser.h"
#include "tests/menu/MenuBench.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTest>

namespace {

using menu::Deed;
using session::MenuScreen;

class MenuScreenTest : public tests::MenuBench {
  protected:
    QString text(const QString& label) { return child<QLabel>(label)->text(); }
    QStringList subMenuCaptions() {
        QStringList captions;
        for (int i = 0; i < menu::subMenuCount; ++i) {
            const auto* button = child<QAbstractButton>(QStringLiteral("fltSubMenu_%1").arg(i));
            if (button->isVisible())
                captions += button->text();
        }
        return captions;
    }
};

// --- loading

TEST_F(MenuScreenTest, LoadsWithTheUserInTheStatusBar) {
    openMenu();
    EXPECT_EQ(menuScreen().windowTitle(), "Visual Kerova - Visual Scintra");
    EXPECT_EQ(text("StatusBar1_Panel1"), "CurrentUser Name:  (1001)  REYES, JOAN P.");
    EXPECT_EQ(text("StatusBar1_Panel2"), "");
    EXPECT_FALSE(isShown("StatusBar1_Panel2"));
}

TEST_F(MenuScreenTest, AsksTheBirthdayAndDeletesRevokedDataOnceAtEachStart) {
    showMenu();
    EXPECT_EQ(texts(),
              (QStringList{"SELECT BirthDate FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '1001'",
                           "sp_Nuclear_DeleteRevokedData"}));
}

TEST_F(MenuScreenTest, AsksForTheBirthdayOfTheCodeWithoutItsBlanks) {
    openMenu();
    menu::birthdayGreeting(" 1001 ");
    EXPECT_EQ(texts(),
              QStringList{"SELECT BirthDate FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '1001'"});
}

TEST_F(MenuScreenTest, StartsAtTheQuitGroupWithoutASubMenu) {
    openMenu();
    EXPECT_EQ(menuScreen().currentGroup(), 4);
    EXPECT_EQ(menuScreen().subMenuBase(), 40);
    EXPECT_EQ(subMenuCaptions(), QStringList());
    for (const char* hidden :
         {"btnCommunication", "Label1", "cmdPrepaid", "txtPrepaid", "btnDepositComm", "Label2", "Frame2"})
        EXPECT_FALSE(isShown(hidden)) << hidden;
    EXPECT_TRUE(isShown("lblNothingWaiting"));
}

TEST_F(MenuScreenTest, SendsNothingWithoutAConnection) {
    session::LogOff();
    texts().clear();
    auto former = std::exchange(session::gUser, std::make_unique<session::clsCurrentUser>());
    controls::SharedScreen<menu::frmMainMenu>::fresh().Show();
    EXPECT_EQ(text("StatusBar1_Panel1"), "CurrentUser Name:  ()  ");
    EXPECT_EQ(texts(), QStringList());
    session::gUser = std::move(former);
}

base::DateTime day(int year, int month, int dayOfMonth) {
    return *base::makeDateTime({year, month, dayOfMonth});
}

TEST_F(MenuScreenTest, GreetsOnTheBirthday) {
    answer("SELECT BirthDate", "BirthDate", {{day(1980, 11, 21)}});
    openMenu();
    EXPECT_TRUE(isShown("StatusBar1_Panel2"));
    EXPECT_EQ(text("StatusBar1_Panel2"), "Happy BirthDay!!!");
}

TEST_F(MenuScreenTest, GreetsOnABirthdayKeptAsText) {
    answer("SELECT BirthDate", "BirthDate", {{"11/21/1980"}});
    openMenu();
    EXPECT_EQ(text("StatusBar1_Panel2"), "Happy BirthDay!!!");
}

class Ungreeted : public MenuScreenTest, public testing::WithParamInterface<base::Value> {};

TEST_P(Ungreeted, OnAnotherDayOrWithoutADate) {
    answer("SELECT BirthDate", "BirthDate", {{GetParam()}});
    openMenu();
    EXPECT_FALSE(isShown("StatusBar1_Panel2"));
    EXPECT_EQ(text("StatusBar1_Panel2"), "");
}

INSTANTIATE_TEST_SUITE_P(Menu, Ungreeted,
                         testing::Values(day(1980, 11, 20), day(1980, 12, 21), base::Value(), "no date", ""));

class Watcher : public menu::Monitors {
  public:
    Watcher(QStringList& events, const QStringList& statements)
        : m_events(events), m_statements(statements) {}
    ~Watcher() override { m_events += "gone"; }
    void start() override { m_events += QStringLiteral("start after %1").arg(m_statements.size()); }
    void checkNow() override { m_events += QStringLiteral("check after %1").arg(m_statements.size()); }

  private:
    QStringList& m_events;
    const QStringList& m_statements;
};

TEST_F(MenuScreenTest, StartsTheMonitorsFirstAndChecksLast) {
    menu::setMonitorMaker(
        [this](const menu::Indicators&) { return std::make_unique<Watcher>(events, texts()); });
    showMenu();
    EXPECT_EQ(events, (QStringList{"start after 0", "check after 2"}));
    menuScreen().Unload();
    EXPECT_EQ(events, (QStringList{"start after 0", "check after 2", "gone", "end"}));
}

// --- groups

TEST_F(MenuScreenTest, FirstClickOnQuitDoesNothing) {
    openMenu();
    clickGroup(4);
    EXPECT_EQ(subMenuCaptions(), QStringList());
    EXPECT_EQ(menuScreen().currentGroup(), 4);
    EXPECT_EQ(events, QStringList());
}

class Group : public MenuScreenTest, public testing::WithParamInterface<int> {};

TEST_P(Group, BuildsItsSubMenuFromTheTable) {
    const int group = GetParam();
    openMenu();
    clickGroup(group == 0 ? 1 : 0);
    clickGroup(group);
    EXPECT_EQ(menuScreen().currentGroup(), group);
    EXPECT_EQ(menuScreen().subMenuBase(), menu::menuGroup(group).subMenuBase);
    for (int i = 0; i < menu::subMenuCount; ++i) {
        const auto* button = child<QAbstractButton>(QStringLiteral("fltSubMenu_%1").arg(i));
        const menu::SubMenuRow* row = menu::subMenuRow(group, i);
        ASSERT_EQ(button->isVisible(), row != nullptr) << i;
        if (!row)
            continue;
        EXPECT_EQ(button->text(), row->caption);
        EXPECT_EQ(button->toolTip(), row->toolTip);
        EXPECT_TRUE(button->isEnabled());
    }
    for (int i = 0; i < menu::groupCount; ++i)
        EXPECT_EQ(child<QAbstractButton>(QStringLiteral("cmdMainMenu_%1").arg(i))->isChecked(), i == group);
    EXPECT_EQ(texts(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Menu, Group, testing::Range(0, menu::groupCount));

TEST_F(MenuScreenTest, MainButtonsHaveTheirCaptions) {
    openMenu();
    const QStringList captions{"&Data Entry", "&Results", "&File Maintenance", "R&eports",
                               "&Quit Application"};
    for (int i = 0; i < menu::groupCount; ++i)
        EXPECT_EQ(child<QAbstractButton>(QStringLiteral("cmdMainMenu_%1").arg(i))->text(), captions[i]);
}

TEST_F(MenuScreenTest, ADigitThatIsHeldDownPressesOnce) {
    grantRights();
    openMenu();
    clickGroup(0);
    QTest::keyClick(menuScreen().focusWidget(), Qt::Key_2); // the panel of the out-patient choice
    ASSERT_TRUE(isShown("Frame2"));
    QKeyEvent held(QEvent::KeyPress, Qt::Key_2, Qt::NoModifier, "2", true);
    QCoreApplication::sendEvent(menuScreen().focusWidget(), &held);
    EXPECT_TRUE(isShown("Frame2")) << "its second command is Charge Entry";
    EXPECT_EQ(events, QStringList());
}

TEST_F(MenuScreenTest, CurrentGroupRebuildsNothing) {
    openMenu();
    clickGroup(1);
    auto* button = child<QAbstractButton>("fltSubMenu_0");
    button->setText("touched");
    clickGroup(1);
    EXPECT_EQ(button->text(), "touched");
    EXPECT_TRUE(child<QAbstractButton>("cmdMainMenu_1")->isChecked());
    clickGroup(2);
    EXPECT_EQ(button->text(), "Request Cancellation");
}

// --- rights

class GuardedRow : public MenuScreenTest, public testing::WithParamInterface<menu::SubMenuRow> {
  protected:
    QStringList rightTexts() const {
        return {"NUCLEAR..spNuclear_GetSavedUserRights '1001'",
                QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights WHERE RightsID = '%1' ")
                    .arg(GetParam().right)};
    }
};

std::vector<menu::SubMenuRow> guardedRows() {
    std::vector<menu::SubMenuRow> rows;
    for (const menu::SubMenuRow& row : menu::subMenuTable()) {
        if (*row.right)
            rows.push_back(row);
    }
    return rows;
}

TEST_P(GuardedRow, IsDeniedWithoutTheRight) {
    openMenu();
    clickGroup(GetParam().group);
    boxes.expect({"Access denied", 16, ""});
    clickSubMenu(GetParam().number);
    EXPECT_EQ(texts(), rightTexts());
    EXPECT_EQ(opened(), QStringList());
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    // The menu is as it was.
    EXPECT_EQ(menuScreen().currentGroup(), GetParam().group);
    EXPECT_TRUE(isShown("picMainMenu"));
    EXPECT_FALSE(isShown("Frame2"));
    EXPECT_TRUE(child<QWidget>(QStringLiteral("fltSubMenu_%1").arg(GetParam().number))->isEnabled());
}

TEST_P(GuardedRow, OpensItsScreenWithTheRight) {
    const menu::Command& command = GetParam().command;
    if (command.deed != Deed::OpenScreen)
        return; // reports, pop-up menus and the out-patient choice are followed in tests of their own
    grantRights();
    openMenu();
    clickGroup(GetParam().group);
    clickSubMenu(GetParam().number);
    EXPECT_EQ(texts(), rightTexts());
    EXPECT_EQ(opened(), QStringList{nameOf(command.screen, command.formMode)});
}

INSTANTIATE_TEST_SUITE_P(Menu, GuardedRow, testing::ValuesIn(guardedRows()));

TEST_F(MenuScreenTest, HoldsTheButtonAndTheHourglassWhileAScreenIsOpen) {
    grantRights();
    openMenu();
    clickGroup(0);
    auto* button = child<QAbstractButton>("fltSubMenu_2");
    bool wasEnabled = true;
    Qt::CursorShape cursor = Qt::ArrowCursor;
    server.screens.whileOpen = [&] {
        wasEnabled = button->isEnabled();
        cursor = menuScreen().cursor().shape();
    };
    clickSubMenu(2);
    EXPECT_FALSE(wasEnabled);
    EXPECT_EQ(cursor, Qt::WaitCursor);
    EXPECT_TRUE(button->isEnabled());
    EXPECT_TRUE(button->hasFocus());
    EXPECT_EQ(menuScreen().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(MenuScreenTest, BuildFileIsForTheExamMaintenance) {
    answer("SELECT RightsID FROM PASSWORD..tbPasswordRights", "RightsID", {{"A"}});
    openMenu();
    clickGroup(2);
    boxes.expect({"Access Denied!", 48, "Restriction"});
    clickSubMenu(5);
    EXPECT_EQ(opened(), QStringList());

    session::gUser->setPasswordDeptCode("00");
    clickSubMenu(5);
    EXPECT_EQ(opened(), QStringList{nameOf(MenuScreen::BuildFile)});
}

TEST_F(MenuScreenTest, BuildFileWantsTheRightBesideTheDepartment) {
    openMenu();
    clickGroup(2);
    session::gUser->setPasswordDeptCode("00");
    boxes.expect({"Access Denied!", 48, "Restriction"});
    clickSubMenu(5);
    EXPECT_EQ(opened(), QStringList());
}

class UserSettings : public MenuScreenTest {
  protected:
    void SetUp() override {
        openMenu();
        clickGroup(0);
        clickGroup(4);
    }
    void type(const char* password) {
        inModal([password](QWidget& window) {
            EXPECT_EQ(window.objectName(), "frmPassword");
            tests::keys(tests::child<QWidget>(window, "txtPassword"), QString(password) + "<Enter>");
        });
    }
};

TEST_F(UserSettings, OpenBehindTheUsersOwnPassword) {
    type("secret");
    clickSubMenu(2);
    EXPECT_EQ(opened(), QStringList{nameOf(MenuScreen::UserRights)});
}

TEST_F(UserSettings, AskOnceMoreAndStayClosedEvenIfTheSecondAnswerIsRight) {
    type("wrong");
    type("secret");
    boxes.expect({"Invalid Password", 16, ""});
    clickSubMenu(2);
    EXPECT_EQ(opened(), QStringList());
    EXPECT_EQ(texts().filter("PasswordHash").size(), 2);
}

TEST_F(UserSettings, SayHowLongACodeHasToWait) {
    for (int i = 0; i < 5; ++i)
        session::PasswordTries::wrong("1001");
    inModal([](QWidget& window) {
        tests::keys(tests::child<QWidget>(window, "txtPassword"), "secret<Enter>");
        EXPECT_EQ(tests::child<QLabel>(window, "lblMessage").text(),
                  "Too many wrong tries. Please wait 30 seconds.");
        EXPECT_TRUE(window.isVisible());
        tests::keysToFocus(window, "<Esc>");
    });
    inModal([](QWidget& window) { tests::keysToFocus(window, "<Esc>"); });
    boxes.expect({"Invalid Password", 16, ""});
    clickSubMenu(2);
    session::forgetPasswordTries();
}

TEST_F(UserSettings, AnEnterThatIsHeldDownIsNoTry) {
    inModal([this](QWidget& window) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
        QCoreApplication::sendEvent(&tests::child<QWidget>(window, "txtPassword"), &held);
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(texts().filter("PasswordHash"), QStringList());
        tests::keys(tests::child<QWidget>(window, "txtPassword"), "secret<Enter>");
    });
    clickSubMenu(2);
    EXPECT_EQ(opened(), QStringList{nameOf(MenuScreen::UserRights)});
}

// --- leaving

TEST_F(MenuScreenTest, QuitApplicationOnTheSubMenuAsks) {
    openMenu();
    clickGroup(0);
    clickGroup(4);
    boxes.expect({"Are you sure you want to exit the program?", 36, "Message", controls::vbNo});
    clickSubMenu(0);
    EXPECT_TRUE(menuScreen().isVisible());
    EXPECT_EQ(events, QStringList());
    boxes.expect({"Are you sure you want to exit the program?", 36, "Message", controls::vbYes});
    clickSubMenu(0);
    EXPECT_TRUE(menuScreen().isUnloaded());
    EXPECT_EQ(events, QStringList{"end"});
}

TEST_F(MenuScreenTest, QuitApplicationOnTheMenuBarNeverAsks) {
    openMenu();
    trigger("mnuExitMekeip");
    EXPECT_TRUE(menuScreen().isUnloaded());
    EXPECT_EQ(events, QStringList{"end"});
}

// --- keys

TEST_F(MenuScreenTest, LettersChooseGroupsAndDigitsCommands) {
    grantRights();
    openMenu();
    QTest::keyClick(&menuScreen(), Qt::Key_R);
    EXPECT_EQ(menuScreen().currentGroup(), 1);
    QTest::keyClick(menuScreen().focusWidget(), Qt::Key_3);
    EXPECT_EQ(opened(), QStringList{nameOf(MenuScreen::ResultMaster, "C")});
    QTest::keyClick(menuScreen().focusWidget(), Qt::Key_4); // there is no fourth one
    EXPECT_EQ(opened().size(), 1);
    for (const auto& [key, group] :
         {std::pair{Qt::Key_D, 0}, {Qt::Key_F, 2}, {Qt::Key_E, 3}, {Qt::Key_Q, 4}}) {
        QTest::keyClick(menuScreen().focusWidget(), key);
        EXPECT_EQ(menuScreen().currentGroup(), group);
    }
}

TEST_F(MenuScreenTest, ArrowsWalkOverTheButtons) {
    grantRights();
    openMenu();
    const auto focused = [this] { return menuScreen().focusWidget()->objectName(); };
    const auto press = [this](Qt::Key key) { QTest::keyClick(menuScreen().focusWidget(), key); };
    child<QWidget>("cmdMainMenu_0")->setFocus();
    press(Qt::Key_Left);
    EXPECT_EQ(focused(), "cmdMainMenu_0");
    press(Qt::Key_Down); // nothing below yet
    EXPECT_EQ(focused(), "cmdMainMenu_0");
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), "cmdMainMenu_2");
    press(Qt::Key_Return);
    EXPECT_EQ(menuScreen().currentGroup(), 2);
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "fltSubMenu_0");
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "fltSubMenu_2");
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), "fltSubMenu_3");
    press(Qt::Key_Return);
    EXPECT_EQ(opened(), QStringList{nameOf(MenuScreen::PatientLedger)});
    EXPECT_EQ(focused(), "fltSubMenu_3");
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(focused(), "cmdMainMenu_2");
}

TEST_F(MenuScreenTest, AltLettersOfTheMenuBarAreTheMenuBars) {
    openMenu();
    const auto shortcut = [this](int i) {
        return child<QAbstractButton>(QStringLiteral("cmdMainMenu_%1").arg(i))->shortcut().toString();
    };
    EXPECT_EQ(shortcut(0), "");
    EXPECT_EQ(shortcut(1), "");
    EXPECT_EQ(shortcut(2), "Alt+F");
    EXPECT_EQ(shortcut(3), "Alt+E");
    EXPECT_EQ(shortcut(4), "Alt+Q");
    QTest::keyClick(&menuScreen(), Qt::Key_E, Qt::AltModifier);
    EXPECT_EQ(menuScreen().currentGroup(), 3);
}

TEST_F(MenuScreenTest, EscapeDoesNothing) {
    openMenu();
    QTest::keyClick(&menuScreen(), Qt::Key_Escape);
    EXPECT_TRUE(menuScreen().isVisible());
    EXPECT_EQ(events, QStringList());
}

// --- indicators

TEST_F(MenuScreenTest, IndicatorsOpenTheirScreens) {
    openMenu();
    for (const char* name : {"btnCommunication", "Label1", "cmdPrepaid", "btnDepositComm"})
        child<QWidget>(name)->show();
    EXPECT_FALSE(isShown("lblNothingWaiting"));
    clickOn("btnCommunication");
    EXPECT_FALSE(child<QWidget>("btnCommunication")->isEnabled());
    QTest::mouseClick(child<QWidget>("Label1"), Qt::LeftButton);
    QTest::keyClick(child<QWidget>("Label1"), Qt::Key_Return);
    clickOn("cmdPrepaid");
    clickOn("btnDepositComm");
    const QString nurses = nameOf(MenuScreen::NurseCommunication);
    EXPECT_EQ(opened(), (QStringList{nurses, nurses, nurses, nameOf(MenuScreen::PrepaidRequest),
                                     nameOf(MenuScreen::ListDeposits)}));
    EXPECT_FALSE(child<QWidget>("btnCommunication")->isEnabled());
}

TEST_F(MenuScreenTest, IndicatorsHaveTheirTexts) {
    openMenu();
    EXPECT_EQ(text("Label1"), "There are Pending Request ...");
    EXPECT_EQ(text("Label2"), "There are Patients Deposit ...");
    EXPECT_EQ(child<QAbstractButton>("cmdPrepaid")->text(), "Prepaid Requests");
    EXPECT_EQ(text("txtPrepaid"), " Prepaid Requests");
}

} // namespace
