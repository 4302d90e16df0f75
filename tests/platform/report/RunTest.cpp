// Reports laid out while their rows arrive: the same pages in the end, and something to read before.
#include "platform/report/Run.h"

#include "platform/report/output/Print.h"
#include "platform/report/rows/RowStore.h"
#include "tests/platform/report/Mill.h"

#include <QFile>

#include <gtest/gtest.h>

using Running = report::Run;
using tests::Mill;
using tests::textsOf;

namespace {

QString field(const QString& value) {
    return QStringLiteral("<field x=\"0mm\" y=\"0mm\" width=\"80mm\" height=\"5mm\" style=\"s\" "
                          "value=\"%1\"/>")
        .arg(value.toHtmlEscaped());
}

QString band(const QString& kind, const QString& value) {
    return QStringLiteral("<%1 height=\"7mm\">%2</%1>").arg(kind, field(value));
}

const QString pageOf = band("pageFooter", "\"Page \" & PageNumber & \" of \" & PageCount");
const QString details = band("details", "{A} & \"/\" & {N}");

/// Everything that looks ahead or adds up.
const QString manySided =
    "<formula name=\"Share\">Sum({N}) / Sum({N}, G)</formula>"
    "<group name=\"G\" by=\"{A}\" keepTogether=\"yes\" repeat=\"yes\">" +
    band("header", "{A} & \": \" & Sum({N}) & \" in \" & Count({N})") +
    band("footer", "Minimum({N}) & \"..\" & Maximum({N}) & \", so far \" & Running({N})") + "</group>" +
    band("details", "{N} & \" \" & Format({@Share}, \"0.000\") & \" \" & Running({N}, G)") +
    band("reportHeader", "\"from \" & {A}") + band("reportFooter", "\"all \" & Average({N})") + pageOf;

struct RunTest : testing::Test {
    std::unique_ptr<report::Report> open(const QString& inside) {
        return report::Report::open(folder.write("Long.RPT", tests::definitionOf(inside)), mill.logOn());
    }
    /// Works until the pages of all rows that have arrived are laid.
    static void workUntilWaiting(Running& run) {
        run.work(5);
        while (run.state() == Running::State::Running && !run.isWaiting())
            run.work(5);
    }
    static void finish(Running& run) {
        while (run.work(5) == Running::State::Running)
            run.waitForRows(5);
    }
    static QStringList allTexts(const report::PageDocument& document) {
        QStringList texts;
        for (int page = 0; page < document.pageCount(); ++page)
            texts << textsOf(document, page).join(u'|');
        return texts;
    }
    static int errorOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const base::RunTimeError& error) {
            return error.number();
        }
        return 0;
    }

    tests::Folder folder;
    Mill mill;
};

} // namespace

TEST_F(RunTest, TheFirstPageIsThereWhileRowsAreStillToCome) {
    mill.rows = 5000;
    mill.heldAt = 300;
    const auto run = open(details + pageOf)->start();
    mill.waitUntilHeld();
    workUntilWaiting(*run);
    EXPECT_EQ(run->state(), Running::State::Running);
    EXPECT_EQ(run->progress().rows, 300);
    const report::PageDocument& document = *run->document();
    EXPECT_GT(document.pageCount(), 20);
    EXPECT_FALSE(document.isComplete());
    EXPECT_EQ(textsOf(document, 0).first(), "Page 1 of \u2026");
    EXPECT_EQ(textsOf(document, 0)[1], "group 0/0");
    mill.letGo();
    finish(*run);
    EXPECT_EQ(run->state(), Running::State::Complete);
    EXPECT_TRUE(document.isComplete());
    EXPECT_EQ(textsOf(document, 0).first(), QStringLiteral("Page 1 of %1").arg(document.pageCount()));
    EXPECT_TRUE(run->isIdle());
    EXPECT_EQ(mill.connections(), 0);
}

TEST_F(RunTest, ThePagesAreThoseOfAReportLaidOutAtAStretch) {
    mill.rows = 57;
    for (const QString& inside : {details + pageOf, manySided}) {
        const QStringList expected = allTexts(*open(inside)->run());
        ASSERT_GT(expected.size(), 4);
        for (const qint64 step : {1, 2, 3, 10, 11, 30}) {
            mill.heldAt = 0;
            const auto run = open(inside)->start();
            for (qint64 at = 0; at < mill.rows; at += step) {
                mill.waitUntilHeld();
                workUntilWaiting(*run);
                mill.letGo(at + step < mill.rows ? at + step : -1);
            }
            finish(*run);
            EXPECT_EQ(allTexts(*run->document()), expected) << step;
        }
    }
}

TEST_F(RunTest, ASumInAHeaderWaitsForItsGroupsEnd) {
    mill.rows = 40;
    mill.heldAt = 10;
    const auto run = open("<group name=\"G\" by=\"{A}\" newPage=\"yes\">" + band("header", "Sum({N})") +
                          "</group>" + band("details", "{N}"))
                         ->start();
    mill.waitUntilHeld();
    workUntilWaiting(*run);
    EXPECT_EQ(run->document()->pageCount(), 0) << "the next row could belong to the group";
    mill.letGo(11);
    mill.waitUntilHeld();
    workUntilWaiting(*run);
    EXPECT_EQ(textsOf(*run->document(), 0).first(), "45");
    mill.letGo();
    finish(*run);
}

TEST_F(RunTest, ASumOfTheReportInItsHeaderWaitsForTheLastRow) {
    mill.rows = 500;
    mill.heldAt = 499;
    const auto run = open(band("reportHeader", "Sum({N})") + details)->start();
    mill.waitUntilHeld();
    workUntilWaiting(*run);
    EXPECT_EQ(run->document()->pageCount(), 0);
    mill.letGo();
    finish(*run);
    EXPECT_EQ(textsOf(*run->document(), 0).first(), QString::number(499 * 250));
}

