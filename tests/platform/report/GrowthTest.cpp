// Groups that stay whole, running totals, tints, charts, columns and reports inside reports.
#include "platform/report/definition/ReportError.h"
#include "tests/platform/report/Bench.h"

#include <gtest/gtest.h>

using base::RunTimeError;
using report::Length;
using tests::Cells;
using tests::laidOut;
using tests::runOf;
using tests::textsOf;

namespace {

QString field(const QString& value, const QString& more = {}) {
    return QStringLiteral("<field x=\"0mm\" y=\"0mm\" width=\"30mm\" height=\"5mm\" style=\"s\" "
                          "value=\"%1\" %2/>")
        .arg(value.toHtmlEscaped(), more);
}

QString band(const QString& kind, const QString& content) {
    return QStringLiteral("<%1 height=\"10mm\">%2</%1>").arg(kind, content);
}

template <typename Shape>
std::vector<Shape> shapesOf(const report::PageDocument& document, int page) {
    std::vector<Shape> shapes;
    for (const report::Item& item : document.page(page)->items) {
        if (const auto* shape = std::get_if<Shape>(&item))
            shapes.push_back(*shape);
    }
    return shapes;
}

int faultOf(const QString& inside) {
    try {
        laidOut(inside, "A", {{"x"}});
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

const Cells amounts{{"a", 1.1}, {"a", 2.2}, {"b", 3.3}, {"b", base::Value()}, {"b", 0.7}};
const QString byA = QStringLiteral("<group name=\"G\" by=\"{A}\"/>");

} // namespace

TEST(TornBand, BeginsWhereItStandsAndGoesOnOnTheNextPage) {
    // A first band, and a text higher than what it leaves of the page.
    const auto pages = [](const char* tear) {
        const QString text = QStringLiteral("<details height=\"5mm\" %1>").arg(QLatin1String(tear)) +
                             field("{A}", "grow=\"yes\"") + "</details>";
        const auto document = laidOut(band("details", field("\"first\"")) + text, "A",
                                      {{QStringLiteral("line\n").repeated(20).trimmed()}});
        QStringList lines;
        for (int page = 0; page < document->pageCount(); ++page)
            lines << QString::number(textsOf(*document, page).count(QStringLiteral("line")));
        return lines.join(u' ');
    };
    const QString whole = pages("");
    const QString torn = pages("tear=\"yes\"");
    EXPECT_EQ(whole.section(u' ', 0, 0), "0") << whole.toStdString();
    EXPECT_NE(torn.section(u' ', 0, 0), "0") << torn.toStdString();
    int lines = 0;
    for (const QString& count : torn.split(u' '))
        lines += count.toInt();
    EXPECT_EQ(lines, 20) << torn.toStdString();
}

TEST(RunningTotal, GoesOnThroughTheReportOrBeginsAnewWithItsGroup) {
    const auto document = laidOut(byA + band("details", field("Format(Running({N}), \"0.0\") & \"/\" & "
                                                              "Format(Running({N}, G), \"0.0\")")),
                                  "A,N", amounts);
    EXPECT_EQ(textsOf(*document, 0), (QStringList{"1.1/1.1", "3.3/3.3", "6.6/3.3", "6.6/3.3", "7.3/4.0"}));
}

TEST(RunningTotal, StandsInAFooterAsFarAsTheRowsGo) {
    const auto document =
        laidOut("<group name=\"G\" by=\"{A}\">" + band("footer", field("Format(Running({N}), \"0.0\")")) +
                    "</group>" + band("reportFooter", field("Format(Running({N}), \"0.00\")")),
                "A,N", amounts);
    EXPECT_EQ(textsOf(*document, 0), (QStringList{"3.3", "7.3", "7.30"}));
}

TEST(KeepTogether, AGroupThatAPageHoldsIsNotTorn) {
    const QString inside = QStringLiteral("<group name=\"G\" by=\"{A}\" keepTogether=\"%1\">") +
                           band("header", field("{A}")) + band("footer", field("\"end \" & {A}")) +
                           "</group>" + band("details", field("{N}"));
    const Cells rows{{"a", 1}, {"a", 2}, {"a", 3}, {"b", 4}, {"b", 5}};
    const auto torn = laidOut(inside.arg("no"), "A,N", rows); // eight bands a page, nine in all
    EXPECT_EQ(textsOf(*torn, 0).last(), "4");
    const auto kept = laidOut(inside.arg("yes"), "A,N", rows);
    ASSERT_EQ(kept->pageCount(), 2);
    EXPECT_EQ(textsOf(*kept, 0).last(), "end a");
    EXPECT_EQ(textsOf(*kept, 1), (QStringList{"b", "4", "5", "end b"}));
}

TEST(KeepTogether, AGroupThatNoPageHoldsBeginsWhereItStands) {
    Cells rows{{"a", 1}};
    for (int i = 0; i < 12; ++i)
        rows.push_back({"b", i});
    const auto document =
        laidOut("<group name=\"G\" by=\"{A}\" keepTogether=\"yes\">" + band("header", field("{A}")) +
                    "</group>" + band("details", field("{N}")),
                "A,N", rows);
    EXPECT_EQ(textsOf(*document, 0).mid(0, 4), (QStringList{"a", "1", "b", "0"}));
}

TEST(Tint, ColoursTextsLinesAndBoxesByTheRow) {
    const QString tint = QStringLiteral("tint=\"If({N} &lt; 0, &quot;#B3261E&quot;, &quot;&quot;)\"");
    const auto document =
        laidOut(band("details", "<box x=\"0mm\" y=\"0mm\" width=\"9mm\" height=\"5mm\" fill=\"#E7EEF2\" " +
                                    tint + "/><line x=\"0mm\" y=\"5mm\" width=\"9mm\" colour=\"#000000\" " +
                                    tint + "/>" + field("{N}", tint)),
                "N", {{1}, {-1}});
    const QColor red("#B3261E");
    EXPECT_NE(runOf(*document, 0, "1").colour, red);
    EXPECT_EQ(runOf(*document, 0, "-1").colour, red);
    const auto boxes = shapesOf<report::Rectangle>(*document, 0);
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].fill, QColor("#E7EEF2"));
    EXPECT_EQ(boxes[1].fill, red);
    const auto lines = shapesOf<report::Stroke>(*document, 0);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].colour, QColor("#000000"));
    EXPECT_EQ(lines[1].colour, red);
}

