#include "platform/report/output/Csv.h"
#include "platform/base/Error.h"
#include "tests/platform/report/Bench.h"
#include "tests/support/core/FullDisk.h"
#include "tests/support/core/Raised.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

QByteArray csv(const QString& columns, const tests::Cells& cells) {
    const ado::Rows rows = tests::ScriptedProvider::rowsOf(columns, cells).rows;
    return report::csvOf(report::HeldRows(rows));
}

} // namespace

TEST(Csv, HasAMarkALineOfNamesAndALineARow) {
    EXPECT_EQ(csv("Exam,Amount", {{QString::fromUtf8("GFR, \"PLASMA\" Ñ"), 1200.5}, {base::Value(), -3}}),
              QByteArray("\xEF\xBB\xBF"
                         "Exam,Amount\r\n\"GFR, \"\"PLASMA\"\" Ñ\",1200.5\r\n,-3\r\n"));
}

TEST(Csv, MomentsAreReadTheSameEverywhere) {
    EXPECT_TRUE(csv("At", {{*base::makeDateTime({2026, 11, 21}, {8, 5, 9, 0})}})
                    .endsWith("At\r\n2026-11-21 08:05:09\r\n"));
}

TEST(Csv, NoTextBecomesAFormula) {
    EXPECT_TRUE(csv("A,B,C", {{"=1+1", "-5.5", "@SUM(A1)"}}).endsWith("'=1+1,-5.5,'@SUM(A1)\r\n"));
}

TEST(Csv, ManyRowsAreWrittenBlockByBlock) {
    tests::Cells cells;
    for (int i = 0; i < 30000; ++i)
        cells.push_back({QStringLiteral("line %1 of many").arg(i)});
    const ado::Rows rows = tests::ScriptedProvider::rowsOf("A", cells).rows;
    const tests::Folder folder;
    EXPECT_TRUE(report::exportCsv(report::HeldRows(rows), folder.path("out.csv")));
    QFile file(folder.path("out.csv"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray csv = file.readAll();
    EXPECT_EQ(csv.count("\r\n"), 30001);
    EXPECT_TRUE(csv.endsWith("\r\nline 29999 of many\r\n"));
    EXPECT_EQ(csv, report::csvOf(report::HeldRows(rows)));
}

TEST(Csv, AFileThatCannotBeWrittenRaises75) {
    const tests::Folder folder;
    try {
        report::exportCsv(report::HeldRows(ado::Rows()), folder.path("none/out.csv"));
        FAIL();
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 75);
    }
}

TEST(Csv, ADiskThatIsFullRaises75AndKeepsTheFileThatWasThere) {
    tests::Cells cells;
    for (int i = 0; i < 30000; ++i)
        cells.push_back({QStringLiteral("line %1 of many").arg(i)});
    const ado::Rows many = tests::ScriptedProvider::rowsOf("A", cells).rows;
    const ado::Rows few = tests::ScriptedProvider::rowsOf("A", {{"one"}, {"two"}}).rows;
    const tests::Folder folder;
    const QString path = folder.path("out.csv");
    for (const ado::Rows* rows : {&few, &many}) {
        const qint64 whole = report::csvOf(report::HeldRows(*rows)).size();
        for (const qint64 room : {qint64(0), whole / 2, whole - 1}) {
            QFile good(path);
            ASSERT_TRUE(good.open(QIODevice::WriteOnly));
            good.write("good");
            good.close();
            EXPECT_EQ(tests::raised([&] {
                          const tests::FullDisk full(room);
                          report::exportCsv(report::HeldRows(*rows), path);
                      }).number(),
                      75)
                << room << " of " << whole;
            ASSERT_TRUE(good.open(QIODevice::ReadOnly));
            EXPECT_EQ(good.readAll(), "good");
        }
    }
}
