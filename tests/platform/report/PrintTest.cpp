#include "platform/report/output/Print.h"

#include "platform/report/Report.h"
#include "platform/report/output/PrintSystem.h"
#include "tests/platform/report/Bench.h"

#include <QFile>
#include <QPageLayout>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>

#include "tests/support/core/FullDisk.h"
#include "tests/support/core/Raised.h"

#include <gtest/gtest.h>

using tests::Folder;
using tests::toolOutput;

namespace {

const QString inside =
    QStringLiteral("<details height=\"10mm\"><field x=\"0mm\" y=\"0mm\" width=\"70mm\" height=\"5mm\" "
                   "style=\"s\" value=\"{A}\"/>"
                   "<line x=\"0mm\" y=\"9mm\" width=\"70mm\"/><box x=\"0mm\" y=\"0mm\" width=\"5mm\" "
                   "height=\"5mm\" radius=\"1mm\" "
                   "fill=\"#E7EEF2\"/></details>"
                   "<pageFooter height=\"5mm\"><field x=\"0mm\" y=\"0mm\" width=\"70mm\" height=\"5mm\" "
                   "value=\"&quot;Page &quot; "
                   "&amp; PageNumber &amp; &quot; of &quot; &amp; PageCount\"/></pageFooter>");

/// Stands in for a machine's printer.
class Recorder : public report::PrintTarget {
  public:
    Recorder(bool ready, int& printed) : m_ready(ready), m_printed(printed) {}
    bool isReady() const override { return m_ready; }
    void print(const report::PageDocument& document) override { m_printed += document.pageCount(); }

  private:
    bool m_ready;
    int& m_printed;
};

/// A printer of this computer that prints into a file.
std::unique_ptr<report::Printer> printerInto(const QString& path) {
    std::unique_ptr<report::Printer> printer = report::printSystem().defaultPrinter();
    dynamic_cast<QPrinter&>(printer->pages()).setOutputFileName(path);
    return printer;
}

struct PrintTest : testing::Test {
    ~PrintTest() override { report::setPrintTarget(QString()); }
    std::unique_ptr<report::Report> opened() {
        const QString path = folder.write("Listing.RPT", tests::definitionOf(inside));
        server.lines = tests::ScriptedProvider::rowsOf("A", {{"WHOLE BODY BONE SCAN"}});
        return report::Report::open(path, server.logOn());
    }
    Folder folder;
    tests::ReportServer server;
};

} // namespace

TEST_F(PrintTest, ThePdfHoldsTextTitleAndPaper) {
    tests::Cells rows;
    for (int i = 0; i < 20; ++i)
        rows.push_back({QStringLiteral("PERFUSION – first, office, waffle %1").arg(i)});
    const auto document = tests::laidOut(inside, "A", rows);
    const QString path = folder.path("out.pdf");
    report::exportPdf(*document, path);
    const QString text = toolOutput("pdftotext", {"-layout", path, "-"});
    EXPECT_TRUE(text.contains("PERFUSION – first, office, waffle 19")) << qPrintable(text);
    EXPECT_TRUE(text.contains("Page 1 of 3"));
    const QString info = toolOutput("pdfinfo", {path});
    EXPECT_TRUE(info.contains(QRegularExpression("Title: +Test"))) << qPrintable(info);
    EXPECT_TRUE(info.contains(QRegularExpression("Pages: +3")));
    EXPECT_TRUE(info.contains(QRegularExpression("Page size: +283\\.?[0-9]* x 283")));
    // One font, embedded, with a way back from its glyphs to the text.
    EXPECT_EQ(toolOutput("pdffonts", {path}).count(QRegularExpression("yes +(yes|no) +yes")), 1);
}

TEST_F(PrintTest, APaperThatLiesStaysLying) {
    const QString path = folder.path("slip.pdf");
    auto slip = report::Report::open(SCINTRA_SOURCE_DIR "/Reports/Chargeslip.RPT", server.logOn());
    server.lines =
        tests::ScriptedProvider::rowsOf("LineID,ItemID,Description,Quantity,Price,Amount,UserID,RevenueID");
    report::exportPdf(*slip->run(), path);
    EXPECT_TRUE(toolOutput("pdfinfo", {path}).contains(QRegularExpression("Page size: +612 x 396")));
}

