#include "platform/report/output/Xlsx.h"

#include "platform/base/Error.h"
#include "platform/report/output/RowExport.h"
#include "platform/report/output/SheetLibrary.h"
#include "tests/platform/report/Bench.h"

#include "tests/support/core/FullDisk.h"
#include "tests/support/core/Raised.h"
#include <QDir>
#include <QFile>

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

using base::Value;

/// A workbook read back by another program.
struct Book {
    QString path;

    QString part(const QString& name) const { return tests::toolOutput("unzip", {"-p", path, name}); }
    QString sheet(int number = 1) const { return part(QString("xl/worksheets/sheet%1.xml").arg(number)); }
};

/// Everything of a cell, from "<c r=..." to its end.
QString cell(const QString& sheet, const QString& place) {
    const QRegularExpression pattern("<c r=\"" + place + "\"[^>]*?(/>|>.*?</c>)");
    return pattern.match(sheet).captured(0);
}

QString valueOf(const QString& sheet, const QString& place) {
    static const QRegularExpression pattern("<(?:v|t)(?: [^>]*)?>(.*?)</(?:v|t)>",
                                            QRegularExpression::DotMatchesEverythingOption);
    return pattern.match(cell(sheet, place)).captured(1);
}

struct XlsxTest : testing::Test {
    Book write(const QString& columns, const tests::Cells& cells, const report::SheetHeading& heading = {}) {
        ado::Rows rows = tests::ScriptedProvider::rowsOf(columns, cells).rows;
        if (money >= 0)
            rows.columns.edit()[std::size_t(money)].type = ado::DataType::Money;
        EXPECT_TRUE(report::exportXlsx(report::HeldRows(rows), heading, book.path));
        return book;
    }
    /// The format code that the cell's style stands for.
    QString formatOf(const QString& place) const {
        const QRegularExpression style("s=\"(\\d+)\"");
        const int index = style.match(cell(book.sheet(), place)).captured(1).toInt();
        const QString styles = book.part("xl/styles.xml");
        const QString cellFormats = styles.section("<cellXfs", 1).section("</cellXfs>", 0, 0);
        const QString id = QRegularExpression("numFmtId=\"(\\d+)\"")
                               .match(cellFormats.section("<xf ", index + 1, index + 1))
                               .captured(1);
        if (id == u"4")
            return "#,##0.00"; // one of those that every reader knows
        return QRegularExpression("numFmtId=\"" + id + "\" formatCode=\"([^\"]*)\"")
            .match(styles)
            .captured(1);
    }

    tests::Folder folder;
    Book book{folder.path("rows.xlsx")};
    int money = -1;
};

/// Rows that are nowhere.
class CountedRows : public report::RowSource {
  public:
    explicit CountedRows(qsizetype count) : m_count(count) {
        m_columns.resize(1);
        m_columns[0].name = "N";
    }
    const std::vector<ado::Column>& columns() const override { return m_columns; }
    qsizetype count() const override { return m_count; }
    Value at(qsizetype row, qsizetype) const override {
        if (row == brokenAt)
            throw base::RunTimeError(75, "the rows are gone");
        return qint64(row);
    }
    qsizetype brokenAt = -1;

  private:
    std::vector<ado::Column> m_columns;
    qsizetype m_count;
};

/// One row whose columns are looked at as told.
class LookedRows : public report::HeldRows {
  public:
    LookedRows(const ado::Rows& rows, std::vector<report::CellLook> looks)
        : HeldRows(rows), m_looks(std::move(looks)) {}
    report::CellLook look(qsizetype column) const override { return m_looks[std::size_t(column)]; }

  private:
    std::vector<report::CellLook> m_looks;
};

Value moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return *base::makeDateTime({year, month, day}, {hour, minute, second, 0});
}

} // namespace

TEST_F(XlsxTest, EachCellIsOfItsKind) {
    money = 2;
    const QString sheet =
        write("Exam,Count,Amount,At,Paid,Note",
              {{QString::fromUtf8("GFR <PLASMA> & Ñ"), 12, 1200.5, moment(2026, 11, 21), true, Value()}})
            .sheet();
    EXPECT_EQ(valueOf(sheet, "A2"), QString::fromUtf8("GFR &lt;PLASMA&gt; &amp; Ñ"));
    EXPECT_TRUE(cell(sheet, "A2").contains("t=\"inlineStr\""));
    EXPECT_EQ(valueOf(sheet, "B2"), "12");
    EXPECT_FALSE(cell(sheet, "B2").contains("t=\""));
    EXPECT_EQ(valueOf(sheet, "C2"), "1200.5");
    EXPECT_EQ(formatOf("C2"), "#,##0.00");
    EXPECT_EQ(valueOf(sheet, "D2"), "46347");
    EXPECT_EQ(formatOf("D2"), "mm/dd/yyyy");
    EXPECT_TRUE(cell(sheet, "E2").contains("t=\"b\""));
    EXPECT_EQ(valueOf(sheet, "E2"), "1");
    EXPECT_EQ(cell(sheet, "F2"), "");
}

