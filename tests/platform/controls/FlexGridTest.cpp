#include "platform/controls/grid/FlexGrid.h"

#include "platform/base/Error.h"
#include "platform/controls/screen/Connect.h"
#include "tests/support/core/ScriptedProvider.h"
#include "tests/support/screens/Driver.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace controls {

namespace {

/// The number of the run-time error that `call` raises, 0 for none.
int errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const base::RunTimeError& error) {
        return error.number();
    }
    return 0;
}

/// A grid below a field, in a window of its own.
class FlexGridTest : public testing::Test {
  protected:
    FlexGridTest() {
        auto* column = new QVBoxLayout(&window);
        field = new QLineEdit(&window);
        grid = new FlexGrid(&window);
        grid->setObjectName(QStringLiteral("grid"));
        column->addWidget(field);
        column->addWidget(grid);
        window.resize(700, 400);
    }
    void show() {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    /// 4 rows and 5 columns, cells "r,c" behind the fixed ones.
    void fill() {
        grid->setCols(5);
        grid->setRows(4);
        for (int row = 1; row < 4; ++row)
            for (int column = 1; column < 5; ++column)
                grid->setTextMatrix(row, column, QStringLiteral("%1,%2").arg(row).arg(column));
    }
    void press(int row, int column, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(grid->viewport(), button, {}, middleOf(row, column));
    }
    QPoint middleOf(int row, int column) {
        return grid->viewport()->mapFrom(&window, grid->cellRect(row, column).center());
    }
    /// A result of columns "A,B" and rows of texts, as a recordset would have it.
    void bind(const QString& columns, const std::vector<std::vector<base::Value>>& rows) {
        auto provider = std::make_unique<tests::ScriptedProvider>();
        provider->answer(QStringLiteral("list"), tests::ScriptedProvider::rowsOf(columns, rows));
        ado::Connection connection;
        connection.Open(std::move(provider), QStringLiteral("test"));
        ado::Recordset result;
        result.Open(ado::sql("list"), connection);
        grid->setDataSource(result);
        result.Close();
    }

    QWidget window;
    QLineEdit* field;
    FlexGrid* grid;
};

} // namespace

TEST_F(FlexGridTest, StartsWithOneFixedRowAndColumn) {
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_EQ(grid->Cols(), 2);
    EXPECT_EQ(grid->FixedRows(), 1);
    EXPECT_EQ(grid->FixedCols(), 1);
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_EQ(grid->Col(), 1);
}