TEST(Tint, AWordThatIsNoColourIsRefused) {
    EXPECT_EQ(faultOf(band("details", field("{A}", "tint=\"&quot;reddish&quot;\""))), report::errorDamaged);
}

TEST(Chart, DrawsABarAGroupAsLongAsItsSum) {
    const QString chart =
        QStringLiteral("<chart x=\"0mm\" y=\"0mm\" width=\"80mm\" height=\"40mm\" style=\"s\" "
                       "label=\"{A}\" value=\"Sum({N})\" group=\"G\" colour=\"#2A7F93\"/>");
    const auto document =
        laidOut(byA + QStringLiteral("<reportFooter height=\"40mm\">%1</reportFooter>").arg(chart), "A,N",
                {{"first", 10}, {"first", 20}, {"second", 60}});
    const auto bars = shapesOf<report::Rectangle>(*document, 0);
    ASSERT_EQ(bars.size(), 2u);
    EXPECT_EQ(bars[0].frame.x, bars[1].frame.x);
    EXPECT_NEAR(bars[0].frame.width.hundredths * 2, bars[1].frame.width.hundredths, 2);
    EXPECT_EQ(bars[0].fill, QColor("#2A7F93"));
    EXPECT_LE(bars[1].frame.right(), Length::fromMm(90));
    const QStringList texts = textsOf(*document, 0);
    for (const char* text : {"first", "second", "30", "60", "0", "20", "40"})
        EXPECT_TRUE(texts.contains(text)) << text;
    EXPECT_LT(runOf(*document, 0, "second").frame.right(), bars[1].frame.x);
}

