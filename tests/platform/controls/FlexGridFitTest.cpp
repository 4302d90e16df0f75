// What stands in a grid and must not be cut: amounts, dates with their times, names.
#include "platform/controls/grid/FlexGrid.h"
#include "tests/support/core/ScriptedProvider.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace controls {

namespace {

using Cells = std::vector<std::vector<base::Value>>;

class FlexGridFitTest : public testing::Test {
  protected:
    FlexGridFitTest() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(grid = new FlexGrid(&window));
        window.resize(700, 400);
        grid->setFixedCols(0);
    }
    /// " Head |>Head": and told widths.
    void layOut(const char* format, std::initializer_list<int> twips) {
        grid->setFormatString(QString::fromLatin1(format));
        grid->setColWidths(twips);
    }
    void bind(const QString& columns, const Cells& rows, ado::DataType lastType = ado::DataType::Text) {
        auto provider = std::make_unique<tests::ScriptedProvider>();
        ado::Result result = tests::ScriptedProvider::rowsOf(columns, rows);
        result.rows.columns.edit().back().type = lastType;
        provider->answer(QStringLiteral("list"), result);
        ado::Connection connection;
        connection.Open(std::move(provider), QStringLiteral("test"));
        ado::Recordset records;
        records.Open(ado::sql("list"), connection);
        grid->setDataSource(records);
        records.Close();
    }
    void show() {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    bool isWhole(int column, const QString& text) const {
        return grid->columnWidth(column) >= grid->fontMetrics().horizontalAdvance(text) + 12;
    }
    QString toolTipOf(int row, int column) {
        QToolTip::showText(QPoint(), QStringLiteral("of another")); // hiding takes its time
        const QPoint at = grid->visualRect(grid->model()->index(row, column)).center();
        QHelpEvent asks(QEvent::ToolTip, at, grid->viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(grid->viewport(), &asks);
        return QToolTip::text();
    }

    QWidget window;
    FlexGrid* grid;
};

const QString balance = QStringLiteral("13000000.00");
const QString remark = QStringLiteral("to be called before the examination, and fetched with a wheel chair");

} // namespace

TEST_F(FlexGridFitTest, AnAmountIsNeverCutAndTheToldWidthStays) {
    layOut("Remarks|>Balance|Ward", {9000, 600, 600});
    bind("R,B,W", {{remark, balance, QString("2A")}, {remark, QString("1.00"), QString("2A")}});
    show();
    EXPECT_TRUE(isWhole(1, balance));
    EXPECT_EQ(grid->ColWidth(1), 600);
    EXPECT_EQ(grid->ColWidth(0), 9000);
    EXPECT_EQ(toolTipOf(0, 1), "of another");
}

TEST_F(FlexGridFitTest, NorIsOneThatCodeWrites) {
    layOut("Remarks|>Balance", {9000, 600});
    show();
    EXPECT_FALSE(isWhole(1, balance));
    grid->setTextMatrix(1, 1, balance);
    QCoreApplication::processEvents();
    EXPECT_TRUE(isWhole(1, balance));
    grid->AddItem(QStringLiteral("x\t1") + balance);
    QCoreApplication::processEvents();
    EXPECT_TRUE(isWhole(1, QStringLiteral("1") + balance));
}

TEST_F(FlexGridFitTest, WhereNothingCanBeSparedTheGridIsScrolled) {
    window.resize(150, 200);
    layOut(">A|>B|>C", {600, 600, 600});
    bind("A,B,C", {{balance, balance, balance}});
    show();
    QCoreApplication::processEvents();
    for (int column = 0; column < 3; ++column)
        EXPECT_TRUE(isWhole(column, balance)) << column;
    EXPECT_GT(grid->horizontalScrollBar()->maximum(), 0);
}

TEST_F(FlexGridFitTest, ADateAndANumberOfAResultAreNotCutWhereverTheyStand) {
    const QString moment = QStringLiteral("11/21/2026 8:30:00 AM");
    for (const ado::DataType type : {ado::DataType::DateTime, ado::DataType::Money, ado::DataType::Integer}) {
        layOut("Remarks|TransDate", {9000, 900});
        bind("R,T", {{remark, moment}}, type);
        show();
        QCoreApplication::processEvents();
        EXPECT_TRUE(isWhole(1, moment)) << int(type);
    }
}

TEST_F(FlexGridFitTest, APatientsNameIsNotCut) {
    const QString name = QStringLiteral("MONTEFALCO-SANTIAGO, DIVINA GRACIA DE LA PAGUIO");
    layOut("Patient Name|Remarks", {900, 9000});
    bind("P,R", {{name, remark}});
    show();
    EXPECT_TRUE(isWhole(0, name));
}

TEST_F(FlexGridFitTest, ATextTakesOnlyWhatOthersDoNotNeed) {
    const QString exam = QStringLiteral("MYOCARDIAL PERFUSION");
    layOut("Exam|Ward", {600, 9000});
    bind("E,W", {{exam, QString("2A")}});
    show();
    EXPECT_TRUE(isWhole(0, exam));
    EXPECT_EQ(toolTipOf(0, 0), "of another");

    layOut("Exam|Remarks", {1500, 9000});
    bind("E,R", {{remark, remark}});
    QCoreApplication::processEvents();
    EXPECT_FALSE(isWhole(0, remark));
    EXPECT_EQ(toolTipOf(0, 0), remark) << "what is cut stands in the tool tip";
    EXPECT_EQ(toolTipOf(0, 1), "of another");
}

/// A grid of a million rows measures what is seen.
TEST_F(FlexGridFitTest, OnlyRowsThatAreSeenAreMeasured) {
    layOut("Remarks|>Balance", {9000, 900});
    Cells rows(5000, {QString("x"), QString("1.00")});
    rows.back() = {QString("x"), balance};
    bind("R,B", rows);
    show();
    const int narrow = grid->columnWidth(1);
    EXPECT_FALSE(isWhole(1, balance));
    grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->maximum());
    QCoreApplication::processEvents();
    EXPECT_TRUE(isWhole(1, balance));
    const int wide = grid->columnWidth(1);
    grid->verticalScrollBar()->setValue(0);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid->columnWidth(1), wide) << "columns do not jump while one scrolls";
    bind("R,B", {{QString("x"), QString("1.00")}});
    QCoreApplication::processEvents();
    EXPECT_EQ(grid->columnWidth(1), narrow) << "another result";
}

TEST_F(FlexGridFitTest, TextsFurtherDownMoveNoColumn) {
    layOut("Exam|Ward", {600, 9000});
    Cells rows(100, {QString("x"), QString("2A")});
    rows.back() = {remark, QString("2A")};
    bind("E,W", rows);
    show();
    const int before = grid->columnWidth(0);
    grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->maximum());
    QCoreApplication::processEvents();
    EXPECT_EQ(grid->columnWidth(0), before);
}

TEST_F(FlexGridFitTest, AHiddenColumnStaysHidden) {
    layOut("Remarks|>Balance", {9000, 0});
    bind("R,B", {{remark, balance}});
    show();
    EXPECT_TRUE(grid->isColumnHidden(1));
}

TEST_F(FlexGridFitTest, WhatIsBoundWhileHiddenIsMeasuredWhenItIsSeen) {
    layOut("Remarks|>Balance", {9000, 600});
    show();
    window.hide();
    bind("R,B", {{remark, balance}});
    QCoreApplication::processEvents();
    EXPECT_FALSE(isWhole(1, balance));
    show();
    EXPECT_TRUE(isWhole(1, balance));
}

} // namespace controls