TEST_F(PrintTest, LetterStandsOrLies) {
    for (const auto& [size, points] : {std::pair("width=\"8.5in\" height=\"11in\"", "612 x 792"),
                                       {"width=\"11in\" height=\"8.5in\"", "792 x 612"}}) {
        const QByteArray xml = tests::definitionOf(inside).replace("width=\"100mm\" height=\"100mm\"", size);
        server.lines = tests::ScriptedProvider::rowsOf("A", {{"x"}});
        const auto report = report::Report::open(folder.write("letter.RPT", xml), server.logOn());
        const QString path = folder.path("letter.pdf");
        report::exportPdf(*report->run(), path);
        EXPECT_TRUE(toolOutput("pdfinfo", {path})
                        .contains(QRegularExpression(QStringLiteral("Page size: +%1").arg(points))))
            << points;
    }
}

TEST_F(PrintTest, APrinterGetsThePaperAsItLies) {
    const QByteArray xml = tests::definitionOf(inside).replace("width=\"100mm\" height=\"100mm\"",
                                                               "width=\"11in\" height=\"8.5in\"");
    server.lines = tests::ScriptedProvider::rowsOf("A", {{"x"}});
    const auto document = report::Report::open(folder.write("letter.RPT", xml), server.logOn())->run();
    const auto printer = printerInto(folder.path("letter.pdf"));
    EXPECT_TRUE(report::printPages(*document, *printer, 1, 1));
    EXPECT_EQ(printer->pages().pageLayout().orientation(), QPageLayout::Landscape);
    EXPECT_EQ(printer->pages().pageLayout().pageSize().id(), QPageSize::Letter);
}

TEST_F(PrintTest, APrinterThatTakesNoJobIsTold) {
    const auto document = tests::laidOut(inside, "A", {{"x"}});
    const auto printer = printerInto(folder.path("no/such/folder/out.pdf"));
    const base::RunTimeError error = tests::raised([&] { report::printPages(*document, *printer, 1, 1); });
    EXPECT_EQ(error.number(), 75);
    EXPECT_TRUE(error.description().contains("the printer does not take the job"));
}

TEST_F(PrintTest, AJobThatIsGivenUpEndsAtItsPage) {
    const auto document = tests::laidOut(inside, "A", tests::Cells(20, {"x"}));
    ASSERT_GT(document->pageCount(), 2);
    const auto printer = printerInto(folder.path("given-up.pdf"));
    int told = 0;
    EXPECT_FALSE(report::printPages(*document, *printer, 1, document->pageCount(),
                                    [&](const report::Progress&) { return ++told < 2; }));
    EXPECT_EQ(told, 2);
}

TEST_F(PrintTest, APrinterGetsTitleAndAllOfThePaper) {
    const auto document = tests::laidOut(inside, "A", {{"x"}});
    const auto printer = printerInto(folder.path("job.pdf"));
    EXPECT_TRUE(report::printPages(*document, *printer, 1, 1));
    EXPECT_EQ(dynamic_cast<QPrinter&>(printer->pages()).docName(), "Test");
    EXPECT_TRUE(dynamic_cast<QPrinter&>(printer->pages()).fullPage());
    EXPECT_TRUE(toolOutput("pdfinfo", {folder.path("job.pdf")}).contains(QRegularExpression("Title: +Test")));
}

TEST_F(PrintTest, AModuleThatIsMissingOrNoneIsNamed) {
    const base::RunTimeError missing =
        tests::raised([&] { report::loadPrintSystem(folder.path("libmissing.so")); });
    EXPECT_EQ(missing.number(), 75);
    EXPECT_EQ(missing.description(), "Printed pages need libmissing.so, which is not installed.");
    const base::RunTimeError strange =
        tests::raised([] { report::loadPrintSystem(QStringLiteral("libz.so.1")); });
    EXPECT_EQ(strange.number(), 75);
    EXPECT_TRUE(strange.description().contains("scintraPrintSystem is missing"))
        << qPrintable(strange.description());
}

