#include "platform/base/Format.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "session/WorkDone.h"
#include "session/reports/ReportLaunch.h"
#include "tests/orders/SavingFixture.h"

#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

using tests::RequestFixture;

namespace {

using tests::listed;

class Posting : public tests::SavingFixture {};

TEST_F(Posting, AProcedureAndAFeeInOneTransaction) {
    openAdmitted();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>MD<Enter>201<Enter><Tab>1500");
    ASSERT_EQ(grid().Rows(), 3);
    const int slip = nextSlip();
    const int request = nextRequest();
    takeTexts();
    save(slipText(slip));
    const QString doctor = value("SELECT DoctorID1 FROM PATIENT_DATA..tbPatient WHERE IdNum = '26004078'");
    const QString name =
        value("SELECT '(PF) DR. ' + LastName + ', ' + FirstName FROM BUILD_FILE..tbcoDoctor WHERE "
              "DoctorID = '201'");
    EXPECT_EQ(
        listed(takeTexts()),
        listed(atServerTime(
            expected({"BEGIN", "select getdate() as [server date]", "SELECT chargeslip FROM tbNucSlip",
                      "sp_Nuclear_IncRefNum", "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
                      "sp_Nuclear_AddRequest '104078','26004078','{r1}', '1001','5620','" + doctor +
                          "','I', '{slip}','1001','{r1}','','1', '','NU'",
                      "sp_addnurselogbook '104078','26004078', '1001','BONE SCAN, WHOLE BODY','5620', "
                      "'1001','1001', "
                      "'{slip}','NU','I','{r1}','1'",
                      "sp_addbill 'I','26004078','11/21/2026 08:30:00 AM','{slip}', "
                      "'1001','5620','NU','1001','1','','', "
                      "'104078'",
                      "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
                      "sp_addnurselogbook '104078','26004078', '201','" + name +
                          "','1500', '1001','1001', '{slip}','MD','I','{r2}','1'",
                      "sp_addbill 'I','26004078','11/21/2026 08:30:00 AM','{slip}', "
                      "'201','1500','MD','1001','1','','', "
                      "'104078'",
                      "COMMIT"},
                     slip, request),
            slip)));
    EXPECT_TRUE(screen().isUnloaded());
    EXPECT_EQ(nextSlip(), slip + 1);
    EXPECT_EQ(nextRequest(), request + 2);
    EXPECT_EQ(count("NUCLEAR..tbNucMaster", "RefNum = '" + slipText(slip) + "'"), 1);
    EXPECT_EQ(count("STATION..tbNurseLogBook", "ReferenceNum = '" + slipText(slip) + "'"), 2);
    EXPECT_EQ(count("BILLING..tbDailyBill", "RefNum = '" + slipText(slip) + "'"), 2);
    EXPECT_EQ(session::gSectionCode, "MD") << "the session keeps the last line's";
}

TEST_F(Posting, ASupplyGoesToTheStockCardAndTheTrailingLineToTheLogBook) {
    openAdmitted();
    const QString item =
        value("SELECT TOP 1 ItemID FROM INVENTORY..tbInvMaster WHERE ItemClass = 'CS' ORDER BY ItemID");
    const QString name = value("SELECT ItemName FROM INVENTORY..tbInvMaster WHERE ItemID = '" + item + "'");
    const double price =
        value("SELECT SellingPriceIn FROM INVENTORY..tbInvMaster WHERE ItemID = '" + item + "'").toDouble();
    const double onHand =
        value("SELECT OnHand FROM INVENTORY..tbInvStock WHERE LocationID = '224' AND ItemID = '" + item + "'")
            .toDouble();
    type("UR<Enter>" + item + "<Enter><Enter>2<Enter>");
    ASSERT_EQ(grid().Rows(), 3) << "a finished line brings the next one";
    const int slip = nextSlip();
    const int request = nextRequest();
    takeTexts();
    save(slipText(slip));
    const QString amount = QString::number(price * 2);
    const QString doctor = value("SELECT DoctorID1 FROM PATIENT_DATA..tbPatient WHERE IdNum = '26004078'");
    EXPECT_EQ(
        listed(takeTexts()),
        listed(expected(
            {"BEGIN", "select getdate() as [server date]", "SELECT chargeslip FROM tbNucSlip",
             "sp_Nuclear_IncRefNum", "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
             "sp_addnurselogbook '104078','26004078', '" + item + "','" + name + "','" + amount +
                 "', '1001','1001', '{slip}','UR','I','{r1}','2'",
             "INVENTORY..sp_AppendStockCard '104078','26004078','" + item +
                 "','11/21/2026 08:30','{slip}','2','0','" + amount +
                 "','1001','PRN','205','','','','0','CS','CS','',NULL,NULL,NULL,'O'",
             "sp_Nuclear_AddRequest '104078','26004078','{r1}', '" + item + "','" + amount + "','" + doctor +
                 "','I', '{slip}','1001','{r1}','','2', '','UR'",
             "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
             "sp_addnurselogbook '104078','26004078', '','','0', '1001','1001', '{slip}','','I','{r2}','0'",
             "COMMIT"},
            slip, request)));
    EXPECT_EQ(count("INVENTORY..tbInvStockCard", "RefNum = '" + slipText(slip) + "'"), 1);
    EXPECT_EQ(
        value("SELECT OnHand FROM INVENTORY..tbInvStock WHERE LocationID = '224' AND ItemID = '" + item + "'")
            .toDouble(),
        onHand - 2);
    EXPECT_EQ(count("BILLING..tbDailyBill", "RefNum = '" + slipText(slip) + "'"), 0);
    EXPECT_EQ(count("STATION..tbNurseLogBook", "ReferenceNum = '" + slipText(slip) + "' AND ItemID = ''"), 1);
}

TEST_F(Posting, AWardsRequestIsStampedInItsFiles) {
    const QString nurse = "SELECT %1 FROM STATION..tbNurseCommunicationFile WHERE RequestNum = '7000003'";
    const QString admission = value(nurse.arg("IdNum"));
    const QString item = value(nurse.arg("ItemID"));
    const QString doctor =
        value("SELECT DoctorID1 FROM PATIENT_DATA..tbPatient WHERE IdNum = '" + admission + "'");
    const QString communication = value(nurse.arg("CommunicationID"));
    const QString logBook =
        value("SELECT LogBookID FROM STATION..tbNurseLogBook WHERE RequestNum = '7000003'");
    const QString amount = value(nurse.arg("Amount"));
    const QString hospNum =
        value("SELECT HospNum FROM PATIENT_DATA..tbPatient WHERE IdNum = '" + admission + "'");
    open({.PatIdNum = admission,
          .PatientType = "I",
          .NurseCommnunication = true,
          .RequestingNurse = "1001",
          .Classification = value(nurse.arg("Classification"))});
    ASSERT_EQ(grid().Rows(), 2);
    EXPECT_TRUE(button("cmdSave").isEnabled());
    const int slip = nextSlip();
    const int request = nextRequest();
    takeTexts();
    save(slipText(slip));
    ASSERT_FALSE(communication.isEmpty());
    ASSERT_FALSE(logBook.isEmpty());
    EXPECT_EQ(
        listed(takeTexts()),
        listed(atServerTime(
            expected(
                {"BEGIN", "select getdate() as [server date]", "SELECT chargeslip FROM tbNucSlip",
                 "sp_Nuclear_IncRefNum", "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
                 "sp_Nuclear_AddRequest '" + hospNum + "','" + admission + "','{r1}', '" + item + "','" +
                     amount + "','" + doctor + "','I', '{slip}','1001','7000003','','1', '','NU'",
                 "sp_checknursecommunicationfile '0','I','NU','" + item + "','" + admission + "','7000003'",
                 "UPDATE: UPDATE STATION..tbNurseCommunicationFile SET [referencenum] = '{slip}', "
                 "[RecordStatus] = 'X' WHERE "
                 "[CommunicationID] = " +
                     communication + " AND [referencenum] IS NULL AND [RecordStatus] = 'N'",
                 "sp_checknurselogbook '0','I','" + admission + "','NU','" + item + "','7000003'",
                 "UPDATE: UPDATE STATION..tbNurseLogBook SET [referencenum] = '{slip}', [RecordStatus] = "
                 "'X', [processby] = "
                 "'1001', [processdate] = '2026-11-21T08:30:00.000' WHERE [LogBookID] = " +
                     logBook +
                     " AND [referencenum] IS NULL AND [RecordStatus] = 'N' AND [processby] IS NULL AND "
                     "[processdate] IS NULL",
                 "sp_addbill 'I','" + admission + "','11/21/2026 08:30:00 AM','{slip}', '" + item + "','" +
                     amount + "','NU','1001','1','','', '" + hospNum + "'",
                 "COMMIT"},
                slip, request),
            slip)));
    EXPECT_EQ(value(nurse.arg("RecordStatus")), "X");
    EXPECT_EQ(value(nurse.arg("ReferenceNum")), slipText(slip));
    EXPECT_EQ(value("SELECT ProcessBy FROM STATION..tbNurseLogBook WHERE RequestNum = '7000003'"), "1001");
}

TEST_F(Posting, ASupplyOnAWardsRequestIsOneRequest) {
    const QString ward = "SELECT %1 FROM STATION..tbNurseCommunicationFile WHERE RequestNum = '7000003'";
    open({.PatIdNum = value(ward.arg("IdNum")),
          .PatientType = "I",
          .NurseCommnunication = true,
          .Classification = value(ward.arg("Classification"))});
    grid().AddItem("\tUR\t40001\tSYRINGE\t\t12.00\t1\t12.00");
    const int slip = nextSlip();
    takeTexts();
    save(slipText(slip));
    const QStringList texts = takeTexts().filter("sp_Nuclear_AddRequest");
    ASSERT_EQ(texts.size(), 3) << "the ward's form, and the stock line's behind it";
    EXPECT_TRUE(texts[1].endsWith("'','','1', '','UR'")) << texts[1].toStdString();
    EXPECT_EQ(count("NUCLEAR..tbNucMaster", "RefNum = '" + slipText(slip) + "'"), 2);
    EXPECT_EQ(
        count("NUCLEAR..tbNucMaster", "RefNum = '" + slipText(slip) + "' AND NurseRequestNum = RequestNum"),
        1);
}

TEST_F(Posting, ACashAssessmentTakesNoSlipNumberAndPostsTheEmptyLine) {
    const QString orNumber =
        value("SELECT TOP 1 ORNumber FROM BILLING..tbCashAssessment WHERE ORNumber <> '' AND "
              "RecordStatus = '1' ORDER BY AssessID");
    ASSERT_FALSE(orNumber.isEmpty());
    const int paid =
        count("BILLING..tbCashAssessment", "ORNumber = '" + orNumber + "' AND RecordStatus = '1'");
    open({.PatIdNum = admitted, .PatientType = "I", .CashBasis = true, .CashOrNum = orNumber});
    EXPECT_EQ(field("txtOrNo").text(), orNumber);
    EXPECT_TRUE(field("txtAmount").isVisible());
    EXPECT_EQ(field("txtAmount").text(), field("txtGross").text());
    EXPECT_EQ(tests::child<controls::FlexGrid>(screen(), "grdInput").Rows(), qMax(2, paid + 1));
    ASSERT_EQ(grid().Rows(), 2);
    const int slip = nextSlip();
    const int request = nextRequest();
    const QString doctor = value("SELECT DoctorID1 FROM PATIENT_DATA..tbPatient WHERE IdNum = '26004078'");
    takeTexts();
    save({});
    EXPECT_EQ(listed(takeTexts()),
              listed(expected(
                  {"BEGIN", "select getdate() as [server date]", "SELECT requestnum FROM tbNucSlip",
                   "sp_Nuclear_IncRequestNum",
                   "sp_Nuclear_AddRequest '104078','26004078','{r1}', '','0','" + doctor + "','I', '" +
                       orNumber + "','1001','','','0','',''",
                   "sp_addnurselogbook '104078','26004078', '','','0', '1001','1001', '','','I','{r1}','0'",
                   "COMMIT"},
                  slip, request)));
    EXPECT_EQ(nextSlip(), slip);
}

class OtherPatientTypes : public Posting, public testing::WithParamInterface<const char*> {};

TEST_P(OtherPatientTypes, SaveNothingAndReportSuccess) {
    const QString type = QString::fromLatin1(GetParam());
    const QString id = type == "O"
                           ? value("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient ORDER BY IdNum")
                           : value("SELECT TOP 1 HospNum FROM PATIENT_DATA..tbCashPatient ORDER BY HospNum");
    open({.PatIdNum = id, .PatientType = type});
    EXPECT_EQ(field("txtRoom").text(), "OPD");
    EXPECT_FALSE(field("txtLname").text().isEmpty());
    this->type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    EXPECT_EQ(cell(1, 5), "0.00") << "no class, no price";
    const int slip = nextSlip();
    takeTexts();
    save({});
    EXPECT_EQ(takeTexts(), (QStringList{"BEGIN", "select getdate() as [server date]", "COMMIT"}));
    EXPECT_EQ(nextSlip(), slip);
}

INSTANTIATE_TEST_SUITE_P(Types, OtherPatientTypes, testing::Values("O", "W"));

TEST_F(Posting, APackagePutsItsStoreOnTheStockCardAndItsUnusedItemsOnTheirList) {
    openAdmitted();
    const QString item =
        value("SELECT TOP 1 ItemID FROM INVENTORY..tbInvMaster WHERE ItemClass = 'PH' ORDER BY ItemID");
    // What a package screen leaves behind.
    grid().setTextMatrix(1, 1, "MN");
    grid().setTextMatrix(1, 2, item);
    grid().setTextMatrix(1, 3, "TABLET");
    grid().setTextMatrix(1, 6, "4");
    grid().setTextMatrix(1, 7, "100");
    grid().setTextMatrix(1, 15, "P1");
    auto& unused = tests::child<controls::FlexGrid>(screen(), "mshflexPackageItems");
    unused.setRows(2);
    const QStringList cells{"", " 101 ", "MN", "TABLET", "4", "25", "179", "P1"};
    for (int column = 1; column < 8; ++column)
        unused.setTextMatrix(1, column, cells[column]);
    button("cmdSave").setEnabled(true);
    session::gInventoryEntry = true;
    const int slip = nextSlip();
    save(slipText(slip));
    session::gInventoryEntry = false;
    const QStringList texts = takeTexts();
    EXPECT_TRUE(texts.filter("sp_AppendStockCard").value(0).contains(",'205','179','','','0','PH','PH','',"))
        << listed(texts);
    EXPECT_EQ(texts.filter("Unused"),
              QStringList{QStringLiteral("STATION..sp_Save_PackageItems_Unused '26004078','P1',"
                                         "'101','MN','4','25','179','1001','C%1J'")
                              .arg(slip)});
    EXPECT_EQ(texts.last(), "COMMIT");
}

TEST_F(Posting, UnusedItemsAreKeptForAPackageOnly) {
    for (const bool isPackage : {false, true}) {
        for (const char* firstItem : {"", " ", "101"}) {
            openAdmitted();
            type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
            grid().setTextMatrix(1, 15, isPackage ? "P1" : "");
            auto& unused = tests::child<controls::FlexGrid>(screen(), "mshflexPackageItems");
            unused.setRows(3);
            unused.setTextMatrix(1, 1, firstItem);
            unused.setTextMatrix(2, 1, "102");
            takeTexts();
            save(slipText(nextSlip()));
            const bool kept = isPackage && firstItem == QLatin1String("101");
            EXPECT_EQ(takeTexts().filter("Unused").size(), kept ? 2 : 0) << isPackage << firstItem;
        }
    }
}

TEST_F(Posting, OnlyADoctorPickedByNameIsSent) {
    const QString attending = value("SELECT DoctorID1 FROM PATIENT_DATA..tbPatient WHERE IdNum = '26004078'");
    const QString other = value("SELECT TOP 1 DoctorID FROM BUILD_FILE..tbcoDoctor WHERE DoctorID <> '" +
                                attending + "' ORDER BY DoctorID");
    for (const char* picked : {"txtDoctorID", "cmdDoctor", "txtDoctor"}) {
        openAdmitted();
        const bool byName = picked == QLatin1String("txtDoctor");
        QLineEdit& box = field(byName ? "txtDoctor" : "txtDoctorID");
        tests::keys(box, "<Ctrl+A>" + other);
        if (picked == QLatin1String("cmdDoctor"))
            tests::click(button("cmdDoctor"));
        else
            type("<Enter>");
        grid().setFocus();
        type("<Enter>NU<Enter>1001<Enter>R<Enter>1<Enter>");
        takeTexts();
        save(slipText(nextSlip()));
        const QStringList requests = takeTexts().filter("sp_Nuclear_AddRequest");
        ASSERT_EQ(requests.size(), 1);
        EXPECT_TRUE(requests[0].contains("'5620','" + (byName ? other : attending) + "','I'"))
            << picked << ": " << requests[0].toStdString();
    }
}

TEST_F(Posting, TheLastStoreOfAPackageStandsForAllItsLines) {
    openAdmitted();
    const QString drug =
        value("SELECT TOP 1 ItemID FROM INVENTORY..tbInvMaster WHERE ItemClass = 'PH' ORDER BY ItemID");
    grid().AddItem("\tMN\t" + drug + "\tTABLET\t\t\t4\t100");
    grid().RemoveItem(1);
    grid().AddItem("\tUR\t40001\tSYRINGE\t\t\t1\t12");
    grid().AddItem("\tZZ\t40001\tANOTHER\t\t\t1\t12");
    button("cmdSave").setEnabled(true);
    session::gInventoryEntry = true;
    save(slipText(nextSlip()));
    session::gInventoryEntry = false;
    const QStringList moved = takeTexts().filter("sp_AppendStockCard");
    ASSERT_EQ(moved.size(), 3);
    for (const QString& text : moved)
        EXPECT_TRUE(text.contains(",'205','224','','','0','CS','CS','',")) << text.toStdString();
}

/// Whether the hourglass stands, at each statement.
class Hourglasses : public ado::Observer {
  public:
    Hourglasses() { session::gConnection->addObserver(this); }
    ~Hourglasses() override { session::gConnection->removeObserver(this); }
    void beforeStatement(const QString& text, ado::StatementKind) override {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        (cursor && cursor->shape() == Qt::WaitCursor ? under : without) += text;
    }
    QStringList under, without;
};

TEST_F(Posting, GoesUnderTheHourglassAndIsToldWithoutIt) {
    openAdmitted();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    const QString slip = slipText(nextSlip());
    bool waits = true;
    boxes.expect({.prompt = QStringLiteral("Data Successfully Saved! ChargeSlip No.: '%1'").arg(slip),
                  .title = "Message",
                  .meanwhile = [&] { waits = QGuiApplication::overrideCursor() != nullptr; }});
    const Hourglasses seen;
    type("<Alt+S>");
    EXPECT_EQ(listed(seen.without), "");
    EXPECT_FALSE(seen.under.filter("sp_addbill").isEmpty());
    EXPECT_FALSE(waits);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Posting, ASecondPressNeverPostsTwice) {
    openAdmitted();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    const int slip = nextSlip();
    boxes.expect(
        {.prompt = QStringLiteral("Data Successfully Saved! ChargeSlip No.: '%1'").arg(slipText(slip)),
         .title = "Message",
         .meanwhile = [&] {
             EXPECT_FALSE(button("cmdSave").isEnabled());
             EXPECT_FALSE(button("cmdSavePrint").isEnabled());
             type("<Alt+S><Enter><Alt+P>");
             button("cmdSave").click();
         }});
    QTest::mouseDClick(&button("cmdSave"), Qt::LeftButton);
    type("<Alt+S>");
    EXPECT_EQ(takeTexts().count("BEGIN"), 1);
    EXPECT_EQ(nextSlip(), slip + 1);
    EXPECT_EQ(count("BILLING..tbDailyBill", "RefNum = '" + slipText(slip) + "'"), 1);
    ASSERT_EQ(session::workDone().size(), 1U);
    EXPECT_EQ(session::workDone().front().work, session::Work::Slip);
    EXPECT_EQ(session::workDone().front().number, slipText(slip));
    EXPECT_EQ(session::workDone().front().PatientType, "I");
}

TEST_F(Posting, AFailingStatementStopsTheProgramAndLeavesNothing) {
    const QString rows = "SELECT (SELECT COUNT(*) FROM NUCLEAR..tbNucMaster) + (SELECT COUNT(*) FROM "
                         "STATION..tbNurseLogBook) + (SELECT COUNT(*) FROM BILLING..tbDailyBill)";
    const QString before = value(rows);
    const int slip = nextSlip();
    for (int failing = 1;; ++failing) {
        openAdmitted();
        type("NU<Enter>1001<Enter>R<Enter>1<Enter>MD<Enter>201<Enter><Tab>1500");
        tests::FaultInjector fault(*session::gConnection, failing);
        if (failing > 12) { // the save has twelve
            save(slipText(slip));
            EXPECT_EQ(fault.seen(), 12);
            break;
        }
        type("<Alt+S>");
        const base::RunTimeError error = errors.take();
        EXPECT_EQ(error.number(), 50000) << failing;
        const bool ofFirstLine = failing > 3 && failing < 9;
        EXPECT_EQ(grid().Row(), ofFirstLine ? 1 : 2) << "where the clerk sees which line it was, " << failing;
        EXPECT_TRUE(boxes.boxes().empty()) << "no box but the error's";
        EXPECT_TRUE(session::gConnection->inTransaction()) << "left open until the program stops";
        session::gConnection->RollbackTrans(); // what the server does as the connection goes
        forget();
        EXPECT_EQ(value(rows), before) << failing;
        EXPECT_EQ(nextSlip(), slip);
    }
}

TEST_F(Posting, ATextThatWouldLeaveItsLiteralStopsTheSave) {
    openAdmitted();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    const int slip = nextSlip();
    for (const QString text : {"O'NEIL", "x','1'); DROP TABLE tbNucMaster --", "'"}) {
        grid().setTextMatrix(1, 3, text);
        type("<Alt+S>");
        EXPECT_EQ(errors.take().number(), 102);
        session::gConnection->RollbackTrans();
        EXPECT_EQ(nextSlip(), slip);
        forget();
        openAdmitted();
        type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    }
    for (const QString text : {"-- ; /* x */", "a\r\nb", "[x] \"y\" @z", "é ñ 中"}) {
        grid().setTextMatrix(1, 3, text);
        const int number = nextSlip();
        save(slipText(number));
        EXPECT_EQ(
            value(
                "SELECT Description FROM STATION..tbNurseLogBook WHERE ItemID = '1001' AND ReferenceNum = '" +
                slipText(number) + "'"),
            text);
        openAdmitted();
        type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    }
}

} // namespace
