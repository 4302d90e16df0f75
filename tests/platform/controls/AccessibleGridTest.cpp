// What a screen reader is told of grids and lists: cells with their headers, and each move of the current
// one.
#include "platform/controls/grid/CellEditor.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/list/ListView.h"
#include "platform/controls/look/Look.h"

#include <QAccessible>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

using controls::FlexGrid;

class Told : public testing::Test {
  protected:
    Told() {
        window.resize(500, 300);
        new QVBoxLayout(&window);
    }
    void show(QWidget& widget) {
        window.layout()->addWidget(&widget);
        window.show();
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        QApplication::setActiveWindow(&window);
        QT_WARNING_POP
        widget.setFocus();
        QCoreApplication::processEvents();
        ASSERT_TRUE(widget.hasFocus());
    }
    /// What a reader says of the cell that has the focus.
    static QString told(QWidget& widget) {
        QAccessibleInterface* cell = QAccessible::queryAccessibleInterface(&widget)->focusChild();
        return cell ? cell->text(QAccessible::Name) : QString();
    }
    QWidget window;
};

class ToldGrid : public Told {
  protected:
    ToldGrid() {
        grid.setFormatString("|<Code|<Particular|>Price");
        grid.setRows(1);
        grid.AddItem("\t1001\tBONE SCAN\t2,500.00");
        grid.AddItem("\t1002\tTHYROID SCAN\t1,800.00");
        show(grid);
    }
    QAccessibleInterface* cell(int row, int column) {
        return QAccessible::queryAccessibleInterface(&grid)->tableInterface()->cellAt(row - 1, column - 1);
    }
    FlexGrid grid;
};

TEST_F(ToldGrid, CellsHaveTheirTextAndTheirHeader) {
    ASSERT_TRUE(cell(2, 2));
    EXPECT_EQ(cell(2, 2)->text(QAccessible::Name), "THYROID SCAN");
    const auto headers = cell(2, 2)->tableCellInterface()->columnHeaderCells();
    ASSERT_EQ(headers.size(), 1);
    EXPECT_EQ(headers.front()->text(QAccessible::Name), "Particular");
}

TEST_F(ToldGrid, APictureIsSaidInAWord) {
    grid.setCellIcon(1, 1, controls::look::icon("crossed"));
    EXPECT_EQ(cell(1, 1)->text(QAccessible::Name), "1001");
    EXPECT_EQ(cell(1, 1)->text(QAccessible::Description), "Un-used");
    grid.setTextMatrix(1, 1, {});
    EXPECT_EQ(cell(1, 1)->text(QAccessible::Name), "Un-used");
    grid.setCellIcon(1, 1, {});
    EXPECT_EQ(cell(1, 1)->text(QAccessible::Description), "");
}

TEST_F(ToldGrid, TheFocusFollowsEachMoveOfTheCurrentCell) {
    EXPECT_EQ(told(grid), "1001");
    QTest::keyClick(&grid, Qt::Key_Right);
    EXPECT_EQ(told(grid), "BONE SCAN");
    QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(told(grid), "THYROID SCAN");
    grid.setCurrentCell(1, 3);
    EXPECT_EQ(told(grid), "2,500.00") << "a move by the program as well";
}

TEST_F(ToldGrid, AnOpenCellIsNamedAfterItsColumnAndLine) {
    QLineEdit box(&window);
    controls::CellEditor editor(grid, {}, nullptr);
    editor.add(box);
    grid.setCurrentCell(2, 3);
    editor.open(box, "1");
    EXPECT_EQ(box.accessibleName(), "Price, line 2");
    editor.close();
}

class ToldList : public Told {
  protected:
    ToldList() {
        static constexpr controls::ListColumn columns[] = {{"Number", 1500}, {"Patient", 4500}};
        list.setColumns(columns);
        list.AddItem("a", "PS401", "paid").setSubItem(1, "AGUILAR, ROSARIO");
        list.AddItem("b", "PS402", "revoke").setSubItem(1, "CRUZ, PEDRO");
        show(list);
    }
    QAccessibleInterface* cell(int row, int column) {
        return QAccessible::queryAccessibleInterface(&list)->tableInterface()->cellAt(row, column);
    }
    controls::ListView list;
};

TEST_F(ToldList, CellsHaveTheirTextTheirHeaderAndTheirPicturesWord) {
    ASSERT_TRUE(cell(1, 1));
    EXPECT_EQ(cell(1, 1)->text(QAccessible::Name), "CRUZ, PEDRO");
    const auto headers = cell(1, 1)->tableCellInterface()->columnHeaderCells();
    ASSERT_EQ(headers.size(), 1);
    EXPECT_EQ(headers.front()->text(QAccessible::Name), "Patient");
    EXPECT_EQ(cell(1, 0)->text(QAccessible::Description), "Revoked");
}

TEST_F(ToldList, TheFocusFollowsEachMove) {
    list.select(list.Item(1));
    EXPECT_EQ(told(list), "PS401");
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(told(list), "PS402");
}

} // namespace
