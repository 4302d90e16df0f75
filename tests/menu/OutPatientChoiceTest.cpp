#include "platform/controls/screen/ErrorBoundary.h"
#include "tests/menu/MenuBench.h"
#include "tests/support/screens/ErrorRecorder.h"

#include <QAbstractButton>
#include <QTest>

namespace {

using session::MenuScreen;

class OutPatientChoice : public tests::MenuBench {
  protected:
    void SetUp() override {
        grantRights();
        openMenu();
    }
    void choose() {
        clickGroup(0);
        clickSubMenu(1);
        texts().clear();
    }
    void expectSubMenuBack() {
        EXPECT_FALSE(isShown("Frame2"));
        EXPECT_TRUE(isShown("picMainMenu"));
        EXPECT_TRUE(isEnabled("fltSubMenu_1"));
        EXPECT_TRUE(isEnabled("btnChargeEntry"));
        EXPECT_TRUE(isEnabled("btnCashEntry"));
    }
    /// What the out-patient requests were given, in the order of their members.
    QStringList outRequests() const {
        QStringList texts;
        for (const session::OutRequestEntry& entry : server.screens.outRequests)
            texts += QStringLiteral("%1|%2|%3|%4|%5|%6")
                         .arg(entry.IdNumber)
                         .arg(entry.CashBasis)
                         .arg(entry.CashOrNum)
                         .arg(entry.CashPrice)
                         .arg(entry.NurseCommnunication)
                         .arg(entry.chargeEntry);
        return texts;
    }
    void find(const session::FoundOutPatient& patient) {
        server.screens.outPatientSearch = [this, patient](const QString& text) {
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
    EXPECT_EQ(opened(), QStringList());
}

TEST_F(OutPatientChoice, BackToMainMenuOnlyGoesBack) {
    choose();
    clickOn("FlatBttn5");
    expectSubMenuBack();
    EXPECT_EQ(opened(), QStringList());
    EXPECT_EQ(texts(), QStringList());
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
    server.screens.whileOpen = [&] {
        wasEnabled = isEnabled("btnCashEntry");
        wasShown = isShown("Frame2");
    };
    clickOn("btnCashEntry");
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(wasShown);
    EXPECT_EQ(opened(), QStringList{nameOf(MenuScreen::ListCashComm)});
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, TheMenuBarShowsThePanelToo) {
    clickGroup(0);
    bool wasShown = false;
    server.screens.whileOpen = [&] { wasShown = isShown("Frame2"); };
    trigger("mnuOPDCashEntry");
    EXPECT_TRUE(wasShown);
    expectSubMenuBack();
    EXPECT_EQ(texts(), QStringList());
}

TEST_F(OutPatientChoice, TheMenuBarShowsThePanelForChargesLikewise) {
    clickGroup(0);
    bool wasShown = false;
    server.screens.outPatientSearch = [&](const QString&) {
        wasShown = isShown("Frame2");
        return std::optional<session::FoundOutPatient>();
    };
    trigger("mnuOPDChargeEntry");
    EXPECT_TRUE(wasShown);
    expectSubMenuBack();
    EXPECT_EQ(texts(), QStringList());
}

TEST_F(OutPatientChoice, TheWindowGrowsForNeitherWay) {
    clickGroup(0);
    QWidget& menu = menuScreen();
    menu.resize(menu.minimumSizeHint());
    const QSize small = menu.size();
    choose();
    EXPECT_EQ(menu.size(), small);
    QTest::keyClick(menu.focusWidget(), Qt::Key_3);
    QSize whileOpen;
    server.screens.whileOpen = [&] { whileOpen = menu.size(); };
    trigger("mnuOPDCashEntry");
    EXPECT_EQ(whileOpen, small);
    EXPECT_EQ(menu.size(), small);
}

TEST_F(OutPatientChoice, DigitsPressThePanelsButtons) {
    choose();
    EXPECT_EQ(menuScreen().focusWidget()->objectName(), "btnCashEntry");
    QTest::keyClick(menuScreen().focusWidget(), Qt::Key_3);
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, ChargeEntryWithoutASearchFindsNobody) {
    choose();
    clickOn("btnChargeEntry");
    EXPECT_EQ(opened(), QStringList());
    EXPECT_EQ(outRequests(), QStringList());
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, ChargeEntryWithoutAPatientDoesNothing) {
    server.screens.outPatientSearch = [](const QString&) {
        return std::optional<session::FoundOutPatient>();
    };
    choose();
    clickOn("btnChargeEntry");
    EXPECT_EQ(opened(), QStringList());
    EXPECT_EQ(outRequests(), QStringList());
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, ChargeEntryOpensTheRequestOfAnOpenBill) {
    find({.IdNumber = "26-000123"});
    choose();
    clickOn("btnChargeEntry");
    EXPECT_EQ(events, QStringList{"find '' 0"});
    EXPECT_EQ(outRequests(), QStringList{"26-000123|0||0|0|1"});
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, AnInvoicedBillIsLeftAlone) {
    find({.IdNumber = "26-000123", .BillingDate = "11/20/2026", .InvoiceNumber = "77", .LateCharges = true});
    choose();
    clickOn("btnChargeEntry");
    EXPECT_EQ(opened(), QStringList());
    EXPECT_EQ(outRequests(), QStringList());
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, LateChargesGoOnAClosedBill) {
    find({.IdNumber = "26-000123", .BillingDate = "11/20/2026", .LateCharges = true});
    trigger("mnuOPDChargeEntry");
    EXPECT_EQ(outRequests(), QStringList{"26-000123|0||0|0|1"});
}

TEST_F(OutPatientChoice, AClosedBillIsRefused) {
    find({.IdNumber = "26-000123", .BillingDate = "11/20/2026"});
    choose();
    boxes.expect({"Cannot post charges because the patient's account has already been closed. \n"
                  "Please contact BILLING DEPARTMENT for further instructions.",
                  48, "Closed Bill"});
    clickOn("btnChargeEntry");
    EXPECT_EQ(opened(), QStringList());
    EXPECT_EQ(outRequests(), QStringList());
    expectSubMenuBack();
}

TEST_F(OutPatientChoice, AStoppedProgramRunsNoCodeBehindTheModalCall) {
    tests::ErrorRecorder errors;
    choose();
    server.screens.whileOpen = [] {
        controls::Screen screen;
        tests::runModal([&] { screen.ShowModal(); },
                        {[](QWidget&) { controls::ErrorBoundary::report(base::RunTimeError(3021)); }});
        ADD_FAILURE() << "went on behind the modal call";
    };
    clickOn("btnCashEntry");
    EXPECT_TRUE(isShown("Frame2"));
    EXPECT_FALSE(isEnabled("fltSubMenu_1"));
    EXPECT_EQ(errors.take().number(), 3021);
}

} // namespace
