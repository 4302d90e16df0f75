#include "session/Routines.h"
#include "platform/base/TestDoors.h"

#include "session/Session.h"
#include "session/rights/CheckAccess.h"
#include "session/services/Services.h"
#include "tests/session/Drive.h"
#include "tests/support/screens/ScriptedSession.h"

using namespace session;
using tests::ScriptedProvider;

namespace {

class Routines : public testing::Test {
  protected:
    tests::ScriptedSession session;
};

TEST_F(Routines, ServerDateIsReadAndKept) {
    const auto moment = *base::makeDateTime({2026, 11, 21}, {20, 30, 5});
    session.server().answer(QStringLiteral("select GETDATE()"),
                            ScriptedProvider::rowsOf(QStringLiteral("Tdate"), {{moment}}));
    EXPECT_EQ(GetServerDate(), moment);
    EXPECT_EQ(gServerDate, moment);
    EXPECT_EQ(session.texts(), QStringList{QStringLiteral("select GETDATE() AS Tdate")});
}

TEST_F(Routines, RequestedAsksNothingWithoutARow) {
    session.server().answer(QStringLiteral("STATION..Nurse_CheckExamStatus"),
                            ScriptedProvider::rowsOf(QStringLiteral("RequestDate")));
    tests::Boxes none;
    EXPECT_FALSE(
        CheckExamRequested(QStringLiteral(" 2601 "), QStringLiteral(" U0044"), QStringLiteral("CS ")));
    EXPECT_EQ(session.texts(),
              QStringList{QStringLiteral("STATION..Nurse_CheckExamStatus '2601','U0044','CS'")});
}

TEST_F(Routines, RequestedIsTrueOnOkAndFalseOnCancel) {
    session.server().answer(
        QStringLiteral("STATION..Nurse_CheckExamStatus"),
        ScriptedProvider::rowsOf(QStringLiteral("RequestDate"), {{" 11/20/2026 8:15 AM "}}));
    tests::Boxes boxes({controls::vbOK, controls::vbCancel});
    EXPECT_TRUE(CheckExamRequested(QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("PH")));
    EXPECT_FALSE(CheckExamRequested(QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("PH")));
    EXPECT_EQ(boxes.shown[0].prompt,
              u"The Item is already requested at 11/20/2026 8:15 AM. Do you want to proceed? ");
    EXPECT_EQ(boxes.shown[0].style, controls::vbOKCancel);
    EXPECT_EQ(boxes.shown[0].title, u"Message ");
}

TEST_F(Routines, PostedIsTrueOnNoAndFalseOnYesOrWithoutARow) {
    session.server().answer(QStringLiteral("STATION..Nurse_CheckExam_Posted '1'"),
                            ScriptedProvider::rowsOf(QStringLiteral("processdate"), {{" 8:15 AM "}}));
    session.server().answer(QStringLiteral("STATION..Nurse_CheckExam_Posted"),
                            ScriptedProvider::rowsOf(QStringLiteral("processdate")));
    tests::Boxes boxes({controls::vbNo, controls::vbYes});
    EXPECT_TRUE(CheckExamPosted(QStringLiteral(" 1"), QStringLiteral("2 "), QStringLiteral("PH")));
    EXPECT_FALSE(CheckExamPosted(QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("PH")));
    EXPECT_FALSE(CheckExamPosted(QStringLiteral("9"), QStringLiteral("2"), QStringLiteral("PH")));
    EXPECT_EQ(boxes.shown[0].prompt,
              u"This Request has been PROCCESSED TODAY AT 8:15 AM! Do you wish to REPEAT it ?");
    EXPECT_EQ(boxes.shown[0].style, controls::vbYesNo + controls::vbCritical);
    EXPECT_EQ(boxes.shown[0].title, u"Message ");
    EXPECT_EQ(session.texts()[0], u"STATION..Nurse_CheckExam_Posted '1','2','PH'");
}

TEST_F(Routines, StockCardGoesOutInTheOrderOfItsArguments) {
    const base::FixedClock clock(*base::makeDateTime({2026, 11, 21}, {14, 5, 9}));
    AppendStockCard(QStringLiteral("CS"), QStringLiteral("0045127"), QStringLiteral("2601184"),
                    QStringLiteral("U0044"), QStringLiteral("C12J"), 2, 360.5, QStringLiteral("412"),
                    QStringLiteral("224"), QStringLiteral("NU"));
    EXPECT_EQ(session.texts(),
              QStringList{QStringLiteral(
                  "INVENTORY..sp_AppendStockCard '0045127','2601184','U0044','11/21/2026 14:05',"
                  "'C12J','2','0','360.5','1001','PRN','412','224','','NU','0','CS','CS','',"
                  "NULL,NULL,NULL,'O'")});
}

TEST(TrimUpper, TrimsThenUppers) {
    EXPECT_EQ(TrimUpper(QStringLiteral("  bone scan ")), u"BONE SCAN");
    EXPECT_EQ(TrimUpper(QStringLiteral(" mu\u00f1oz")), QStringLiteral("MU\u00d1OZ"));
}

TEST(CleanVariant, KeepsTextsAndTrimsNumbers) {
    EXPECT_EQ(CleanVariant(QStringLiteral("   ")), u"");
    EXPECT_EQ(CleanVariant(QStringLiteral(" 12 ")), u"12");
    EXPECT_EQ(CleanVariant(QStringLiteral(" ward ")), u" ward ");
    EXPECT_EQ(CleanVariant(base::Value()), u"");
    EXPECT_EQ(CleanVariant(12.5), u"12.5");
}

TEST(AllUppers, UpperCasesLettersOnly) {
    const KeyPress keys;
    EXPECT_EQ(keys.AllUppers('a'), 'A');
    EXPECT_EQ(keys.AllUppers('A'), 'A');
    EXPECT_EQ(keys.AllUppers('7'), '7');
    EXPECT_EQ(keys.AllUppers(0xF1), 0xD1);
    EXPECT_EQ(keys.AllUppers(13), 13);
    EXPECT_EQ(keys.AllUppers(39), 39);
}

TEST_F(Routines, RightsTakeTwoStatementsEachTime) {
    session.server().answer(
        QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights WHERE RightsID = '7' "),
        ScriptedProvider::rowsOf(QStringLiteral("RightsID"), {{"7"}}));
    session.server().answer(QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights"),
                            ScriptedProvider::rowsOf(QStringLiteral("RightsID")));
    EXPECT_TRUE(checkAccess().WithRights(QStringLiteral("1001"), QStringLiteral(" 7 ")));
    EXPECT_TRUE(checkAccess().WithRights(QStringLiteral("1001"), QStringLiteral("7")));
    EXPECT_FALSE(checkAccess().WithRights(QStringLiteral("1001"), QStringLiteral("17")));
    const QString list = QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1001'");
    const QString seven =
        QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights WHERE RightsID = '7' ");
    EXPECT_EQ(session.texts(),
              (QStringList{list, seven, list, seven, list,
                           QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights WHERE "
                                          "RightsID = '17' ")}));
}

} // namespace
