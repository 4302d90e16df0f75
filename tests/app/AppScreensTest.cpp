#include "app/AppScreens.h"
#include "platform/controls/screen/Screen.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"

#include <gtest/gtest.h>

namespace {

using session::MenuScreen;

TEST(AppScreens, AScreenThatIsNotThereDoesNothing) {
    app::AppScreens screens;
    for (int i = 0; i <= int(MenuScreen::ListDeposits); ++i) {
        if (!screens.opens(MenuScreen(i)))
            screens.open(MenuScreen(i));
    }
    EXPECT_TRUE(controls::Screen::openScreens().empty());
}

class OpenScreens : public tests::LoggedOn {};

TEST_F(OpenScreens, TheMenuOpensTheWalkInMasterFile) {
    app::AppScreens program;
    tests::runModal([&] { program.open(MenuScreen::WalkInMaster); }, {[](QWidget& window) {
                        EXPECT_EQ(window.windowTitle(), QStringLiteral("Walk-In Master File"));
                        tests::keysToFocus(window, "<Esc>");
                    }});
}

} // namespace
