#include "platform/report/viewer/Viewer.h"
#include "platform/controls/screen/TestDoors.h"

#include "platform/controls/screen/MessageBox.h"
#include "platform/report/Report.h"
#include "tests/platform/report/Bench.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QRadioButton>
#include <QScrollBar>
#include <QSettings>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

const QString inside = QStringLiteral(
    "<group name=\"Dept\" by=\"{B}\"><header height=\"5mm\"/></group>"
    "<details height=\"10mm\"><field x=\"0mm\" y=\"0mm\" width=\"70mm\" height=\"5mm\" style=\"s\" "
    "value=\"{A}\"/></details>");

struct ViewerTest : testing::Test {
    ViewerTest() {
        tests::Cells rows;
        for (int i = 1; i <= 70; ++i)
            rows.push_back({QStringLiteral("line %1%2").arg(i).arg(i % 20 == 0 ? " STAT, stat" : ""),
                            i <= 35 ? "NU" : "MD"});
        viewer.setDocument(tests::laidOut(inside, "A,B", rows));
        viewer.resize(900, 600);
        viewer.show();
        viewer.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&viewer));
        viewer.pages()->setFocus();
    }
    ~ViewerTest() override { controls::setMessageScript({}); }

    void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(viewer.focusWidget() ? viewer.focusWidget() : &viewer, Qt::Key(code), modifiers);
    }
    template <typename T>
    T* child(const char* name) {
        T* found = viewer.findChild<T*>(name);
        EXPECT_TRUE(found) << name;
        return found;
    }
    /// In the open save dialog, standing in the path's folder: the kind with that suffix, the name, Enter.
    static void typeName(const QString& path, const QString& kind) {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        dialog->setDirectory(QFileInfo(path).path());
        auto* kinds = dialog->findChild<QComboBox*>("fileTypeCombo");
        kinds->setFocus();
        while (!kinds->currentText().endsWith("(*." + kind + ")") &&
               kinds->currentIndex() + 1 < kinds->count())
            QTest::keyClick(kinds, Qt::Key_Down);
        auto* field = dialog->findChild<QLineEdit*>("fileNameEdit");
        field->setCompleter(nullptr); // its list would take the keys, and needs a window system
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QFileInfo(path).fileName());
        QTest::keyClick(field, Qt::Key_Return);
    }
    /// Ctrl+E, and what is done in the dialog that it opens.
    void exportWith(const std::function<void()>& drive) {
        viewer.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&viewer));
        QTimer::singleShot(0, drive);
        key(Qt::Key_E, Qt::ControlModifier);
    }
    /// Ctrl+P into a file with that choice of pages: the text that is printed.
    QString printed(const char* choice, const std::function<void(QPrintDialog&)>& drive = {}) {
        const tests::Folder folder;
        viewer.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&viewer));
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            dialog->printer()->setOutputFormat(QPrinter::PdfFormat);
            auto* file = dialog->findChild<QLineEdit*>("filename");
            ASSERT_TRUE(file);
            file->setFocus();
            file->selectAll();
            QTest::keyClicks(file, folder.path("printed.pdf"));
            QTest::keyClick(dialog->findChild<QRadioButton*>(choice), Qt::Key_Space);
            if (drive)
                drive(*dialog);
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        key(Qt::Key_P, Qt::ControlModifier);
        return tests::toolOutput("pdftotext", {folder.path("printed.pdf"), "-"});
    }
    int percent() { return qRound(viewer.pages()->zoom() * 100); }

    report::Viewer viewer;
};

} // namespace

TEST_F(ViewerTest, OpensFittedToTheWidth) {
    EXPECT_EQ(viewer.pages()->fit(), report::PageView::Fit::Width);
    const double pixels = viewer.pages()->zoom() * 100 / 25.4 * viewer.logicalDpiX();
    EXPECT_NEAR(pixels, viewer.pages()->viewport()->width() - 32, 1.0);
    viewer.resize(700, 500);
    EXPECT_NEAR(viewer.pages()->zoom() * 100 / 25.4 * viewer.logicalDpiX(),
                viewer.pages()->viewport()->width() - 32, 1.0);
}

