#include "results/frmResultEntryMPI.h"
#include "tests/results/ResultFixture.h"

#include <gtest/gtest.h>

#include <QTest>

using tests::Kind;

namespace {

class PerfusionGrid : public tests::ResultFixture {
  public:
    PerfusionGrid() { open(Kind::Perfusion); }

    results::frmResultEntryMPI& mpi() { return static_cast<results::frmResultEntryMPI&>(screen()); }
    controls::FlexGrid& grid() { return tests::child<controls::FlexGrid>(screen(), "grdTable"); }
    QLineEdit& entry() { return tests::child<QLineEdit>(screen(), "txtEntry"); }
    /// "2,1" while its cell is open; "" when none is.
    QString openCell() {
        return entry().isVisible() && entry().hasFocus()
                   ? QStringLiteral("%1,%2").arg(grid().Row()).arg(grid().Col())
                   : QString();
    }
    void clickCell(int row, int column) {
        const QRect cell = grid().cellRect(row, column).translated(-grid().pos());
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {},
                          grid().viewport()->mapFrom(&grid(), cell.center()));
    }
    QString row(int index) {
        return grid().TextMatrix(index, 0) + u';' + grid().TextMatrix(index, 1) + u';' +
               grid().TextMatrix(index, 2);
    }
};

TEST_F(PerfusionGrid, IsLaidOutAtLoad) {
    EXPECT_EQ(grid().Rows(), 6);
    EXPECT_EQ(grid().Cols(), 3);
    EXPECT_EQ(row(0), " ; RESTING ; STRESS ");
    EXPECT_EQ(row(1), "  Ejection Fraction;;");
    EXPECT_EQ(row(2), "  EDV;;");
    EXPECT_EQ(row(3), "  ESV;;");
    EXPECT_EQ(row(4), "  SV;;");
    EXPECT_EQ(row(5), "  Wall Motion;;");
    EXPECT_EQ(grid().ColWidth(0), 2400);
    EXPECT_EQ(grid().ColWidth(1), 2000);
    EXPECT_EQ(grid().ColWidth(2), 2000);
    EXPECT_FALSE(entry().isVisible());
}

TEST_F(PerfusionGrid, AClickOpensTheCellWithItsTextMarked) {
    grid().setTextMatrix(3, 2, "42");
    type("grdTable", {});
    clickCell(3, 2);
    EXPECT_EQ(openCell(), "3,2");
    EXPECT_EQ(entry().selectedText(), "42");
    EXPECT_EQ(entry().geometry().topLeft(), grid().cellRect(3, 2).topLeft());
    EXPECT_EQ(entry().width(), grid().cellRect(3, 2).width());
    type("7");
    EXPECT_EQ(grid().TextMatrix(3, 2), "7") << "typed at once into the cell";
    clickCell(1, 1);
    EXPECT_EQ(openCell(), "1,1");
    EXPECT_EQ(grid().TextMatrix(3, 2), "7");
    EXPECT_EQ(entry().text(), "");
}

TEST_F(PerfusionGrid, ArrowsGoFromCellToCellButNeverToTheHeaders) {
    type("grdTable", "<Enter>");
    EXPECT_EQ(openCell(), "1,1");
    type("<Up><Left>");
    EXPECT_EQ(openCell(), "1,1");
    type("<Right>");
    EXPECT_EQ(openCell(), "1,2");
    type("<Right>");
    EXPECT_EQ(openCell(), "1,2");
    type("<Down>");
    EXPECT_EQ(openCell(), "2,2");
    type("<Left><Down><Down><Down>");
    EXPECT_EQ(openCell(), "5,1");
    type("<Down>");
    EXPECT_EQ(openCell(), "5,1");
    type("<Up>");
    EXPECT_EQ(openCell(), "4,1");
}

TEST_F(PerfusionGrid, EnterWalksAllCellsAndStopsInTheLast) {
    type("grdTable",
         "1<Enter>2<Enter>3<Enter>4<Enter>5<Enter>6<Enter>7<Enter>8<Enter>9<Enter>10<Enter><Enter>");
    EXPECT_EQ(openCell(), "5,2");
    EXPECT_EQ(row(1), "  Ejection Fraction;1;2");
    EXPECT_EQ(row(5), "  Wall Motion;9;10") << "the value stays in the cell";
    type("<Esc>");
    EXPECT_EQ(openCell(), "5,2") << "Escape does nothing";
}

TEST_F(PerfusionGrid, EnterInTheLastCellDoesNothing) {
    type("grdTable", {});
    clickCell(5, 2);
    type("10<Enter>");
    EXPECT_EQ(openCell(), "5,2");
    EXPECT_EQ(entry().selectedText(), "") << "the cell is not opened anew";
    type("5");
    EXPECT_EQ(grid().TextMatrix(5, 2), "105") << "and typing goes on where it was";
}

TEST_F(PerfusionGrid, ArrowsOnTheGridItselfOpenTheCellThatTheyReach) {
    type("grdTable", "<Down>");
    EXPECT_EQ(openCell(), "2,1");
}

TEST_F(PerfusionGrid, AQuoteBecomesABackQuote) {
    type("grdTable", "'a'");
    EXPECT_EQ(grid().TextMatrix(1, 1), "`a`");
}

TEST_F(PerfusionGrid, TabLeavesTheCellForTheNextPage) {
    type("grdTable", "60<Tab>");
    EXPECT_EQ(focused(), "txtConclusion");
    EXPECT_FALSE(entry().isVisible());
    EXPECT_EQ(grid().TextMatrix(1, 1), "60");
}

TEST_F(PerfusionGrid, AStoredPairIsSplitAtItsBars) {
    mpi().setParameter(1, "60|65");
    EXPECT_EQ(row(1), "  Ejection Fraction;60;65");
    mpi().setParameter(2, "100");
    EXPECT_EQ(row(2), "  EDV;100;") << "a value without a bar has no stress part";
    mpi().setParameter(3, {});
    EXPECT_EQ(row(3), "  ESV;;");
    mpi().setParameter(4, "|");
    EXPECT_EQ(row(4), "  SV;;");
}

TEST_F(PerfusionGrid, ABarTypedInACellShiftsTheStressValue) {
    boxes.expect({"Data Successfully Saved!", controls::vbInformation, "Notification"});
    type("grdTable", "a|b<Enter>c");
    type("<Alt+S>");
    const QString stored = value("SELECT Fraction FROM NUCLEAR..tbNucResult WHERE RequestNum = '90001'");
    EXPECT_EQ(stored, "a|b|c");
    EXPECT_EQ(value("SELECT EDV FROM NUCLEAR..tbNucResult WHERE RequestNum = '90001'"), "|")
        << "an empty pair";
    mpi().setParameter(1, stored);
    EXPECT_EQ(row(1), "  Ejection Fraction;a;b");
}

TEST_F(PerfusionGrid, ADisabledGridOpensNoCell) {
    type("grdTable", {});
    screen().enableFields(std::array{"grdTable"}, false);
    clickCell(2, 1);
    EXPECT_EQ(openCell(), "");
}

} // namespace