TEST_F(FlexGridTest, CellsCountFromZeroWithTheFixedOnes) {
    fill();
    grid->setTextMatrix(0, 2, QStringLiteral("Code"));
    grid->setTextMatrix(2, 0, QStringLiteral("*"));
    EXPECT_EQ(grid->TextMatrix(0, 2), QStringLiteral("Code"));
    EXPECT_EQ(grid->TextMatrix(2, 0), QStringLiteral("*"));
    EXPECT_EQ(grid->TextMatrix(3, 4), QStringLiteral("3,4"));
    EXPECT_EQ(grid->model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Code"));
    EXPECT_EQ(grid->model()->headerData(1, Qt::Vertical).toString(), QStringLiteral("*"));
    grid->setCurrentCell(2, 3);
    EXPECT_EQ(grid->Text(), QStringLiteral("2,3"));
    grid->setText(QStringLiteral("new"));
    EXPECT_EQ(grid->TextMatrix(2, 3), QStringLiteral("new"));
}

TEST_F(FlexGridTest, ACellThatDoesNotExistIsError9) {
    fill();
    EXPECT_EQ(errorOf([&] { (void)grid->TextMatrix(4, 0); }), 9);
    EXPECT_EQ(errorOf([&] { (void)grid->TextMatrix(0, 5); }), 9);
    EXPECT_EQ(errorOf([&] { (void)grid->TextMatrix(-1, 0); }), 9);
    EXPECT_EQ(errorOf([&] { grid->setTextMatrix(4, 1, QString()); }), 9);
    EXPECT_EQ(errorOf([&] { grid->setRow(4); }), 9);
    EXPECT_EQ(errorOf([&] { grid->setCol(5); }), 9);
    EXPECT_EQ(errorOf([&] { grid->setColWidth(5, 100); }), 9);
    EXPECT_EQ(errorOf([&] { grid->setCellBold(0, 9, true); }), 9);
    EXPECT_EQ(errorOf([&] { (void)grid->cellRect(7, 1); }), 9);
    EXPECT_EQ(errorOf([&] { grid->setRows(0); }), 9);
    EXPECT_EQ(errorOf([&] { grid->AddItem(QString(), 9); }), 9);
}

TEST_F(FlexGridTest, NewRowsAreEmptyAndRowsBeyondAreLost) {
    fill();
    grid->setRows(2);
    grid->setRows(4);
    EXPECT_EQ(grid->TextMatrix(1, 1), QStringLiteral("1,1"));
    EXPECT_EQ(grid->TextMatrix(3, 4), QString());
    grid->setCols(3);
    grid->setCols(5);
    EXPECT_EQ(grid->TextMatrix(1, 2), QStringLiteral("1,2"));
    EXPECT_EQ(grid->TextMatrix(1, 4), QString());
}

TEST_F(FlexGridTest, TheCurrentCellStaysInsideAndOffTheFixedOnes) {
    fill();
    int changes = 0;
    on(grid, &FlexGrid::RowColChange, grid, [&] { ++changes; });
    grid->setCurrentCell(3, 4);
    EXPECT_EQ(changes, 1);
    grid->setCurrentCell(3, 4);
    EXPECT_EQ(changes, 1);
    grid->setRows(3);
    EXPECT_EQ(grid->Row(), 2);
    EXPECT_EQ(changes, 2);
    grid->setRow(0);
    grid->setCol(0);
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_EQ(grid->Col(), 1);
    grid->setRows(1);
    EXPECT_EQ(grid->Row(), 0);
    grid->setRows(2);
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(FlexGridTest, TheCurrentCellMayLieInAHiddenColumn) {
    fill();
    grid->setColWidth(3, 0);
    grid->setCurrentCell(1, 3);
    EXPECT_EQ(grid->Col(), 3);
    EXPECT_EQ(grid->Text(), QStringLiteral("1,3"));
}

TEST_F(FlexGridTest, AFormatStringSetsColumnsHeadersAndAlignments) {
    grid->setFormatString(QStringLiteral(" |<Hosp.No.|^Adm.No.|>Amount|Plain"));
    EXPECT_EQ(grid->Cols(), 5);
    EXPECT_EQ(grid->TextMatrix(0, 1), QStringLiteral("Hosp.No."));
    EXPECT_EQ(grid->TextMatrix(0, 3), QStringLiteral("Amount"));
    const auto alignmentOf = [&](int section) {
        return Qt::Alignment(
            grid->model()->data(grid->model()->index(0, section), Qt::TextAlignmentRole).toInt());
    };
    EXPECT_EQ(alignmentOf(0), Qt::AlignLeft | Qt::AlignVCenter);
    EXPECT_EQ(alignmentOf(1), Qt::AlignHCenter | Qt::AlignVCenter);
    EXPECT_EQ(alignmentOf(2), Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(alignmentOf(3), Qt::AlignLeft | Qt::AlignVCenter);
    const int header = grid->model()->headerData(2, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
    EXPECT_EQ(Qt::Alignment(header), Qt::AlignRight | Qt::AlignVCenter);
}

TEST_F(FlexGridTest, GridListsSetHeadersAndAlignments) {
    SetGridHeaders(*grid, 4, QStringLiteral("Code?Description?Status?"));
    EXPECT_EQ(grid->Cols(), 4);
    EXPECT_EQ(grid->TextMatrix(0, 0), QStringLiteral("Code"));
    EXPECT_EQ(grid->TextMatrix(0, 2), QStringLiteral("Status"));
    EXPECT_EQ(grid->TextMatrix(0, 3), QString());
    SetGridHeaders(*grid, 2, QStringLiteral("Code?without an end"));
    EXPECT_EQ(grid->TextMatrix(0, 1), QStringLiteral("Description"));
    EXPECT_EQ(errorOf([&] { SetGridHeaders(*grid, 1, QStringLiteral("Code?Description?")); }), 9);
    SetGridHeaders(*grid, 4, QString());
    SetGridAlignments(*grid, QStringLiteral("<|^|>"));
    const int right = grid->model()->data(grid->model()->index(0, 1), Qt::TextAlignmentRole).toInt();
    EXPECT_EQ(Qt::Alignment(right), Qt::AlignRight | Qt::AlignVCenter);
}

TEST_F(FlexGridTest, WidthsAreTwipsAndZeroHides) {
    fill();
    grid->setColWidths({200, 1000, 4000, 0, 1500});
    EXPECT_EQ(grid->ColWidth(2), 4000);
    EXPECT_EQ(grid->ColWidth(3), 0);
    window.resize(200, 300);
    show();
    EXPECT_EQ(grid->horizontalHeader()->sectionSize(1), 267);
    EXPECT_TRUE(grid->horizontalHeader()->isSectionHidden(2));
    EXPECT_EQ(grid->verticalHeader()->width(), 13);
    EXPECT_TRUE(grid->cellRect(1, 3).width() == 0);
    grid->setColWidth(3, 1500);
    EXPECT_FALSE(grid->horizontalHeader()->isSectionHidden(2));
    EXPECT_EQ(grid->horizontalHeader()->sectionSize(2), 100);
}

TEST_F(FlexGridTest, SpareWidthIsSharedInProportion) {
    fill();
    grid->setColWidths({200, 1500, 3000, 0, 1500});
    show();
    const QHeaderView* header = grid->horizontalHeader();
    EXPECT_EQ(header->length(), grid->viewport()->width());
    EXPECT_NEAR(header->sectionSize(1), 2 * header->sectionSize(0), 2);
    window.resize(900, 400);
    EXPECT_EQ(header->length(), grid->viewport()->width());
    EXPECT_NEAR(header->sectionSize(1), 2 * header->sectionSize(3), 2);
    EXPECT_EQ(grid->ColWidth(1), 1500);
    grid->setStretchColumn(2);
    EXPECT_EQ(header->sectionSize(0), 100);
    EXPECT_EQ(header->length(), grid->viewport()->width());
}

TEST_F(FlexGridTest, TheWidthsFitBesideTheScrollBar) {
    grid->setCols(3);
    grid->setColWidths({200, 1500, 1500});
    show();
    grid->setRows(200);
    // laid out later, by a timer of the tool kit
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return grid->verticalScrollBar()->isVisible() && !grid->horizontalScrollBar()->isVisible(); }));
    EXPECT_EQ(grid->horizontalHeader()->length(), grid->viewport()->width());
}

TEST_F(FlexGridTest, AHeaderDraggedByHandKeepsItsWidth) {
    fill();
    grid->setColWidths({200, 1500, 1500, 1500, 1500});
    show();
    grid->horizontalHeader()->resizeSection(0, 60);
    EXPECT_EQ(grid->ColWidth(1), 900);
}

TEST_F(FlexGridTest, AddItemPartsItsCellsByTabs) {
    fill();
    grid->AddItem(QStringLiteral("n\tA\tB\tC\tD\tlost"));
    EXPECT_EQ(grid->Rows(), 5);
    EXPECT_EQ(grid->TextMatrix(4, 0), QStringLiteral("n"));
    EXPECT_EQ(grid->TextMatrix(4, 4), QStringLiteral("D"));
    grid->setCurrentCell(2, 2);
    grid->AddItem(QStringLiteral("\tfirst"), 1);
    EXPECT_EQ(grid->TextMatrix(1, 1), QStringLiteral("first"));
    EXPECT_EQ(grid->TextMatrix(2, 1), QStringLiteral("1,1"));
    EXPECT_EQ(grid->Row(), 2);
    EXPECT_EQ(grid->Text(), QStringLiteral("1,2"));
}

TEST_F(FlexGridTest, RemoveItemKeepsTheRowNumberAndTheLastRow) {
    fill();
    int changes = 0;
    grid->setCurrentCell(2, 2);
    on(grid, &FlexGrid::RowColChange, grid, [&] { ++changes; });
    grid->RemoveItem(2);
    EXPECT_EQ(grid->Row(), 2);
    EXPECT_EQ(grid->Text(), QStringLiteral("3,2"));
    EXPECT_EQ(changes, 0);
    grid->RemoveItem(2);
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(errorOf([&] { grid->RemoveItem(1); }), 30015);
    EXPECT_EQ(errorOf([&] { grid->RemoveItem(0); }), 9);
    EXPECT_EQ(errorOf([&] { grid->RemoveItem(2); }), 9);
    EXPECT_EQ(grid->Rows(), 2);
}

TEST_F(FlexGridTest, ARemovedRowTakesItsColoursAlong) {
    fill();
    grid->setCellForeColor(2, 1, Qt::red);
    grid->setCellBold(2, 1, true);
    const auto colorOf = [&](int row) {
        return grid->model()->data(grid->model()->index(row - 1, 0), Qt::ForegroundRole);
    };
    EXPECT_EQ(colorOf(2).value<QColor>(), QColor(Qt::red));
    grid->RemoveItem(1);
    EXPECT_EQ(colorOf(1).value<QColor>(), QColor(Qt::red));
    EXPECT_FALSE(colorOf(2).isValid());
    EXPECT_TRUE(grid->model()->data(grid->model()->index(0, 0), Qt::FontRole).value<QFont>().bold());
    grid->setCellBold(1, 1, false);
    EXPECT_FALSE(grid->model()->data(grid->model()->index(0, 0), Qt::FontRole).isValid());
}

TEST_F(FlexGridTest, ClearEmptiesTheHeadersToo) {
    fill();
    grid->setTextMatrix(0, 1, QStringLiteral("Code"));
    grid->setColWidth(1, 1234);
    grid->Clear();
    EXPECT_EQ(grid->Rows(), 4);
    EXPECT_EQ(grid->Cols(), 5);
    EXPECT_EQ(grid->ColWidth(1), 1234);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 5; ++column)
            EXPECT_EQ(grid->TextMatrix(row, column), QString());
}

