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

QString field(const QString& value, const QString& more = {}, const QString& y = QStringLiteral("0mm")) {
    return QStringLiteral(
               "<field x=\"0mm\" y=\"%3\" width=\"40mm\" height=\"5mm\" style=\"s\" value=\"%1\" %2/>")
        .arg(value.toHtmlEscaped(), more, y);
}

QString band(const QString& kind, const QString& content, const QString& height = QStringLiteral("10mm"),
             const QString& more = {}) {
    return QStringLiteral("<%1 height=\"%3\" %4>%2</%1>").arg(kind, content, height, more);
}

Cells numbered(int count) {
    Cells rows;
    for (int i = 1; i <= count; ++i)
        rows.push_back({QStringLiteral("row %1").arg(i)});
    return rows;
}

} // namespace

TEST(Layout, PlacesBandsUnderEachOtherInsideTheMargins) {
    const auto document =
        laidOut(band("pageHeader", field("\"head\"")) + band("details", field("{A}"), "7mm"), "A",
                {{"one"}, {"two"}});
    ASSERT_EQ(document->pageCount(), 1);
    EXPECT_EQ(runOf(*document, 0, "head").frame.x, Length::fromMm(10));
    EXPECT_EQ(runOf(*document, 0, "head").frame.y, Length::fromMm(10));
    EXPECT_EQ(runOf(*document, 0, "one").frame.y, Length::fromMm(20));
    EXPECT_EQ(runOf(*document, 0, "two").frame.y, Length::fromMm(27));
    EXPECT_EQ(document->pageWidth(), Length::fromMm(100));
}

TEST(Layout, AlignsTexts) {
    const auto document = laidOut(band("details", field("\"left\"") + field("\"right\"", "align=\"right\"") +
                                                      field("\"middle\"", "align=\"centre\"")),
                                  "A", {{"x"}});
    EXPECT_EQ(runOf(*document, 0, "left").frame.x, Length::fromMm(10));
    EXPECT_EQ(runOf(*document, 0, "right").frame.right(), Length::fromMm(50));
    const report::TextRun middle = runOf(*document, 0, "middle");
    EXPECT_NEAR(middle.frame.x.hundredths + middle.frame.width.hundredths / 2.0, 3000, 1);
}

TEST(Layout, BreaksPagesAndRepeatsThePageHeaderAndFooter) {
    const auto document =
        laidOut(band("pageHeader", field("\"head\"")) + band("details", field("{A}")) +
                    band("pageFooter", field("\"Page \" & PageNumber & \" of \" & PageCount")),
                "A", numbered(14));
    ASSERT_EQ(document->pageCount(), 3); // 80 mm less two bands: six rows a page
    EXPECT_EQ(textsOf(*document, 0).size(), 8);
    EXPECT_EQ(textsOf(*document, 2), (QStringList{"Page 3 of 3", "head", "row 13", "row 14"}));
    EXPECT_EQ(runOf(*document, 1, "head").frame.y, Length::fromMm(10));
    EXPECT_EQ(runOf(*document, 1, "row 7").frame.y, Length::fromMm(20));
    EXPECT_EQ(runOf(*document, 0, "Page 1 of 3").frame.y, Length::fromMm(80));
}

TEST(Layout, PagesComeOutTheSameInAnyOrder) {
    const auto document = laidOut(band("details", field("{A}")), "A", numbered(500));
    const QStringList last = textsOf(*document, document->pageCount() - 1);
    for (int i = 0; i < document->pageCount(); ++i)
        EXPECT_EQ(textsOf(*document, i).first(), QStringLiteral("row %1").arg(i * 8 + 1));
    EXPECT_EQ(textsOf(*document, document->pageCount() - 1), last);
    EXPECT_THROW(document->page(document->pageCount()), RunTimeError);
    EXPECT_THROW(document->page(-1), RunTimeError);
}

TEST(Layout, NoRowsLeaveHeaderAndFooter) {
    const auto document = laidOut(band("pageHeader", field("\"head\"")) + band("details", field("{A}")) +
                                      band("reportFooter", field("\"sum \" & Sum({A})")),
                                  "A", {});
    ASSERT_EQ(document->pageCount(), 1);
    EXPECT_EQ(textsOf(*document, 0), (QStringList{"head", "sum 0"}));
}

