#include "platform/controls/grid/CellEditor.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/Connect.h"
#include "tests/support/screens/Driver.h"

#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace controls {

namespace {

constexpr int ownKeys[] = {Qt::Key_Escape};

/// A grid of 40 rows with a text box and a list over it, and a field beside.
class CellEditorTest : public testing::Test {
  protected:
    CellEditorTest() {
        auto* column = new QVBoxLayout(&window);
        field = new QLineEdit(&window);
        grid = new FlexGrid(&window);
        column->addWidget(field);
        column->addWidget(grid);
        box = new QLineEdit(&window);
        list = new QComboBox(&window);
        list->addItems({QStringLiteral("one"), QStringLiteral("two")});
        grid->setCols(4);
        grid->setRows(40);
        grid->setColWidths({300, 4000, 4000, 4000});
        window.resize(500, 300);
    }
    void edit(const CellEditing& rules) {
        editor = std::make_unique<CellEditor>(*grid, rules, nullptr);
        editor->add(*box);
        editor->add(*list);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        grid->setFocus();
    }
    /// Opens the box over a cell.
    void open(int row, int column, const char* text = "x") {
        grid->setCurrentCell(row, column);
        editor->open(*box, QString::fromLatin1(text));
    }
    bool isOverItsCell() {
        const QRect seen = grid->viewport()->geometry().translated(grid->pos());
        return box->geometry() == (grid->shownCellRect(grid->Row(), grid->Col()) & seen);
    }
    void wheel(QWidget& widget) {
        const QPointF middle(widget.rect().center());
        QWheelEvent turn(middle, widget.mapToGlobal(middle), QPoint(), QPoint(0, -120), Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&widget, &turn);
    }

    QWidget window;
    QLineEdit* field;
    FlexGrid* grid;
    QLineEdit* box;
    QComboBox* list;
    std::unique_ptr<CellEditor> editor;
};

} // namespace

TEST_F(CellEditorTest, IsHiddenUntilItIsOpened) {
    edit({});
    EXPECT_FALSE(box->isVisible());
    EXPECT_FALSE(list->isVisible());
    EXPECT_FALSE(editor->isOpen());
    EXPECT_EQ(editor->editor(), nullptr);
}

TEST_F(CellEditorTest, OpensOverTheCellWithItsTextMarked) {
    edit({});
    open(2, 1, "old");
    EXPECT_TRUE(box->isVisible());
    EXPECT_EQ(editor->editor(), box);
    EXPECT_EQ(box->geometry(), grid->cellRect(2, 1));
    EXPECT_TRUE(box->hasFocus());
    EXPECT_EQ(box->selectedText(), "old");
    EXPECT_EQ(grid->TextMatrix(2, 1), "old") << "the cell holds what is shown";
    open(35, 3);
    EXPECT_EQ(box->geometry(), grid->cellRect(35, 3)) << "scrolled into view first";
    EXPECT_TRUE(editor->isOpen());
}

TEST_F(CellEditorTest, WhatIsTypedStandsInTheCellAtOnce) {
    edit({});
    open(1, 1);
    tests::keysToFocus(window, "ab");
    EXPECT_EQ(grid->TextMatrix(1, 1), "ab");
    editor->close();
    box->setText("later");
    EXPECT_EQ(grid->TextMatrix(1, 1), "ab") << "a box that is not open writes nothing";
}

TEST_F(CellEditorTest, AScreenMayTakeTheTextItself) {
    edit({.writesEachChange = false});
    grid->setTextMatrix(1, 1, "kept");
    open(1, 1, "shown");
    tests::keysToFocus(window, "ab");
    EXPECT_EQ(box->text(), "ab");
    EXPECT_EQ(grid->TextMatrix(1, 1), "kept");
}

TEST_F(CellEditorTest, PlacedItLeavesTheFocusWhereItIs) {
    edit({.inset = 2});
    field->setFocus();
    grid->setCurrentCell(3, 2);
    editor->place(*box, "text");
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(box->geometry(), grid->cellRect(3, 2).adjusted(2, 2, -2, -2));
    EXPECT_EQ(box->text(), "text");
}

TEST_F(CellEditorTest, OneIsOpenAtATime) {
    edit({});
    open(1, 1);
    editor->open(*list);
    EXPECT_FALSE(box->isVisible());
    EXPECT_TRUE(list->isVisible());
    EXPECT_TRUE(list->hasFocus());
    EXPECT_EQ(editor->editor(), list);
    tests::keysToFocus(window, "<Down>");
    EXPECT_EQ(list->currentText(), "two");
    EXPECT_EQ(grid->TextMatrix(1, 1), "x") << "what a list holds is the screen's";
    open(1, 2);
    EXPECT_FALSE(list->isVisible());
}

TEST_F(CellEditorTest, AWheelLeavesAListAsItIs) {
    edit({});
    editor->open(*list);
    wheel(*list);
    EXPECT_EQ(list->currentIndex(), 0);
}

