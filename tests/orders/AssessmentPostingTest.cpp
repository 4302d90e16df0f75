// What a saved assessment leaves with the cashier, and what comes back of one that fails.
#include "orders/AssessmentPosting.h"
#include "session/Session.h"
#include "session/reports/ReportLaunch.h"
#include "tests/orders/AssessmentFixture.h"
#include "tests/orders/SlipPrinter.h"

#include <QKeyEvent>
#include <QTest>

namespace {

std::string listed(const QStringList& texts) {
    return texts.join(u'\n').toStdString();
}

class AssessmentPosting : public tests::AssessmentFixture {
  public:
    /// The text that advances a number of the row; `last` is the one before.
    static QString advance(const char* column, int last) {
        return QStringLiteral(
                   "UPDATE: UPDATE BILLING..tbAssessmentNum SET [%1] = %2 WHERE [AssessmentNumID] = "
                   "1 AND [%1] = %3")
            .arg(QLatin1String(column))
            .arg(last + 1)
            .arg(last);
    }
    QString files() {
        return value("SELECT COUNT(*) FROM BILLING..tbCashAssessment") + u'/' +
               QString::number(lastAssessment()) + u'/' + QString::number(lastRow());
    }
    void lineOf(const QString& cells) { grid().AddItem(cells); }
    void save() {
        button("btnSave").setEnabled(true);
        tests::click(button("btnSave"));
    }
    QStringList added() { return takeTexts().filter("spNuclear_AddCashAsses"); }
};

TEST_F(AssessmentPosting, AProcedureAFeeAndALineThatIsAssessedAlready) {
    openForRegular();
    type("NU<Enter>1001<Enter>R<Enter>2<Enter>MD<Enter>201<Enter><Tab>1500.50<Enter>");
    type("MD<Enter>201<Enter><Tab>900<Enter>");
    const double rate =
        value("SELECT CONVERT(varchar(20), RateA) FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = '1001'")
            .toDouble();
    const int assessment = lastAssessment();
    const int row = lastRow();
    const QString reference = QStringLiteral("NU%1").arg(assessment + 1);
    takeTexts();
    expectSaved();
    tests::click(button("btnSave"));
    const QString now = savedAt(reference);
    EXPECT_EQ(
        listed(takeTexts()),
        listed({"BEGIN", "SELECT *,getdate() as [server date] FROM BILLING..tbAssessmentNum",
                advance("assessmentnum", assessment),
                "spNuclear_CheckCashAsses 'NU','1001','" + reference + "'",
                "Select * From BILLING..tbAssessmentNum", advance("RequestNum", row),
                QStringLiteral("spNuclear_AddCashAsses '104078','T104078C','AGUILAR, VIRGILIO AVELINO','%1', "
                               "'NU%2','1001','%3', '1001','%4','NU'  ,'', '204','2'")
                    .arg(now)
                    .arg(row + 1)
                    .arg(QString::number(rate * 2), reference),
                "spNuclear_CheckCashAsses 'MD','201','" + reference + "'",
                "Select * From BILLING..tbAssessmentNum", advance("RequestNum", row + 1),
                QStringLiteral("spNuclear_AddCashAsses '104078','T104078C','AGUILAR, VIRGILIOAVELINO','%1', "
                               "'NU%2','201','1500.5', '1001','%3','MD','NU', '204','1'")
                    .arg(now)
                    .arg(row + 2)
                    .arg(reference),
                "spNuclear_CheckCashAsses 'MD','201','" + reference + "'", "COMMIT"}));
    EXPECT_EQ(screen().AssessmentRef(), reference);
    EXPECT_EQ(lastAssessment(), assessment + 1);
    EXPECT_EQ(lastRow(), row + 2);
    EXPECT_EQ(count("BILLING..tbCashAssessment", "RefNum = '" + reference + "'"), 2);
    EXPECT_TRUE(screen().isUnloaded());
    EXPECT_TRUE(screen().isNextWanted());
    EXPECT_EQ(field("txtSname").text(), "");
}

TEST_F(AssessmentPosting, WhatIsNeitherAProcedureNorOfTheHospitalIsFiledAsAFeeOfTheSection) {
    openForRegular();
    lineOf("\tHS\tH1\tSERVICE\t\t40\t\t");
    lineOf("\tUR\t40001\tSYRINGE\t\t12.5\t3\t37.5");
    lineOf("\tFN\t201\tREADER\t\t\t1\t350");
    grid().RemoveItem(1);
    const QString reference = QStringLiteral("NU%1").arg(lastAssessment() + 1);
    const int row = lastRow();
    expectSaved();
    save();
    QStringList checks = takeTexts();
    const QStringList sent = checks.filter("spNuclear_AddCashAsses");
    checks = checks.filter("spNuclear_CheckCashAsses");
    EXPECT_EQ(listed(checks), listed({"spNuclear_CheckCashAsses 'MD','H1','" + reference + "'",
                                      "spNuclear_CheckCashAsses 'MD','40001','" + reference + "'",
                                      "spNuclear_CheckCashAsses 'MD','201','" + reference + "'"}));
    const QString now = savedAt(reference);
    const auto text = [&](const char* name, int step, const char* rest) {
        return QStringLiteral("spNuclear_AddCashAsses '104078','T104078C','AGUILAR, %1','%2', 'NU%3',%4")
            .arg(QLatin1String(name), now)
            .arg(row + step)
            .arg(QString::fromLatin1(rest).replace("{ref}", reference));
    };
    EXPECT_EQ(listed(sent),
              listed({text("VIRGILIO AVELINO", 1, "'H1','40', '1001','{ref}','HS'  ,'', '204','0'"),
                      text("VIRGILIOAVELINO", 2, "'40001','37.5', '1001','{ref}','MD','NU', '204','3'"),
                      text("VIRGILIOAVELINO", 3, "'201','350', '1001','{ref}','MD','NU', '204','1'")}))
        << "an empty amount is the price, an empty quantity is none";
}

TEST_F(AssessmentPosting, TheLinesBehindAGapAreNotFiled) {
    openForRegular();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    grid().setTextMatrix(2, 1, "NU");
    lineOf("\tNU\t1002\tBEHIND\tROUTINE\t100\t1\t100");
    expectSaved();
    save();
    const QStringList sent = added();
    ASSERT_EQ(sent.size(), 1);
    EXPECT_TRUE(sent[0].contains("'1001'"));
}

TEST_F(AssessmentPosting, ATypedCodeOfTheDoctorGoesTrimmedWithAProcedureAlone) {
    openForRegular();
    field("txtDoctorID").setText(" 209 ");
    lineOf("\tNU\t1001\tBONE SCAN\t\t100\t1\t100");
    lineOf("\tMD\t201\tFEE\t\t\t1\t50");
    grid().RemoveItem(1);
    expectSaved();
    save();
    const QStringList sent = added();
    EXPECT_TRUE(sent.value(0).endsWith("'NU'  ,'', '209','1'")) << listed(sent);
    EXPECT_TRUE(sent.value(1).endsWith("'MD','NU', ' 209 ','1'")) << listed(sent);
}

TEST_F(AssessmentPosting, ItsNumbersBeginWithTheSectionThatTheLastSaveLeft) {
    openForRegular();
    lineOf("\tNU\t1001\tBONE SCAN\t\t100\t1\t100");
    grid().RemoveItem(1);
    const int assessment = lastAssessment();
    const int row = lastRow();
    const QString own = std::exchange(session::gSectionCode, "MD");
    expectSaved();
    save();
    session::gSectionCode = own;
    const QStringList sent = added();
    ASSERT_EQ(sent.size(), 1);
    EXPECT_TRUE(sent[0].contains(QStringLiteral("'MD%1','1001'").arg(row + 1))) << listed(sent);
    EXPECT_TRUE(sent[0].contains(QStringLiteral("'MD%1','NU'").arg(assessment + 1))) << listed(sent);
}

TEST_F(AssessmentPosting, AFailureOnTheThirdLineTakesBackBothNumbersAndTheFirstTwoLines) {
    openForRegular();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>NU<Enter>1002<Enter>R<Enter>1<Enter>MD<Enter>201<Enter><Tab>5<"
         "Enter>");
    const QString before = files();
    // two for the number of the assessment, four for each line
    for (const int failing : {1, 2, 3, 5, 6, 11, 13, 14}) {
        takeTexts();
        boxes.expect({"Data Not Successfully Saved!", controls::vbExclamation, "Warning"});
        {
            const tests::FaultInjector fault(*session::gConnection, failing);
            tests::click(button("btnSave"));
        }
        const QStringList sent = takeTexts();
        EXPECT_EQ(sent.first(), "BEGIN");
        EXPECT_EQ(sent.last(), "ROLLBACK") << failing;
        EXPECT_EQ(sent.size(), failing + 2);
        EXPECT_FALSE(session::gConnection->inTransaction());
        EXPECT_EQ(files(), before) << failing;
        EXPECT_FALSE(screen().isUnloaded());
        EXPECT_TRUE(button("btnSave").isEnabled()) << "to be tried again";
        EXPECT_EQ(screen().AssessmentRef(), "");
    }
    expectSaved();
    tests::click(button("btnSave"));
    EXPECT_EQ(added().size(), 3);
    EXPECT_TRUE(screen().isUnloaded());
}