TEST(Chart, NegativeAmountsReachToTheLeftAndTooManyBarsBecomeOthers) {
    const QString chart = QStringLiteral("<reportFooter height=\"50mm\"><chart x=\"0mm\" y=\"0mm\" "
                                         "width=\"80mm\" height=\"50mm\" style=\"s\" label=\"{A}\" "
                                         "value=\"{N}\" most=\"2\"/></reportFooter>");
    const auto document = laidOut(chart, "A,N", {{"up", 5}, {"down", -5}, {"x", 1}, {"y", 2}});
    const auto bars = shapesOf<report::Rectangle>(*document, 0);
    ASSERT_EQ(bars.size(), 3u);
    EXPECT_EQ(bars[1].frame.right(), bars[0].frame.x);
    EXPECT_TRUE(textsOf(*document, 0).contains("Others"));
    EXPECT_TRUE(textsOf(*document, 0).contains("3"));
}

TEST(Chart, WithoutRowsOrWithNoughtsOnlyItIsAnEmptyScale) {
    const QString chart = QStringLiteral("<reportFooter height=\"50mm\"><chart x=\"0mm\" y=\"0mm\" "
                                         "width=\"80mm\" height=\"50mm\" style=\"s\" label=\"{A}\" "
                                         "value=\"{N}\"/></reportFooter>");
    EXPECT_TRUE(shapesOf<report::Rectangle>(*laidOut(chart, "A,N", {}), 0).empty());
    EXPECT_TRUE(shapesOf<report::Rectangle>(*laidOut(chart, "A,N", {{"a", 0}}), 0).empty());
}

TEST(Columns, TheBodyRunsDownOneColumnThenTheNext) {
    QByteArray xml =
        tests::definitionOf(band("pageHeader", field("\"head\"")) + band("details", field("{A}")) +
                            band("reportFooter", field("\"total\"")));
    xml.replace("bottom=\"10mm\"", "bottom=\"10mm\" columns=\"2\" gutter=\"10mm\"");
    auto data = std::make_shared<report::ReportData>();
    data->definition = report::ReportDefinition::read(xml, "test.RPT");
    Cells rows;
    for (int i = 1; i <= 17; ++i)
        rows.push_back({QStringLiteral("row %1").arg(i)});
    data->tables.push_back(tests::ScriptedProvider::rowsOf("A", rows).rows);
    const auto document = report::layout(data);
    ASSERT_EQ(document->pageCount(), 2); // seven rows a column
    EXPECT_EQ(textsOf(*document, 0).count("head"), 1);
    EXPECT_EQ(runOf(*document, 0, "row 7").frame.x, Length::fromMm(10));
    EXPECT_EQ(runOf(*document, 0, "row 8").frame.x, Length::fromMm(55));
    EXPECT_EQ(runOf(*document, 0, "row 8").frame.y, runOf(*document, 0, "row 1").frame.y);
    EXPECT_EQ(textsOf(*document, 1), (QStringList{"head", "row 15", "row 16", "row 17", "total"}));
    EXPECT_EQ(runOf(*document, 1, "total").frame.x, Length::fromMm(10));
    EXPECT_EQ(runOf(*document, 1, "total").frame.y, Length::fromMm(50));
}