TEST_F(XlsxTest, MomentsKeepTheirTimeAndWhatASheetCannotCountIsText) {
    const QString sheet = write("At", {{moment(2026, 11, 21, 18, 0, 0)},
                                       {moment(1900, 1, 1)},
                                       {moment(1900, 3, 1)},
                                       {moment(1899, 12, 30, 6)},
                                       {moment(1888, 5, 4)}})
                              .sheet();
    EXPECT_EQ(valueOf(sheet, "A2"), "46347.75");
    EXPECT_EQ(formatOf("A2"), "mm/dd/yyyy hh:mm:ss");
    EXPECT_EQ(valueOf(sheet, "A3"), "1");
    EXPECT_EQ(valueOf(sheet, "A4"), "61");
    EXPECT_EQ(valueOf(sheet, "A5"), "0.25");
    EXPECT_EQ(formatOf("A5"), "hh:mm:ss");
    EXPECT_TRUE(cell(sheet, "A6").contains("inlineStr"));
    EXPECT_TRUE(valueOf(sheet, "A6").contains("1888")) << qPrintable(valueOf(sheet, "A6"));
}

TEST_F(XlsxTest, AColumnsCellsLookAlikeWhateverTheirValues) {
    using enum report::CellLook;
    const ado::Rows rows =
        tests::ScriptedProvider::rowsOf("Born,At,Amount,Count,Paid",
                                        {{moment(2026, 11, 21), moment(2026, 11, 21), 12, 12, "free"}})
            .rows;
    EXPECT_TRUE(report::exportXlsx(LookedRows(rows, {Day, Moment, Amount, Plain, Amount}), {}, book.path));
    EXPECT_EQ(formatOf("A2"), "mm/dd/yyyy");
    EXPECT_EQ(formatOf("B2"), "mm/dd/yyyy hh:mm:ss") << "midnight, too";
    EXPECT_EQ(formatOf("C2"), "#,##0.00") << "a whole number, too";
    EXPECT_FALSE(cell(book.sheet(), "D2").contains("s=\""));
    EXPECT_EQ(valueOf(book.sheet(), "E2"), "free");
}

TEST_F(XlsxTest, NothingThatATextSaysBecomesAFormulaANumberOrALink) {
    const QString sheet =
        write("A,B,C,D,E", {{"=1+1", "@SUM(A1)", "{=A1}", "https://example.org", "0012"}}).sheet();
    EXPECT_FALSE(sheet.contains("<f>"));
    EXPECT_FALSE(sheet.contains("hyperlink"));
    const QStringList texts{"=1+1", "@SUM(A1)", "{=A1}", "https://example.org", "0012"};
    for (int i = 0; i < 5; ++i) {
        const QString place = QString(QChar(u'A' + i)) + "2";
        EXPECT_TRUE(cell(sheet, place).contains("inlineStr")) << qPrintable(place);
        EXPECT_EQ(valueOf(sheet, place), texts[i]);
    }
    EXPECT_TRUE(sheet.contains("numberStoredAsText=\"1\"")); // no warning sign beside codes
}

TEST_F(XlsxTest, LongNumbersKeepAllTheirDigits) {
    const QString sheet = write("N", {{qint64(999999999999999)}, {qint64(1234567890123456789)}}).sheet();
    EXPECT_EQ(valueOf(sheet, "A2"), "999999999999999");
    EXPECT_FALSE(cell(sheet, "A2").contains("inlineStr"));
    EXPECT_EQ(valueOf(sheet, "A3"), "1234567890123456789");
    EXPECT_TRUE(cell(sheet, "A3").contains("inlineStr"));
}

TEST_F(XlsxTest, ATextThatNoCellHoldsIsMadeToFit) {
    QString bell = "a\tb";
    bell += QChar(7);
    bell += QChar(0xFFFF);
    const QString sheet = write("A", {{bell}, {QString(40000, u'x')}}).sheet();
    EXPECT_EQ(valueOf(sheet, "A2"), "a\tb");
    EXPECT_EQ(valueOf(sheet, "A3").size(), 32767);
}

