#include "platform/base/Error.h"
#include "platform/report/Run.h"
#include "platform/report/layout/LinkedStrips.h"
#include "tests/platform/report/Bench.h"

#include <gtest/gtest.h>

using base::Value;
using report::Length;
using tests::textsOf;

namespace {

/// Answers the main table with its rows, and the sub-report's table with two lines for the value asked for.
class LinkedServer {
  public:
    report::LogOn logOn() {
        return [this](const QString&, const QString&, const QString&, const QString&) {
            ++connections;
            auto connection = std::make_unique<ado::Connection>();
            connection->Open(std::make_unique<Session>(*this), "report");
            return connection;
        };
    }

    ado::Result main;
    QStringList asked; ///< of the sub-report's table
    int connections = 0;
    int linesEach = 2;

  private:
    class Session : public tests::ScriptedProvider {
      public:
        explicit Session(LinkedServer& server) : m_server(server) {}
        ado::Result execute(const QString& text) override {
            if (!text.contains("tbResults"))
                return m_server.main;
            m_server.asked << text.section(u'\'', 1, 1);
            tests::Cells lines;
            for (int i = 1; i <= m_server.linesEach; ++i)
                lines.push_back({QStringLiteral("%1/%2").arg(m_server.asked.last()).arg(i)});
            return rowsOf("Line", lines);
        }

      private:
        LinkedServer& m_server;
    };
};

constexpr const char* results =
    "<subReport name=\"Results\"><parameter name=\"Exam\"/><parameter name=\"Mark\"/>"
    "<table name=\"R\" location=\"NUCLEAR..tbResults\">SELECT * FROM {table} WHERE E = '{?Exam}'</table>"
    "<details height=\"5mm\"><field x=\"0mm\" y=\"0mm\" width=\"40mm\" height=\"5mm\" "
    "value=\"{R.Line} &amp; {?Mark}\"/></details></subReport>";

constexpr const char* inDetails =
    "<details height=\"6mm\"><field x=\"0mm\" y=\"0mm\" width=\"30mm\" height=\"5mm\" value=\"{Exam}\"/>"
    "<insert report=\"Results\" x=\"40mm\" y=\"0mm\" height=\"5mm\"><link parameter=\"exam\" "
    "value=\"{Exam}\"/></insert></details>";

struct LinkedTest : testing::Test {
    std::unique_ptr<report::Report> opened(const QString& inside, const tests::Cells& rows) {
        server.main = tests::ScriptedProvider::rowsOf("Exam,Dept", rows);
        return report::Report::open(folder.write("main.RPT", tests::definitionOf(inside)), server.logOn());
    }
    std::unique_ptr<report::Report> opened(const tests::Cells& rows) {
        auto report = opened(QString(results) + inDetails, rows);
        report->subReport("Results").setParameter("Mark", "!");
        return report;
    }

    tests::Folder folder;
    LinkedServer server;
};

} // namespace

TEST_F(LinkedTest, ASubReportShowsTheRowsOfTheRowThatItStandsIn) {
    const auto document = opened({{"GFR", "NU"}, {"BONE", "NU"}})->run();
    EXPECT_EQ(textsOf(*document, 0), (QStringList{"GFR", "GFR/1!", "GFR/2!", "BONE", "BONE/1!", "BONE/2!"}));
    EXPECT_EQ(tests::runOf(*document, 0, "GFR/2!").frame.x, Length::fromMm(50));
    EXPECT_EQ(tests::runOf(*document, 0, "BONE").frame.y, Length::fromMm(10 + 11)); // grown with its band
}

TEST_F(LinkedTest, EachValueIsReadOnceOverOneConnection) {
    tests::Cells rows;
    for (int i = 0; i < 60; ++i)
        rows.push_back({i % 3 == 0 ? "A" : i % 3 == 1 ? "B" : "C", "NU"});
    const auto document = opened(rows)->run();
    ASSERT_GT(document->pageCount(), 5);
    EXPECT_EQ(server.asked, (QStringList{"A", "B", "C"}));
    EXPECT_EQ(server.connections, 2); // the report's and the sub-report's
    for (int page = document->pageCount() - 1; page >= 0; --page)
        document->page(page);
    EXPECT_EQ(server.asked.size(), 3);
}

TEST_F(LinkedTest, APageMadeAgainComesOutTheSameThoughTheServerHasChanged) {
    tests::Cells rows;
    for (int i = 0; i < 400; ++i)
        rows.push_back({QStringLiteral("E%1").arg(i), "NU"});
    const auto document = opened(rows)->run();
    ASSERT_GT(document->pageCount(), 40); // neither all pages nor all strips are kept
    const QStringList first = textsOf(*document, 0);
    server.linesEach = 9;
    for (int page = 0; page < document->pageCount(); ++page)
        document->page(page);
    EXPECT_EQ(textsOf(*document, 0), first);
    EXPECT_EQ(server.asked.size(), 400);
}

