#include "ledger/frmListDeposits.h"

#include "platform/controls/grid/FlexGrid.h"
#include "tests/ledger/InquiryFixture.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {

using tests::child;

const char* const columns =
    "PatientName,HospNum,IdNum,TransDate,RoomID,ORNumber,Amount,Balance,UserID,RoomClassID,StationID";

class ListDeposits : public tests::InquiryFixture {
  protected:
    controls::FlexGrid& shown() {
        screen.Show();
        return child<controls::FlexGrid>(screen, "grdTable");
    }
    ledger::frmListDeposits screen;
};

TEST_F(ListDeposits, ListsThemUnderTheResultsOwnHeaders) {
    answer("spNuclear_GetPatientDeposit", columns,
           {{"SANTOS, MARIA", "104001", "26004001", "11/20/2026", "201", "OR31501", "12000", "6000.5", "3001",
             "B", "3A"}});
    const controls::FlexGrid& grid = shown();
    EXPECT_EQ(takeTexts(), QStringList{"spNuclear_GetPatientDeposit"});
    ASSERT_EQ(grid.Cols(), 12);
    const int widths[] = {100, 3500, 1100, 1500, 2500, 800, 2000, 1200, 900, 800, 900, 1000};
    for (int column = 0; column < 12; ++column)
        EXPECT_EQ(grid.ColWidth(column), widths[column]) << column;
    QStringList headers, cells;
    for (int column = 0; column < 12; ++column) {
        headers += grid.TextMatrix(0, column);
        cells += grid.TextMatrix(1, column);
    }
    EXPECT_EQ(headers.join(u','), u',' + QString(columns));
    EXPECT_EQ(cells, (QStringList{"", "SANTOS, MARIA", "104001", "26004001", "11/20/2026", "201", "OR31501",
                                  "12000.00", "6000.50", "3001", "B", "3A"}));
    EXPECT_EQ(child<QLabel>(screen, "lblHits").text(), QStringLiteral("1 deposit"));
}

TEST_F(ListDeposits, WithoutDepositsTheGridKeepsTheLayoutItWasDrawnWith) {
    answer("spNuclear_GetPatientDeposit", columns);
    const controls::FlexGrid drawn;
    const controls::FlexGrid& grid = shown();
    EXPECT_EQ(grid.Cols(), drawn.Cols());
    EXPECT_EQ(grid.Rows(), drawn.Rows());
    for (int column = 0; column < grid.Cols(); ++column)
        EXPECT_EQ(grid.ColWidth(column), drawn.ColWidth(column)) << column;
    EXPECT_TRUE(grid.showsEmptyText());
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(ListDeposits, ItsCommandAndEscapeLeave) {
    answer("spNuclear_GetPatientDeposit", columns);
    shown();
    auto& close = child<QPushButton>(screen, "btnClose");
    EXPECT_EQ(close.text(), QStringLiteral(" &Close"));
    tests::click(close);
    EXPECT_TRUE(screen.isUnloaded());
    ledger::frmListDeposits another;
    another.Show();
    QTest::keyClick(&another, Qt::Key_Escape);
    EXPECT_TRUE(another.isUnloaded());
}

} // namespace