TEST(Layout, ReportHeaderStandsOnceAboveTheFirstPageHeader) {
    const auto document = laidOut(band("reportHeader", field("\"once\"")) +
                                      band("pageHeader", field("\"head\"")) + band("details", field("{A}")),
                                  "A", numbered(9));
    ASSERT_EQ(document->pageCount(), 2);
    EXPECT_EQ(textsOf(*document, 0).mid(0, 3), (QStringList{"once", "head", "row 1"}));
    EXPECT_EQ(textsOf(*document, 1).first(), "head");
    EXPECT_EQ(textsOf(*document, 1).count("once"), 0);
}

TEST(Layout, AGrowingFieldWrapsAndMovesWhatStandsBelow) {
    const auto document = laidOut(
        band("details",
             field("{A}", "grow=\"yes\"") + field("\"below\"", {}, "5mm") +
                 "<box x=\"0mm\" y=\"0mm\" width=\"40mm\" height=\"10mm\"/>" +
                 "<field x=\"45mm\" y=\"0mm\" width=\"30mm\" height=\"5mm\" value=\"&quot;beside&quot;\"/>"),
        "A", {{"SERIAL BONE IMAGING WITH WHOLE BODY AND SPOT VIEWS OF THE SPINE"}, {"SHORT"}});
    const QStringList texts = textsOf(*document, 0);
    const QStringList lines = texts.mid(0, texts.indexOf("below"));
    ASSERT_GT(lines.size(), 2);
    EXPECT_EQ(lines.join(' '), "SERIAL BONE IMAGING WITH WHOLE BODY AND SPOT VIEWS OF THE SPINE");
    const report::TextRun first = runOf(*document, 0, texts[0]);
    const report::TextRun second = runOf(*document, 0, texts[1]);
    EXPECT_EQ(second.frame.y, first.frame.bottom());
    const int growth = first.frame.height.hundredths * int(lines.size()) - 500;
    EXPECT_EQ(runOf(*document, 0, "below").frame.y.hundredths, 1500 + growth);
    EXPECT_EQ(runOf(*document, 0, "beside").frame.y.hundredths, 1000);
    EXPECT_EQ(runOf(*document, 0, "SHORT").frame.y.hundredths, 2000 + growth);
    for (const report::Item& item : document->page(0)->items) {
        if (const auto* box = std::get_if<report::Rectangle>(&item)) {
            EXPECT_EQ(box->frame.height.hundredths, 1000 + growth);
            break;
        }
    }
    for (const QString& line : lines)
        EXPECT_LE(runOf(*document, 0, line).frame.width, Length::fromMm(40));
}

TEST(Layout, AWordWiderThanItsFieldIsBroken) {
    const auto document = laidOut(band("details", field("{A}", "grow=\"yes\"")), "A", {{QString(60, u'W')}});
    QString joined;
    for (const QString& line : textsOf(*document, 0))
        joined += line;
    EXPECT_EQ(joined, QString(60, u'W'));
    EXPECT_GT(textsOf(*document, 0).size(), 2);
}

TEST(Layout, LineEndsAndBlankLinesAreKept) {
    const auto document =
        laidOut(band("details", field("{A}", "grow=\"yes\"")), "A", {{"first\r\n\r\nthird"}});
    ASSERT_EQ(textsOf(*document, 0), (QStringList{"first", "third"}));
    const report::TextRun first = runOf(*document, 0, "first");
    EXPECT_EQ(runOf(*document, 0, "third").frame.y.hundredths,
              first.frame.y.hundredths + 2 * first.frame.height.hundredths);
}

TEST(Layout, ATextTooLongIsCutWithAMarkButANumberNever) {
    const auto document =
        laidOut(band("details", "<field x=\"30mm\" y=\"0mm\" width=\"10mm\" height=\"5mm\" "
                                "align=\"right\" style=\"s\" value=\"{A}\" format=\"#,##0.00\"/>"),
                "A", {{"WHOLE BODY SCAN"}, {123456789.5}});
    EXPECT_TRUE(textsOf(*document, 0)[0].endsWith(QChar(0x2026)));
    EXPECT_EQ(textsOf(*document, 0)[1], "123,456,789.50");
    EXPECT_EQ(runOf(*document, 0, "123,456,789.50").frame.right(), Length::fromMm(50));
}

