#include "platform/base/TestDoors.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "tests/results/ResultFixture.h"

#include <gtest/gtest.h>

using tests::Kind;
using tests::listed;

namespace {

class Save : public tests::ResultFixture {
  public:
    void expectSaved() {
        boxes.expect({"Data Successfully Saved!", controls::vbInformation, "Notification"});
    }
    void expectUsed() {
        boxes.expect({"The Case Number you entered is already used.", controls::vbExclamation, "Message"});
    }
    void save() {
        expectSaved();
        type("<Alt+S>");
    }

    /// All of a save: the check, the transaction with the save in it and the ward's rows.
    QStringList wholeSave(const QString& check, const QString& statement) {
        const QString ward = "WHERE IdNum = '26004078' and RequestNum = '500001' and Revenueid = 'NU'";
        return {check,
                "BEGIN",
                statement,
                "SELECT * FROM STATION..tbNurseCommunicationFile " + ward,
                "UPDATE: UPDATE STATION..tbNurseCommunicationFile SET [RecordStatus] = 'W' WHERE "
                "[CommunicationID] = " +
                    value("SELECT CommunicationID FROM STATION..tbNurseCommunicationFile WHERE RequestNum = "
                          "'500001'") +
                    " AND [RecordStatus] = 'X'",
                "SELECT * FROM STATION..tbNurseLogBook " + ward,
                "UPDATE: UPDATE STATION..tbNurseLogBook SET [RecordStatus] = 'W', [ResultDate] = '11/21/2026 "
                "8:30:00 "
                "AM', [ResultBy] = '1001' WHERE [LogBookID] = " +
                    value("SELECT LogBookID FROM STATION..tbNurseLogBook WHERE RequestNum = '500001'") +
                    " AND [RecordStatus] = 'X' AND [ResultDate] IS NULL AND [ResultBy] IS NULL",
                "COMMIT"};
    }
    QString check(const char* caseNumber) {
        return QStringLiteral("SELECT * FROM tbNucLogBook WHERE CaseNumber = '%1' AND Status <> 'R'")
            .arg(caseNumber);
    }
    QStringList savedAs(const char* procedure) {
        const QStringList all = takeTexts();
        return all.filter(QString::fromLatin1(procedure) + u' ');
    }
};

// ---- the four statements, whole

TEST_F(Save, OfTheGenericScreenSendsTwentyValues) {
    open(Kind::Generic);
    type("txtCaseNum", "<End>0001");
    type("txtWeight", "61 kg");
    type("txtHeight", "158 cm");
    type("txtRadiopharmaceutical", "Tc-99m MDP");
    type("txtDose", "<Home>25");
    type("txtRoute", "I.V.");
    type("txtProjections", "AP, PA");
    type("txtConsultation", "Uptake<Enter>normal");
    type("txtConclusion", "Normal");
    type("txtClinicalHistory", "Ca breast");
    type("txtRemarks", "None");
    takeTexts();
    save();
    EXPECT_EQ(listed(takeTexts()),
              listed(wholeSave(
                  check("26-0001"),
                  "sp_Nuclear_SaveResult '104078','26004078','90001','26-0001','I','201','204','1001',"
                  "'25 mCi','Tc-99m MDP','I.V.','AP, PA','Uptake\nnormal','Normal','Ca breast','61 kg',"
                  "'158 cm','1001','11/21/2026 8:30:00 AM','None'")));
    EXPECT_EQ(station(), "W|W|11/21/2026 8:30:00 AM|1001|W");
    EXPECT_TRUE(screen().isVisible()) << "it stays open";
}

TEST_F(Save, OfThePerfusionScreenSendsTwentySevenValues) {
    open(Kind::Perfusion);
    type("txtCaseNum", "<End>0002");
    type("txtWeight", "61");
    type("txtHeight", "158");
    type("txtRadiopharmaceutical", "MIBI");
    type("txtProtocol", "Bruce");
    type("txtClinicalHistory", "Chest pain");
    type("txtTechnique", "Two days");
    type("txtStressDetails", "9 METs");
    type("txtStressImages", "Defect");
    type("txtRestingImages", "Filled");
    type("txtQuantitativeData", "12%");
    type("grdTable", "60<Enter>65<Enter>100<Enter>90<Enter><Down>-<Right>+<Down>normal");
    type("txtConclusion", "Ischemia");
    type("txtRemarks", "None");
    takeTexts();
    save();
    EXPECT_EQ(listed(takeTexts()),
              listed(wholeSave(
                  "SELECT * FROM STATION..tbNucLogBook WHERE CaseNumber = '26-0002' AND Status <> 'R'",
                  "sp_Nuclear_SaveResultMPI '104078','26004078','90001','26-0002','I','201','204','1001',"
                  "'MIBI','Bruce','Chest pain','Two days','9 METs','Defect','Filled','12%','60|65','100|90',"
                  "'|','-|+','|normal','Ischemia','61','158','1001','11/21/2026 8:30:00 AM','None'")));
    EXPECT_EQ(station(), "W|W|11/21/2026 8:30:00 AM|1001|W");
}

TEST_F(Save, OfTheGfrScreenSendsThirtyTwoValuesWithItsOwnSeparators) {
    open(Kind::Gfr);
    type("txtCaseNum", "<End>0003");
    type("txtWeight", "61");
    type("txtHeight", "158");
    type("txtRadiopharmaceutical", "DTPA");
    type("txtDose", "<Home>5");
    type("txtRoute", "IV");
    type("txtProjections", "PA");
    type("txtIsotope", "Tc-99m");
    for (int i = 0; i < 7; ++i) {
        type(qPrintable(QStringLiteral("txtLeft_%1").arg(i)), QStringLiteral("l%1").arg(i));
        type(qPrintable(QStringLiteral("txtRight_%1").arg(i)), QStringLiteral("r%1").arg(i));
    }
    type("txtScale", "98");
    takeTexts();
    save();
    EXPECT_EQ(listed(takeTexts()),
              listed(wholeSave(
                  check("26-0003"),
                  "sp_Nuclear_SaveResultGFR '104078','26004078','90001','26-0003','I','201','204','1001',"
                  "'5 mCi','DTPA','IV','PA','61','158','1001','11/21/2026 8:30:00 AM','Tc-99m', "
                  "'l0', 'l1', 'l2', 'l3', 'l4', 'l5', 'l6', "
                  "'r0','r1','r2','r3','r4', 'r5','r6', '98'")));
    EXPECT_EQ(station(), "W|W|11/21/2026 8:30:00 AM|1001|W");
}

TEST_F(Save, OfTheRadioImmunoassayScreenSendsSixtyOneValues) {
    open(Kind::Radio);
    type("txtCaseNum", "<End>0004");
    type("txtWeight", "61");
    type("txtHeight", "158");
    type("txtRadiopharmaceutical", "I-125");
    type("txtDose", "<Home>5");
    type("txtRoute", "in vitro");
    type("txtProjections", "none");
    type("txtTechnologist", "R. Cruz");
    QStringList series;
    for (int i = 0; i < 22; ++i) {
        type(qPrintable(QStringLiteral("txtLeft_%1").arg(i)), QStringLiteral("L%1").arg(i));
        series << QStringLiteral("L%1").arg(i == 21 ? 20 : i);
    }
    for (int i = 0; i < 22; ++i) {
        type(qPrintable(QStringLiteral("txtNormal_%1").arg(i)), QStringLiteral("N%1").arg(i));
        series << QStringLiteral("N%1").arg(i);
    }
    takeTexts();
    save();
    EXPECT_EQ(listed(takeTexts()),
              listed(wholeSave(
                  check("26-0004"),
                  "sp_Nuclear_SaveResultRadio '104078','26004078','90001','26-0004','I','201','204',"
                  "'1001','5 mCi','I-125','in vitro','none','61','158','1001','11/21/2026 8:30:00 AM','" +
                      series.join("', '") + "', 'R. Cruz'")));
    EXPECT_EQ(station(), "W|W|11/21/2026 8:30:00 AM|1001|W");
}

TEST_F(Save, OfRadioImmunoassaySendsTheShbgBoxTwiceAndNeverTheLastOne) {
    open(Kind::Radio);
    type("txtCaseNum", "<End>0005");
    type("txtLeft_20", "shbg");
    type("txtLeft_21", "lost");
    save();
    const QString sent = savedAs("sp_Nuclear_SaveResultRadio").value(0);
    EXPECT_EQ(sent.count("'shbg', 'shbg', "), 1) << sent.toStdString();
    EXPECT_FALSE(sent.contains("lost"));
    EXPECT_EQ(value("SELECT Insulin FROM NUCLEAR..tbNucRadioResult WHERE RequestNum = '90001'"), "");
}

TEST_F(Save, ABlankInTheFirstBoxOfAnAnalyteHidesNoValue) {
    open(Kind::Radio);
    type("txtLeft_4", " ");
    type("txtNormal_4", "2.75");
    type("txtLeft_5", "14.1");
    save();
    EXPECT_EQ(value("SELECT TSH + '/' + FreeT4 FROM NUCLEAR..tbNucRadioResult WHERE RequestNum = '90001'"),
              "2.75/14.1");
}

TEST_F(Save, TrimsTheKeysAndNothingElse) {
    fill(Kind::Generic);
    screen().RequestNum = " 90001 ";
    screen().PatientType = " I ";
    screen().ItemCode = " 1001 ";
    screen().NurseRequestNum = " 500001 ";
    screen().setText("txtHospNum", " 104078 ");
    screen().setText("txtIdNum", " 26004078 ");
    screen().setText("txtAttendingDrCode", " 201 ");
    screen().setText("txtRequestingDrCode", " 204 ");
    show();
    type("txtCaseNum", "<Home> <End>0001 ");
    type("txtRoute", " IV ");
    type("txtRemarks", " x ");
    takeTexts();
    save();
    EXPECT_EQ(listed(takeTexts()),
              listed(wholeSave(
                  check("26-0001"),
                  "sp_Nuclear_SaveResult '104078','26004078','90001','26-0001','I','201','204',' 1001 ',"
                  "' mCi','',' IV ','','','','','','','1001','11/21/2026 8:30:00 AM',' x '")));
}

TEST_F(Save, OfThePerfusionScreenChecksTheCaseNumberAsItStands) {
    open(Kind::Perfusion);
    type("txtCaseNum", "<End>0001 ");
    takeTexts();
    save();
    EXPECT_EQ(takeTexts().value(0),
              "SELECT * FROM STATION..tbNucLogBook WHERE CaseNumber = '26-0001 ' AND Status <> 'R'");
}

TEST_F(Save, TakesTheResultDateFromItsFieldAndTheTimeFromTheClock) {
    const base::FixedClock afternoon(*base::makeDateTime({2026, 11, 21}, {15, 4, 9}));
    open(Kind::Generic);
    type("txtCaseNum", "<End>0001<Tab>0305"); // month and day
    save();
    const QString typed = tests::toTestDays(QStringLiteral("3/5/2026"));
    EXPECT_TRUE(savedAs("sp_Nuclear_SaveResult").value(0).contains("'" + typed + " 3:04:09 PM'"));
    EXPECT_EQ(station(), "W|W|" + typed.toStdString() + " 3:04:09 PM|1001|W");
}

// ---- what holds on all four

class SaveOnAll : public Save, public testing::WithParamInterface<Kind> {};
INSTANTIATE_TEST_SUITE_P(Screens, SaveOnAll, testing::ValuesIn(tests::allKinds),
                         testing::PrintToStringParamName());

TEST_P(SaveOnAll, RefusesACaseNumberOfBlanks) {
    open(GetParam());
    type("txtCaseNum", "<Ctrl+A>   ");
    type("txtRadiopharmaceutical", "x");
    boxes.expect(
        {"Cannot save incomplete data. Please enter Case Number.", controls::vbExclamation, "Message"});
    takeTexts();
    type("<Alt+S>");
    EXPECT_EQ(listed(takeTexts()), "");
    EXPECT_EQ(focused(), "txtCaseNum");
}

/// The server would cut it, and take another result's number for it.
TEST_P(SaveOnAll, TakesNoLongerCaseNumberThanTheLogBookKeeps) {
    open(GetParam());
    type("txtCaseNum", "<Ctrl+A>26-" + QString(20, u'7'));
    EXPECT_EQ(text("txtCaseNum"), "26-" + QString(17, u'7'));
}

TEST_P(SaveOnAll, AcceptsTheYearPrefixAlone) {
    open(GetParam());
    EXPECT_EQ(text("txtCaseNum"), "26-");
    save();
    EXPECT_EQ(count("NUCLEAR..tbNucLogBook", "CaseNumber = '26-' AND RequestNum = '90001'"), 1);
}

TEST_P(SaveOnAll, RefusesATakenCaseNumberBeforeTheTransaction) {
    run("INSERT INTO NUCLEAR..tbNucLogBook (CaseNumber, RequestNum) VALUES ('26-7777', '80000')");
    open(GetParam());
    type("txtCaseNum", "<End>7777");
    takeTexts();
    expectUsed();
    type("<Alt+S>");
    EXPECT_EQ(takeTexts().size(), 1);
    EXPECT_EQ(station(), "X|X|||");
}

TEST_P(SaveOnAll, AcceptsTheCaseNumberOfARevokedResult) {
    run("INSERT INTO NUCLEAR..tbNucLogBook (CaseNumber, RequestNum, Status) VALUES ('26-7777', '80000', "
        "'R')");
    open(GetParam());
    type("txtCaseNum", "<End>7777");
    save();
    EXPECT_EQ(station(), "W|W|11/21/2026 8:30:00 AM|1001|W");
}

TEST_P(SaveOnAll, RefusesTheUnchangedNumberOfItsOwnRequest) {
    open(GetParam());
    type("txtCaseNum", "<End>0001");
    save();
    expectUsed();
    type("<Alt+S>");
    EXPECT_EQ(count("NUCLEAR..tbNucLogBook", "CaseNumber = '26-0001'"), 1);
}

TEST_P(SaveOnAll, SucceedsWithoutTheWardsRows) {
    fill(GetParam());
    screen().NurseRequestNum = "599999";
    show();
    save();
    const QStringList texts = takeTexts();
    EXPECT_EQ(texts.filter("UPDATE: ").size(), 0);
    EXPECT_EQ(texts.last(), "COMMIT");
    EXPECT_EQ(station(), "X|X|||W");
}

TEST_P(SaveOnAll, StampsOnlyTheFirstOfSeveralRows) {
    run("INSERT INTO STATION..tbNurseCommunicationFile (IdNum, RequestNum, RevenueID, RequestDate, "
        "RecordStatus) VALUES "
        "('26004078','500001','NU','2026-11-21','X')");
    run("INSERT INTO STATION..tbNurseLogBook (IdNum, RequestNum, RevenueID, RequestDate, RecordStatus) "
        "VALUES "
        "('26004078','500001','NU','2026-11-21','X')");
    open(GetParam());
    save();
    for (const char* table : {"STATION..tbNurseCommunicationFile", "STATION..tbNurseLogBook"}) {
        EXPECT_EQ(count(table, "RequestNum = '500001' AND RecordStatus = 'W'"), 1) << table;
        EXPECT_EQ(count(table, "RequestNum = '500001' AND RecordStatus = 'X'"), 1) << table;
    }
}

TEST_P(SaveOnAll, AQuoteWhereItIsNotFilteredIsRefusedByTheServer) {
    open(GetParam());
    type("txtHeight", "5'2");
    EXPECT_EQ(text("txtHeight"), "5'2");
    takeTexts();
    type("<Alt+S>");
    const base::RunTimeError error = errors.take();
    EXPECT_EQ(error.number(), 102);
    EXPECT_TRUE(error.description().startsWith("Incorrect syntax near '2'"))
        << error.description().toStdString();
    EXPECT_EQ(listed(takeTexts().mid(1)), "BEGIN") << "nothing of it was sent";
    EXPECT_TRUE(session::gConnection->inTransaction()) << "until the program stops";
    EXPECT_EQ(station(), "X|X|||");
}

TEST_P(SaveOnAll, AFailureAtAnyStatementKeepsNothing) {
    for (int failing = 1; failing <= 6; ++failing) {
        open(GetParam());
        type("txtCaseNum", "<End>0001");
        {
            const tests::FaultInjector fault(*session::gConnection, failing);
            type("<Alt+S>");
        }
        EXPECT_EQ(errors.take().number(), 50000) << failing;
        EXPECT_EQ(session::gConnection->inTransaction(), failing > 1) << failing;
        EXPECT_EQ(station(), "X|X|||") << failing;
        if (session::gConnection->inTransaction())
            session::gConnection->RollbackTrans(); // what the end of the program does
        EXPECT_EQ(station(), "X|X|||") << failing;
        EXPECT_EQ(count("NUCLEAR..tbNucLogBook", "CaseNumber = '26-0001'"), 0) << failing;
        screen().Unload();
    }
    open(GetParam());
    type("txtCaseNum", "<End>0001");
    const tests::FaultInjector fault(*session::gConnection, 7);
    save();
    EXPECT_EQ(fault.seen(), 6) << "the check, the save, two reads and two updates";
}

/// Another workstation takes the number once the check has been passed.
class TakesTheNumber : public ado::Observer {
  public:
    explicit TakesTheNumber(SaveOnAll& test) : m_test(test) { session::gConnection->addObserver(this); }
    ~TakesTheNumber() override { session::gConnection->removeObserver(this); }
    TakesTheNumber(const TakesTheNumber&) = delete;
    TakesTheNumber& operator=(const TakesTheNumber&) = delete;
    void transactionStep(ado::TransactionStep step) override {
        if (step == ado::TransactionStep::Begin)
            m_test.run(
                "INSERT INTO NUCLEAR..tbNucLogBook (CaseNumber, RequestNum) VALUES ('26-0001', '80000')");
    }