TEST_F(AssessmentPosting, ANumberThatIsNoneIsAFailureLikeAnyOther) {
    openForRegular();
    lineOf("\tNU\t1001\tBONE SCAN\t\t100\t1\t15OO");
    grid().RemoveItem(1);
    const QString before = files();
    boxes.expect({"Data Not Successfully Saved!", controls::vbExclamation, "Warning"});
    save();
    EXPECT_EQ(files(), before);
}

TEST_F(AssessmentPosting, ASecondPressNeverFilesTwice) {
    openForRegular();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    const int assessment = lastAssessment();
    boxes.expect({.prompt = "Data Successfully Saved.",
                  .style = controls::vbInformation,
                  .title = "Message",
                  .meanwhile = [&] {
                      EXPECT_FALSE(button("btnSave").isEnabled());
                      EXPECT_FALSE(button("btnClear").isEnabled());
                      type("<Alt+S><Enter>");
                      button("btnSave").click();
                      button("btnClear").click();
                  }});
    QTest::mouseClick(&button("btnSave"), Qt::LeftButton);
    QTest::mouseDClick(&button("btnSave"), Qt::LeftButton);
    EXPECT_EQ(takeTexts().count("BEGIN"), 1);
    EXPECT_EQ(lastAssessment(), assessment + 1);
}

