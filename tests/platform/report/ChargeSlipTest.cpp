#include "platform/base/TestDoors.h"
#include "platform/report/Report.h"
#include "tests/platform/report/Bench.h"

#include <gtest/gtest.h>

using report::Length;
using tests::textsOf;

namespace {

struct ChargeslipTest : testing::Test {
    ChargeslipTest()
        : slip(report::Report::open(SCINTRA_SOURCE_DIR "\\Reports\\Chargeslip.RPT", server.logOn())) {
        slip->headingName = "VALE GENERAL HOSPITAL";
        slip->headingAddress = "1 Harbour Road";
        const char* values[] = {"NUCLEAR MEDICINE COST CENTER SLIP",
                                "SANTOS, MARIA LUISA REYES",
                                "PERSONAL",
                                "2601184",
                                "DELA CRUZ, JUAN",
                                "FASTING SINCE MIDNIGHT",
                                "11/21/2026",
                                "DR. ANA B. CRUZ",
                                "C1234J",
                                "(N204)REYES, CARLA"};
        for (int i = 0; i < 10; ++i)
            slip->setParameter(i, values[i]);
    }

    std::unique_ptr<report::PageDocument> run(int lines) {
        tests::Cells rows;
        for (int i = 1; i <= lines; ++i)
            rows.push_back({i, QStringLiteral("10%1").arg(i), QStringLiteral("PROCEDURE %1").arg(i), 2.0,
                            1200.5, 2401.0, "E100", "NU"});
        server.lines = tests::ScriptedProvider::rowsOf(
            "LineID,ItemID,Description,Quantity,Price,Amount,UserID,RevenueID", rows);
        return slip->run();
    }

    base::FixedClock clock{*base::makeDateTime({2026, 11, 21}, {20, 30, 0, 0})};
    tests::ReportServer server;
    std::unique_ptr<report::Report> slip;
};

} // namespace

TEST_F(ChargeslipTest, TakesItsTenValuesInThisOrder) {
    EXPECT_EQ(slip->parameterNames(), (QStringList{"Title", "Patient", "Account", "AdmissionNo", "PrintedBy",
                                                   "Remarks", "Date", "Doctor", "SlipNo", "Nurse"}));
}

TEST_F(ChargeslipTest, ReadsTheWorkTableInTheOrderOfItsLines) {
    run(1);
    EXPECT_EQ(server.texts, QStringList{"SELECT * FROM NUCLEAR..tbNucChargeSlip ORDER BY LineID"});
}

TEST_F(ChargeslipTest, SaysEverythingOnHalfALetterSheet) {
    const auto document = run(2);
    ASSERT_EQ(document->pageCount(), 1);
    EXPECT_EQ(document->pageWidth().hundredths, 21590);
    EXPECT_EQ(document->pageHeight().hundredths, 13970);
    const QStringList lines = report::textOf(*document->page(0)).split('\n');
    const auto has = [&](const QString& text) {
        return std::any_of(lines.begin(), lines.end(),
                           [&](const QString& line) { return line.contains(text); });
    };
    for (const char* text :
         {"VALE GENERAL HOSPITAL", "1 Harbour Road", "NUCLEAR MEDICINE COST CENTER SLIP", "C1234J",
          "SANTOS, MARIA LUISA REYES", "PERSONAL", "2601184", "11/21/2026", "DR. ANA B. CRUZ",
          "(N204)REYES, CARLA", "FASTING SINCE MIDNIGHT", "NU\t101\tPROCEDURE 1\t2\t1,200.50\t2,401.00",
          "2 lines\tTotal", "Requested by\tReceived by",
          "Printed by DELA CRUZ, JUAN, 11/21/2026 08:30 PM\tPage 1 of 1"})
        EXPECT_TRUE(has(text)) << text << "\nin\n" << qPrintable(lines.join('\n'));
    EXPECT_EQ(tests::runOf(*document, 0, "4,802.00").frame.right(),
              tests::runOf(*document, 0, "2,401.00").frame.right());
}

TEST_F(ChargeslipTest, LeavesOutNurseAndRemarksThatAreNotGiven) {
    slip->setParameter("Nurse", "");
    slip->setParameter("Remarks", "  ");
    const QStringList texts = textsOf(*run(1), 0);
    EXPECT_EQ(texts.count("Nurse"), 0);
    EXPECT_EQ(texts.count("Remarks"), 0);
    EXPECT_EQ(texts.count("Doctor"), 1);
    EXPECT_EQ(texts.count("1 line"), 1);
}

TEST_F(ChargeslipTest, ALongListGoesOnWithItsHeadings) {
    const auto document = run(40);
    ASSERT_GT(document->pageCount(), 2);
    for (int page = 0; page < document->pageCount(); ++page) {
        const QStringList texts = textsOf(*document, page);
        for (const char* text : {"VALE GENERAL HOSPITAL", "C1234J", "SANTOS, MARIA LUISA REYES", "Amount"})
            EXPECT_EQ(texts.count(text), 1) << text << " on page " << page;
        EXPECT_EQ(texts.count(QStringLiteral("Page %1 of %2").arg(page + 1).arg(document->pageCount())), 1);
        EXPECT_EQ(texts.count("Total"), page + 1 == document->pageCount() ? 1 : 0);
        EXPECT_EQ(texts.count("Received by"), page + 1 == document->pageCount() ? 1 : 0);
    }
    EXPECT_EQ(tests::runOf(*document, document->pageCount() - 1, "96,040.00").text, "96,040.00");
}

TEST_F(ChargeslipTest, AnEmptyWorkTablePrintsASlipWithoutLines) {
    const auto document = run(0);
    ASSERT_EQ(document->pageCount(), 1);
    EXPECT_EQ(textsOf(*document, 0).count("0 lines"), 1);
    EXPECT_EQ(textsOf(*document, 0).count("0.00"), 1);
}

TEST_F(ChargeslipTest, PartsOfAQuantityAreShownOnlyWhereThereAreSome) {
    server.lines =
        tests::ScriptedProvider::rowsOf("LineID,ItemID,Description,Quantity,Price,Amount,UserID,RevenueID",
                                        {{1, "A", "B", 1.5, 2.0, 3.0, "E", "MN"}});
    EXPECT_EQ(textsOf(*slip->run(), 0).count("1.50"), 1);
}
