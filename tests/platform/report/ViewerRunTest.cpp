// The viewer while a report is still being read.
#include "platform/report/viewer/Viewer.h"

#include "platform/controls/screen/Connect.h"
#include "tests/platform/report/Mill.h"
#include "tests/support/screens/ErrorRecorder.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

const QString inside = QStringLiteral(
    "<group name=\"G\" by=\"{A}\"><header height=\"5mm\"/></group>"
    "<details height=\"10mm\"><field x=\"0mm\" y=\"0mm\" width=\"70mm\" height=\"5mm\" style=\"s\" "
    "value=\"&quot;line &quot; &amp; {N}\"/></details>");

struct ViewerRunTest : testing::Test {
    ViewerRunTest() {
        mill.rows = 2000;
        mill.heldAt = 300;
        viewer = std::make_unique<report::Viewer>();
        viewer->resize(900, 600);
        viewer->show();
        viewer->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(viewer.get()));
    }
    void open() {
        auto report =
            report::Report::open(folder.write("Long.RPT", tests::definitionOf(inside)), mill.logOn());
        EXPECT_TRUE(viewer->showReport(*report));
        viewer->pages()->setFocus();
    }
    /// Open, and all pages of the first 300 rows laid.
    void openHalf() {
        open();
        ASSERT_TRUE(QTest::qWaitFor([&] { return text("runText").startsWith("Reading\u2026 300 rows, 4"); }));
        ASSERT_TRUE(viewer->isRunning());
    }
    void finish() {
        mill.letGo();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !viewer->isRunning(); }));
    }
    void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(viewer->focusWidget(), Qt::Key(code), modifiers);
    }
    QString text(const char* label) const {
        const auto* found = viewer->findChild<QLabel*>(label);
        return found && found->isVisible() ? found->text() : QString();
    }
    bool isEnabled(const char* command) const { return viewer->command(command)->isEnabled(); }

    tests::Folder folder;
    tests::Mill mill;
    std::unique_ptr<report::Viewer> viewer;
};

} // namespace

TEST_F(ViewerRunTest, AShortReportIsCompleteAtOnce) {
    mill.rows = 30;
    open();
    EXPECT_FALSE(viewer->isRunning());
    EXPECT_EQ(text("runText"), "");
    EXPECT_TRUE(isEnabled("print"));
    EXPECT_FALSE(isEnabled("stop"));
}

TEST_F(ViewerRunTest, PagesAreTurnedWhileMoreAreRead) {
    openHalf();
    EXPECT_EQ(text("runText"),
              QStringLiteral("Reading\u2026 300 rows, %1 pages").arg(viewer->document()->pageCount()));
    EXPECT_EQ(text("pageCount"), QStringLiteral("of %1\u2026").arg(viewer->document()->pageCount()));
    for (const char* command : {"print", "export", "last"})
        EXPECT_FALSE(isEnabled(command)) << command;
    key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(viewer->pages()->currentPage(), 1);
    EXPECT_FALSE(viewer->exportTo(folder.path("half.pdf")));
    finish();
    EXPECT_EQ(viewer->pages()->currentPage(), 1) << "nobody turned it";
    EXPECT_EQ(text("runText"), "");
    EXPECT_EQ(text("pageCount"), QStringLiteral("of %1").arg(viewer->document()->pageCount()));
    for (const char* command : {"print", "export", "last"})
        EXPECT_TRUE(isEnabled(command)) << command;
    EXPECT_FALSE(isEnabled("stop"));
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(viewer->pages()->currentPage(), viewer->document()->pageCount() - 1);
    EXPECT_TRUE(viewer->exportTo(folder.path("whole.pdf")));
}

TEST_F(ViewerRunTest, APrintThatWasAskedForWaitsForTheLastPage) {
    openHalf();
    int asked = 0;
    QTimer answer;
    controls::on(&answer, &QTimer::timeout, viewer.get(), [&] {
        if (auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget())) {
            EXPECT_FALSE(viewer->isRunning());
            ++asked;
            QTest::keyClick(dialog, Qt::Key_Escape);
        }
    });
    answer.start(0);
    viewer->print();
    EXPECT_EQ(asked, 0);
    finish();
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked > 0; }));
    EXPECT_EQ(asked, 1);
}

