#include "platform/controls/ErrorBoundary.h"
#include "tests/menu/MenuBench.h"

#include <QAbstractButton>
#include <QTest>

namespace {

using session::MenuScreen;
using tests::RecordingScreens;

class OutPatientChoice : public tests::MenuBench {
  protected:
    void SetUp() override {
        grantRights();
        openMenu();
    }
    void choose() {
        clickGroup(0);
        clickSubMenu(1);
        recorder->texts.clear();
    }
    bool isShown(const QString& name) { return child<QWidget>(name)->isVisible(); }
    bool isEnabled(const QString& name) { return child<QWidget>(name)->isEnabled(); }
    void expectSubMenuBack() {
        EXPECT_FALSE(isShown("Frame2"));
        EXPECT_TRUE(isShown("picMainMenu"));
        EXPECT_TRUE(isEnabled("fltSubMenu_1"));
        EXPECT_TRUE(isEnabled("btnChargeEntry"));
        EXPECT_TRUE(isEnabled("btnCashEntry"));
    }
    void find(const menu::FoundOutPatient& patient) {
        menu::links().findOutPatient = [this, patient](const QString& text) {
            events += QStringLiteral("find '%1' %2").arg(text).arg(isEnabled("btnChargeEntry"));
            return std::optional(patient);
        };
    }
};

TEST_F(OutPatientChoice, TakesThePlaceOfTheSubMenu) {
    choose();
    EXPECT_TRUE(isShown("Frame2"));
    EXPECT_FALSE(isShown("picMainMenu"));
    EXPECT_FALSE(isEnabled("fltSubMenu_1"));
    EXPECT_EQ(child<QAbstractButton>("btnCashEntry")->text(), " Cash Entry");
    EXPECT_EQ(child<QAbstractButton>("btnChargeEntry")->text(), " Charge Entry");
    EXPECT_EQ(child<QAbstractButton>("FlatBttn5")->text(), " Back to Main Menu");
    EXPECT_EQ(screens.opened, QStringList());
}

TEST_F(OutPatientChoice, BackToMainMenuOnlyGoesBack) {
    choose();
    click("FlatBttn5");
    expectSubMenuBack();
    EXPECT_EQ(screens.opened, QStringList());
    EXPECT_EQ(recorder->texts, QStringList());
}

TEST_F(OutPatientChoice, AnotherGroupBringsItsSubMenu) {
    choose();
    clickGroup(1);
    EXPECT_FALSE(isShown("Frame2"));
    EXPECT_TRUE(isShown("fltSubMenu_1"));
    EXPECT_TRUE(isEnabled("fltSubMenu_1"));
}

TEST_F(OutPatientChoice, CashEntryOpensTheCashList) {
    choose();
    bool wasEnabled = true;
    bool wasShown = false;
    screens.whileOpen = [&] {
        wasEnabled = isEnabled("btnCashEntry");
        wasShown = isShown("Frame2");
    };
    click("btnCashEntry");
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(wasShown);
    EXPECT_EQ(screens.opened, QStringList{RecordingScreens::nameOf(MenuScreen::ListCashComm)});
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, TheMenuBarShowsThePanelToo) {
    clickGroup(0);
    bool wasShown = false;
    screens.whileOpen = [&] { wasShown = isShown("Frame2"); };
    trigger("mnuOPDCashEntry");
    EXPECT_TRUE(wasShown);
    expectSubMenuBack();
    EXPECT_EQ(recorder->texts, QStringList());
}

TEST_F(OutPatientChoice, DigitsPressThePanelsButtons) {
    choose();
    EXPECT_EQ(menuScreen().focusWidget()->objectName(), "btnCashEntry");
    QTest::keyClick(menuScreen().focusWidget(), Qt::Key_3);
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, ChargeEntryWithoutASearchFindsNobody) {
    choose();
    click("btnChargeEntry");
    EXPECT_EQ(screens.opened, QStringList());
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, ChargeEntryWithoutAPatientDoesNothing) {
    menu::links().findOutPatient = [](const QString&) { return std::optional<menu::FoundOutPatient>(); };
    choose();
    click("btnChargeEntry");
    EXPECT_EQ(screens.opened, QStringList());
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, ChargeEntryOpensTheRequestOfAnOpenBill) {
    find({.IdNumber = "26-000123"});
    choose();
    click("btnChargeEntry");
    EXPECT_EQ(events, QStringList{"find '' 0"});
    EXPECT_EQ(screens.opened, QStringList{"out-patient 26-000123|0||0|0|1"});
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, AnInvoicedBillIsLeftAlone) {
    find({.IdNumber = "26-000123", .BillingDate = "11/20/2026", .InvoiceNumber = "77", .LateCharges = true});
    choose();
    click("btnChargeEntry");
    EXPECT_EQ(screens.opened, QStringList());
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, LateChargesGoOnAClosedBill) {
    find({.IdNumber = "26-000123", .BillingDate = "11/20/2026", .LateCharges = true});
    trigger("mnuOPDChargeEntry");
    EXPECT_EQ(screens.opened, QStringList{"out-patient 26-000123|0||0|0|1"});
}

TEST_F(OutPatientChoice, AClosedBillIsRefused) {
    find({.IdNumber = "26-000123", .BillingDate = "11/20/2026"});
    choose();
    expectBox("Cannot post charges because the patient's account has already been closed. \n"
              "Please contact BILLING DEPARTMENT for further instructions.",
              48, "Closed Bill");
    click("btnChargeEntry");
    EXPECT_EQ(screens.opened, QStringList());
    expectSubMenuBack();
}

class StoppedProgram : public OutPatientChoice {
  protected:
    ~StoppedProgram() override {
        controls::ErrorBoundary::setHandler({});
        controls::ErrorBoundary::reset();
    }
};

TEST_F(StoppedProgram, RunsNoCodeBehindTheModalCall) {
    int errors = 0;
    controls::ErrorBoundary::setHandler([&](const base::RunTimeError& error) {
        ++errors;
        EXPECT_EQ(error.number(), 3021);
    });
    choose();
    screens.whileOpen = [] {
        controls::Screen screen;
        inModal([](QWidget&) { controls::ErrorBoundary::report(base::RunTimeError(3021)); });
        screen.ShowModal();
        ADD_FAILURE() << "went on behind the modal call";
    };
    click("btnCashEntry");
    EXPECT_EQ(errors, 1);
    EXPECT_TRUE(isShown("Frame2"));
    EXPECT_FALSE(isEnabled("fltSubMenu_1"));
}

} // namespace