TEST_F(AssessmentPosting, ACellThatCannotBeTakenKeepsTheSaveBack) {
    openForRegular();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>MD");
    boxes.expect({"Line 2 has no code yet.", controls::vbInformation, ""});
    takeTexts();
    tests::click(button("btnSave"));
    EXPECT_EQ(takeTexts().count("BEGIN"), 0);
    EXPECT_TRUE(button("btnSave").isEnabled());
}

/// An Enter that is still held down.
void holdEnter(QWidget& window) {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
    QCoreApplication::sendEvent(window.focusWidget() ? window.focusWidget() : &window, &held);
}

TEST_F(AssessmentPosting, EachSaveBringsAFreshScreenAndNoneStandsBehindIt) {
    const int assessment = lastAssessment();
    std::vector<tests::Step> steps;
    constexpr int patients = 3;
    for (int i = 0; i < patients; ++i) {
        expectSaved();
        steps.push_back([this, i](QWidget& window) {
            EXPECT_EQ(&window, &screen());
            EXPECT_EQ(controls::Screen::openScreens().size(), 1u) << "one after the other";
            EXPECT_EQ(patient(), "|||||");
            EXPECT_EQ(grid().Rows(), 2);
            takeTexts();
            holdEnter(window); // of the box before
            EXPECT_EQ(takeTexts(), QStringList());
            find("optType_1", "104078<Enter>");
            type("204<Enter>NU<Enter>1001<Enter>R<Enter>1<Enter>");
            EXPECT_EQ(lastAssessment(), 5024 + i);
            button("btnSave").setFocus();
            type("<Enter>");
        });
    }
    steps.push_back([this](QWidget& window) {
        EXPECT_EQ(patient(), "|||||");
        tests::click(tests::child<QPushButton>(window, "btnClose"));
    });
    tests::runModal([] { orders::frmAssessment::ShowForEachPatient(); }, steps);
    EXPECT_EQ(lastAssessment(), assessment + patients);
    EXPECT_FALSE(screen().isNextWanted());
}

TEST_F(AssessmentPosting, AQuantityIsSentInWholeNumbers) {
    openForRegular();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    grid().setTextMatrix(1, 6, "1.5"); // as a package may bring it
    expectSaved();
    save();
    const QStringList lines = added();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines[0].endsWith(",'2'")) << lines[0].toStdString();
}