TEST_F(ViewerRunTest, EscapeStopsAndWhatIsThereStaysReadable) {
    openHalf();
    const int pages = viewer->document()->pageCount();
    key(Qt::Key_Escape);
    EXPECT_FALSE(viewer->isRunning());
    EXPECT_TRUE(viewer->isVisible());
    EXPECT_EQ(text("runText"), "Stopped: the report is not complete");
    EXPECT_FALSE(isEnabled("print"));
    EXPECT_FALSE(isEnabled("export"));
    EXPECT_FALSE(viewer->exportTo(folder.path("half.pdf")));
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(viewer->pages()->currentPage(), pages - 1);
    EXPECT_FALSE(viewer->grab().isNull());
    EXPECT_TRUE(QTest::qWaitFor([&] { return mill.connections() == 0; }));
}

TEST_F(ViewerRunTest, TheStopButtonDoesTheSame) {
    openHalf();
    QTest::mouseClick(viewer->findChild<QWidget*>("runStop"), Qt::LeftButton);
    EXPECT_EQ(text("runText"), "Stopped: the report is not complete");
}

TEST_F(ViewerRunTest, TheGroupTreeGrowsWithThePages) {
    viewer->setGroupTreeShown(true);
    openHalf();
    auto* tree = viewer->findChild<QTreeWidget*>("groupTree");
    EXPECT_TRUE(tree->isVisible());
    EXPECT_GE(tree->topLevelItemCount(), 29);
    EXPECT_LE(tree->topLevelItemCount(), 30);
    finish();
    EXPECT_EQ(tree->topLevelItemCount(), 200);
    EXPECT_EQ(tree->topLevelItem(199)->text(0), "group 199");
}

TEST_F(ViewerRunTest, ASearchGoesOnThroughWhatComes) {
    openHalf();
    key(Qt::Key_F, Qt::ControlModifier);
    auto* search = viewer->findChild<QLineEdit*>("findText");
    QTest::keyClicks(search, "line 1999");
    EXPECT_EQ(text("findCount"), "Searching\u2026");
    finish();
    EXPECT_TRUE(QTest::qWaitFor([&] { return text("findCount") == "1 of 1"; }));
    EXPECT_EQ(viewer->pages()->currentPage(), viewer->document()->pageCount() - 1);
}

TEST_F(ViewerRunTest, EscapeInTheSearchClosesTheSearchOnly) {
    openHalf();
    key(Qt::Key_F, Qt::ControlModifier);
    auto* search = viewer->findChild<QLineEdit*>("findText");
    QTest::keyClick(search, Qt::Key_Escape);
    EXPECT_FALSE(search->isVisible());
    EXPECT_TRUE(viewer->isRunning());
}

TEST_F(ViewerRunTest, AnErrorHalfWayGoesToTheErrorBoundary) {
    tests::ErrorRecorder errors;
    mill.failingAt = 300;
    openHalf();
    mill.letGo();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !errors.isEmpty(); }));
    EXPECT_EQ(errors.take().number(), 1205);
    EXPECT_EQ(text("runText"), "Stopped: the report is not complete");
}

TEST_F(ViewerRunTest, ClosingEndsTheReading) {
    openHalf();
    viewer.reset();
    EXPECT_EQ(mill.connections(), 0);
    EXPECT_EQ(mill.handed(), 300);
}

TEST_F(ViewerRunTest, AnotherReportEndsTheOneBefore) {
    openHalf();
    mill.letGo(0);
    mill.rows = 20;
    mill.letGo();
    open();
    EXPECT_FALSE(viewer->isRunning());
    EXPECT_EQ(viewer->document()->rows()->count(), 20);
    viewer->setDocument(nullptr);
    EXPECT_EQ(text("runText"), "");
}

TEST_F(ViewerRunTest, NothingIsThereYetIsSaid) {
    mill.heldAt = 0;
    open();
    EXPECT_TRUE(viewer->isRunning());
    EXPECT_EQ(viewer->document()->pageCount(), 0);
    EXPECT_FALSE(viewer->grab().isNull());
    EXPECT_FALSE(isEnabled("next"));
    key(Qt::Key_Escape);
    EXPECT_EQ(text("runText"), "Stopped: the report is not complete");
}