TEST(Layout, SumsForGroupsAndForTheReport) {
    const QString groups = "<group name=\"Dept\" by=\"{A}\">" +
                           band("header", field("{A} & \" \" & Count({B})"), "5mm") +
                           band("footer", field("\"sum \" & Sum({B})"), "5mm") + "</group>";
    const auto document = laidOut(
        groups + band("details", field("{B} & \" of \" & Sum({B}, Dept)"), "5mm") +
            band("reportFooter", field("Sum({B}) & \" \" & Average({B}) & \" \" & Minimum({B}) & \" \" & "
                                       "Maximum({B})")),
        "A,B", {{"NU", 10}, {"nu", 2.5}, {"MD", "7"}, {"NU", base::Value()}});
    EXPECT_EQ(textsOf(*document, 0),
              (QStringList{"NU 2", "10 of 12.5", "2.5 of 12.5", "sum 12.5", "MD 1", "7 of 7", "sum 7", "NU 0",
                           " of 0", "sum 0", "19.5 6.5 2.5 10"}));
}

TEST(Layout, ManySmallAmountsAddUpToTheCentavo) {
    const auto document =
        laidOut(band("reportFooter", field("Sum({A})", "format=\"0.00\"")), "A", Cells(1000000, {0.1}));
    EXPECT_EQ(textsOf(*document, document->pageCount() - 1), QStringList{"100000.00"});
}

TEST(Layout, NestedGroupsOpenAndCloseInOrder) {
    const QString groups = "<group name=\"Outer\" by=\"{A}\">" + band("header", field("\"+\" & {A}"), "4mm") +
                           band("footer", field("\"-\" & {A}"), "4mm") +
                           "</group><group name=\"Inner\" by=\"{B}\">" +
                           band("header", field("\"+\" & {B}"), "4mm") +
                           band("footer", field("\"-\" & {B}"), "4mm") + "</group>";
    const auto document = laidOut(groups + band("details", field("{A} & {B}"), "4mm"), "A,B",
                                  {{"a", "1"}, {"a", "2"}, {"b", "2"}});
    EXPECT_EQ(textsOf(*document, 0),
              (QStringList{"+a", "+1", "a1", "-1", "+2", "a2", "-2", "-a", "+b", "+2", "b2", "-2", "-b"}));
    ASSERT_EQ(document->groupTree().size(), 5u);
    EXPECT_EQ(document->groupTree()[0].text, "a");
    EXPECT_EQ(document->groupTree()[1].level, 1);
    EXPECT_EQ(document->groupTree()[3].text, "b");
}

TEST(Layout, AGroupHeaderIsRepeatedAndNeverStandsAlone) {
    const QString group = "<group name=\"Dept\" by=\"{A}\" repeat=\"yes\">" +
                          band("header", field("\"dept \" & {A}")) + "</group>";
    Cells rows;
    for (int i = 1; i <= 16; ++i)
        rows.push_back({i <= 6 ? "NU" : "MD", i});
    const auto document = laidOut(group + band("details", field("{B}")), "A,B", rows);
    ASSERT_EQ(document->pageCount(), 3);
    // One band is left under the six rows: the header of MD alone would fit, but goes on with its first row.
    EXPECT_EQ(textsOf(*document, 0).size(), 7);
    EXPECT_EQ(textsOf(*document, 1).mid(0, 2), (QStringList{"dept MD", "7"}));
    EXPECT_EQ(textsOf(*document, 2).mid(0, 2), (QStringList{"dept MD", "14"}));
    ASSERT_EQ(document->groupTree().size(), 2u);
    EXPECT_EQ(document->groupTree()[1].page, 1);
    EXPECT_EQ(document->groupTree()[1].y, Length::fromMm(10));
}

TEST(Layout, AGroupFooterTakesTheLastRowAlong) {
    const auto pages = [](int rows) {
        const QString groups = "<group name=\"Outer\" by=\"{A}\">" + band("footer", field("\"all\"")) +
                               "</group><group name=\"Inner\" by=\"{A}\">" +
                               band("header", field("\"head\"")) + band("footer", field("\"sum\"")) +
                               "</group>";
        Cells cells;
        for (int i = 1; i <= rows; ++i)
            cells.push_back({"NU", i});
        const auto document = laidOut(groups + band("details", field("{B}")), "A,B", cells);
        EXPECT_EQ(document->pageCount(), 2);
        return std::pair(textsOf(*document, 0), textsOf(*document, 1));
    };
    // Eight bands a page.
    EXPECT_EQ(pages(6).second, (QStringList{"6", "sum", "all"}));
    EXPECT_EQ(pages(7).second, (QStringList{"7", "sum", "all"}));
    EXPECT_EQ(pages(8).second, (QStringList{"8", "sum", "all"}));
    EXPECT_EQ(pages(8).first.size(), 8);
}