TEST_F(LinkedTest, WhatIsLinkedIsNotAskedFor) {
    const auto report = opened(QString(results) + inDetails, {{"GFR", "NU"}});
    EXPECT_EQ(report->subReport("Results").missingParameters(), std::vector<int>{1});
    // Placed without a link as well, it wants the value there.
    const auto both =
        opened(QString(results) + inDetails +
                   "<reportFooter height=\"5mm\"><insert report=\"Results\" x=\"0mm\" y=\"0mm\"/>"
                   "</reportFooter>",
               {{"GFR", "NU"}});
    EXPECT_EQ(both->subReport("Results").missingParameters(), (std::vector<int>{0, 1}));
    both->subReport("Results").setParameter(0, "ALL");
    EXPECT_EQ(textsOf(*both->run(), 0), (QStringList{"GFR", "GFR/1", "GFR/2", "ALL/1", "ALL/2"}));
}

TEST_F(LinkedTest, GroupBandsLinkToo) {
    const auto report = opened(
        QString(results) +
            "<group name=\"D\" by=\"{Dept}\"><header height=\"5mm\"><insert report=\"Results\" x=\"0mm\" "
            "y=\"0mm\"><link parameter=\"Exam\" value=\"{Dept} &amp; Count({Exam})\"/>"
            "<link parameter=\"Mark\" value=\"&quot;#&quot;\"/></insert></header></group>"
            "<details height=\"5mm\"><field x=\"0mm\" y=\"0mm\" width=\"30mm\" height=\"5mm\" "
            "value=\"{Exam}\"/></details>",
        {{"a", "NU"}, {"b", "NU"}, {"c", "MD"}});
    EXPECT_TRUE(report->subReport("Results").missingParameters().empty());
    EXPECT_EQ(textsOf(*report->run(), 0),
              (QStringList{"NU2/1#", "NU2/2#", "a", "b", "MD1/1#", "MD1/2#", "c"}));
}

TEST_F(LinkedTest, NoValueLeavesItsQuotesAndNullIsEmpty) {
    EXPECT_THROW(opened({{"a' OR 'b", "NU"}})->run(), std::exception);
    EXPECT_TRUE(server.asked.isEmpty());
    EXPECT_EQ(textsOf(*opened({{Value(), "NU"}})->run(), 0), (QStringList{"/1!", "/2!"}));
}

TEST_F(LinkedTest, ARunThatComesSliceBySliceReadsThemToo) {
    tests::Cells rows;
    for (int i = 0; i < 90; ++i)
        rows.push_back({i % 2 ? "A" : "B", "NU"});
    auto report = opened(rows);
    const auto run = report->start();
    report.reset();
    while (run->work(1) == report::Run::State::Running)
        run->waitForRows(50);
    EXPECT_EQ(run->state(), report::Run::State::Complete);
    ASSERT_GT(run->document()->pageCount(), 5);
    EXPECT_EQ(textsOf(*run->document(), 0).mid(0, 3), (QStringList{"B", "B/1!", "B/2!"}));
    EXPECT_EQ(server.asked, (QStringList{"B", "A"}));
}

TEST_F(LinkedTest, TheDocumentOutlivesItsReport) {
    auto report = opened({{"GFR", "NU"}});
    const auto document = report->run();
    report.reset();
    EXPECT_EQ(textsOf(*document, 0).size(), 3);
}

TEST(LinkedStrips, KeepsRowsButOnlyTheStripsLastUsed) {
    auto data = std::make_shared<report::ReportData>();
    const auto definition =
        report::ReportDefinition::read(tests::definitionOf(QString(results) + inDetails), "test.RPT");
    data->definition = definition;
    int height = 1;
    int width = 1;
    data->linked.push_back([&](const report::LinkedValues& values) {
        auto inner = std::make_shared<report::ReportData>();
        inner->definition = definition->subReports[0].definition;
        inner->parameters = {values.front().second, Value()};
        const QStringList columns = QString(width, u'L').split(QString(), Qt::SkipEmptyParts);
        const tests::Cells cells(std::size_t(height), std::vector<Value>(std::size_t(width + 1), Value("x")));
        inner->tables.push_back(tests::ScriptedProvider::rowsOf("Line," + columns.join(u','), cells).rows);
        return inner;
    });
    report::LinkedStrips strips(data);
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 100; ++i)
            EXPECT_EQ(strips.strip(0, {{0, Value(i)}}).height, Length::fromMm(5));
    }
    EXPECT_EQ(strips.statistics().reads, 100);
    EXPECT_EQ(strips.statistics().layouts, 200);
    strips.strip(0, {{0, Value(99)}});
    EXPECT_EQ(strips.statistics().layouts, 200);
    strips.strip(0, {{0, Value()}}); // Null and "" are two values
    strips.strip(0, {{0, Value("")}});
    EXPECT_EQ(strips.statistics().reads, 102);
    height = 500;
    width = 100;
    const auto fill = [&] {
        for (int i = 0; i < 100; ++i)
            strips.strip(0, {{0, Value(1000 + i)}});
    };
    try {
        fill();
        ADD_FAILURE() << "no bound";
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 20515);
        EXPECT_EQ(error.description(), "The report's sub-reports bring too many rows.");
    }
}