TEST_F(FlexGridTest, ABoundResultFillsFromTheFirstFreeColumn) {
    bind(QStringLiteral("HospNum,LastName"), {{"0045127", "SANTOS"}, {"0045128", base::Value()}});
    EXPECT_EQ(grid->Rows(), 3);
    EXPECT_EQ(grid->Cols(), 3);
    EXPECT_EQ(grid->TextMatrix(0, 0), QString());
    EXPECT_EQ(grid->TextMatrix(0, 1), QStringLiteral("HospNum"));
    EXPECT_EQ(grid->TextMatrix(1, 2), QStringLiteral("SANTOS"));
    EXPECT_EQ(grid->TextMatrix(2, 2), QString());
    grid->setTextMatrix(1, 2, QStringLiteral("CRUZ"));
    grid->setTextMatrix(2, 1, QString());
    EXPECT_EQ(grid->TextMatrix(1, 2), QStringLiteral("CRUZ"));
    EXPECT_EQ(grid->TextMatrix(2, 1), QString());
    grid->RemoveItem(1);
    EXPECT_EQ(grid->Rows(), 2);
}

TEST_F(FlexGridTest, ABoundDateIsShownInOneFormAndKeepsItsText) {
    const base::DateTime morning = *base::makeDateTime({2026, 3, 5}, {6, 43, 12});
    bind(QStringLiteral("Day,Moment,Text"), {{base::dateOnly(morning), morning, "3/5/2026 6:43:12 AM"}});
    const auto shown = [&](int column) {
        return grid->model()->index(0, column - 1).data(Qt::DisplayRole).toString();
    };
    EXPECT_EQ(shown(1), QStringLiteral("03/05/2026"));
    EXPECT_EQ(shown(2), QStringLiteral("03/05/2026 06:43 AM"));
    EXPECT_EQ(shown(3), QStringLiteral("3/5/2026 6:43:12 AM"));
    EXPECT_EQ(grid->TextMatrix(1, 1), QStringLiteral("3/5/2026"));
    EXPECT_EQ(grid->TextMatrix(1, 2), QStringLiteral("3/5/2026 6:43:12 AM"));
    grid->setTextMatrix(1, 2, QStringLiteral("3/6/2026"));
    EXPECT_EQ(shown(2), QStringLiteral("3/6/2026")) << "what a screen writes stays as it is";
}

