#include "platform/report/layout/PageDocument.h"
#include "platform/report/viewer/Viewer.h"
#include "session/Session.h"
#include "session/reports/ReportLaunch.h"
#include "tests/orders/RequestFixture.h"
#include "tests/orders/SlipPrinter.h"

namespace {

class ChargeSlip : public tests::RequestFixture {
  public:
    void expectSaved() {
        boxes.expect({QStringLiteral("Data Successfully Saved! ChargeSlip No.: 'C%1J'").arg(nextSlip()),
                      controls::vbOKOnly, "Message"});
    }
    /// What was sent once the save was committed.
    QStringList printTexts() {
        const QStringList texts = takeTexts();
        return texts.mid(texts.indexOf("COMMIT") + 1);
    }
    void usePrinter(bool ready) { printer.usePrinter(ready); }

    tests::SlipPrinter printer;
    const QStringList& printed = printer.printed;
};

TEST_F(ChargeSlip, TakesTheLinesDownToTheFirstWithoutACode) {
    openAdmitted();
    type("NU<Enter>1001<Enter>R<Enter>2<Enter>MD<Enter>201<Enter><Tab>1500<Enter>");
    grid().setTextMatrix(2, 5, "99.00");
    const QString doctor = cell(2, 3);
    grid().RemoveItem(3);
    grid().AddItem("\tUR\t40001\tSYRINGE\t\t\t\t40");
    grid().AddItem("\tFN\t201\tREADER\t\t7\t\t350.5");
    grid().AddItem("\tUR\t\tNO CODE\t\t1\t1\t1");
    grid().AddItem("\tNU\t1002\tBEHIND THE GAP\t\t1\t1\t1");
    expectSaved();
    takeTexts();
    type("<Alt+P>");
    EXPECT_EQ(
        printTexts().join(u'\n').toStdString(),
        QStringList({"delete from tbNucChargeSlip",
                     "sp_Nuclear_DumpChargeSlip '1001','BONE SCAN, WHOLE "
                     "BODY','2','5620.00','11240.00', '1001', 'NU'",
                     "sp_Nuclear_DumpChargeSlip '201','" + doctor + "','1','1500.00','1500.00', '1001', 'MD'",
                     "sp_Nuclear_DumpChargeSlip '40001','SYRINGE','1','40','40', '1001', 'UR'",
                     "sp_Nuclear_DumpChargeSlip '201','READER','1','350.5','350.5', '1001', 'FN'",
                     "SELECT Name FROM PASSWORD..tbPasswordMain WHERE Employeeid = ''"})
            .join(u'\n')
            .toStdString());
    EXPECT_TRUE(screen().isUnloaded());
}

TEST_F(ChargeSlip, ALineWithoutAnAmountIsPrintedWithoutOne) {
    openAdmitted();
    type("NU<Enter>1001<Enter>R<Enter>2<Enter>");
    grid().setTextMatrix(1, 7, "");
    expectSaved();
    takeTexts();
    type("<Alt+P>");
    EXPECT_EQ(
        printTexts().filter("Dump"),
        QStringList{"sp_Nuclear_DumpChargeSlip '1001','BONE SCAN, WHOLE BODY','2','5620.00','', '1001', "
                    "'NU'"})
        << "the price has no say in it";
}

TEST_F(ChargeSlip, IsPrintedAtOnceWithItsTenValues) {
    open({.PatIdNum = admitted,
          .PatientType = "I",
          .NursingRemarks = "FASTING SINCE MIDNIGHT",
          .RequestingNurse = "1002"});
    const QString nurse = value("SELECT Name FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '1002'");
    ASSERT_FALSE(nurse.isEmpty());
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    const int slip = nextSlip();
    const QString doctor = field("txtDoctor").text();
    expectSaved();
    takeTexts();
    type("<Alt+P>");
    EXPECT_EQ(printed, (QStringList{"0: NUCLEAR MEDICINE COST CENTER SLIP", "1: AGUILAR, VIRGILIO AVELINO",
                                    "2: Personal", "3: 26004078", "4: REYES, JOAN P.",
                                    "5: FASTING SINCE MIDNIGHT", "6: 11/21/2026", "7: " + doctor,
                                    QStringLiteral("8: C%1J").arg(slip), "9: (1002)" + nurse}))
        << printed.join(u'\n').toStdString();
    EXPECT_EQ(printTexts().last(), "SELECT Name FROM PASSWORD..tbPasswordMain WHERE Employeeid = '1002'");
    EXPECT_EQ(session::gReport, nullptr);
}

TEST_F(ChargeSlip, ANurseWhoIsNotOnFileIsLeftOut) {
    open({.PatIdNum = admitted, .PatientType = "I", .RequestingNurse = "9999"});
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    expectSaved();
    type("<Alt+P>");
    EXPECT_EQ(printed.value(9), "9: ");
}

TEST_F(ChargeSlip, WithoutAPrinterItIsShownUnderItsTitle) {
    usePrinter(false);
    openAdmitted();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    expectSaved();
    QString title;
    const int slip = nextSlip();
    tests::runModal([&] { type("<Alt+P>"); }, {[&](QWidget& viewer) {
                        title = viewer.windowTitle();
                        EXPECT_EQ(tests::child<report::Viewer>(viewer, "CRViewer1").document()->title(),
                                  QStringLiteral("Slip C%1J").arg(slip))
                            << "the name of an export, of a print job and of the document";
                        EXPECT_FALSE(screen().isUnloaded()) << "the screen goes behind the print";
                        viewer.close();
                    }});
    EXPECT_EQ(title, "Charge Slip Printing");
    EXPECT_EQ(printed, QStringList());
    EXPECT_TRUE(screen().isUnloaded());
}

TEST_F(ChargeSlip, ASaveAlonePrintsNothing) {
    openAdmitted();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    expectSaved();
    takeTexts();
    type("<Alt+S>");
    EXPECT_EQ(printTexts(), QStringList());
    EXPECT_EQ(printed, QStringList());
}

TEST_F(ChargeSlip, ASaveThatFailedPrintsNothing) {
    openAdmitted();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    takeTexts();
    {
        const tests::FaultInjector fault(*session::gConnection, 4);
        type("<Alt+P>");
    }
    EXPECT_EQ(errors.take().number(), 50000);
    session::gConnection->RollbackTrans();
    EXPECT_EQ(takeTexts().filter("ChargeSlip ").size(), 0);
    EXPECT_EQ(printed, QStringList());
}

} // namespace