TEST_F(ViewerTest, KeysTurnPages) {
    ASSERT_GT(viewer.document()->pageCount(), 8);
    EXPECT_FALSE(viewer.command("previous")->isEnabled());
    key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(viewer.pages()->currentPage(), 1);
    EXPECT_EQ(child<QLineEdit>("pageField")->text(), "2");
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(viewer.pages()->currentPage(), viewer.document()->pageCount() - 1);
    EXPECT_FALSE(viewer.command("next")->isEnabled());
    key(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(viewer.pages()->currentPage(), viewer.document()->pageCount() - 2);
    key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(viewer.pages()->currentPage(), 0);
}

TEST_F(ViewerTest, GoesToATypedPage) {
    key(Qt::Key_G, Qt::ControlModifier);
    auto* field = child<QLineEdit>("pageField");
    QTest::keyClicks(field, "5");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(viewer.pages()->currentPage(), 4);
    EXPECT_EQ(viewer.focusWidget(), viewer.pages());
    field->selectAll();
    QTest::keyClicks(field, "9999");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(field->text(), QString::number(viewer.document()->pageCount()));
}

TEST_F(ViewerTest, KeysZoomBetween25And400) {
    key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(percent(), 100);
    key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(percent(), 125);
    key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(percent(), 100);
    for (int i = 0; i < 20; ++i)
        key(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(percent(), 400);
    EXPECT_GT(viewer.pages()->horizontalScrollBar()->maximum(), 0);
    for (int i = 0; i < 30; ++i)
        key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(percent(), 25);
    key(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(viewer.pages()->fit(), report::PageView::Fit::Page);
    EXPECT_TRUE(viewer.command("fitPage")->isChecked());
    key(Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(viewer.command("fitWidth")->isChecked());
}

TEST_F(ViewerTest, ZoomCanBeTyped) {
    auto* box = child<QComboBox>("zoomBox");
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), "150");
    QTest::keyClick(box->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(percent(), 150);
    EXPECT_EQ(box->currentText(), "150 %");
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), "wide");
    QTest::keyClick(box->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(percent(), 150);
    EXPECT_EQ(box->currentText(), "150 %");
}

TEST_F(ViewerTest, ZoomingKeepsTheMiddleInSight) {
    viewer.pages()->goTo(5);
    key(Qt::Key_0, Qt::ControlModifier);
    const int page = viewer.pages()->currentPage();
    key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(viewer.pages()->currentPage(), page);
}

TEST_F(ViewerTest, FindsMarksAndStepsRound) {
    key(Qt::Key_F, Qt::ControlModifier);
    auto* text = child<QLineEdit>("findText");
    EXPECT_TRUE(text->isVisible());
    EXPECT_TRUE(text->hasFocus());
    QTest::keyClicks(text, "stat");
    auto* count = child<QLabel>("findCount");
    EXPECT_EQ(count->text(), "1 of 6"); // three lines, twice each, in either case
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(count->text(), "2 of 6");
    key(Qt::Key_F3);
    EXPECT_EQ(count->text(), "3 of 6");
    EXPECT_GT(viewer.pages()->currentPage(), 2);
    key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(count->text(), "2 of 6");
    QTest::keyClick(text, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(text, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(count->text(), "6 of 6");
    QTest::keyClicks(text, "istics");
    EXPECT_EQ(count->text(), "Not found");
    QTest::keyClick(text, Qt::Key_Escape);
    EXPECT_FALSE(text->isVisible());
    EXPECT_TRUE(viewer.isVisible());
    EXPECT_EQ(viewer.focusWidget(), viewer.pages());
}

TEST_F(ViewerTest, AHitLiesOnTheFoundSigns) {
    const auto hits = report::findText(viewer.pages()->sharedDocument(), "stat");
    ASSERT_EQ(hits.size(), 6u);
    EXPECT_EQ(hits[0].frame.y, hits[1].frame.y);
    EXPECT_GE(hits[1].frame.x, hits[0].frame.right());
    EXPECT_TRUE(report::findText(viewer.pages()->sharedDocument(), "").empty());
    const QColor before = viewer.pages()->grab().toImage().pixelColor(0, 0);
    viewer.pages()->setHits(hits);
    viewer.pages()->setCurrentHit(0);
    const QImage marked = viewer.pages()->grab().toImage();
    int orange = 0;
    for (int y = 0; y < marked.height(); ++y) {
        for (int x = 0; x < marked.width(); ++x) {
            const QColor colour = marked.pixelColor(x, y);
            orange += colour.red() > 240 && colour.blue() < 180 && colour.green() > 180;
        }
    }
    EXPECT_GT(orange, 300);
    EXPECT_NE(before, QColor());
}

TEST_F(ViewerTest, EverySheetInSightIsWhite) {
    key(Qt::Key_F, Qt::ControlModifier); // marks are laid over a sheet, and leave the next one as it is
    QTest::keyClicks(child<QLineEdit>("findText"), "stat");
    viewer.pages()->setZoom(0.3);
    viewer.pages()->goTo(0);
    const QImage view = viewer.pages()->viewport()->grab().toImage();
    const double side = 100 / 25.4 * viewer.logicalDpiX() * 0.3; // of a sheet, in pixels
    for (int sheet = 0; sheet < 3; ++sheet) {
        const int y = 16 + int(sheet * (side + 16) + side - 4);
        EXPECT_EQ(view.pixelColor(view.width() / 2, y), QColor(Qt::white)) << sheet;
    }
}

TEST_F(ViewerTest, TheGroupTreeLeadsToItsPage) {
    auto* tree = child<QTreeWidget>("groupTree");
    EXPECT_FALSE(tree->isVisible());
    viewer.setGroupTreeShown(true);
    EXPECT_TRUE(tree->isVisible());
    ASSERT_EQ(tree->topLevelItemCount(), 2);
    EXPECT_EQ(tree->topLevelItem(1)->text(0), "MD");
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                      tree->visualItemRect(tree->topLevelItem(1)).center());
    const report::TreeEntry& entry = viewer.document()->groupTree()[1];
    ASSERT_GT(entry.page, 2);
    EXPECT_NEAR(viewer.pages()->currentPage(), entry.page, 1);
    key(Qt::Key_T, Qt::ControlModifier);
    EXPECT_FALSE(tree->isVisible());
}

TEST_F(ViewerTest, TheTreeIsWorkedByKeys) {
    auto* tree = child<QTreeWidget>("groupTree");
    key(Qt::Key_End, Qt::ControlModifier);
    const int last = viewer.pages()->currentPage();
    key(Qt::Key_T, Qt::ControlModifier);
    EXPECT_TRUE(tree->hasFocus());
    EXPECT_EQ(tree->currentItem()->text(0), "MD"); // the group in sight
    EXPECT_EQ(viewer.pages()->currentPage(), last);
    QTest::keyClick(tree, Qt::Key_Up);
    EXPECT_EQ(viewer.pages()->currentPage(), 0);
    QTest::keyClick(tree, Qt::Key_Down);
    EXPECT_NEAR(viewer.pages()->currentPage(), viewer.document()->groupTree()[1].page, 1);
    key(Qt::Key_T, Qt::ControlModifier);
    EXPECT_FALSE(tree->isVisible());
    EXPECT_TRUE(viewer.pages()->hasFocus());
}

TEST_F(ViewerTest, PrintAsksTheSystemAndPrintsThePagesAskedFor) {
    QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    key(Qt::Key_P, Qt::ControlModifier);
    const QString text = printed("printRange", [](QPrintDialog& dialog) {
        for (const auto& [name, page] : {std::pair("from", "2"), std::pair("to", "3")}) {
            auto* spin = dialog.findChild<QSpinBox*>(name);
            spin->selectAll();
            QTest::keyClicks(spin, page);
        }
    });
    EXPECT_FALSE(text.contains("line 7\n"));
    EXPECT_TRUE(text.contains("line 8\n")) << qPrintable(text);
    EXPECT_TRUE(text.contains("line 23\n"));
    EXPECT_FALSE(text.contains("line 24\n"));
}

TEST_F(ViewerTest, PrintsThePageInFront) {
    viewer.pages()->goTo(1);
    const QString text = printed("printCurrentPage");
    EXPECT_FALSE(text.contains("line 7\n"));
    EXPECT_TRUE(text.contains("line 8\n")) << qPrintable(text);
    EXPECT_FALSE(text.contains("line 16\n"));
}

TEST_F(ViewerTest, AReportWithoutGroupsShowsNoTree) {
    viewer.setGroupTreeShown(true);
    viewer.setDocument(tests::laidOut("<details height=\"5mm\"/>", "A", {{"x"}}));
    EXPECT_FALSE(child<QTreeWidget>("groupTree")->isVisible());
    EXPECT_FALSE(viewer.command("tree")->isEnabled());
}

TEST_F(ViewerTest, CopiesTheSelectionElseThePage) {
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("line 1\nline 2\n"));
    key(Qt::Key_0, Qt::ControlModifier);
    QWidget* port = viewer.pages()->viewport();
    const double unit = viewer.logicalDpiX() / 25.4; // pixels a millimetre
    const QPoint corner(int((port->width() - 100 * unit) / 2), 16);
    QTest::mousePress(port, Qt::LeftButton, {}, corner + QPoint(int(9 * unit), int(14 * unit)));
    QTest::mouseMove(port, corner + QPoint(int(15 * unit), int(28 * unit)));
    QTest::mouseRelease(port, Qt::LeftButton, {}, corner + QPoint(int(15 * unit), int(28 * unit)));
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "line 1\nline 2");
}

TEST_F(ViewerTest, EveryCommandTellsItsKey) {
    int commands = 0;
    for (const QAction* action : viewer.actions()) {
        ++commands;
        ASSERT_FALSE(action->shortcuts().isEmpty()) << qPrintable(action->text());
        EXPECT_TRUE(action->toolTip().contains(action->shortcut().toString()))
            << qPrintable(action->toolTip());
    }
    EXPECT_EQ(commands, 18);
}

TEST_F(ViewerTest, AnExportThatFailsSaysWhyAndLeavesTheViewerOpen) {
    QStringList boxes;
    controls::setMessageScript([&](const QString& prompt, int, const QString& title) {
        boxes << title + ": " + prompt;
        return controls::vbOK;
    });
    tests::Folder folder;
    EXPECT_FALSE(viewer.exportTo(folder.path("no/folder/a.pdf")));
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes.first().startsWith("Export: Path/File access error: "));
    EXPECT_TRUE(viewer.exportTo(folder.path("a.pdf")));
    EXPECT_EQ(boxes.size(), 1);
    EXPECT_TRUE(tests::toolOutput("pdftotext", {folder.path("a.pdf"), "-"}).contains("line 70"));
}

