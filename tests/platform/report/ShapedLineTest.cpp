#include "platform/report/layout/FontMeasure.h"
#include "platform/report/output/PagePainter.h"
#include "platform/report/output/Print.h"
#include "platform/report/viewer/TextFind.h"
#include "tests/platform/report/Bench.h"

#include <QPainter>

#include <gtest/gtest.h>

using report::Length;

namespace {

const QString arabic = QString::fromUtf8("أحمد حسن");
const QString hebrew = QString::fromUtf8("דוד לוי");
const QString mixed = QString::fromUtf8("REYES أحمد 1010");

const report::Face face{{}, Length::fromPoints(10), false, false};

std::unique_ptr<report::PageDocument> oneField(const QString& text, const QString& more = {}) {
    return tests::laidOut("<details height=\"10mm\"><field x=\"0mm\" y=\"0mm\" width=\"60mm\" height=\"5mm\" "
                          "style=\"s\" value=\"{A}\" " +
                              more + "/></details>",
                          "A", {{text}});
}

/// First and last column of a picture with ink on it.
std::pair<int, int> inkOf(const QImage& picture) {
    int first = picture.width();
    int last = -1;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y) {
            if (qGray(picture.pixel(x, y)) < 128) {
                first = std::min(first, x);
                last = std::max(last, x);
            }
        }
    }
    return {first, last};
}

/// The page at 10 pixels a millimetre.
QImage painted(const report::PageDocument& document) {
    QImage picture(1000, 1000, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.scale(0.1, 0.1);
    report::paintPage(painter, *document.page(0));
    return picture;
}

} // namespace

TEST(ShapedLine, OnlyWhatNeedsItIsTakenForIt) {
    EXPECT_TRUE(report::needsShaping(arabic));
    EXPECT_TRUE(report::needsShaping(hebrew));
    EXPECT_TRUE(report::needsShaping(mixed));
    EXPECT_TRUE(report::needsShaping(QString::fromUcs4(U"\U0001E900", 1))); // beyond the 16 bits
    EXPECT_TRUE(report::needsShaping(QString::fromUtf8("कमला")));
    EXPECT_TRUE(report::needsShaping(QString(u'n') + QChar(0x0303))); // ñ in two signs
    for (const char* plain :
         {"", "BONE SCAN, 12.5 %", "Ñandú \xE2\x80\x94 ř", "\xE4\xB8\xAD\xE6\x96\x87", "\xF0\x9F\x98\x80"})
        EXPECT_FALSE(report::needsShaping(QString::fromUtf8(plain))) << plain;
}

TEST(ShapedLine, ArabicLettersAreJoined) {
    // The font for paper asks for no shaping, which would leave every letter in its lonely form.
    const auto document = oneField(QString::fromUtf8("ههه"));
    const auto apart = oneField(QString::fromUtf8("ه ه ه"));
    const QImage joined = painted(*document);
    const auto [first, last] = inkOf(joined);
    int gaps = 0;
    for (int x = first; x < last; ++x)
        gaps += inkOf(joined.copy(x, 0, 1, joined.height())).second < 0;
    EXPECT_EQ(gaps, 0);
    EXPECT_GT(inkOf(painted(*apart)).second, last);
}

TEST(ShapedLine, WhatIsPaintedIsAsWideAsItWasMeasured) {
    for (const QString& text : {arabic, hebrew, mixed, QString("WHOLE BODY")}) {
        const auto document = oneField(text);
        const report::TextRun run = tests::runOf(*document, 0, text);
        const auto [first, last] = inkOf(painted(*document));
        EXPECT_NEAR(first, run.frame.x.mm() * 10, 8) << qPrintable(text);
        EXPECT_NEAR(last, run.frame.right().mm() * 10, 8) << qPrintable(text);
    }
}

TEST(ShapedLine, TheDefinitionSaysWhereATextStandsWhicheverWayItRuns) {
    for (const QString& text : {arabic, mixed}) {
        EXPECT_EQ(tests::runOf(*oneField(text), 0, text).frame.x, Length::fromMm(10));
        const report::TextRun right = tests::runOf(*oneField(text, "align=\"right\""), 0, text);
        EXPECT_EQ(right.frame.right(), Length::fromMm(70));
    }
    EXPECT_TRUE(tests::runOf(*oneField(arabic), 0, arabic).rightToLeft);
    EXPECT_FALSE(tests::runOf(*oneField(mixed), 0, mixed).rightToLeft); // begins with a Latin name
    EXPECT_FALSE(tests::runOf(*oneField("REYES"), 0, "REYES").rightToLeft);
}

TEST(ShapedLine, AHitLiesOnTheSignsAsTheyStandAndACopyReadsAsTheyAreStored) {
    const std::shared_ptr<const report::PageDocument> document = oneField(arabic);
    const report::TextRun run = tests::runOf(*document, 0, arabic);
    const auto first = report::findText(document, arabic.section(u' ', 0, 0));
    const auto last = report::findText(document, arabic.section(u' ', 1, 1));
    ASSERT_EQ(first.size(), 1U);
    ASSERT_EQ(last.size(), 1U);
    // The first word stands on the right.
    EXPECT_NEAR(first[0].frame.right().hundredths, run.frame.right().hundredths,
                10); // a tenth of a millimetre
    EXPECT_NEAR(last[0].frame.x.hundredths, run.frame.x.hundredths, 3);
    EXPECT_LT(last[0].frame.right(), first[0].frame.x);
    EXPECT_EQ(report::textOf(*document->page(0)), arabic);
    const std::shared_ptr<const report::PageDocument> inMixed = oneField(mixed);
    const auto latin = report::findText(inMixed, "reyes");
    ASSERT_EQ(latin.size(), 1U);
    EXPECT_EQ(latin[0].frame.x, Length::fromMm(10));
    const report::FontMeasure measure(face);
    EXPECT_NEAR(latin[0].frame.width.hundredths, measure.width(u"REYES").hundredths, 3);
}

TEST(ShapedLine, LongTextsBreakAtBlanksAndAreCutWithAMark) {
    const QString ten = QStringList(10, arabic).join(u' ');
    const auto grown = oneField(ten, "grow=\"yes\"");
    QStringList lines = tests::textsOf(*grown, 0);
    ASSERT_GT(lines.size(), 1);
    EXPECT_EQ(lines.join(u' '), ten);
    for (const report::Item& item : grown->page(0)->items) {
        const auto& run = std::get<report::TextRun>(item);
        EXPECT_LE(run.frame.width, Length::fromMm(60));
        EXPECT_TRUE(run.rightToLeft);
    }
    const QString cut = tests::textsOf(*oneField(ten), 0).first();
    EXPECT_TRUE(cut.endsWith(QChar(0x2026)));
    EXPECT_TRUE(ten.startsWith(cut.chopped(1)));
}

TEST(ShapedLine, APdfHoldsItsWordsAsText) {
    const tests::Folder folder;
    report::exportPdf(*oneField(hebrew), folder.path("h.pdf"));
    const QString text = tests::toolOutput("pdftotext", {folder.path("h.pdf"), "-"});
    for (const QString& word : hebrew.split(u' '))
        EXPECT_TRUE(text.contains(word)) << qPrintable(text);
}
