// The sheet of a definition: what its workbook and its CSV file are headed with, and of which kind each cell
// is.
#include "platform/base/Error.h"
#include "platform/report/output/Csv.h"
#include "platform/report/output/SheetRows.h"
#include "tests/platform/report/Bench.h"

#include <gtest/gtest.h>

namespace {

using base::Value;
using report::CellLook;

const QString sheet = QStringLiteral(R"xml(
  <formula name="Kind">If({Type} = "I", "In", "Out")</formula>
  <sheet title="&quot;Lines of &quot; &amp; (1 + 1) &amp; &quot; days&quot;">
    <line value="&quot;From 11/20/2026&quot;"/>
    <line value="&quot;&quot;"/>
    <column caption="Type" value="{@Kind}"/>
    <column caption="Adm. No." value="{IdNum}"/>
    <column caption="Age" value="{Age}" as="number"/>
    <column caption="Amount" value="{Amount}" as="amount"/>
    <column caption="To Date" value="Running({Amount})" as="amount"/>
    <column caption="Born" value="{Moment}" as="date"/>
    <column caption="Admitted" value="{Moment}" as="moment"/>
  </sheet>)xml");

Value moment(int hour) {
    return *base::makeDateTime({2026, 11, 20}, {hour, 30, 0, 0});
}

std::unique_ptr<report::PageDocument> document(const tests::Cells& rows) {
    return tests::laidOut(sheet, QStringLiteral("Type,IdNum,Age,Amount,Moment"), rows);
}

int errorOf(const QString& inside) {
    try {
        report::ReportDefinition::read(tests::definitionOf(inside), QStringLiteral("test.RPT"));
    } catch (const base::RunTimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace

TEST(Sheet, HasTheCaptionsForNamesAndEachCellOfItsColumnsKind) {
    const auto pages = document({{"I", "0012", "61", "1200.5", moment(9)}, {"O", 7, Value(), 3, moment(10)}});
    const report::RowSource& rows = *pages->rows();
    QStringList captions;
    for (const ado::Column& column : rows.columns())
        captions << column.name;
    EXPECT_EQ(captions, (QStringList{"Type", "Adm. No.", "Age", "Amount", "To Date", "Born", "Admitted"}));
    ASSERT_EQ(rows.count(), 2);
    EXPECT_TRUE(rows.isComplete());
    EXPECT_EQ(rows.at(0, 0), Value("In"));
    EXPECT_EQ(rows.at(0, 1), Value("0012"));
    EXPECT_EQ(rows.at(1, 1), Value("7")) << "a code stays a text whatever the server sent";
    EXPECT_EQ(rows.at(0, 2), Value(61.0));
    EXPECT_TRUE(rows.at(1, 2).isNull());
    EXPECT_EQ(rows.at(0, 3), Value(1200.5));
    EXPECT_EQ(rows.at(1, 4), Value(1203.5));
    EXPECT_EQ(rows.at(0, 5), Value(*base::makeDateTime({2026, 11, 20}, {0, 0, 0, 0})));
    EXPECT_EQ(rows.at(0, 6), moment(9));
    EXPECT_EQ(rows.look(2), CellLook::Plain);
    EXPECT_EQ(rows.look(3), CellLook::Amount);
    EXPECT_EQ(rows.look(5), CellLook::Day);
    EXPECT_EQ(rows.look(6), CellLook::Moment);
}

TEST(Sheet, IsTheSameInAnyOrderOfAsking) {
    const auto pages = document({{"I", "1", 1, 10, moment(9)}, {"I", "2", 2, 20, moment(9)}});
    EXPECT_EQ(pages->rows()->at(1, 4), Value(30.0));
    EXPECT_EQ(pages->rows()->at(0, 4), Value(10.0));
}

/// The first cell takes the rows in, and every sum looks its column up meanwhile.
TEST(Sheet, ACellKeepsItsColumnWhileManySumsAreTakenIn) {
    QString footer = QStringLiteral("<reportFooter height=\"5mm\">");
    for (int i = 0; i < 400; ++i)
        footer += QStringLiteral("<field x=\"0mm\" y=\"0mm\" width=\"50mm\" height=\"5mm\" "
                                 "value=\"Sum({Amount} + %1)\"/>")
                      .arg(i);
    const auto pages = tests::laidOut(sheet + footer + "</reportFooter>", "Type,IdNum,Age,Amount,Moment",
                                      {{"I", "0012", 61, 10, moment(9)}, {"O", "0013", 62, 20, moment(9)}});
    EXPECT_EQ(pages->rows()->at(0, 1), Value("0012"));
    EXPECT_EQ(pages->rows()->at(1, 1), Value("0013"));
}

TEST(Sheet, WhatIsNotOfItsKindStaysAText) {
    const auto pages = document({{"I", "1", "6 months", "free", "unknown"}, {"I", "2", "", "", ""}});
    EXPECT_EQ(pages->rows()->at(0, 2), Value("6 months"));
    EXPECT_EQ(pages->rows()->at(0, 3), Value("free"));
    EXPECT_EQ(pages->rows()->at(0, 5), Value("unknown"));
    for (const int column : {2, 3, 5, 6})
        EXPECT_TRUE(pages->rows()->at(1, column).isNull()) << column;
}

TEST(Sheet, IsHeadedWithItsTitleAndTheLinesThatSaySomething) {
    const report::SheetHeading heading = document({})->rowsHeading();
    EXPECT_EQ(heading.title, "Lines of 2 days");
    EXPECT_EQ(heading.lines, QStringList{"From 11/20/2026"});
    EXPECT_EQ(tests::laidOut("<sheet title=\"&quot;&quot;\"><column caption=\"A\" value=\"{A}\"/></sheet>")
                  ->rowsHeading()
                  .title,
              "Test")
        << "a title that says nothing leaves the document's";
}

TEST(Sheet, GoesIntoACsvFileWithAmountsAndDaysAlike) {
    const auto pages =
        document({{"I", "0012", 61, 1200.5, moment(9)}, {"O", "7", Value(), 12.345, moment(0)}});
    EXPECT_EQ(report::csvOf(*pages->rows()),
              QByteArray("\xEF\xBB\xBFType,Adm. No.,Age,Amount,To Date,Born,Admitted\r\n"
                         "In,0012,61,1200.50,1200.50,2026-11-20,2026-11-20 09:30:00\r\n"
                         "Out,7,,12.345,1212.845,2026-11-20,2026-11-20 00:30:00\r\n"));
}

TEST(Sheet, WithoutOneTheRowsAreExportedAsTheyCome) {
    const auto pages = tests::laidOut("", "IdNum,Age", {{"1", 61}});
    EXPECT_EQ(pages->rows()->columns()[0].name, "IdNum");
    EXPECT_EQ(pages->rows()->at(0, 1), Value(61));
}

TEST(Sheet, ASlipOfThePenIsRefused) {
    const QString column = "<column caption=\"A\" value=\"{A}\"/>";
    EXPECT_EQ(errorOf("<sheet>" + column + "</sheet>"), 0);
    for (const QString& inside :
         {QStringLiteral("<sheet/>"), "<sheet>" + column + "</sheet><sheet>" + column + "</sheet>",
          QStringLiteral("<sheet><column value=\"{A}\"/></sheet>"),
          QStringLiteral("<sheet><column caption=\"A\" value=\"{A}\" as=\"money\"/></sheet>"),
          QStringLiteral("<sheet><column caption=\"A\" value=\"{@None}\"/></sheet>"),
          "<sheet>" + column + "<text/></sheet>",
          "<subReport name=\"S\"><sheet>" + column + "</sheet></subReport>"})
        EXPECT_EQ(errorOf(inside), 20515) << qPrintable(inside);
}