TEST(Layout, AHeaderGoesWithItsOnlyRowAndThatRowsFooter) {
    const QString group = "<group name=\"Dept\" by=\"{A}\">" + band("header", field("\"dept \" & {A}")) +
                          band("footer", field("\"end \" & {A}")) + "</group>";
    Cells rows;
    for (int i = 1; i <= 4; ++i)
        rows.push_back({"NU", i});
    rows.push_back({"MD", 5}); // two bands are left
    const auto document = laidOut(group + band("details", field("{B}")), "A,B", rows);
    ASSERT_EQ(document->pageCount(), 2);
    EXPECT_EQ(textsOf(*document, 0).last(), "end NU");
    EXPECT_EQ(textsOf(*document, 1), (QStringList{"dept MD", "5", "end MD"}));
}

TEST(Layout, AGroupCanBeginAPage) {
    const QString group =
        "<group name=\"Dept\" by=\"{A}\" newPage=\"yes\">" + band("header", field("{A}")) + "</group>";
    const auto document =
        laidOut(group + band("details", field("\"line\"")), "A", {{"NU"}, {"MD"}, {"MD"}, {"UR"}});
    ASSERT_EQ(document->pageCount(), 3);
    EXPECT_EQ(textsOf(*document, 1), (QStringList{"MD", "line", "line"}));
}

TEST(Layout, ABandIsKeptWithTheNextOneThatShows) {
    const QString keeps = QStringLiteral("keepWithNext=\"yes\"");
    const auto text = [](const QString& words) { return field(u'"' + words + u'"'); };
    const QString table = band("details", text("head"), "10mm", keeps) +
                          band("details", text("hidden"), "10mm", "visible=\"1 = 2\"") +
                          band("details", text("first"), "10mm", keeps) + band("details", text("last")) +
                          band("details", text("behind"));
    const auto pages = [&](int before, const QString& kept) {
        const auto document = laidOut(band("details", text("before")).repeated(before) + kept, "A", {{"x"}});
        return std::pair(textsOf(*document, 0).mid(before), textsOf(*document, 1));
    };
    // Eight bands a page.
    EXPECT_EQ(pages(5, table).first, (QStringList{"head", "first", "last"}));
    EXPECT_EQ(pages(5, table).second, QStringList{"behind"});
    EXPECT_EQ(pages(6, table).first, QStringList());
    EXPECT_EQ(pages(6, table).second, (QStringList{"head", "first", "last", "behind"}));
    EXPECT_EQ(pages(7, table).first, QStringList());

    const QString tooMuch = band("details", text("row"), "10mm", keeps).repeated(9);
    EXPECT_EQ(pages(6, tooMuch).first, (QStringList{"row", "row"})) << "no page would hold it";
    EXPECT_EQ(pages(6, tooMuch).second.size(), 7);
    EXPECT_EQ(pages(7, tooMuch).first, QStringList()) << "but the first one never stands alone";

    // Of a text that tears the first lines are enough.
    const QString torn = band("details", text("head"), "10mm", keeps) +
                         band("details", field("{A}", "grow=\"yes\""), "5mm", "tear=\"yes\"");
    const auto lines = [&](int before) {
        const auto document = laidOut(band("details", text("before")).repeated(before) + torn, "A",
                                      {{QStringLiteral("line\n").repeated(20).trimmed()}});
        return std::pair(textsOf(*document, 0).count("head"), textsOf(*document, 0).count("line") > 0);
    };
    EXPECT_EQ(lines(5), std::pair(qsizetype(1), true));
    EXPECT_EQ(lines(6), std::pair(qsizetype(0), false));
}

TEST(Layout, ABandHigherThanThePageIsCutBetweenLines) {
    QString text;
    for (int i = 1; i <= 60; ++i)
        text += QStringLiteral("finding %1\n").arg(i);
    const auto document =
        laidOut(band("pageHeader", field("\"head\"")) +
                    band("details", field("{A}", "grow=\"yes\"") + field("\"end\"", {}, "5mm")),
                "A", {{text}});
    ASSERT_GT(document->pageCount(), 3);
    QStringList all;
    for (int page = 0; page < document->pageCount(); ++page) {
        for (const QString& one : textsOf(*document, page)) {
            EXPECT_LE(runOf(*document, page, one).frame.bottom(), Length::fromMm(90));
            EXPECT_GE(runOf(*document, page, one).frame.y, Length::fromMm(10));
        }
        all += textsOf(*document, page).mid(1);
    }
    QStringList expected = text.trimmed().split('\n');
    expected << "end";
    EXPECT_EQ(all, expected);
}