TEST_F(XlsxTest, TheHeadingStandsAboveAFixedLineOfNamesWithAFilter) {
    const QString sheet = write("Exam,Remarks", {{"GFR", QString(30, u'r')}, {"BONE SCAN", "x"}},
                                {"VALE GENERAL HOSPITAL",
                                 "1 Harbour Road",
                                 "Audit: May/June [all]",
                                 {"From: 05/01/2026", "To: 06/30/2026"}})
                              .sheet();
    EXPECT_EQ(valueOf(sheet, "A1"), "VALE GENERAL HOSPITAL");
    EXPECT_EQ(valueOf(sheet, "A2"), "1 Harbour Road");
    EXPECT_EQ(valueOf(sheet, "A3"), "Audit: May/June [all]");
    EXPECT_EQ(valueOf(sheet, "A5"), "To: 06/30/2026");
    EXPECT_EQ(valueOf(sheet, "A7"), "Exam");
    EXPECT_EQ(valueOf(sheet, "A9"), "BONE SCAN");
    EXPECT_TRUE(sheet.contains("<pane ySplit=\"7\" topLeftCell=\"A8\"")) << qPrintable(sheet.left(600));
    EXPECT_TRUE(sheet.contains("<autoFilter ref=\"A7:B9\"/>"));
    const auto widthOf = [&](int column) {
        const QRegularExpression pattern(
            QString("<col min=\"%1\" max=\"%1\" width=\"([0-9.]+)\"").arg(column));
        return pattern.match(sheet).captured(1).toDouble();
    };
    EXPECT_GT(widthOf(2), 30); // the heading's long lines do not count
    EXPECT_LT(widthOf(1), 14);
    const QString book1 = book.part("xl/workbook.xml");
    EXPECT_TRUE(book1.contains("<sheet name=\"Audit MayJune all\"")) << qPrintable(book1);
    EXPECT_TRUE(book1.contains("$7:$7")); // printed on every page
    EXPECT_TRUE(book.part("docProps/core.xml").contains("Audit: May/June [all]"));
}

TEST_F(XlsxTest, NoRowsAndNoColumnsMakeASheetNevertheless) {
    const QString named = write("Exam", {}, {{}, {}, "History", {}}).sheet();
    EXPECT_EQ(valueOf(named, "A1"), "History");
    EXPECT_EQ(valueOf(named, "A3"), "Exam");
    EXPECT_TRUE(book.part("xl/workbook.xml").contains("name=\"Rows\"")); // "History" is the reader's own
    EXPECT_TRUE(report::exportXlsx(report::HeldRows(ado::Rows()), {}, book.path));
    EXPECT_TRUE(book.sheet().contains("<sheetData"));
}

TEST_F(XlsxTest, ATitleTooLongForASheetsNameIsCutThere) {
    const QString sheet =
        write("Exam", {{"GFR"}}, {{}, {}, "Readers Fee and Doctor's Commision by Payment", {}}).sheet();
    EXPECT_EQ(valueOf(sheet, "A1"), "Readers Fee and Doctor's Commision by Payment");
    EXPECT_TRUE(book.part("xl/workbook.xml").contains("<sheet name=\"Readers Fee and Doctors Commisi\""));
}

TEST_F(XlsxTest, RowsBeyondOneSheetGoOnOnTheNext) {
    const CountedRows rows(report::mostSheetRows + 5);
    EXPECT_TRUE(report::exportXlsx(rows, {{}, {}, "All", {}}, book.path));
    // Title, a free line and the names leave 1,048,573 rows of the first sheet.
    const QString first = book.sheet(1).right(4000);
    EXPECT_EQ(valueOf(first, "A1048576"), "1048572");
    const QString second = book.sheet(2);
    EXPECT_EQ(valueOf(second, "A1"), "All");
    EXPECT_EQ(valueOf(second, "A3"), "N");
    EXPECT_EQ(valueOf(second, "A4"), "1048573");
    EXPECT_EQ(valueOf(second, "A11"), "1048580");
    EXPECT_EQ(cell(second, "A12"), "");
    EXPECT_TRUE(second.contains("<autoFilter ref=\"A3:A11\"/>"));
    EXPECT_TRUE(book.part("xl/workbook.xml").contains("name=\"All (2)\""));
}