TEST_F(FlexGridTest, ABoundResultKeepsTheFormatStringsHeadersAndHidesWhatIsBeyond) {
    grid->setFormatString(QStringLiteral(" |Adm #|>Amount"));
    bind(QStringLiteral("IdNum,Amount,RequestNum"), {{"2601184", "10.00", "77"}});
    EXPECT_EQ(grid->TextMatrix(0, 1), QStringLiteral("Adm #"));
    EXPECT_EQ(grid->Cols(), 4);
    EXPECT_EQ(grid->TextMatrix(1, 3), QStringLiteral("77"));
    EXPECT_EQ(grid->ColWidth(3), 0);
    grid->Clear();
    bind(QStringLiteral("IdNum"), {{"1"}});
    EXPECT_EQ(grid->TextMatrix(0, 1), QStringLiteral("Adm #"));
    EXPECT_EQ(grid->Cols(), 4);
}

TEST_F(FlexGridTest, ANewResultReplacesTheOldOneWithoutAMove) {
    bind(QStringLiteral("A"), {{"1"}, {"2"}, {"3"}});
    grid->setCurrentCell(3, 1);
    grid->setTextMatrix(2, 1, QStringLiteral("written"));
    int changes = 0;
    on(grid, &FlexGrid::RowColChange, grid, [&] { ++changes; });
    bind(QStringLiteral("A"), {{"4"}, {"5"}});
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_EQ(grid->Col(), 1);
    EXPECT_EQ(grid->TextMatrix(2, 1), QStringLiteral("5"));
    EXPECT_EQ(changes, 0);
}