TEST(Layout, ABandAtTheBottomStandsOnThePageFooter) {
    const auto document = laidOut(band("details", field("{A}")) + band("reportFooter", field("\"total\"")) +
                                      band("reportFooter", field("\"signed\""), "10mm", "atBottom=\"yes\"") +
                                      band("pageFooter", field("\"foot\"")),
                                  "A", {{"one"}});
    EXPECT_EQ(runOf(*document, 0, "total").frame.y, Length::fromMm(20));
    EXPECT_EQ(runOf(*document, 0, "signed").frame.y, Length::fromMm(70));
    EXPECT_EQ(runOf(*document, 0, "foot").frame.y, Length::fromMm(80));
}

TEST(Layout, ConditionsHideElementsAndBands) {
    const auto document = laidOut(
        band("details", field("{A}", "visible=\"{A} &lt;&gt; &quot;two&quot;\"") + field("\"always\"")) +
            band("details", field("\"more\""), "10mm", "visible=\"{A} = &quot;two&quot;\""),
        "A", {{"one"}, {"two"}});
    EXPECT_EQ(textsOf(*document, 0), (QStringList{"one", "always", "always", "more"}));
}

TEST(Layout, AWatermarkLiesUnderThePage) {
    const auto document = laidOut("<watermark value=\"&quot;CANCELLED&quot;\" style=\"s\" degrees=\"-30\"/>" +
                                      band("details", field("{A}")),
                                  "A", {{"one"}});
    const auto* mark = std::get_if<report::TextRun>(&document->page(0)->items.front());
    ASSERT_TRUE(mark);
    EXPECT_EQ(mark->text, "CANCELLED");
    EXPECT_EQ(mark->degrees, -30);
    EXPECT_NEAR(mark->frame.x.hundredths + mark->frame.width.hundredths / 2.0, 5000, 1);
    EXPECT_EQ(report::textOf(*document->page(0)), "one");
}

TEST(Layout, HeadingsOfRowsAreLeftOutWhereAFooterHasAPageOfItsOwn) {
    const auto textsOn = [](const char* ofFooter, int page) {
        const auto document = laidOut(
            "<pageHeader height=\"5mm\"><text x=\"0mm\" y=\"0mm\" width=\"30mm\">Report</text></pageHeader>"
            "<pageHeader height=\"5mm\" withRows=\"yes\"><text x=\"0mm\" y=\"0mm\" width=\"30mm\">Name"
            "</text></pageHeader>" +
                band("details", field("{A}")) + "<reportFooter height=\"65mm\" " + ofFooter +
                "><text x=\"0mm\" y=\"0mm\" width=\"30mm\">Chart</text></reportFooter>",
            "A", {{"one"}});
        EXPECT_EQ(document->pageCount(), 2);
        return textsOf(*document, page);
    };
    EXPECT_EQ(textsOn("newPageBefore=\"yes\"", 0), (QStringList{"Report", "Name", "one"}));
    EXPECT_EQ(textsOn("newPageBefore=\"yes\"", 1), (QStringList{"Report", "Chart"}));
    EXPECT_EQ(textsOn("", 1), (QStringList{"Report", "Name", "Chart"})); // it only ran over
}

TEST(Layout, HeaderAndFooterThatLeaveNoRoomAreAnError) {
    try {
        laidOut(band("pageHeader", {}, "40mm") + band("pageFooter", {}, "38mm") +
                    band("details", field("{A}")),
                "A", {{"one"}});
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), report::errorDamaged);
    }
}

TEST(Layout, OtherTablesGiveTheirFirstRow) {
    auto data = std::make_shared<report::ReportData>();
    data->definition = report::ReportDefinition::read(
        tests::definitionOf("<table name=\"Head\" location=\"NUCLEAR..tbHead\"/>" +
                            band("details", field("{Lines.A} & \" \" & {Head.Name}"))),
        "x");
    data->tables = {tests::ScriptedProvider::rowsOf("A", {{"1"}, {"2"}}).rows,
                    tests::ScriptedProvider::rowsOf("NAME", {{"first"}, {"second"}}).rows};
    EXPECT_EQ(textsOf(*report::layout(data), 0), (QStringList{"1 first", "2 first"}));
}

TEST(Layout, TheTextOfAPageReadsLineByLine) {
    const auto document = laidOut(band("details", "<field x=\"45mm\" y=\"0mm\" width=\"20mm\" height=\"5mm\" "
                                                  "style=\"s\" value=\"&quot;right&quot;\"/>" +
                                                      field("{A}")),
                                  "A", {{"one"}, {"two"}});
    EXPECT_EQ(report::textOf(*document->page(0)), "one\tright\ntwo\tright");
}