  private:
    SaveOnAll& m_test;
};

TEST_P(SaveOnAll, TheServerRefusesANumberThatTwoPassedTheCheckWith) {
    open(GetParam());
    type("txtCaseNum", "<End>0001");
    const TakesTheNumber other(*this);
    type("<Alt+S>");
    EXPECT_EQ(errors.take().number(), 50001);
    EXPECT_EQ(station(), "X|X|||");
    session::gConnection->RollbackTrans();
}

// ---- save and print

class SavePrint : public SaveOnAll {
  public:
    SavePrint() { useOwnReports(); }
    static QString reportName(Kind kind) {
        constexpr const char* names[] = {"NucResult", "NucResultMPI", "NucResultGFR", "NucResultRadio"};
        return QString::fromLatin1(names[int(kind)]);
    }
    tests::Step leaveViewer(bool& shown) {
        return [this, &shown](QWidget& viewer) {
            EXPECT_EQ(shownReport(viewer),
                      "Imaging Section Report: " + reportName(GetParam()) + " 26004078/90001");
            EXPECT_TRUE(screen().isUnloaded()) << "the screen goes before the report comes";
            shown = true;
            viewer.close();
        };
    }
};
INSTANTIATE_TEST_SUITE_P(Screens, SavePrint, testing::ValuesIn(tests::allKinds),
                         testing::PrintToStringParamName());

TEST_P(SavePrint, SavesThenPrintsAndCloses) {
    open(GetParam());
    expectSaved();
    bool shown = false;
    tests::runModal([&] { type("<Alt+P>"); }, {leaveViewer(shown)});
    EXPECT_TRUE(shown);
    EXPECT_EQ(station(), "W|W|11/21/2026 8:30:00 AM|1001|W");
}

TEST_P(SavePrint, DoesNotPrintWhenTheFirstSaveIsRefused) {
    open(GetParam());
    type("txtCaseNum", "<Ctrl+A> ");
    boxes.expect(
        {"Cannot save incomplete data. Please enter Case Number.", controls::vbExclamation, "Message"});
    type("<Alt+P>");
    EXPECT_TRUE(screen().isVisible());
}

TEST_P(SavePrint, PrintsAfterARefusedSaveWhenTheScreenHasSavedBefore) {
    open(GetParam());
    save();
    expectUsed();
    bool shown = false;
    tests::runModal([&] { type("<Alt+P>"); }, {leaveViewer(shown)});
    EXPECT_TRUE(shown);
}

TEST_P(SavePrint, PrintClosesTheScreenInTheMiddleOfAnEdit) {
    fill(GetParam());
    screen().showCommands(std::array{"btnPrint"}, true);
    show();
    type("txtRadiopharmaceutical", "half typed");
    bool shown = false;
    tests::runModal([&] { type("<Alt+R>"); }, {leaveViewer(shown)});
    EXPECT_TRUE(shown);
    EXPECT_EQ(station(), "X|X|||") << "nothing was saved";
}

TEST_P(SavePrint, PrintSaysThatThereIsNothingWithoutAnAdmission) {
    fill(GetParam());
    screen().setText("txtIdNum", {});
    screen().showCommands(std::array{"btnPrint"}, true);
    show();
    boxes.expect({"No Result to process.", controls::vbOKOnly, ""});
    press("btnPrint");
    EXPECT_TRUE(screen().isVisible());
}

} // namespace