TEST_F(FlexGridTest, AnEmptyResultLeavesOneEmptyRow) {
    bind(QStringLiteral("A,B"), {});
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_EQ(grid->TextMatrix(1, 1), QString());
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(FlexGridTest, ArrowsMoveTheCurrentCellAndStopAtTheBorders) {
    fill();
    grid->setColWidth(2, 0);
    show();
    int changes = 0;
    on(grid, &FlexGrid::RowColChange, grid, [&] { ++changes; });
    tests::keys(*grid, QStringLiteral("<Up><Left>"));
    EXPECT_EQ(changes, 0);
    tests::keys(*grid, QStringLiteral("<Down><Right>"));
    EXPECT_EQ(grid->Row(), 2);
    EXPECT_EQ(grid->Col(), 3);
    EXPECT_EQ(changes, 2);
    tests::keys(*grid, QStringLiteral("<Down><Down><Right><Right>"));
    EXPECT_EQ(grid->Row(), 3);
    EXPECT_EQ(grid->Col(), 4);
}

TEST_F(FlexGridTest, TabLeavesTheGrid) {
    fill();
    show();
    tests::keys(*grid, QStringLiteral("<Tab>"));
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(grid->Col(), 1);
}

TEST_F(FlexGridTest, EveryKeyIsTold) {
    fill();
    show();
    QList<int> told;
    int entered = 0;
    on(grid, &FlexGrid::KeyDown, grid, [&](QKeyEvent* event) {
        told << event->key();
        if (event->key() == Qt::Key_Down)
            event->accept();
    });
    on(grid, &FlexGrid::EnterPressed, grid, [&] { ++entered; });
    tests::keys(*grid, QStringLiteral("x<F3><Down><Enter><KeypadEnter>"));
    EXPECT_EQ(told, QList<int>({Qt::Key_X, Qt::Key_F3, Qt::Key_Down, Qt::Key_Return, Qt::Key_Enter}));
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_EQ(entered, 2);
}

TEST_F(FlexGridTest, AnEnterThatIsHeldDownTakesNoRow) {
    fill();
    show();
    int entered = 0;
    int told = 0;
    on(grid, &FlexGrid::EnterPressed, grid, [&] { ++entered; });
    on(grid, &FlexGrid::KeyDown, grid, [&] { ++told; });
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, QStringLiteral("\r"), true);
        QCoreApplication::sendEvent(grid, &held);
        EXPECT_TRUE(held.isAccepted()) << "and it is not the screen's either";
    }
    EXPECT_EQ(entered, 0);
    EXPECT_EQ(told, 2);
    tests::keys(*grid, QStringLiteral("<Enter>"));
    EXPECT_EQ(entered, 1);
}