TEST_F(AssessmentPosting, TheSlipIsFilledTwiceAndPrintedWithItsTenValues) {
    tests::SlipPrinter slip;
    openForRegular();
    type("NU<Enter>1001<Enter>S<Enter>2<Enter>MD<Enter>201<Enter><Tab>1500<Enter>");
    const QString fee = cell(2, 3);
    const QString rate = cell(1, 13);
    const QString amount = cell(1, 7);
    const QString doctor = field("txtDoctor").text();
    lineOf("\tFN\t202\tREADER\t\t7\t\t350.5");
    lineOf("\t\t1003\tNO SECTION\t\t1\t1\t1");
    grid().RemoveItem(3);
    const QString reference = QStringLiteral("NU%1").arg(lastAssessment() + 1);
    expectSaved();
    takeTexts();
    tests::click(button("btnClear"));
    const QStringList texts = takeTexts();
    const QStringList lines{"sp_Nuclear_DumpChargeSlip '1001','BONE SCAN, WHOLE BODY','2','" + rate + "','" +
                                amount + "','1001', 'NU'",
                            "sp_Nuclear_DumpChargeSlip '201','" + fee +
                                "','1','1500.00','1500.00','1001', 'MD'",
                            "sp_Nuclear_DumpChargeSlip '202','READER','1','350.5','350.5','1001', 'FN'"};
    EXPECT_EQ(listed(texts.mid(texts.indexOf("COMMIT") + 1)),
              listed(QStringList{"DELETE tbNucChargeSlip"} + lines +
                     QStringList{"delete from tbNucChargeSlip"} + lines));
    EXPECT_EQ(slip.printed,
              (QStringList{"0: NUCLEAR MEDICINE COST CENTER SLIP", "1: AGUILAR, VIRGILIO AVELINO",
                           "2: ", "3: T104078C", "4: REYES, JOAN P.", "5: ", "6: 11/21/2026", "7: " + doctor,
                           "8: " + reference, "9: "}))
        << listed(slip.printed);
    EXPECT_EQ(session::gReport, nullptr);
    EXPECT_TRUE(screen().isUnloaded());
    EXPECT_TRUE(screen().isNextWanted());
}

TEST_F(AssessmentPosting, WithoutAPrinterTheSlipIsShownUnderItsTitle) {
    tests::SlipPrinter slip;
    slip.usePrinter(false);
    openForRegular();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    expectSaved();
    QString title;
    tests::runModal([&] { tests::click(button("btnClear")); }, {[&](QWidget& viewer) {
                        title = viewer.windowTitle();
                        viewer.close();
                    }});
    EXPECT_EQ(title, "Charge Slip Printing");
    EXPECT_TRUE(screen().isUnloaded());
}

TEST_F(AssessmentPosting, AnAssessmentThatFailedPrintsNothing) {
    tests::SlipPrinter slip;
    openForRegular();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    takeTexts();
    boxes.expect({"Data Not Successfully Saved!", controls::vbExclamation, "Warning"});
    {
        const tests::FaultInjector fault(*session::gConnection, 2);
        tests::click(button("btnClear"));
    }
    EXPECT_EQ(takeTexts().filter("ChargeSlip").size(), 0);
    EXPECT_EQ(slip.printed, QStringList());
    EXPECT_FALSE(screen().isUnloaded());
}

TEST_F(AssessmentPosting, TheNextFreeNumberSkipsWhatWasUsedByHand) {
    const int last = lastAssessment();
    // the last one is in use, and so is the second behind it
    hospital.run(QStringLiteral("UPDATE BILLING..tbCashAssessment SET RefNum = 'NU%1' WHERE AssessID = 1")
                     .arg(last + 1));
    takeTexts();
    EXPECT_EQ(orders::NextFreeAssessment(), QStringLiteral("NU%1").arg(last + 2));
    QStringList expected;
    for (int number = last; number <= last + 2; ++number)
        expected +=
            {"SELECT AssessmentNum FROM tbAssessmentNum",
             QStringLiteral("UPDATE: UPDATE tbAssessmentNum SET [AssessmentNum] = %1 WHERE [AssessmentNum] = "
                            "%2 AND (SELECT COUNT(*) FROM tbAssessmentNum WHERE [AssessmentNum] = %2) = 1")
                 .arg(number + 1)
                 .arg(number),
             QStringLiteral("select count(*) [RecCount] from tbCashAssessment where refnum = 'NU%1'")
                 .arg(number)};
    EXPECT_EQ(listed(takeTexts()), listed(expected));
    EXPECT_EQ(lastAssessment(), last + 3);
    EXPECT_EQ(orders::NextFreeAssessment(), QStringLiteral("NU%1").arg(last + 3));
}

} // namespace