TEST_F(PrintTest, APathThatCannotBeWrittenRaises) {
    const auto document = tests::laidOut(inside, "A", {{"x"}});
    try {
        report::exportPdf(*document, folder.path("no/such/folder/out.pdf"));
        FAIL();
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 75);
    }
}

TEST_F(PrintTest, ADiskThatIsFullRaisesAndKeepsThePdfThatWasThere) {
    const auto document = tests::laidOut(inside, "A", {{"x"}});
    const QString path = folder.path("full.pdf");
    report::exportPdf(*document, path);
    const qint64 whole = QFile(path).size();
    for (const qint64 room : {qint64(0), whole / 2, whole - 1}) {
        folder.write("full.pdf", "before");
        EXPECT_EQ(tests::raised([&] {
                      const tests::FullDisk full(room);
                      report::exportPdf(*document, path);
                  }).number(),
                  75)
            << room << " of " << whole;
        EXPECT_EQ(QFile(path).size(), 6);
    }
}

TEST_F(PrintTest, DirectPrintWithoutAPrinterPrintsNothing) {
    int printed = 0;
    report::setPrintTarget(std::make_unique<Recorder>(false, printed));
    EXPECT_EQ(report::printDirect(*opened()), "No printer is set up on this computer");
    EXPECT_EQ(printed, 0);
    EXPECT_TRUE(server.texts.isEmpty()) << "nothing is read for a print that cannot be";
}

/// Raises where it is told to.
class Broken : public report::PrintTarget {
  public:
    Broken(int whenAsked, int whenPrinting) : m_whenAsked(whenAsked), m_whenPrinting(whenPrinting) {}
    bool isReady() const override {
        raise(m_whenAsked);
        return true;
    }
    void print(const report::PageDocument&) override { raise(m_whenPrinting); }

  private:
    static void raise(int number) {
        if (number > 0)
            throw base::RunTimeError(number, QStringLiteral("Office is out of paper."));
    }
    int m_whenAsked;
    int m_whenPrinting;
};

TEST_F(PrintTest, WhatKeepsAPageFromBeingPrintedIsToldAndAnyOtherErrorRaised) {
    report::setPrintTarget(std::make_unique<Broken>(75, 0));
    EXPECT_EQ(report::printDirect(*opened()), "Office is out of paper");
    EXPECT_TRUE(server.texts.isEmpty()) << "nothing is read for a print that cannot be";
    report::setPrintTarget(std::make_unique<Broken>(0, 75));
    EXPECT_EQ(report::printDirect(*opened()), "Office is out of paper");
    report::setPrintTarget(std::make_unique<Broken>(0, 11));
    EXPECT_EQ(tests::raised([&] { report::printDirect(*opened()); }).number(), 11);
}

TEST_F(PrintTest, TheDefaultPrinterIsReadyWhereThereIsOne) {
    EXPECT_EQ(report::DefaultPrinter().isReady(), !QPrinterInfo::defaultPrinterName().isEmpty());
}

TEST_F(PrintTest, DirectPrintGoesWithoutAPrompt) {
    int printed = 0;
    report::setPrintTarget(std::make_unique<Recorder>(true, printed));
    EXPECT_EQ(report::printDirect(*opened()), "");
    EXPECT_EQ(printed, 1);
    EXPECT_EQ(server.texts.size(), 1);
}

TEST_F(PrintTest, DirectPrintCanGoIntoAFile) {
    const QString path = folder.path("printed.pdf");
    report::setPrintTarget(path);
    EXPECT_EQ(report::printDirect(*opened()), "");
    EXPECT_TRUE(toolOutput("pdftotext", {path, "-"}).contains("WHOLE BODY BONE SCAN"));
}