TEST_F(FlexGridTest, TypingDoesNotSearch) {
    fill();
    show();
    tests::keys(*grid, QStringLiteral("3"));
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(FlexGridTest, APressMovesThereAndThenClicks) {
    fill();
    show();
    QStringList order;
    on(grid, &FlexGrid::RowColChange, grid, [&] { order << QStringLiteral("moved"); });
    on(grid, &FlexGrid::Click, grid,
       [&] { order << QStringLiteral("click %1,%2").arg(grid->Row()).arg(grid->Col()); });
    press(2, 3);
    press(2, 3);
    EXPECT_EQ(order, QStringList({"moved", "click 2,3", "click 2,3"}));
    order.clear();
    press(3, 3, Qt::RightButton);
    EXPECT_FALSE(order.contains(QStringLiteral("click 3,3")));
    order.clear();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->viewport()->rect().bottomRight());
    QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::LeftButton);
    EXPECT_EQ(order, QStringList());
}

TEST_F(FlexGridTest, ADoubleClickIsToldOnceAfterItsClick) {
    fill();
    show();
    QStringList order;
    on(grid, &FlexGrid::Click, grid, [&] { order << QStringLiteral("click"); });
    on(grid, &FlexGrid::DblClick, grid, [&] { order << QStringLiteral("double %1").arg(grid->Row()); });
    const QPoint place = middleOf(3, 2);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(order.last(), QStringLiteral("double 3"));
    EXPECT_EQ(order.count(QStringLiteral("double 3")), 1);
}

TEST_F(FlexGridTest, DraggingOnMovesNothing) {
    fill();
    show();
    const QPoint from = middleOf(1, 1);
    const QPoint to = middleOf(3, 4);
    QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, from);
    QMouseEvent drag(QEvent::MouseMove, to, grid->viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     {});
    QCoreApplication::sendEvent(grid->viewport(), &drag);
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, to);
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_EQ(grid->Col(), 1);
}

TEST_F(FlexGridTest, AClickThatDeletesTheGridIsHarmless) {
    fill();
    show();
    const QPoint place = middleOf(2, 2);
    on(grid, &FlexGrid::EnterPressed, &window, [&] { delete grid; });
    tests::keys(*grid, QStringLiteral("<Enter>"));
    EXPECT_EQ(window.findChild<FlexGrid*>(), nullptr);
    EXPECT_FALSE(place.isNull());
}

TEST_F(FlexGridTest, ACellLiesWhereItIsPainted) {
    fill();
    show();
    const QRect first = grid->cellRect(1, 1);
    EXPECT_TRUE(grid->geometry().contains(first));
    EXPECT_EQ(grid->indexAt(grid->viewport()->mapFrom(&window, first.topLeft())), grid->model()->index(0, 0));
    EXPECT_EQ(grid->indexAt(grid->viewport()->mapFrom(&window, first.bottomRight())),
              grid->model()->index(0, 0));
    EXPECT_EQ(grid->cellRect(1, 2).left(), first.left() + grid->columnWidth(0));
    EXPECT_EQ(grid->cellRect(2, 1).top(), first.top() + grid->rowHeight(0));
    EXPECT_LT(grid->cellRect(0, 1).bottom(), first.top());
    EXPECT_EQ(grid->cellRect(0, 1).left(), first.left());
    EXPECT_LT(grid->cellRect(1, 0).right(), first.left());
}

TEST_F(FlexGridTest, AskingForACellBringsItIntoView) {
    grid->setCols(30);
    grid->setRows(500);
    show();
    const QRect far = grid->cellRect(400, 25);
    EXPECT_TRUE(grid->geometry().contains(far));
    EXPECT_EQ(far.height(), grid->rowHeight(0) - 1);
}

