#include "app/AppScreens.h"
#include "charges/frmReceivableEntry.h"
#include "orders/frmOutRequest.h"
#include "orders/frmRequest.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <gtest/gtest.h>

#include <QLineEdit>
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

TEST_F(OpenScreens, TheMenuOpensTheExamFileTheLedgerAndTheInquiries) {
    app::AppScreens program;
    const std::pair<MenuScreen, const char*> screensOfTheMenu[] = {
        {MenuScreen::BuildFile, "Build File: Nuclear Exams"},
        {MenuScreen::PatientLedger, "Patient'S Ledger"},
        {MenuScreen::Verification, "OR/CHARGESLIP INQUIRY"},
        {MenuScreen::ListDeposits, "List of Patients with Deposits"}};
    for (const auto& [screen, title] : screensOfTheMenu)
        tests::runModal([&program, one = screen] { program.open(one); }, {[title = title](QWidget& window) {
                            EXPECT_EQ(window.windowTitle(), QLatin1String(title));
                            tests::keysToFocus(window, "<Esc>");
                        }});
}

class DischargeRoad : public OpenScreens {
  protected:
    session::ChosenPatient choose(const QString& keys) {
        session::ChosenPatient chosen;
        tests::runModal([&] { chosen = program.openDischargeNotice(); }, {[&](QWidget& window) {
                            EXPECT_EQ(window.windowTitle(), QStringLiteral("Discharge Notice"));
                            tests::keysToFocus(window, keys);
                        }});
        return chosen;
    }
    app::AppScreens program;
};

TEST_F(DischargeRoad, ANoticeIsChosenAndItsPatientCleared) {
    const auto waiting = [&] { return value("Nuclear..spNuclear_LoadDischargeNoticeCount").toInt(); };
    const int before = waiting();
    const session::ChosenPatient chosen = choose("<Down><Enter>");
    ASSERT_TRUE(chosen.Valid);
    tests::MessageScript script{
        {.prompt = "Patient has been cleared for discharge.", .style = controls::vbInformation}};
    tests::runModal([&] { program.openClearPatient(chosen.IdNum); }, {[&](QWidget& window) {
                        EXPECT_EQ(window.windowTitle(), QStringLiteral("Clear Patient"));
                        EXPECT_EQ(tests::child<QLineEdit>(window, "txtAdmNo").text(), chosen.IdNum);
                        tests::keysToFocus(window, "mother's ok<Enter><Enter>");
                    }});
    EXPECT_EQ(waiting(), before - 1);
    EXPECT_EQ(count("NUCLEAR..tbNucDischargeClearance",
                    QStringLiteral("IdNum = '%1' AND ClearRemarks = 'mother`s ok' AND UserID = '1001'")
                        .arg(chosen.IdNum)),
              1);
    // and opened once more it is only looked at
    tests::runModal([&] { program.openClearPatient(chosen.IdNum); }, {[](QWidget& window) {
                        EXPECT_EQ(tests::child<QPushButton>(window, "cmdSave").text(),
                                  QStringLiteral("&Close"));
                        tests::keysToFocus(window, "<Esc>");
                    }});
}

TEST_F(DischargeRoad, LeavingTheListHandsNobodyOver) {
    const session::ChosenPatient chosen = choose("<Down><Esc>");
    EXPECT_FALSE(chosen.Valid);
    EXPECT_EQ(chosen.IdNum, QString());
}

TEST_F(DischargeRoad, APatientOfAWaitingRequestComesBackUncleared) {
    hospital.run("UPDATE STATION..tbNurseCommunicationFile SET IdNum = (SELECT MIN(IdNum) FROM "
                 "STATION..tbDischargeNotice), RecordStatus = 'N'");
    hospital.run("DELETE FROM STATION..tbDischargeNotice WHERE IdNum <> (SELECT MIN(IdNum) FROM "
                 "STATION..tbDischargeNotice)");
    tests::MessageScript script{{.prompt =
                                     "The patient still have pending requests. Please process the requests "
                                     "before clearing the patient for discharge.",
                                 .style = controls::vbInformation}};
    EXPECT_FALSE(choose("<Down><Enter>").Valid);
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