TEST(SubReport, StandsInItsBandWithRowsOfItsOwnAndMovesWhatFollows) {
    const QByteArray xml = tests::definitionOf(
        "<subReport name=\"Summary\"><parameter name=\"Day\"/>"
        "<table name=\"Counts\" location=\"NUCLEAR..tbCounts\">SELECT * FROM {table} WHERE D = '{?Day}'"
        "</table><formula name=\"F\">\"sub \" &amp; {Counts.A}</formula>" +
        band("details", field("{@F} & \" \" & {?Day}")) + "</subReport>" +
        "<formula name=\"F\">\"main\"</formula>" +
        "<reportHeader height=\"5mm\"><insert report=\"summary\" x=\"5mm\" y=\"0mm\" "
        "height=\"5mm\"/></reportHeader>" +
        band("details", field("{@F} & {A}")));
    tests::Folder folder;
    tests::ReportServer server;
    server.lines = tests::ScriptedProvider::rowsOf("A", {{"1"}, {"2"}});
    const auto report = report::Report::open(folder.write("main.RPT", xml), server.logOn());
    EXPECT_EQ(report->subReportNames(), QStringList{"Summary"});
    report::Report& summary = report->subReport("Summary");
    EXPECT_EQ(summary.parameterNames(), QStringList{"Day"});
    summary.tables().front().location = "STATION..tbCounts";
    summary.tables().front().login = "sa";
    summary.setParameter(0, "2026/11/21");
    const auto document = report->run();
    EXPECT_EQ(textsOf(*document, 0), (QStringList{"sub 1 2026/11/21", "sub 2 2026/11/21", "main1", "main2"}));
    EXPECT_EQ(runOf(*document, 0, "sub 2 2026/11/21").frame.x, Length::fromMm(15));
    EXPECT_EQ(runOf(*document, 0, "main1").frame.y, Length::fromMm(30));
    EXPECT_EQ(server.texts, (QStringList{"SELECT * FROM NUCLEAR..tbLines",
                                         "SELECT * FROM STATION..tbCounts WHERE D = '2026/11/21'"}));
    EXPECT_EQ(server.logOns.last(), "||sa|");
    EXPECT_THROW(report->subReport("Sumary"), RunTimeError);
}

TEST(SubReport, HoldsNothingThatBelongsToPages) {
    for (const char* inner : {"<page width=\"1mm\" height=\"1mm\" left=\"1mm\" top=\"1mm\" right=\"1mm\" "
                              "bottom=\"1mm\"/>",
                              "<pageHeader height=\"1mm\"/>", "<subReport name=\"B\"/>"})
        EXPECT_EQ(faultOf(QStringLiteral("<subReport name=\"A\">%1</subReport>").arg(inner)),
                  report::errorDamaged)
            << inner;
    EXPECT_EQ(faultOf(band("details", "<insert report=\"None\" x=\"0mm\" y=\"0mm\"/>")),
              report::errorDamaged);
}

TEST(QueryFormula, GoesIntoTheStatementUnderTheSameCheck) {
    const QByteArray xml =
        QByteArray(tests::definitionOf(band("details", field("{A}"))))
            .replace("<table name=\"Lines\" location=\"NUCLEAR..tbLines\"/>",
                     "<parameter name=\"A\"/><parameter name=\"B\"/>"
                     "<formula name=\"Day\">If(IsDate({?A}), {?A}, {?B})</formula>"
                     "<table name=\"Lines\" location=\"NUCLEAR..tbLines\">{table} '{@Day}'</table>");
    tests::Folder folder;
    tests::ReportServer server;
    server.lines = tests::ScriptedProvider::rowsOf("A", {});
    const auto report = report::Report::open(folder.write("main.RPT", xml), server.logOn());
    report->setParameter(0, "VALE HOSPITAL");
    report->setParameter(1, "11/21/2026");
    report->run();
    report->setParameter(0, "01/02/2026");
    report->run();
    EXPECT_EQ(server.texts, (QStringList{"NUCLEAR..tbLines '11/21/2026'", "NUCLEAR..tbLines '01/02/2026'"}));
    report->setParameter(0, "x");
    report->setParameter(1, "a' OR 'b");
    EXPECT_THROW(report->run(), std::exception);
    EXPECT_EQ(server.texts.size(), 2);
}