TEST_F(XlsxTest, WhatWasThereStaysUntilTheFileIsWhole) {
    for (const char* name : {"kept.xlsx", "kept.csv"}) {
        const QString path = folder.write(name, "before");
        const auto content = [&] {
            QFile file(path);
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            return file.readAll();
        };
        CountedRows rows(300'000);
        EXPECT_FALSE(report::exportRows(rows, {}, path,
                                        [](const report::Progress& done) { return done.rows < 100'000; }));
        EXPECT_EQ(content(), "before");
        rows.brokenAt = 200'000;
        EXPECT_THROW(report::exportRows(rows, {}, path), base::RunTimeError);
        EXPECT_EQ(content(), "before");
        EXPECT_EQ(QDir(folder.path("")).entryList(QDir::Files | QDir::Hidden).filter("kept").size(), 1)
            << "nothing half-done lies beside it";
        EXPECT_TRUE(report::exportRows(CountedRows(3), {}, path));
        EXPECT_NE(content(), "before");
        QFile::remove(path);
    }
}

TEST_F(XlsxTest, ADiskThatIsFullRaises75AndKeepsTheFileThatWasThere) {
    const CountedRows rows(30'000);
    const QString path = folder.path("full.xlsx");
    ASSERT_TRUE(report::exportRows(rows, {}, path));
    const qint64 whole = QFile(path).size();
    // twice: there is room for the workbook, but not for its rows before they are packed
    for (const qint64 room : {qint64(0), whole / 4, whole / 2, whole - 100, whole - 1, 2 * whole}) {
        folder.write("full.xlsx", "before");
        EXPECT_EQ(tests::raised([&] {
                      const tests::FullDisk full(room);
                      report::exportRows(rows, {}, path);
                  }).number(),
                  75)
            << room << " of " << whole << ", left " << QFile(path).size();
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), "before");
    }
}

TEST_F(XlsxTest, ASmallWorkbookIsWrittenWholeOrNotAtAll) {
    const CountedRows rows(3);
    const QString path = folder.path("small.xlsx");
    ASSERT_TRUE(report::exportRows(rows, {}, path));
    const qint64 whole = QFile(path).size();
    int refused = 0;
    int written = 0;
    for (qint64 room = 0; written < 3; room += 97) {
        folder.write("small.xlsx", "before");
        try {
            const tests::FullDisk full(room);
            report::exportRows(rows, {}, path);
            ++written;
        } catch (const base::RunTimeError& error) {
            EXPECT_EQ(error.number(), 75);
            ++refused;
        }
        // its properties tell the time: a few bytes more or less
        EXPECT_NEAR(double(QFile(path).size()), written > 0 ? double(whole) : 6.0, 8) << room;
    }
    EXPECT_GT(refused, 20);
}

TEST_F(XlsxTest, ItIsToldHowFarTheRowsAreAndStopsWhileItIsPacked) {
    std::vector<qint64> told;
    EXPECT_TRUE(report::exportRows(CountedRows(60'000), {}, book.path, [&](const report::Progress& done) {
        told.push_back(done.rows);
        return true;
    }));
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_GT(told.size(), 10U);
    EXPECT_EQ(valueOf(book.sheet(), "A60001"), "59999");
    QFile::remove(book.path);
    bool packing = false;
    EXPECT_FALSE(report::exportRows(CountedRows(400'000), {}, book.path, [&](const report::Progress& done) {
        packing = packing || done.rows == 400'000;
        return done.rows < 400'000;
    }));
    EXPECT_TRUE(packing);
    EXPECT_FALSE(QFile::exists(book.path));
}

TEST_F(XlsxTest, APathThatCannotBeWrittenRaises75WithTheReason) {
    for (const char* name : {"none/out.xlsx", "none/out.csv", "out.doc"}) {
        try {
            report::exportRows(CountedRows(1), {}, folder.path(name));
            ADD_FAILURE() << name;
        } catch (const base::RunTimeError& error) {
            EXPECT_EQ(error.number(), 75);
            EXPECT_TRUE(error.description().startsWith("Path/File access error: " + folder.path(name)));
        }
    }
}

TEST(SheetHeading, TellsTheParametersThatSaySomethingNew) {
    const auto definition = report::ReportDefinition::read(
        tests::definitionOf("<parameter name=\"Hospital\"/><parameter name=\"From\" prompt=\"From day\"/>"
                            "<parameter name=\"To\"/><parameter name=\"Remarks\"/>"),
        "test.RPT");
    const report::SheetHeading heading = report::headingOf(
        *definition, "VALE", "1 Harbour Road", {"VALE", moment(2026, 11, 1), Value(), "two\nlines"});
    EXPECT_EQ(heading.title, "Test");
    EXPECT_EQ(heading.hospital, "VALE");
    EXPECT_EQ(heading.lines, (QStringList{"From day: 11/1/2026", "Remarks: two lines"}));
}

TEST(SheetLibrary, OneThatIsNotThereIsNamed) {
    for (const char* name : {"noxlsxwriter", "z"}) {
        try {
            report::SheetLibrary library(QString::fromLatin1(name), name[0] == 'z' ? 1 : 4);
            FAIL();
        } catch (const base::RunTimeError& error) {
            EXPECT_TRUE(error.description().contains(name[0] == 'z' ? "workbook_new_opt" : "libnoxlsxwriter"))
                << qPrintable(error.description());
        }
    }
}
