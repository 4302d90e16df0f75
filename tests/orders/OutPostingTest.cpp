// The whole save of a patient without a bed: plain, from a ward, against a receipt, with a package, with
// stock.
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "session/Session.h"
#include "tests/orders/RequestFixture.h"
#include "tests/orders/SlipPrinter.h"

#include <QRegularExpression>

namespace {

std::string listed(const QStringList& texts) {
    return texts.join(u'\n').toStdString();
}

class OutPosting : public tests::RequestFixture {
  public:
    OutPosting()
        : id(value(
              "SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS NULL AND AccountNum <> "
              "HospNum ORDER BY IdNum")) {}

    QString ofStay(const char* column, const QString& idNum) const {
        return value(QStringLiteral("SELECT %1 FROM PATIENT_DATA..tbOutPatient WHERE IdNum = '%2'")
                         .arg(QLatin1String(column), idNum));
    }
    /// Saves with Alt+S; the texts with {slip}, {r1}.., {id}, {hosp}, {doctor} and {now} in the places of
    /// what they stand for.
    QStringList saved(const QString& idNum) {
        const int slip = nextSlip();
        const int request = nextRequest();
        boxes.expect({"Data Successfully Saved!", controls::vbOKOnly, "Message"});
        takeTexts();
        type("<Alt+S>");
        QStringList texts = takeTexts();
        texts.replaceInStrings(QStringLiteral("C%1J").arg(slip), "{slip}");
        for (int line = 1; line <= 3; ++line)
            texts.replaceInStrings(QStringLiteral("'%1'").arg(request + line - 1),
                                   QStringLiteral("'{r%1}'").arg(line));
        texts.replaceInStrings('\'' + idNum + '\'', "'{id}'");
        texts.replaceInStrings('\'' + ofStay("HospNum", idNum) + '\'', "'{hosp}'");
        texts.replaceInStrings('\'' + ofStay("DoctorID1", idNum) + "','I'", "'{doctor}','I'");
        EXPECT_TRUE(screen().isUnloaded());
        return texts;
    }
    /// The moment that the server told is the one of every text; it takes its place.
    static QStringList atItsTime(QStringList texts) {
        static const QRegularExpression moment(
            QStringLiteral("\\d\\d/\\d\\d/\\d{4} \\d\\d:\\d\\d:\\d\\d [AP]M"));
        static const QRegularExpression stamp(
            QStringLiteral("\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}"));
        texts.replaceInStrings(moment, "{now}");
        return texts.replaceInStrings(stamp, "{now}");
    }