TEST_F(FlexGridTest, RowNumbersAreForTheEyeOnly) {
    fill();
    grid->setTextMatrix(2, 0, QStringLiteral("P"));
    grid->setShowRowNumbers(true);
    EXPECT_EQ(grid->TextMatrix(1, 0), QString());
    EXPECT_EQ(grid->model()->headerData(0, Qt::Vertical).toString(), QStringLiteral("1"));
    EXPECT_EQ(grid->model()->headerData(1, Qt::Vertical).toString(), QStringLiteral("P"));
    EXPECT_EQ(grid->model()->headerData(2, Qt::Vertical).toString(), QStringLiteral("3"));
}

TEST_F(FlexGridTest, WithoutFixedCellsEveryCellIsFree) {
    fill();
    grid->setFixedCols(0);
    grid->setFixedRows(0);
    grid->setCurrentCell(0, 0);
    EXPECT_EQ(grid->Row(), 0);
    EXPECT_EQ(grid->Col(), 0);
    show();
    EXPECT_FALSE(grid->horizontalHeader()->isVisible());
    EXPECT_FALSE(grid->verticalHeader()->isVisible());
    EXPECT_EQ(grid->TextMatrix(3, 4), QStringLiteral("3,4"));
}

TEST_F(FlexGridTest, MoreFixedColumnsCannotBeEntered) {
    fill();
    grid->setFixedCols(2);
    EXPECT_EQ(grid->Col(), 2);
    show();
    tests::keys(*grid, QStringLiteral("<Left>"));
    EXPECT_EQ(grid->Col(), 2);
    press(1, 1);
    EXPECT_EQ(grid->Col(), 2);
}

TEST_F(FlexGridTest, TheEmptyTextStandsOnlyInAnEmptyGrid) {
    grid->setEmptyText(QStringLiteral("No patient."));
    show();
    const QImage without = grid->grab().toImage();
    grid->setEmptyText(QString());
    EXPECT_NE(without, grid->grab().toImage());
    grid->setTextMatrix(1, 1, QStringLiteral("x"));
    const QImage plain = grid->grab().toImage();
    grid->setEmptyText(QStringLiteral("No patient."));
    EXPECT_EQ(plain, grid->grab().toImage());
}

TEST_F(FlexGridTest, WhatWasSetBeforeItIsSeenStandsInItsPlace) {
    grid->hide();
    show();
    grid->setRows(200);
    grid->setCurrentCell(150, 1);
    grid->show();
    const QRect cell = grid->shownCellRect(150, 1).translated(-grid->pos());
    EXPECT_TRUE(grid->viewport()->geometry().contains(cell));
    EXPECT_EQ(grid->viewport()->y(), grid->horizontalHeader()->geometry().bottom() + 1);
    EXPECT_EQ(grid->viewport()->x(), grid->verticalHeader()->geometry().right() + 1);
    EXPECT_GT(grid->verticalScrollBar()->maximum(), 0);
}

TEST_F(FlexGridTest, TellsACellsPlaceBeforeItIsSeen) {
    fill();
    grid->resize(600, 300);
    const QRect unseen = grid->cellRect(2, 2).translated(-grid->pos());
    EXPECT_EQ(grid->viewport()->y(), grid->horizontalHeader()->geometry().bottom() + 1);
    EXPECT_GT(unseen.y(), grid->horizontalHeader()->height());
    EXPECT_GT(unseen.x(), grid->verticalHeader()->width());
}

TEST_F(FlexGridTest, TheCurrentCellShowsItsFocus) {
    fill();
    show();
    grid->setFocus();
    const QImage with = grid->grab().toImage();
    field->setFocus();
    EXPECT_NE(with, grid->grab().toImage());
}

TEST(FlexGridCaptions, TakeWhatTheyLackFromTheWidestColumn) {
    controls::FlexGrid grid;
    grid.setFormatString(" |Department|Code|Particular");
    grid.setColWidths({200, 300, 1000, 6000});
    grid.resize(560, 200);
    grid.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&grid));
    QFont bold(grid.horizontalHeader()->font());
    bold.setWeight(QFont::DemiBold);
    EXPECT_GE(grid.horizontalHeader()->sectionSize(0), QFontMetrics(bold).horizontalAdvance("Department"));
    EXPECT_EQ(grid.ColWidth(1), 300) << "the given width stays";
    EXPECT_GT(grid.horizontalHeader()->sectionSize(2), grid.horizontalHeader()->sectionSize(1));
}

} // namespace controls
