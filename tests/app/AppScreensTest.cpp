#include "app/AppScreens.h"
#include "platform/controls/Screen.h"

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

} // namespace