TEST_F(CellEditorTest, ClosedTheGridHasTheFocus) {
    edit({});
    open(1, 1);
    editor->close();
    EXPECT_FALSE(box->isVisible());
    EXPECT_TRUE(grid->hasFocus());
    open(1, 1);
    field->setFocus();
    EXPECT_TRUE(box->isVisible());
    editor->leave();
    EXPECT_FALSE(box->isVisible());
    EXPECT_TRUE(field->hasFocus()) << "the focus was elsewhere";
    open(1, 1);
    editor->leave();
    EXPECT_TRUE(grid->hasFocus());
}

TEST_F(CellEditorTest, ItGoesWithTheFocusIfItIsToldTo) {
    edit({.hidesOnFocusOut = true});
    open(1, 1);
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(box, &menu);
    QFocusEvent otherWindow(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(box, &otherWindow);
    EXPECT_TRUE(editor->isOpen()) << "they give it back";
    field->setFocus();
    EXPECT_FALSE(box->isVisible());
    EXPECT_FALSE(editor->isOpen());
}

TEST_F(CellEditorTest, ItGoesWithItsGrid) {
    edit({});
    open(1, 1);
    grid->setEnabled(false);
    EXPECT_FALSE(box->isVisible());
}

TEST_F(CellEditorTest, ItFollowsTheSizeOfGridAndColumn) {
    edit({});
    open(1, 2);
    window.resize(900, 400);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(box->geometry(), grid->cellRect(1, 2));
    const QRect before = box->geometry();
    grid->horizontalHeader()->resizeSection(0, 200);
    EXPECT_EQ(box->geometry(), grid->cellRect(1, 2));
    EXPECT_NE(box->geometry(), before);
    grid->setColWidth(2, 3000);
    EXPECT_EQ(box->geometry(), grid->cellRect(1, 2));
}

TEST_F(CellEditorTest, ItFollowsItsCellUntilThatIsOutOfSight) {
    edit({});
    open(6, 1);
    const QRect before = box->geometry();
    grid->verticalScrollBar()->setValue(3);
    EXPECT_TRUE(isOverItsCell());
    EXPECT_LT(box->y(), before.y());
    grid->horizontalScrollBar()->setValue(40);
    EXPECT_TRUE(isOverItsCell()) << "and covers no header";
    EXPECT_LT(box->width(), before.width());
    EXPECT_EQ(grid->verticalScrollBar()->value(), 3) << "the user scrolls, not the editor";
    EXPECT_TRUE(box->hasFocus());
    grid->verticalScrollBar()->setValue(20);
    EXPECT_FALSE(box->isVisible());
    EXPECT_TRUE(grid->hasFocus());
}

TEST_F(CellEditorTest, ScrollingMayEndTheEdit) {
    edit({.closesWhenMoved = true});
    open(30, 1);
    EXPECT_TRUE(editor->isOpen()) << "scrolled there by the editor itself";
    grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->value() + 1);
    EXPECT_FALSE(editor->isOpen());
    open(1, 1);
    QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::LeftButton);
    EXPECT_FALSE(editor->isOpen()) << "a column is about to be dragged";
}

TEST_F(CellEditorTest, ItTellsThatItIsGoneWhateverHidIt) {
    edit({.closesWhenMoved = true});
    int gone = 0;
    on(editor.get(), &CellEditor::Closed, &window, [&] {
        EXPECT_FALSE(editor->isOpen());
        ++gone;
    });
    open(1, 1);
    EXPECT_EQ(gone, 0);
    editor->close();
    EXPECT_EQ(gone, 1);
    editor->close();
    EXPECT_EQ(gone, 1) << "nothing was open";
    open(1, 1);
    grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->value() + 1);
    EXPECT_EQ(gone, 2);
    open(1, 1);
    grid->setEnabled(false);
    EXPECT_EQ(gone, 3);
}

TEST_F(CellEditorTest, EveryKeyIsToldFirst) {
    edit({});
    QList<int> told;
    on(editor.get(), &CellEditor::KeyDown, &window, [&](QKeyEvent* event) {
        told << event->key();
        if (event->key() == Qt::Key_B)
            event->accept();
    });
    open(1, 1);
    tests::keysToFocus(window, "ab<Tab>");
    EXPECT_EQ(told, QList<int>({Qt::Key_A, Qt::Key_B, Qt::Key_Tab}));
    EXPECT_EQ(grid->TextMatrix(1, 1), "a");
    EXPECT_FALSE(box->hasFocus()) << "Tab is Qt's when nobody takes it";
}

TEST_F(CellEditorTest, ItsOwnKeysAreNoShortcuts) {
    edit({.ownKeys = ownKeys});
    const auto isKept = [&](int key) {
        QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(box, &event);
        return event.isAccepted();
    };
    EXPECT_TRUE(isKept(Qt::Key_Escape));
    EXPECT_FALSE(isKept(Qt::Key_F3));
}

TEST_F(CellEditorTest, AKeyOfTheGridIsTypedInTheEditor) {
    edit({});
    const QKeyEvent key(QEvent::KeyPress, Qt::Key_Z, Qt::NoModifier, "z");
    editor->type(key);
    EXPECT_EQ(box->text(), "") << "nothing is open";
    open(1, 1, "old");
    editor->type(key);
    EXPECT_EQ(grid->TextMatrix(1, 1), "z");
}

} // namespace controls
