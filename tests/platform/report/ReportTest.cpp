#include "platform/report/Report.h"
#include "platform/report/definition/ReportError.h"
#include "tests/platform/report/Bench.h"

#include <gtest/gtest.h>

using base::RunTimeError;
using report::Report;
using tests::Folder;
using tests::ReportServer;

namespace {

const QByteArray listing = R"(<report version="1" title="Listing">
<page width="100mm" height="100mm" left="10mm" top="10mm" right="10mm" bottom="10mm"/>
<parameter name="From" type="date"/><parameter name="To"/><parameter name="Rate" type="number"/>
<table name="Lines" location="NUCLEAR..sp_Nuclear_Listing">{table} '{?From}','{?To}',{?Rate}</table>
<formula name="Head">"From " &amp; {?From}</formula>
<formula name="Tail">{@Head} &amp; "!"</formula>
<details height="5mm"><field x="0mm" y="0mm" width="70mm" height="5mm" value="{A}"/></details>
<reportFooter height="5mm"><field x="0mm" y="0mm" width="70mm" height="5mm" value="{@Tail}"/></reportFooter>
</report>)";

template <typename Action>
int errorOf(Action action, QString* description = nullptr) {
    try {
        action();
    } catch (const RunTimeError& error) {
        if (description)
            *description = error.description();
        return error.number();
    }
    return 0;
}

struct ReportTest : testing::Test {
    ReportTest() {
        path = folder.write("Reports/Listing.RPT", listing);
        server.lines = tests::ScriptedProvider::rowsOf("A", {{"line"}});
    }
    std::unique_ptr<Report> filled() {
        auto opened = Report::open(path, server.logOn());
        opened->setParameter(0, "11/01/2026");
        opened->setParameter(1, "11/30/2026");
        opened->setParameter(2, 1.25);
        return opened;
    }

    Folder folder;
    QString path;
    ReportServer server;
};

} // namespace

TEST_F(ReportTest, AMissingFileIsNamedAsItWasAskedFor) {
    QString description;
    EXPECT_EQ(errorOf([&] { Report::open(folder.path("Reports\\Gone.RPT"), server.logOn()); }, &description),
              20507);
    EXPECT_EQ(description, "Invalid report file: " + folder.path("Reports\\Gone.RPT"));
    EXPECT_EQ(errorOf([&] { Report::open("", server.logOn()); }), 20507);
    EXPECT_EQ(errorOf([&] { Report::open(folder.path("Reports"), server.logOn()); }), 20507);
}

TEST_F(ReportTest, TheFileIsFoundInAnyCaseAndWithBackslashes) {
    EXPECT_TRUE(Report::open(folder.path("") + "\\Reports\\LISTING.rpt", server.logOn()));
    EXPECT_TRUE(Report::open(folder.path("reports\\listing.Rpt"), server.logOn()));
}

TEST_F(ReportTest, ADamagedFileTellsLineAndColumn) {
    QString description;
    const QString damaged = folder.write("Damaged.RPT", listing.left(200));
    EXPECT_EQ(errorOf([&] { Report::open(damaged, server.logOn()); }, &description), 20515);
    EXPECT_NE(description.indexOf("line 3, column"), -1) << qPrintable(description);
}

TEST_F(ReportTest, ParametersComeInStoredOrderAndByName) {
    auto opened = Report::open(path, server.logOn());
    EXPECT_EQ(opened->parameterNames(), (QStringList{"From", "To", "Rate"}));
    EXPECT_EQ(opened->missingParameters(), (std::vector<int>{0, 1, 2}));
    opened->setParameter(1, "x");
    opened->setParameter("FROM", base::Value());
    EXPECT_TRUE(opened->hasParameter(0)); // Null is a value, too
    EXPECT_EQ(opened->missingParameters(), (std::vector<int>{2}));
    EXPECT_EQ(errorOf([&] { opened->setParameter(3, "spare"); }), base::errors::subscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { opened->setParameter("Nobody", "x"); }), base::errors::subscriptOutOfRange);
    EXPECT_FALSE(opened->hasParameter(7));
}

