#include "app/AppScreens.h"
#include "menu/frmMainMenu.h"
#include "orders/frmOutRequest.h"
#include "platform/base/Conversion.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

using controls::SharedScreen;

/// Charge Entry of the menu as the program wires it, on the demo hospital; the request screen is recorded.
class OutPatientCharge : public tests::LoggedOn {
  protected:
    OutPatientCharge() {
        screens.outPatientSearch = [this](const QString& text) { return program.findOutPatient(text); };
        auto& menuScreen = SharedScreen<menu::frmMainMenu>::fresh();
        menuScreen.Show();
        menuScreen.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&menuScreen));
        idNumber = base::Trim(
            session::Read(ado::sql("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS NULL "
                                   "AND AccountNum <> HospNum ORDER BY IdNum"))
                .Fields(0)
                .text());
    }
    ~OutPatientCharge() override {
        controls::release<orders::frmOutRequest>();
        controls::release<menu::frmMainMenu>();
    }
    /// Charge Entry by keyboard, what is typed in the list of out-patients, and what follows behind it.
    void chargeEntry(const QString& typed, const tests::Step& behind = {}) {
        auto& menuScreen = SharedScreen<menu::frmMainMenu>::current();
        tests::click(tests::child<QAbstractButton>(menuScreen, "cmdMainMenu_0"));
        tests::click(tests::child<QAbstractButton>(menuScreen, "fltSubMenu_1"));
        takeTexts();
        std::vector<tests::Step> steps{[&](QWidget& list) {
            EXPECT_EQ(list.windowTitle(), QStringLiteral("Registered OPD"));
            tests::keysToFocus(list, typed);
        }};
        if (behind)
            steps.push_back(behind);
        tests::runModal([&] { tests::keysToFocus(menuScreen, QStringLiteral("2")); }, steps);
        EXPECT_FALSE(tests::child<QWidget>(menuScreen, "Frame2").isVisible());
        EXPECT_TRUE(tests::child<QWidget>(menuScreen, "picMainMenu").isVisible());
        EXPECT_TRUE(tests::child<QWidget>(menuScreen, "fltSubMenu_1").isEnabled());
        EXPECT_TRUE(tests::child<QWidget>(menuScreen, "btnChargeEntry").isEnabled());
    }
    /// Picks `idNumber` by its number.
    void pick(const tests::Step& behind = {}) {
        chargeEntry(QStringLiteral("<Shift+Tab><Down><Tab>") + idNumber +
                        QStringLiteral("<Enter><Down><Enter>"),
                    behind);
    }
    /// Picks him with the screens of the program behind the menu: the request screen opens for him.
    void pickToRequest() {
        session::setScreens(&program);
        bool isOpen = false;
        pick([&](QWidget& request) {
            isOpen = request.objectName() == QStringLiteral("frmOutRequest");
            EXPECT_EQ(tests::child<QLineEdit>(request, "txtIdNum").text(), idNumber);
            tests::keysToFocus(request, "NU<Enter>1001<Enter><Enter>1<Enter>");
            EXPECT_TRUE(tests::child<QPushButton>(request, "cmdSave").isEnabled());
            tests::click(tests::child<QPushButton>(request, "cmdClose"));
        });
        EXPECT_TRUE(isOpen);
        session::setScreens(&screens);
    }
    void bill(const char* invoiceNumber, bool lateCharges) {
        session::Run(ado::sql("UPDATE PATIENT_DATA..tbOutPatient SET BillingDate = '11/20/2026', "
                              "InvoiceNumber = '{}', LateCharges = '{}' WHERE IdNum = '{}'",
                              invoiceNumber, lateCharges ? 1 : 0, idNumber));
    }

    app::AppScreens program;
    QString idNumber;
};

TEST_F(OutPatientCharge, AnOpenBillGoesToTheRequestScreen) {
    pick();
    EXPECT_EQ(takeTexts().join(u'\n').toStdString(),
              QStringLiteral("spGlobal_RegisteredOPD '0','1', ''\nspGlobal_RegisteredOPD '1','0', ''\n"
                             "spGlobal_RegisteredOPD '1','1', '%1'\nspGlobal_RegisteredOPD '0','1', '%1'")
                  .arg(idNumber)
                  .toStdString());
    ASSERT_EQ(screens.outRequests.size(), 1u);
    const session::OutRequestEntry& entry = screens.outRequests.front();
    EXPECT_EQ(entry.IdNumber, idNumber);
    EXPECT_FALSE(entry.CashBasis);
    EXPECT_EQ(entry.CashOrNum, QString());
    EXPECT_EQ(entry.CashPrice, 0);
    EXPECT_FALSE(entry.NurseCommnunication);
    EXPECT_TRUE(entry.chargeEntry);
}

TEST_F(OutPatientCharge, AnOpenBillAndLateChargesEndInTheRequestScreenItself) {
    pickToRequest();
    bill("", true);
    pickToRequest();
}

TEST_F(OutPatientCharge, AListThatIsLeftDoesNothing) {
    chargeEntry(QStringLiteral("<Esc>"));
    EXPECT_TRUE(screens.outRequests.empty());
}

TEST_F(OutPatientCharge, AnInvoicedBillDoesNothing) {
    bill("77", true);
    pick();
    EXPECT_TRUE(screens.outRequests.empty());
}

TEST_F(OutPatientCharge, LateChargesGoOnAClosedBill) {
    bill("", true);
    pick();
    EXPECT_EQ(screens.outRequests.size(), 1u);
}

TEST_F(OutPatientCharge, AClosedBillIsRefused) {
    bill("", false);
    tests::MessageScript boxes{
        {QStringLiteral("Cannot post charges because the patient's account has already "
                        "been closed. \nPlease contact BILLING DEPARTMENT for further "
                        "instructions."),
         controls::vbExclamation, QStringLiteral("Closed Bill")}};
    pick();
    EXPECT_TRUE(screens.outRequests.empty());
}

TEST_F(OutPatientCharge, APersonalAccountIsRefused) {
    session::Run(
        ado::sql("UPDATE PATIENT_DATA..tbOutPatient SET AccountNum = HospNum WHERE IdNum = '{}'", idNumber));
    tests::MessageScript boxes{{QStringLiteral("Patient`s with Personal Account is Not Allowed.\n"
                                               "Please Use Cash Assessment Entry Option for this Patient."),
                                controls::vbInformation, QStringLiteral("Message")}};
    pick();
    EXPECT_TRUE(screens.outRequests.empty());
}

} // namespace