TEST_F(ViewerTest, TheSuffixDecidesWhatIsExportedAndANoteTellsWhere) {
    const tests::Folder folder;
    for (const auto& [name, begin] : {std::pair<const char*, QByteArray>{"a.pdf", "%PDF-"},
                                      {"a.XLSX", "PK"},
                                      {"a.csv", "\xEF\xBB\xBF"
                                                "A,B\r\nline 1,NU\r\n"}}) {
        EXPECT_TRUE(viewer.exportTo(folder.path(name)));
        QFile file(folder.path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        EXPECT_TRUE(file.readAll().startsWith(begin)) << name;
        EXPECT_EQ(child<QLabel>("note")->toolTip(),
                  "Saved as " + QDir::toNativeSeparators(folder.path(name)));
        EXPECT_TRUE(child<QLabel>("note")->text().startsWith("Saved as "));
    }
    const QString sheet =
        tests::toolOutput("unzip", {"-p", folder.path("a.XLSX"), "xl/worksheets/sheet1.xml"});
    EXPECT_TRUE(sheet.contains("VALE GENERAL HOSPITAL"));
    EXPECT_TRUE(sheet.contains("line 70"));
    viewer.setDocument(tests::laidOut(inside, "A,B", {}));
    EXPECT_EQ(child<QLabel>("note")->text(), "");
}

TEST_F(ViewerTest, TheSaveDialogAddsTheKindsSuffixAndATypedOneWins) {
    const tests::Folder folder;
    const auto exportAs = [&](const QString& typed, const QString& kind) {
        exportWith([&] { typeName(folder.path(typed), kind); });
    };
    exportAs("May 1.5", "pdf");
    EXPECT_TRUE(QFile::exists(folder.path("May 1.5.pdf")));
    exportAs("rows", "xlsx");
    EXPECT_TRUE(QFile::exists(folder.path("rows.xlsx")));
    exportAs("typed.csv", "pdf");
    EXPECT_TRUE(QFile::exists(folder.path("typed.csv")));
    EXPECT_EQ(QDir(folder.path("")).entryList(QDir::Files),
              (QStringList{"May 1.5.pdf", "rows.xlsx", "typed.csv"}));
}

TEST_F(ViewerTest, ASuffixThatIsAddedDoesNotWriteOverAFileUnasked) {
    const tests::Folder folder;
    folder.write("old.pdf", "before");
    QStringList boxes;
    int answer = controls::vbNo;
    controls::setMessageScript([&](const QString& prompt, int, const QString&) {
        boxes << prompt;
        if (answer == controls::vbNo) // the dialog comes again: another try, with another name
            QTimer::singleShot(0, [&] { typeName(folder.path("new"), "pdf"); });
        return answer;
    });
    exportWith([&] { typeName(folder.path("old"), "pdf"); });
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes.first().contains("old.pdf already exists."));
    EXPECT_TRUE(QFile::exists(folder.path("new.pdf")));
    EXPECT_EQ(QFileInfo(folder.path("old.pdf")).size(), 6);
    answer = controls::vbYes;
    exportWith([&] { typeName(folder.path("old"), "pdf"); });
    EXPECT_GT(QFileInfo(folder.path("old.pdf")).size(), 6);
}

