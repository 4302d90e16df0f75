// The grid of the request screens without a screen around it: what its variant and its class decide.
#include "entry/RequestGrid.h"
#include "platform/controls/grid/FlexGrid.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace {

using controls::FlexGrid;

/// A window with the grid's parts and nothing else.
class Desk : public QWidget {
  public:
    explicit Desk(const entry::RequestGridVariant& variant)
        : txtEntry(this)
        , cboEntry(this)
        , txtGross(this)
        , cmdSave(this)
        , cmdSavePrint(this)
        , grid(this)
        , lines(variant, {&grid, &txtEntry, &cboEntry, &txtGross, &cmdSave, &cmdSavePrint}, this) {
        resize(1000, 400);
        grid.setGeometry(0, 0, 1000, 300);
        cmdSave.setEnabled(false);
        lines.layOut();
    }
    void start(const QString& roomClass) {
        lines.setRoomClass(roomClass);
        show();
        activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
        lines.BeginCellEdit();
    }
    QString cell(int row, int column) const { return grid.TextMatrix(row, column); }

    QLineEdit txtEntry;
    QComboBox cboEntry;
    QLineEdit txtGross;
    QPushButton cmdSave, cmdSavePrint;
    FlexGrid grid;
    entry::RequestGrid lines;
};

struct Pricing {
    const char* name;
    entry::RequestGridVariant variant;
    const char* roomClass;
    const char* rate; ///< the exam's column; "" for none
};

std::ostream& operator<<(std::ostream& out, const Pricing& each) {
    return out << each.name;
}

class GridPrices : public tests::LoggedOn, public testing::WithParamInterface<Pricing> {
  public:
    tests::MessageScript boxes;
};

TEST_P(GridPrices, AnExamByTheScreensRule) {
    Desk desk(GetParam().variant);
    desk.start(QString::fromLatin1(GetParam().roomClass));
    tests::keysToFocus(desk, "NU<Enter>1001<Enter>");
    const QString column = QString::fromLatin1(GetParam().rate);
    const double rate =
        column.isEmpty()
            ? 0
            : value("SELECT " + column + " FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = '1001'").toDouble();
    EXPECT_EQ(desk.cell(1, entry::colPrice), QString::number(rate, 'f', 2));
    EXPECT_EQ(desk.cell(1, entry::colRoutinePrice), QString::number(rate, 'f', 2));
    tests::keysToFocus(desk, "S<Enter>2<Enter>");
    EXPECT_EQ(desk.cell(1, entry::colAmount), QString::number(rate * 1.25 * 2, 'f', 2));
    EXPECT_EQ(desk.txtGross.text(), desk.cell(1, entry::colAmount));
    EXPECT_TRUE(desk.cmdSave.isEnabled());
}

INSTANTIATE_TEST_SUITE_P(Rules, GridPrices,
                         testing::Values(Pricing{"classA", entry::inPatientGrid, "A", "RateA"},
                                         Pricing{"classE", entry::inPatientGrid, "E", "RateE"},
                                         Pricing{"noSuchClass", entry::inPatientGrid, "OPD", ""},
                                         Pricing{"smallLetter", entry::inPatientGrid, "a", ""},
                                         Pricing{"outPatient", entry::outPatientGrid, "", "RateA"},
                                         Pricing{"outPatientWhateverTheClass", entry::outPatientGrid, "E",
                                                 "RateA"}),
                         [](const auto& each) { return std::string(each.param.name); });

} // namespace
