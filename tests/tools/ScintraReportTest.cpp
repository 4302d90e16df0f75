#ifdef SCINTRA_WIDGETS
#include <QDate>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct ScintraReport : testing::Test {
    static int run(const QString& program, const QStringList& words, QString* err = nullptr) {
        QProcess process;
        process.start(QStringLiteral(SCINTRA_BINARY_DIR "/bin/") + program, words);
        process.closeWriteChannel(); // nobody answers what is asked
        EXPECT_TRUE(process.waitForFinished(60'000)) << process.errorString().toStdString();
        if (err)
            *err = QString::fromUtf8(process.readAllStandardError());
        return process.exitCode();
    }

    static QString definition(const char* file) {
        return QStringLiteral(SCINTRA_SOURCE_DIR "/Reports/") + QLatin1String(file);
    }

    static QByteArray contentOf(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    QTemporaryDir folder;
    QString hospital = folder.filePath("hospital.scintra");
    QString pdf = folder.filePath("out.pdf");
    QString csv = folder.filePath("out.csv");
};

TEST_F(ScintraReport, WritesPagesOrRows) {
    ASSERT_EQ(run("scintra-server", {"demo", hospital}), 0);
    ASSERT_EQ(run("scintra-report",
                  {definition("CensusByStation_Nvh.RPT"), "Day=11/21/2026", "Summary.Database=PATIENT_DATA",
                   "Summary.Day=2026/11/21", "--hospital", hospital, "--to", pdf}),
              0);
    EXPECT_TRUE(contentOf(pdf).startsWith("%PDF-"));
    ASSERT_EQ(run("scintra-report", {definition("NucExams.RPT"), "--hospital", hospital, "--to", csv}), 0);
    const QByteArray rows = contentOf(csv);
    EXPECT_TRUE(rows.startsWith("\xEF\xBB\xBF"
                                "Code,Procedure,Section,Class A,Class B,"));
    EXPECT_EQ(rows.count("\r\n"), 46);
    EXPECT_TRUE(rows.contains("1001,\"BONE SCAN, WHOLE BODY\",IMAGING,5200.00,"));
}

TEST_F(ScintraReport, PrintsTheExampleOfTheDocument) {
    ASSERT_EQ(run("scintra-server", {"demo", hospital}), 0);
    const QString document =
        QString::fromUtf8(contentOf(QStringLiteral(SCINTRA_SOURCE_DIR "/docs/reports.md")));
    const qsizetype begin = document.indexOf("<report version=\"1\" title=\"Requests of a Day\">");
    const qsizetype end = document.indexOf("</report>", begin);
    ASSERT_GE(begin, 0);
    QFile example(folder.filePath("DayRequests.RPT"));
    ASSERT_TRUE(example.open(QIODevice::WriteOnly));
    example.write(document.mid(begin, end + 9 - begin).toUtf8());
    example.close();
    QString err;
    ASSERT_EQ(run("scintra-report",
                  {example.fileName(), "Day=11/20/2026", "--heading", "VALE", "--printed-by", "CRUZ, MARIA",
                   "--hospital", hospital, "--to", pdf},
                  &err),
              0)
        << err.toStdString();
    QProcess text;
    text.start(QStringLiteral("pdftotext"), {"-layout", pdf, "-"});
    ASSERT_TRUE(text.waitForFinished(60'000)) << "pdftotext is needed";
    const QString page = QString::fromUtf8(text.readAllStandardOutput());
    EXPECT_TRUE(page.contains("Requests of 11/20/2026")) << page.toStdString();
    EXPECT_TRUE(page.contains("Page 1 of ")) << page.toStdString();
    EXPECT_TRUE(page.contains("Printed by CRUZ, MARIA")) << page.toStdString();
}

TEST_F(ScintraReport, WritesTheRowsAsAWorkbook) {
    ASSERT_EQ(run("scintra-server", {"demo", hospital}), 0);
    const QString xlsx = folder.filePath("out.xlsx");
    // a made-up hospital ends today
    const QString to = QDate::currentDate().toString("MM/dd/yyyy");
    const QString from = QDate::currentDate().addDays(-30).toString("MM/dd/yyyy");
    ASSERT_EQ(
        run("scintra-report", {definition("NucMonthlyReport.RPT"), "From=" + from, "To=" + to, "--heading",
                               "VALE", "--address", "1 Harbour Road", "--hospital", hospital, "--to", xlsx}),
        0);
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), {"-p", xlsx, "xl/worksheets/sheet1.xml"});
    ASSERT_TRUE(unzip.waitForFinished(60'000)) << "unzip is needed";
    const QString sheet = QString::fromUtf8(unzip.readAllStandardOutput());
    EXPECT_TRUE(sheet.contains("VALE"));
    EXPECT_TRUE(sheet.contains("From " + from + " to " + to));
    EXPECT_TRUE(sheet.contains("<t>Requesting Doctor</t>"));
    EXPECT_TRUE(sheet.contains("<autoFilter"));
    EXPECT_GT(sheet.count("<row "), 10);
}

TEST_F(ScintraReport, RefusesWrongWordsAndWritesNothing) {
    ASSERT_EQ(run("scintra-server", {"init", hospital}), 0);
    const QStringList rest{"--hospital", hospital, "--to", pdf};
    QString err;
    EXPECT_EQ(run("scintra-report", {}), 2);
    EXPECT_EQ(run("scintra-report", QStringList{definition("NucExams.RPT"), "Form=1"} + rest, &err), 2);
    EXPECT_TRUE(err.contains("Form")) << err.toStdString();
    EXPECT_EQ(run("scintra-report", QStringList{definition("NucExams.RPT"), "word"} + rest), 2);
    EXPECT_EQ(run("scintra-report", QStringList{definition("NucExams.RPT"), "--form", "x"} + rest), 2);
    EXPECT_EQ(run("scintra-report", {definition("NucExams.RPT"), "--to", "out.doc"}), 2);
    EXPECT_EQ(run("scintra-report", QStringList{definition("NoSuch.RPT")} + rest, &err), 3);
    EXPECT_TRUE(err.contains("20507")) << err.toStdString();
    EXPECT_EQ(run("scintra-report",
                  QStringList{definition("CensusByStation_Nvh.RPT"), "Day=11/21/2026"} + rest, &err),
              2);
    EXPECT_TRUE(err.contains("Summary.Database, Summary.Day")) << err.toStdString();
    EXPECT_FALSE(QFile::exists(pdf));
}

} // namespace
#endif