TEST_F(ReportTest, ReadsItsRowsOverConnectionsOfItsOwn) {
    auto opened = filled();
    ASSERT_EQ(opened->tables().size(), 1u);
    EXPECT_EQ(opened->tables()[0].location, "NUCLEAR..sp_Nuclear_Listing");
    opened->tables()[0] = {"CARDIO..sp_Nuclear_Listing", "SERVER1", "CARDIO", "sa", "secret"};
    opened->testLogOn();
    EXPECT_TRUE(server.texts.isEmpty());
    const auto document = opened->run();
    EXPECT_EQ(server.logOns, (QStringList{"SERVER1|CARDIO|sa|secret", "SERVER1|CARDIO|sa|secret"}));
    EXPECT_EQ(server.texts, QStringList{"CARDIO..sp_Nuclear_Listing '11/01/2026','11/30/2026',1.25"});
    opened.reset();
    EXPECT_EQ(tests::textsOf(*document, 0), (QStringList{"line", "From 11/01/2026!"}));
}

TEST_F(ReportTest, EveryRunReadsTheServerAgain) {
    auto opened = filled();
    opened->run();
    server.lines = tests::ScriptedProvider::rowsOf("A", {{"another"}});
    EXPECT_EQ(tests::textsOf(*opened->run(), 0).first(), "another");
}

TEST_F(ReportTest, NoParameterLeavesItsQuotes) {
    auto opened = filled();
    opened->setParameter("To", "x'; DROP TABLE tbNucSlip --");
    EXPECT_EQ(errorOf([&] { opened->run(); }), 102);
    opened->setParameter("To", "11/30/2026");
    opened->setParameter("Rate", "1; DELETE x");
    EXPECT_EQ(errorOf([&] { opened->run(); }), 102);
    opened->setParameter("Rate", 1);
    opened->tables()[0].location = "NUCLEAR..a; DROP TABLE b";
    EXPECT_EQ(errorOf([&] { opened->run(); }), 20515);
    EXPECT_TRUE(server.texts.isEmpty());
}

TEST_F(ReportTest, AFailedLogOnIsTheServersError) {
    auto opened = filled();
    server.failing = 4060;
    EXPECT_EQ(errorOf([&] { opened->testLogOn(); }), 4060);
    EXPECT_EQ(errorOf([&] { opened->run(); }), 4060);
}

TEST_F(ReportTest, FormulasCanBeToldAnew) {
    auto opened = filled();
    EXPECT_EQ(opened->formula("tail"), "{@Head} & \"!\"");
    opened->setFormula("HEAD", "\"Dear \" & Upper({?To})");
    EXPECT_EQ(tests::textsOf(*opened->run(), 0).last(), "Dear 11/30/2026!");
    EXPECT_EQ(errorOf([&] { opened->setFormula("Head", "{@Tail}"); }), 20515);
    EXPECT_EQ(errorOf([&] { opened->setFormula("Head", "1 +"); }), 20515);
    EXPECT_EQ(errorOf([&] { opened->setFormula("Gone", "1"); }), base::errors::subscriptOutOfRange);
    EXPECT_EQ(opened->formula("Head"), "\"Dear \" & Upper({?To})"); // a refused text changes nothing
    EXPECT_EQ(tests::textsOf(*filled()->run(), 0).last(), "From 11/01/2026!"); // nor does it reach the file
}

TEST_F(ReportTest, AFormulaCanTellATextAsItIs) {
    auto opened = filled();
    EXPECT_EQ(opened->formulaNames(), (QStringList{"Head", "Tail"}));
    const QString text = "5\" & {?To} \"\" {@Tail} <b>";
    opened->setFormula("Head", report::quotedFormula(text));
    EXPECT_EQ(tests::textsOf(*opened->run(), 0).last(), text + "!");
    opened->setFormula("Head", report::quotedFormula(""));
    EXPECT_EQ(tests::textsOf(*opened->run(), 0).last(), "!");
    EXPECT_EQ(errorOf([&] { opened->formula("Gone"); }), base::errors::subscriptOutOfRange);
}

TEST_F(ReportTest, AWatermarkCanBeGivenFromOutside) {
    auto opened = filled();
    opened->watermark = "RE-PRINT";
    const auto marked = opened->run();
    const auto* mark = std::get_if<report::TextRun>(&marked->page(0)->items.front());
    ASSERT_TRUE(mark);
    EXPECT_EQ(mark->text, "RE-PRINT");
    EXPECT_EQ(mark->degrees, -35);
    EXPECT_GT(mark->colour.lightness(), 200);                           // what stands over it can be read
    EXPECT_LT(report::textOf(*marked->page(0)).indexOf("RE-PRINT"), 0); // not found, not copied
    opened->watermark.clear();
    EXPECT_FALSE(tests::textsOf(*opened->run(), 0).contains("RE-PRINT"));
}

TEST_F(ReportTest, ASubReportThatIsNotThereRaises) {
    EXPECT_EQ(errorOf([&] { filled()->subReport("Summary"); }), 20515);
}
