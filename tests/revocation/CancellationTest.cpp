// Each branch of a cancellation: its texts in their order; when the command is there; what is refused.
#include "platform/base/Error.h"
#include "platform/controls/screen/TestDoors.h"
#include "revocation/frmCancelRequest.h"
#include "revocation/frmCancellation.h"
#include "session/Session.h"
#include "session/WorkDone.h"
#include "tests/revocation/RevocationFixture.h"

#include <QLabel>
#include <QTest>

namespace {

using controls::FlexGrid;
using controls::SharedScreen;
using tests::Books;
using tests::Charged;
using tests::child;
using tests::fee;
using tests::keys;
using tests::lines;
using tests::outPatients;
using tests::paidLine;
using tests::supply;
using tests::temporary;

class Cancelling : public tests::RevocationFixture {
  protected:
    /// By the command; the texts of it.
    QStringList cancel(const Charged& line) {
        expectRevoked();
        cancelling(line, {pressing("cmdSave")});
        return takeCancellation();
    }
    void closeAccount() {
        run("UPDATE PATIENT_DATA..tbPatient SET BillingDate = '2026-11-20', LateCharges = 1 WHERE IdNum = "
            "'26004078'");
    }
};

const QString stamp =
    QStringLiteral("UPDATE: UPDATE NUCLEAR..tbNucMaster SET [RequestStatus] = 'R' WHERE [RequestNum] = "
                   "'90001' AND [RequestStatus] = ''");

// ---- the texts of each branch

TEST_F(Cancelling, AReceiptsLineIsTakenOffTheReceipt) {
    const Charged line = paidLine();
    post(hospital, line);
    EXPECT_EQ(lines(cancel(line)),
              lines({"BEGIN", "SELECT * FROM NUCLEAR..tbNucMaster WHERE requestnum = '90001'", stamp,
                     "spGlobal_CashUpdate 'OR9001','NU','1001',''", "COMMIT"}));
}

TEST_F(Cancelling, ItLooksLikeARevocation) {
    const Charged line = paidLine();
    post(hospital, line);
    expectRevoked();
    cancelling(line, {[](QWidget& window) {
                   for (const char* name : {"bandHeader", "cmdSave"})
                       EXPECT_EQ(child<QWidget>(window, name).property("kind").toString(), "danger") << name;
                   tests::click(child<QWidget>(window, "cmdSave"));
               }});
}

TEST_F(Cancelling, AnOutPatientsOwnLineIsReversedInTheShortForm) {
    const Charged line = outPatients(hospital);
    post(hospital, line);
    EXPECT_EQ(lines(cancel(line)),
              lines({"BEGIN", "OpenAdmission " + line.admission, "SELECT getdate() as [server date]",
                     "SELECT * FROM NUCLEAR..tbNucMaster WHERE requestnum = '90001'", stamp,
                     "sp_addbill 'O','" + line.admission +
                         "','{now}','C9001J',  '1001','-5620','NU','1001','1','','D'",
                     "CARDIO..spGlobal_CashUpdate 'C9001J','NU','1001',''", "COMMIT"}));
}

TEST_F(Cancelling, AnOutPatientsOtherLineIsReversedInTheLongForm) {
    Charged line = outPatients(hospital);
    line.revenue = fee().revenue;
    line.item = fee().item;
    line.amount = fee().amount;
    post(hospital, line);
    EXPECT_EQ(lines(cancel(line)),
              lines({"BEGIN", "OpenAdmission " + line.admission, "SELECT getdate() as [server date]",
                     "SELECT * FROM NUCLEAR..tbNucMaster WHERE requestnum = '90001'", stamp,
                     "sp_addbill 'O','" + line.admission +
                         "','{now}','C9001J',  '201','-1500.5','MD','1001','1','NU','D'",
                     "CARDIO..spGlobal_CashUpdate 'C9001J','NU','201',''", "COMMIT"}));
}

TEST_F(Cancelling, ANumberThatBeginsWithTIsNotReversedOnABill) {
    const Charged line = temporary();
    post(hospital, line);
    EXPECT_EQ(lines(cancel(line)),
              lines({"BEGIN", "OpenAdmission T1001", "SELECT getdate() as [server date]",
                     "SELECT * FROM NUCLEAR..tbNucMaster WHERE requestnum = '90001'", stamp,
                     "CARDIO..spGlobal_CashUpdate 'C9001J','NU','1001',''", "COMMIT"}));
    EXPECT_EQ(count("BILLING..tbDailyBill", "IdNum = 'T1001'"), 0);
    EXPECT_EQ(books(hospital, line).copies, 0);
    ASSERT_EQ(session::workDone().size(), 1U);
    EXPECT_EQ(session::workDone().front().work, session::Work::CancelledCharge);
    EXPECT_EQ(session::workDone().front().number, "90001");
}

TEST_F(Cancelling, AnAdmittedPatientsOwnLineIsStampedAtTheWardsAndReversed) {
    Charged line;
    line.ward = "7000777";
    line.quantity = 2;
    post(hospital, line);
    run("INSERT INTO STATION..tbNurseCommunicationFile (HospNum, IdNum, RequestNum, PatientType, RevenueID, "
        "ItemID, "
        "RequestDate, RecordStatus, ReferenceNum) VALUES "
        "('104078','26004078','7000777','I','NU','1001','2026-11-21',"
        "'X','C9001J')");
    const QString entry = value("SELECT MAX(CommunicationID) FROM STATION..tbNurseCommunicationFile");
    const QString logged = value("SELECT MAX(LogBookID) FROM STATION..tbNurseLogBook");
    EXPECT_EQ(lines(cancel(line)),
              lines({"BEGIN", "OpenAdmission 26004078", "SELECT getdate() as [server date]",
                     "SELECT * FROM NUCLEAR..tbNucMaster WHERE nurserequestnum = '7000777'", stamp,
                     "sp_checknursecommunicationfile '1','I','NU','1001','26004078','7000777'",
                     "UPDATE: UPDATE STATION..tbNurseCommunicationFile SET [RecordStatus] = 'R' WHERE "
                     "[CommunicationID] = " +
                         entry + " AND [RecordStatus] = 'X'",
                     "sp_checknurselogbook '1','I','26004078','NU','1001','7000777'",
                     "UPDATE: UPDATE STATION..tbNurseLogBook SET [RecordStatus] = 'R' WHERE [LogBookID] = " +
                         logged + " AND [RecordStatus] = 'X'",
                     "sp_addbill 'I','26004078','{now}','C9001J',  '1001','-5620','NU','1001','2','','D'",
                     "COMMIT"}));
}

TEST_F(Cancelling, AnAdmittedPatientsSupplyComesBackIntoStock) {
    const Charged line = supply();
    post(hospital, line);
    EXPECT_EQ(lines(cancel(line)),
              lines({"BEGIN", "OpenAdmission 26004078", "SELECT getdate() as [server date]",
                     "SELECT * FROM NUCLEAR..tbNucMaster WHERE nurserequestnum = '90001'", stamp,
                     "sp_AppendStockCard 'PC','104078','26004078','30001','{now}','PC', "
                     "'C9001J','2','-97','1001','PRN','179'",
                     "COMMIT"}));
}

TEST_F(Cancelling, AClosedAccountIsToldAndNothingIsWritten) {
    const Charged line;
    post(hospital, line);
    closeAccount();
    const Books before = books(hospital, line);
    boxes.expect(
        {"Patient`s account has already been closed.\nIf you have charges to adjust, pls. notify the billing "
         "for further instructions.",
         controls::vbOKOnly, "Message"});
    bool isReopened = false;
    cancelling(line,
               {pressing("cmdSave"),
                [&](QWidget& search) {
                    isReopened = search.objectName() == "frmCancelRequest";
                    EXPECT_EQ(child<FlexGrid>(search, "grdTable").TextMatrix(1, 1), "") << "anew";
                    tests::keysToFocus(search, "<Esc>");
                }},
               false);
    EXPECT_TRUE(isReopened);
    EXPECT_EQ(lines(takeCancellation()), lines({"BEGIN", "OpenAdmission 26004078", "COMMIT"}));
    EXPECT_EQ(books(hospital, line), before);
    EXPECT_TRUE(session::workDone().empty()) << "nothing was done";
}

TEST_F(Cancelling, OnlyASlipThatBeginsWithOrIsAReceipt) {
    Charged line;
    line.slip = "C9OR1J";
    post(hospital, line);
    EXPECT_EQ(cancel(line).value(1), "OpenAdmission 26004078");
}

TEST_F(Cancelling, TheNumbersOfTheScreenAreSentWithoutTheirBlanks) {
    const auto pad = [](QWidget& window) {
        auto& screen = dynamic_cast<revocation::frmCancellation&>(window);
        screen.setText("txtAdmNo", ' ' + child<QLineEdit>(window, "txtAdmNo").text() + ' ');
        screen.setText("txtCSlip", " C9001J ");
        screen.setText("txtHospNo", " 104078 ");
        tests::click(child<QPushButton>(window, "cmdSave"));
    };
    const auto padded = [&](const Charged& line) {
        post(hospital, line);
        expectRevoked();
        cancelling(line, {pad});
        return takeCancellation();
    };
    const QStringList card = padded(supply()).filter("sp_AppendStockCard");
    ASSERT_EQ(card.size(), 1);
    EXPECT_TRUE(card[0].startsWith("sp_AppendStockCard 'PC','104078','26004078','30001',"))
        << card[0].toStdString();
    EXPECT_TRUE(card[0].contains("'PC', 'C9001J',")) << card[0].toStdString();
    Charged own;
    own.request = "90002";
    const QStringList bill = padded(own).filter("sp_addbill");
    ASSERT_EQ(bill.size(), 1);
    EXPECT_TRUE(bill[0].startsWith("sp_addbill 'I','26004078','{now}','C9001J',  '1001',"))
        << bill[0].toStdString();
    Charged unbilled = temporary();
    unbilled.request = "90003";
    EXPECT_EQ(padded(unbilled).filter("sp_addbill").size(), 0) << "its first letter is the T";
}

// ---- the command

class Command : public Cancelling {
  public:
    /// The command's state, and what is said beside it, once the screen is open.
    void expectCommand(bool enabled, const char* why) {
        const Charged line;
        cancelling(line,
                   {[&](QWidget& window) {
                        EXPECT_EQ(child<QPushButton>(window, "cmdSave").isEnabled(), enabled);
                        EXPECT_EQ(child<QLabel>(window, "lblWhyNot").text(), QLatin1String(why));
                        tests::close(window);
                    },
                    [](QWidget& search) { tests::keysToFocus(search, "<Esc>"); }},
                   false);
    }
    void takeRight() {
        run("UPDATE NUCLEAR..tbNuclearUserRights SET EmployeeRights = REPLACE(EmployeeRights + '|', '|18|', "
            "'|') WHERE "
            "EmployeeID = '1001'");
    }
};

TEST_F(Command, IsThereForAUserWithTheRight) {
    post(hospital, {});
    expectCommand(true, "");
    const QStringList texts = takeTexts();
    EXPECT_EQ(lines(texts.filter("CanCancelBilled") + texts.filter("Rights")),
              lines({"SELECT ISNULL(LABORATORY.DBO.fn_LabCanCancelBilled('26004078'),'') AS CancelBilled",
                     "NUCLEAR..spNuclear_GetSavedUserRights '1001'",
                     "SELECT * FROM NUCLEAR..tbNuclearDumpUserRights WHERE RightsID = '18' "}));
}

TEST_F(Command, IsNotThereWithoutRight18) {
    post(hospital, {});
    takeRight();
    expectCommand(false, "You have no right to cancel charges.");
}

TEST_F(Command, IsNotThereWhereBilledItemsStayAndNoRightIsAsked) {
    post(hospital, {});
    run("UPDATE PATIENT_DATA..tbPatient SET BillingDate = '2026-11-20', LateCharges = 0 WHERE IdNum = "
        "'26004078'");
    expectCommand(false, "What this account was billed cannot be cancelled.");
    EXPECT_TRUE(takeTexts().filter("Rights").isEmpty());
}

TEST_F(Cancelling, TheAdmissionIsAskedAboutWithoutItsBlanks) {
    revocation::frmCancellation screen;
    screen.IdNum = " 26004078 ";
    takeTexts();
    screen.load();
    EXPECT_EQ(takeTexts().value(0),
              "SELECT ISNULL(LABORATORY.DBO.fn_LabCanCancelBilled('26004078'),'') AS CancelBilled");
}

TEST_F(Cancelling, TheStayThatMayBeChargedIsAskedFor) {
    revocation::frmCancellation screen;
    takeTexts();
    EXPECT_TRUE(screen.CanPost("26004078"));
    EXPECT_EQ(lines(takeTexts()), "SELECT LABORATORY.DBO.fn_LabCanPost('26004078') as CanPost");
    run("UPDATE LABORATORY..tbLabPostingRule SET CanPost = 'N'");
    EXPECT_FALSE(screen.CanPost("26004078"));
}

// ---- keys, and a screen without a line

TEST_F(Cancelling, IsFilledAndKeyedThrough) {
    post(hospital, {});
    expectRevoked();
    cancelling({}, {[](QWidget& window) {
                   const auto text = [&](const char* name) { return child<QLineEdit>(window, name).text(); };
                   EXPECT_EQ(window.windowTitle(), "Request Cancellation");
                   EXPECT_EQ(text("txtHospNo"), "104078");
                   EXPECT_EQ(text("txtAdmNo"), "26004078");
                   EXPECT_EQ(text("txtCSlip"), "C9001J");
                   EXPECT_EQ(text("txtSname"), "AGUILAR");
                   EXPECT_FALSE(text("txtRoomID").isEmpty());
                   EXPECT_FALSE(text("txtTransDate").isEmpty());
                   EXPECT_EQ(child<QLabel>(window, "lblHint").text(),
                             "Click on the examination you want to cancel.");
                   EXPECT_EQ(child<QPushButton>(window, "cmdSave").text(), "&Cancel Charge Slip");
                   EXPECT_EQ(child<QPushButton>(window, "cmdClose").text(), "E&xit");
                   auto& grid = child<FlexGrid>(window, "grdExams");
                   const char* const headers[] = {"", "Code", "Exam Description", "Qty", "Amount"};
                   const int widths[] = {100, 1200, 3500, 1000, 1200};
                   for (int column = 0; column < 5; ++column) {
                       EXPECT_EQ(grid.TextMatrix(0, column).trimmed(), headers[column]);
                       EXPECT_EQ(grid.ColWidth(column), widths[column]);
                   }
                   EXPECT_EQ(grid.TextMatrix(1, 1), "1001");
                   EXPECT_EQ(grid.TextMatrix(1, 2), "BONE SCAN, WHOLE BODY");
                   EXPECT_EQ(grid.TextMatrix(1, 3), "1");
                   // Enter on the line cancels nothing; it leads to the command.
                   EXPECT_TRUE(grid.hasFocus());
                   keys(grid, "<Enter>");
                   EXPECT_TRUE(child<QPushButton>(window, "cmdSave").hasFocus());
                   tests::keysToFocus(window, "<Enter>");
               }});
}

TEST_F(Cancelling, WithoutALineTheAmountCannotBeConvertedAndNothingIsKept) {
    post(hospital, {});
    const Books before = books(hospital, {});
    revocation::frmCancelRequest search;
    revocation::frmCancellation screen;
    search.handOver(screen, "90001");
    screen.Init_Grid();
    screen.Show();
    takeTexts();
    tests::click(child<QPushButton>(screen, "cmdSave"));
    EXPECT_EQ(errors.take().number(), 13);
    EXPECT_TRUE(takeCancellation().filter("sp_addbill").isEmpty());
    EXPECT_EQ(books(hospital, {}), before);
}

/// The command would raise 13, which ends the program: nobody comes to it who holds Enter down.
TEST_F(Cancelling, WithoutALineEnterDoesNotLeadToTheCommand) {
    tests::runModal([] { revocation::openCancelRequest(); },
                    {[](QWidget& search) { tests::click(child<QPushButton>(search, "cmdSelect")); },
                     [](QWidget& window) {
                         EXPECT_TRUE(child<QPushButton>(window, "cmdSave").isEnabled());
                         EXPECT_EQ(window.focusWidget()->objectName(), "grdExams");
                         tests::keysToFocus(window, "<Enter>");
                         EXPECT_EQ(window.focusWidget()->objectName(), "grdExams");
                         tests::close(window);
                     },
                     [](QWidget& search) { tests::keysToFocus(search, "<Esc>"); }});
}

TEST_F(Cancelling, WithoutALineAReceiptIsRevokedUnderAnEmptyCode) {
    post(hospital, paidLine());
    revocation::frmCancelRequest search;
    revocation::frmCancellation screen;
    search.handOver(screen, "90001");
    screen.Init_Grid();
    screen.Show();
    expectRevoked();
    tests::click(child<QPushButton>(screen, "cmdSave"));
    EXPECT_EQ(takeCancellation().filter("CashUpdate"),
              QStringList{"spGlobal_CashUpdate 'OR9001','NU','',''"});
}

} // namespace
