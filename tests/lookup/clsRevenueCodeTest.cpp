#include "lookup/clsRevenueCode.h"

#include "lookup/clsLoadExam.h"
#include "lookup/frmSearch.h"
#include "platform/base/Error.h"
#include "tests/lookup/LookupFixture.h"

#include <QPushButton>

namespace {

using tests::child;

const char* const columns = "RevenueID,Revenue,WithItems,SearchInventory,LocationID,InvCode";

class RevenueCode : public tests::LookupFixture {
  protected:
    void answerOne(const char* statement, bool once = false) {
        answer(statement, columns, {{"NU ", "NUCLEAR MEDICINE", "Y", false, nullptr, nullptr}}, once);
    }
    /// Validates `text` and presses a button of the list that opens.
    bool validated(const char* text, const char* button) {
        bool valid = false;
        tests::runModal([&] { valid = code.ValidateRevenue(QString::fromLatin1(text)); },
                        {[&](QWidget& window) {
                            caption = dynamic_cast<lookup::frmSearch&>(window).SearchCaption;
                            tests::click(child<QPushButton>(window, button));
                        }});
        return valid;
    }

    lookup::clsRevenueCode code;
    QString caption;
};

TEST_F(RevenueCode, OneRowIsTakenWithoutAList) {
    answerOne("sp_Nuclear_SearchRevenue '1'");
    EXPECT_TRUE(code.ValidateRevenue(QStringLiteral("NU")));
    EXPECT_EQ(takeStatements(), QStringList{QStringLiteral("sp_Nuclear_SearchRevenue '1','NU'")});
    EXPECT_EQ(code.RevenueID(), QStringLiteral("NU"));
    EXPECT_EQ(code.Revenue(), QStringLiteral("NUCLEAR MEDICINE"));
    EXPECT_EQ(code.WithItems(), QStringLiteral("Y"));
    EXPECT_FALSE(code.SearchInventory());
    EXPECT_EQ(code.LocationID(), QString());
    EXPECT_EQ(code.InventoryCode(), QString());
}

TEST_F(RevenueCode, NothingLikeItSaysSo) {
    answer("sp_Nuclear_SearchRevenue '1'", columns);
    answer("sp_Nuclear_SearchRevenue '2'", "recCount", {{0}});
    EXPECT_FALSE(code.ValidateRevenue(QStringLiteral("ZZ")));
    EXPECT_EQ(takeStatements(), (QStringList{QStringLiteral("sp_Nuclear_SearchRevenue '1','ZZ'"),
                                             QStringLiteral("sp_Nuclear_SearchRevenue '2','ZZ'")}));
    EXPECT_EQ(boxes(), QStringList{QStringLiteral("48||Item does not exists.")});
}

TEST_F(RevenueCode, LikeCodesOpenTheListAndEachStatementKeepsItsOwnForm) {
    answer("sp_Nuclear_SearchRevenue '1'", columns);
    answer("sp_Nuclear_SearchRevenue '2'", "recCount", {{2}});
    answer("spNuclear_SearchRevenue '0'", "Revenue,RevenueID", {{"NUCLEAR MEDICINE", "NU"}});
    answer("spNuclear_SearchRevenue '1'", columns, {{"NU", "NUCLEAR MEDICINE", "Y", true, "224", "N1"}});
    EXPECT_TRUE(validated("N", "cmdSelect"));
    EXPECT_EQ(caption, QStringLiteral("Revenue Codes"));
    EXPECT_EQ(takeStatements(), (QStringList{QStringLiteral("sp_Nuclear_SearchRevenue '1','N'"),
                                             QStringLiteral("sp_Nuclear_SearchRevenue '2','N'"),
                                             QStringLiteral("spNuclear_SearchRevenue '0','N'"),
                                             QStringLiteral("spNuclear_SearchRevenue '1','NU'")}));
    EXPECT_EQ(code.RevenueID(), QStringLiteral("NU"));
    EXPECT_TRUE(code.SearchInventory());
    EXPECT_EQ(code.LocationID(), QStringLiteral("224"));
    EXPECT_EQ(code.InventoryCode(), QStringLiteral("N1"));
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(RevenueCode, SeveralExactRowsOpenTheListToo) {
    answer("sp_Nuclear_SearchRevenue '1'", columns,
           {{"NU", "ONE", "Y", false, "", ""}, {"NU", "TWO", "Y", false, "", ""}});
    answer("sp_Nuclear_SearchRevenue '2'", "recCount", {{2}});
    answer("spNuclear_SearchRevenue '0'", "Revenue,RevenueID", {{"ONE", "NU"}});
    EXPECT_FALSE(validated("NU", "cmdCancel"));
    EXPECT_EQ(takeStatements().size(), 3);
}

TEST_F(RevenueCode, ACancelledListIsFalseWithoutABox) {
    answerOne("sp_Nuclear_SearchRevenue '1'", true);
    ASSERT_TRUE(code.ValidateRevenue(QStringLiteral("NU")));
    answer("sp_Nuclear_SearchRevenue '1'", columns);
    answer("sp_Nuclear_SearchRevenue '2'", "recCount", {{1}});
    answer("spNuclear_SearchRevenue '0'", "Revenue,RevenueID", {{"NURSERY", "NY"}});
    EXPECT_FALSE(validated("NY", "cmdCancel"));
    EXPECT_EQ(boxes(), QStringList());
    EXPECT_EQ(code.RevenueID(), QStringLiteral("NU")) << "the last code validated stays";
}

TEST_F(RevenueCode, IsOneSharedInstance) {
    EXPECT_EQ(&lookup::revenueCode(), &lookup::revenueCode());
}

TEST_F(RevenueCode, AQuoteIsRefusedBeforeAnythingIsSent) {
    EXPECT_THROW(code.ValidateRevenue(QStringLiteral("N' OR '1'='1")), base::RunTimeError);
    EXPECT_EQ(takeStatements(), QStringList());
}

using LoadExam = tests::LookupFixture;

TEST_F(LoadExam, CopiesTheExamWithItsDefaults) {
    answer("spNuclear_LoadExamEntry", "ExamID,Exam,RateA,RateB,RateC,RateD,RateE,Status,Classification",
           {{"1012", "WHOLE BODY BONE SCAN", 1000.0, nullptr, "3000.50", nullptr, 5000.0, "A", nullptr}});
    lookup::clsLoadExam exam(connection);
    exam.LoadExam(QStringLiteral("1012"));
    EXPECT_EQ(takeStatements(), QStringList{QStringLiteral("spNuclear_LoadExamEntry '1012'")});
    EXPECT_TRUE(exam.Found());
    EXPECT_EQ(exam.ExamID(), QStringLiteral("1012"));
    EXPECT_EQ(exam.Exam(), QStringLiteral("WHOLE BODY BONE SCAN"));
    EXPECT_EQ(exam.Status(), QStringLiteral("A"));
    EXPECT_EQ(exam.RateA(), 1000);
    EXPECT_EQ(exam.RateB(), 0);
    EXPECT_EQ(exam.RateC(), 3000.5);
    EXPECT_EQ(exam.RateD(), 0);
    EXPECT_EQ(exam.RateE(), 5000);
    EXPECT_EQ(exam.Classification(), QStringLiteral("A"));
}

TEST_F(LoadExam, SaysWhenThereIsNone) {
    answer("spNuclear_LoadExamEntry", "ExamID,Exam,RateA,RateB,RateC,RateD,RateE,Status,Classification");
    lookup::clsLoadExam exam;
    exam.LoadExam(QStringLiteral("9999"));
    EXPECT_FALSE(exam.Found());
}

} // namespace