TEST_F(ViewerTest, TheSaveDialogLeavesNothingBehind) {
    const auto written = [] {
        const QSettings settings(QSettings::UserScope, "QtProject");
        QStringList all;
        for (const QString& name : settings.allKeys())
            all << name + '=' + settings.value(name).toString();
        return std::pair(QFile::exists(settings.fileName()), all);
    };
    const auto before = written();
    const tests::Folder folder;
    exportWith([&] { typeName(folder.path("a"), "csv"); });
    EXPECT_TRUE(QFile::exists(folder.path("a.csv")));
    exportWith([] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    EXPECT_EQ(written(), before);
}

TEST_F(ViewerTest, OnlyVisiblePagesAreMade) {
    class Counting : public report::PageSource {
      public:
        explicit Counting(QSet<int>& made) : m_made(made) {}
        int pageCount() const override { return 100000; }
        report::Page makePage(int index) override {
            m_made.insert(index);
            return {index + 1, {}};
        }
        QSet<int>& m_made;
    };
    QSet<int> made;
    viewer.setDocument(std::make_shared<report::PageDocument>(
        std::make_unique<Counting>(made), "Long", report::Length::fromMm(100), report::Length::fromMm(100)));
    viewer.grab();
    EXPECT_LE(made.size(), 3);
    key(Qt::Key_End, Qt::ControlModifier);
    viewer.grab();
    EXPECT_TRUE(made.contains(99999));
    EXPECT_LE(made.size(), 6);
}

TEST_F(ViewerTest, APromptGivenUpShowsNothing) {
    tests::Folder folder;
    tests::ReportServer server;
    auto opened = report::Report::open(
        folder.write("P.RPT", tests::definitionOf("<parameter name=\"P\"/><details height=\"5mm\"/>")),
        server.logOn());
    QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    EXPECT_FALSE(viewer.showReport(*opened));
    EXPECT_EQ(viewer.document(), nullptr);
    EXPECT_TRUE(server.texts.isEmpty());
    EXPECT_FALSE(viewer.command("print")->isEnabled());
    viewer.grab();
    opened->setParameter(0, "x");
    server.lines = tests::ScriptedProvider::rowsOf("A", {{"x"}});
    EXPECT_TRUE(viewer.showReport(*opened));
    EXPECT_EQ(viewer.document()->pageCount(), 1);
    EXPECT_TRUE(viewer.command("print")->isEnabled());
}