    const QString id;
};

TEST_F(OutPosting, AProcedureIsBilledAsAnOutPatientsAndFiledAsAnAdmitteds) {
    openOut({.IdNumber = id});
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>FN<Enter>201<Enter><Tab>350.5");
    const QString amount = QString::number(cell(1, 7).toDouble());
    const QString name = cell(2, 3);
    EXPECT_EQ(listed(atItsTime(saved(id))),
              listed({"BEGIN", "select getdate() as [server date]", "SELECT chargeslip FROM tbNucSlip",
                      "sp_Nuclear_IncRefNum", "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
                      "sp_Nuclear_AddRequest '{hosp}','{id}','{r1}', '1001','" + amount +
                          "','{doctor}','I', '{slip}','1001','{r1}','','1', '','NU'",
                      "sp_addnurselogbook '{hosp}','{id}', '1001','BONE SCAN, WHOLE BODY','" + amount +
                          "', '1001','1001', '{slip}','NU','I','{r1}','1'",
                      "sp_addbill 'O','{id}','{now}','{slip}', '1001','" + amount +
                          "','NU','1001','1','','', '{hosp}'",
                      "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
                      "sp_addnurselogbook '{hosp}','{id}', '201','" + name +
                          "','350.5', '1001','1001', '{slip}','FN','I','{r2}','1'",
                      "sp_addbill 'O','{id}','{now}','{slip}', '201','350.5','FN','1001','1','','', '{hosp}'",
                      "COMMIT"}));
}

TEST_F(OutPosting, AWardsLineCarriesItsNumberInColumnTwelveAndBothFilesAreStamped) {
    const QString ward = "SELECT TOP 1 %1 FROM STATION..tbNurseCommunicationFile WHERE PatientType = 'O' AND "
                         "RecordStatus = 'N' ORDER BY CommunicationID";
    const QString outPatient = value(ward.arg("IdNum"));
    const QString request = value(ward.arg("RequestNum"));
    const QString item = value(ward.arg("ItemID"));
    const QString communication = value(ward.arg("CommunicationID"));
    const QString logBook =
        value("SELECT LogBookID FROM STATION..tbNurseLogBook WHERE RequestNum = '" + request + "'");
    preparedOut({.IdNumber = outPatient, .NurseCommnunication = true, .RequestingNurse = "1001"});
    takeTexts();
    screen().Show();
    EXPECT_EQ(takeTexts().last(), "spNuclearcommsearchexam '" + outPatient + "'");
    show();
    EXPECT_EQ(cell(1, 2), item);
    EXPECT_EQ(cell(1, 11), "");
    EXPECT_EQ(cell(1, 12), request);
    EXPECT_EQ(cell(1, 5), cell(1, 7)) << "the price is the line's amount as it stands";
    ASSERT_EQ(grid().Rows(), 2);
    const QString amount = QString::number(cell(1, 7).toDouble());
    EXPECT_TRUE(button("cmdSave").isEnabled());
    EXPECT_EQ(
        listed(atItsTime(saved(outPatient))),
        listed({"BEGIN", "select getdate() as [server date]", "SELECT chargeslip FROM tbNucSlip",
                "sp_Nuclear_IncRefNum", "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
                "sp_Nuclear_AddRequest '{hosp}','{id}','{r1}', '" + item + "','" + amount +
                    "','{doctor}','I', '{slip}','1001','" + request + "','','1', '','NU'",
                "sp_checknursecommunicationfile '0','O','NU','" + item + "','{id}','" + request + "'",
                "UPDATE: UPDATE STATION..tbNurseCommunicationFile SET [referencenum] = '{slip}', "
                "[RecordStatus] = 'X' WHERE [CommunicationID] = " +
                    communication + " AND [referencenum] IS NULL AND [RecordStatus] = 'N'",
                "sp_checknurselogbook '0','O','{id}','NU','" + item + "','" + request + "'",
                "UPDATE: UPDATE STATION..tbNurseLogBook SET [referencenum] = '{slip}', [RecordStatus] = 'X', "
                "[processby] = '1001', [processdate] = '{now}' WHERE [LogBookID] = " +
                    logBook +
                    " AND [referencenum] IS NULL AND [RecordStatus] = 'N' AND [processby] IS NULL AND "
                    "[processdate] IS NULL",
                "sp_addbill 'O','{id}','{now}','{slip}', '" + item + "','" + amount +
                    "','NU','1001','1','','', '{hosp}'",
                "COMMIT"}));
    const QString stamped = "SELECT RecordStatus FROM STATION..%1 WHERE RequestNum = '" + request + "'";
    EXPECT_EQ(value(stamped.arg("tbNurseCommunicationFile")), "X");
    EXPECT_EQ(value(stamped.arg("tbNurseLogBook")), "X");
}

TEST_F(OutPosting, AgainstAReceiptNoSlipIsNumberedAndNoLineOfTheAssessmentIsPosted) {
    const QString receipt = value("SELECT TOP 1 ORNumber FROM BILLING..tbCashAssessment WHERE ORNumber <> '' "
                                  "AND RecordStatus = '1' ORDER BY AssessID");
    openOut({.IdNumber = id, .CashBasis = true, .CashOrNum = receipt, .CashPrice = 5200});
    EXPECT_EQ(field("txtOrNo").text(), receipt);
    EXPECT_TRUE(field("txtAmount").isVisible());
    EXPECT_EQ(field("txtAmount").text(), field("txtGross").text());
    EXPECT_TRUE(button("cmdSave").isEnabled());
    EXPECT_TRUE(button("cmdSavePrint").isEnabled());
    const int slip = nextSlip();
    EXPECT_EQ(listed(saved(id)),
              listed({"BEGIN", "select getdate() as [server date]", "SELECT requestnum FROM tbNucSlip",
                      "sp_Nuclear_IncRequestNum",
                      "sp_Nuclear_AddRequest '{hosp}','{id}','{r1}', '','0','{doctor}','I', '" + receipt +
                          "','1001','','','0','',''",
                      "sp_addnurselogbook '{hosp}','{id}', '','','0', '1001','1001', '','','I','{r1}','0'",
                      "COMMIT"}));
    EXPECT_EQ(nextSlip(), slip);
}

TEST_F(OutPosting, APackageWithUnusedItemsAndALineFromStock) {
    openOut({.IdNumber = id});
    // What a package screen leaves behind.
    grid().AddItem("\tNU\t1001\tBONE SCAN\t\t100\t1\t100\t\t\t100\t\t\t\t\tP1");
    grid().AddItem("\tUR\t40001\tSYRINGE\t\t12\t2\t24\t\t\t12\t\t\t\t\tP1");
    grid().RemoveItem(1);
    auto& unused = tests::child<controls::FlexGrid>(screen(), "mshflexPackageItems");
    const QStringList cells{"", " 40001 ", "UR", "SYRINGE", "2", "12", "224", "P1"};
    for (int column = 1; column < 8; ++column)
        unused.setTextMatrix(1, column, cells[column]);
    button("cmdSave").setEnabled(true);
    session::gInventoryEntry = true;
    const QStringList texts = saved(id);
    session::gInventoryEntry = false;
    EXPECT_EQ(
        listed(atItsTime(texts)),
        listed(
            {"BEGIN", "select getdate() as [server date]", "SELECT chargeslip FROM tbNucSlip",
             "sp_Nuclear_IncRefNum", "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
             "sp_Nuclear_AddRequest '{hosp}','{id}','{r1}', '1001','100','{doctor}','I', "
             "'{slip}','1001','{r1}','','1', '','NU'",
             "sp_addnurselogbook '{hosp}','{id}', '1001','BONE SCAN','100', '1001','1001', "
             "'{slip}','NU','I','{r1}','1'",
             "sp_addbill 'O','{id}','{now}','{slip}', '1001','100','NU','1001','1','','', '{hosp}'",
             "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
             "sp_addnurselogbook '{hosp}','{id}', '40001','SYRINGE','24', '1001','1001', "
             "'{slip}','UR','I','{r2}','2'",
             "INVENTORY..sp_AppendStockCard '{hosp}','{id}','40001','11/21/2026 "
             "08:30','{slip}','2','0','24','1001','PRN','OPD','224','','','0','CS','CS','',NULL,NULL,NULL,"
             "'O'",
             "STATION..sp_Save_PackageItems_Unused '{id}','P1','40001','UR','2','12','224','1001','{slip}'",
             "COMMIT"}))
        << "the supply leaves no request, and is not billed";
}

TEST_F(OutPosting, ASupplyThatWasTypedGoesToTheStockCardAlone) {
    openOut({.IdNumber = id});
    type("UR<Enter>40001<Enter><Enter>2<Enter><F3>");
    const QString amount = QString::number(cell(1, 7).toDouble());
    const QString name = cell(1, 3);
    EXPECT_EQ(listed(saved(id)),
              listed({"BEGIN", "select getdate() as [server date]", "SELECT chargeslip FROM tbNucSlip",
                      "sp_Nuclear_IncRefNum", "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
                      "sp_addnurselogbook '{hosp}','{id}', '40001','" + name + "','" + amount +
                          "', '1001','1001', '{slip}','UR','I','{r1}','2'",
                      "INVENTORY..sp_AppendStockCard '{hosp}','{id}','40001','11/21/2026 "
                      "08:30','{slip}','2','0','" +
                          amount + "','1001','PRN','OPD','','','','0','CS','CS','',NULL,NULL,NULL,'O'",
                      "COMMIT"}));
}

TEST_F(OutPosting, AFailingStatementStopsTheProgramAndIsNotTakenBack) {
    openOut({.IdNumber = id});
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    {
        const tests::FaultInjector fault(*session::gConnection, 6);
        type("<Alt+S>");
    }
    EXPECT_EQ(errors.take().number(), 50000);
    EXPECT_TRUE(session::gConnection->inTransaction());
    EXPECT_TRUE(boxes.boxes().empty());
    session::gConnection->RollbackTrans();
}

TEST_F(OutPosting, ASecondPressPostsOnce) {
    openOut({.IdNumber = id});
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    const int slip = nextSlip();
    boxes.expect({.prompt = "Data Successfully Saved!", .title = "Message", .meanwhile = [&] {
                      type("<Alt+S><Enter><Alt+P>");
                      button("cmdSave").click();
                  }});
    type("<Alt+S><Alt+S>");
    EXPECT_EQ(nextSlip(), slip + 1);
}

TEST_F(OutPosting, ItsSlipIsFilledAndPrintedLikeAnAdmittedPatients) {
    const tests::SlipPrinter slip;
    openOut({.IdNumber = id, .NursingRemarks = "FASTING", .RequestingNurse = "1002"});
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    const QString amount = cell(1, 7);
    const QString name =
        field("txtLname").text() + ", " + field("txtFname").text() + ' ' + field("txtMname").text();
    const QString company = field("txtCompany").text();
    const QString reference = QStringLiteral("C%1J").arg(nextSlip());
    boxes.expect({"Data Successfully Saved!", controls::vbOKOnly, "Message"});
    takeTexts();
    type("<Alt+P>");
    const QStringList texts = takeTexts();
    EXPECT_EQ(listed(texts.mid(texts.indexOf("COMMIT") + 1)),
              listed({"delete from tbNucChargeSlip",
                      "sp_Nuclear_DumpChargeSlip '1001','BONE SCAN, WHOLE BODY','1','" + amount + "','" +
                          amount + "', '1001', 'NU'",
                      "SELECT Name FROM PASSWORD..tbPasswordMain WHERE Employeeid = '1002'"}));
    EXPECT_EQ(slip.printed.value(1), "1: " + name);
    EXPECT_EQ(slip.printed.value(2), "2: " + company);
    EXPECT_EQ(slip.printed.value(3), "3: " + id);
    EXPECT_EQ(slip.printed.value(5), "5: FASTING");
    EXPECT_EQ(slip.printed.value(8), "8: " + reference) << "the slip has the number that the box keeps back";
    EXPECT_TRUE(screen().isUnloaded());
}

TEST_F(OutPosting, BothPackageCommandsHandTheirGridsOver) {
    openOut({.IdNumber = id});
    screens.whileOpen = [&] { grid().setTextMatrix(1, 7, "250"); };
    tests::click(button("cmdPackage"));
    EXPECT_EQ(field("txtGross").text(), "250.00");
    screens.whileOpen = [&] { grid().setTextMatrix(1, 7, "300"); };
    tests::click(button("cmdNucCharges"));
    EXPECT_EQ(field("txtGross").text(), "300.00");
    screens.whileOpen = {};
    ASSERT_EQ(screens.packages.size(), 1u);
    ASSERT_EQ(screens.nucCharges.size(), 1u);
    auto& unused = tests::child<controls::FlexGrid>(screen(), "mshflexPackageItems");
    for (const auto& handed : {screens.packages[0], screens.nucCharges[0]}) {
        EXPECT_EQ(handed.SourceGrid, &grid());
        EXPECT_EQ(handed.PackageGrid, &unused);
    }
}

} // namespace
