#include "app/AppScreens.h"
#include "charges/frmReceivableEntry.h"
#include "orders/frmOutRequest.h"
#include "orders/frmRequest.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"

#include <gtest/gtest.h>

#include <QPushButton>

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

TEST_F(OpenScreens, TheMenuOpensLateChargesAndTheSectionsPackages) {
    app::AppScreens program;
    const std::pair<MenuScreen, const char*> screensOfCharges[] = {
        {MenuScreen::ReceivableSearch, "frmReceivableSearch"},
        {MenuScreen::NuclearChargesBuildFile, "frmNuclearChargesBuildFile"}};
    for (const auto& [screen, name] : screensOfCharges) {
        tests::runModal([&] { program.open(screen); }, {[&](QWidget& window) {
                            EXPECT_EQ(window.objectName(), name);
                            tests::keysToFocus(window, "<Esc>");
                        }});
    }
}

TEST_F(OpenScreens, EveryRequestScreensSavesComeOnAndGoOffWithItsOpening) {
    app::AppScreens().enableRequestSaves();
    const auto saves = [](QWidget& screen) {
        return tests::child<QPushButton>(screen, "cmdSave").isEnabled() &&
               tests::child<QPushButton>(screen, "cmdSavePrint").isEnabled();
    };
    EXPECT_TRUE(controls::SharedScreen<orders::frmRequest>::exists());
    EXPECT_TRUE(saves(controls::SharedScreen<orders::frmRequest>::current()));
    auto& out = controls::SharedScreen<orders::frmOutRequest>::fresh();
    EXPECT_TRUE(saves(out)) << "made for it";
    out.load();
    EXPECT_FALSE(saves(out)) << "a plain request begins with nothing to save";
    auto& late = controls::SharedScreen<charges::frmReceivableEntry>::fresh();
    EXPECT_TRUE(saves(late));
    late.load();
    EXPECT_FALSE(saves(late));
    controls::release<orders::frmRequest>();
    controls::release<orders::frmOutRequest>();
    controls::release<charges::frmReceivableEntry>();
}

} // namespace