TEST_F(RunTest, WithoutRowsThereIsStillAPage) {
    const auto run = open(band("reportHeader", "\"nothing: \" & Sum({N})") + details)->start();
    finish(*run);
    EXPECT_EQ(textsOf(*run->document(), 0), QStringList{"nothing: 0"});
}

TEST_F(RunTest, CanBeStoppedAtEveryStageAndKeepsWhatIsThere) {
    mill.rows = 100'000;
    for (const qint64 at : {0, 1, 5, 300, 99'999}) {
        mill.heldAt = at;
        auto run = open(details + pageOf)->start();
        mill.waitUntilHeld();
        workUntilWaiting(*run);
        const int pages = run->document()->pageCount();
        run->stop();
        EXPECT_EQ(run->state(), Running::State::Stopped);
        EXPECT_EQ(run->work(5), Running::State::Stopped);
        const auto document = run->document();
        run.reset();
        EXPECT_EQ(mill.connections(), 0) << at;
        EXPECT_FALSE(document->isComplete());
        ASSERT_EQ(document->pageCount(), pages);
        if (pages > 0) {
            EXPECT_EQ(textsOf(*document, pages - 1).first(), QStringLiteral("Page %1 of \u2026").arg(pages));
        }
    }
}

TEST_F(RunTest, StoppedBetweenReadingAndLayingOut) {
    mill.rows = 50'000;
    auto run = open(details)->start();
    while (run->work(1) == Running::State::Running && run->progress().rows < mill.rows)
        run->waitForRows(5);
    ASSERT_EQ(run->state(), Running::State::Running);
    run->stop();
    EXPECT_LT(run->document()->pageCount(), 6000);
}

TEST_F(RunTest, GoingAwayEndsTheReading) {
    mill.rows = 10'000'000;
    auto run = open(details)->start();
    run->waitForRows(2000);
    run.reset();
    EXPECT_EQ(mill.connections(), 0);
    EXPECT_LT(mill.handed(), mill.rows);
}

TEST_F(RunTest, AnErrorOfTheServerHalfWayIsRaisedHere) {
    mill.rows = 1000;
    mill.failingAt = 400;
    mill.heldAt = 400;
    const auto run = open(details + pageOf)->start();
    mill.waitUntilHeld();
    workUntilWaiting(*run);
    const int pages = run->document()->pageCount();
    EXPECT_GT(pages, 10);
    mill.letGo();
    EXPECT_EQ(errorOf([&] { finish(*run); }), 1205);
    EXPECT_EQ(run->state(), Running::State::Stopped);
    EXPECT_EQ(run->document()->pageCount(), pages);
    EXPECT_EQ(textsOf(*run->document(), 3).size(), textsOf(*run->document(), 4).size());
    EXPECT_EQ(errorOf([&] { open(details)->run(); }), 1205);
}

TEST_F(RunTest, AValueOfTheWrongKindIsRaisedOnceTheStatementHasEnded) {
    mill.rows = 100;
    mill.heldAt = 50;
    const auto run = open(band("details", "{A} * 2"))->start();
    mill.waitUntilHeld();
    EXPECT_EQ(errorOf([&] { workUntilWaiting(*run); }), 0) << "a further result may replace these rows";
    mill.letGo();
    EXPECT_EQ(errorOf([&] { finish(*run); }), 13);
}

TEST_F(RunTest, AFurtherResultReplacesTheOneBefore) {
    mill.rows = 30;
    mill.firstResult = 20;
    mill.heldAt = -2;
    const auto run = open(details)->start();
    mill.waitUntilHeld();
    workUntilWaiting(*run); // the first one lacks the columns: that is not told yet
    mill.letGo();
    finish(*run);
    EXPECT_EQ(textsOf(*run->document(), 0).first(), "group 0/0");
    EXPECT_EQ(run->document()->rows()->count(), 30);
}

TEST_F(RunTest, ALongReportHoldsFewOfItsRows) {
    mill.rows = 200'000;
    const auto document = open(manySided)->run();
    const auto* store = dynamic_cast<const report::RowStore*>(document->rows());
    ASSERT_TRUE(store);
    EXPECT_EQ(store->count(), 200'000);
    EXPECT_LE(store->statistics().held, report::RowStore::heldAtMost + 200'000);
    EXPECT_LE(store->statistics().unpacked, qsizetype(report::RowStore::unpackedAtMost));
    EXPECT_TRUE(textsOf(*document, document->pageCount() - 1).contains("all 99999.5"));
}

TEST_F(RunTest, ProgressCanGiveUpReadingLayingOutAndExporting) {
    mill.rows = 3000;
    int calls = 0;
    EXPECT_EQ(open(details)->run([&](const report::Progress& progress) {
        ++calls;
        return progress.rows < 600;
    }),
              nullptr);
    EXPECT_GE(calls, 3);
    EXPECT_LT(mill.handed(), 1000);
    mill.rows = 6'000;
    EXPECT_EQ(open(details)->run([](const report::Progress& progress) { return progress.pages == 0; }),
              nullptr);
    mill.rows = 3000;
    const auto document = open(details)->run([](const report::Progress&) { return true; });
    ASSERT_TRUE(document);
    const QString path = folder.path("out.pdf");
    EXPECT_FALSE(report::exportPdf(*document, path, [&](const report::Progress& progress) {
        EXPECT_EQ(progress.ofPages, document->pageCount());
        return progress.pages < 7;
    }));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(report::exportPdf(*document, path));
    EXPECT_TRUE(QFile::exists(path));
}
