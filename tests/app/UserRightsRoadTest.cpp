// From the main menu over the user's own password to the rights and their catalogue, on the hospital that
// comes along.
#include "app/AppScreens.h"
#include "menu/frmMainMenu.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "session/logon/HospitalServer.h"
#include "session/rights/CheckAccess.h"
#include "session/rights/frmUserRights.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QListWidget>
#include <QTest>

namespace {

using controls::SharedScreen;
using tests::child;
using tests::click;
using tests::keys;
using tests::keysToFocus;

/// The program's own router between the screens, on a demo hospital.
class UserRightsRoad : public tests::LoggedOn {
  protected:
    UserRightsRoad() {
        session::setScreens(&router);
        SharedScreen<menu::frmMainMenu>::fresh().Show();
    }
    ~UserRightsRoad() override {
        controls::release<menu::frmMainMenu>();
        session::setScreens(&screens);
    }
    static menu::frmMainMenu& menuScreen() { return SharedScreen<menu::frmMainMenu>::current(); }
    /// "User Settings" on the sub-menu of the fifth button.
    static void openUserSettings() {
        click(child<QWidget>(menuScreen(), "cmdMainMenu_0"));
        click(child<QWidget>(menuScreen(), "cmdMainMenu_4"));
        click(child<QWidget>(menuScreen(), "fltSubMenu_2"));
    }
    static tests::Step password(const QString& text) {
        return [text](QWidget& window) {
            EXPECT_EQ(window.objectName(), "frmPassword");
            keys(child<QWidget>(window, "txtPassword"), text + "<Enter>");
        };
    }

    app::AppScreens router;
};

TEST_F(UserRightsRoad, ARightAddedToTheCatalogueIsGivenAndHoldsAtOnce) {
    tests::MessageScript boxes{{"Record Successfully Added", controls::vbInformation},
                               {"User Rights Updated", controls::vbInformation, "Message"}};
    ASSERT_FALSE(session::checkAccess().WithRights("1007", "19"));
    ASSERT_FALSE(session::checkAccess().WithRights("1007", "3"));
    const auto choose = [](QWidget& rights) {
        EXPECT_EQ(rights.objectName(), "frmUserRights");
        keys(child<QWidget>(rights, "txtEmployeeID"), "1007<Enter><Enter>");
        EXPECT_EQ(child<QListWidget>(rights, "lstRights").count(), 18);
        keysToFocus(rights, "<F12>");
    };
    const auto add = [](QWidget& catalogue) {
        EXPECT_EQ(catalogue.objectName(), "frmProgSettings");
        keysToFocus(catalogue, "<Alt+D>Census<Alt+S><Alt+C>");
    };
    const auto tick = [](QWidget& rights) {
        auto& list = child<QListWidget>(rights, "lstRights");
        EXPECT_EQ(list.count(), 19);
        for (const int row : {18, 2}) {
            list.setCurrentRow(row);
            keys(list, "<Space>");
        }
        keysToFocus(rights, "<Alt+S>");
    };
    tests::runModal([] { openUserSettings(); }, {password("kerova"), choose, add, tick});
    EXPECT_TRUE(session::checkAccess().WithRights("1007", "19"));
    EXPECT_TRUE(session::checkAccess().WithRights("1007", "3"));
    EXPECT_FALSE(session::checkAccess().WithRights("1007", "1"));
    EXPECT_FALSE(session::checkAccess().WithRights("1007", "9"));
    EXPECT_EQ(boxes.boxes().size(), 2U);
}

TEST_F(UserRightsRoad, WhoTakesTheirOwnRightAwayIsDeniedByTheNextCommand) {
    tests::MessageScript boxes{{"User Rights Updated", controls::vbInformation, "Message"},
                               {"Access denied", controls::vbCritical}};
    tests::runModal([] { openUserSettings(); },
                    {password("kerova"), [](QWidget& rights) {
                         keys(child<QWidget>(rights, "txtEmployeeID"), "1001<Enter><Enter>");
                         child<QListWidget>(rights, "lstRights").setFocus();
                         child<QListWidget>(rights, "lstRights").setCurrentRow(11); // Transaction Report
                         keysToFocus(rights, "<Space><Alt+S>");
                     }});
    EXPECT_TRUE(takeTexts().contains(
        "NUCLEAR..spNuclear_SaveUserRights '1001','|1|2|3|4|5|6|7|8|9|10|11|13|14|15|16|17|18','1001'"));
    click(child<QWidget>(menuScreen(), "cmdMainMenu_3"));
    click(child<QWidget>(menuScreen(), "fltSubMenu_0"));
    EXPECT_EQ(boxes.boxes().size(), 2U);
}

TEST_F(UserRightsRoad, AWrongPasswordOpensNothing) {
    tests::MessageScript boxes{{"Invalid Password", controls::vbCritical}};
    tests::runModal([] { openUserSettings(); }, {password("scintra"), password("kerova")});
    EXPECT_EQ(boxes.boxes().size(), 1U);
}

} // namespace
