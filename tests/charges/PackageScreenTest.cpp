// What the two package screens send, show and hand to the request screen that opened them.
#include "charges/frmNucCharges.h"
#include "charges/frmNuclearPackage.h"
#include "session/Session.h"
#include "tests/charges/PackageFixture.h"

#include <QToolButton>

namespace {

using charges::frmNucCharges;
using charges::frmNuclearPackage;
using charges::itemDescription;
using charges::itemStatus;

class NuclearPackage : public tests::PackageFixture {};
class NucCharges : public tests::PackageFixture {};

/// What does not differ between the two.
template <typename Screen>
class EitherPackageScreen : public tests::PackageFixture {
  public:
    static constexpr bool isWards = std::is_same_v<Screen, frmNuclearPackage>;
    const QString table = isWards ? "STATION..tbAdmPackageItem" : "NUCLEAR..tbNucPackageItem";
    const QString key = isWards ? "PackageID" : "Code";
    const QString first = isWards ? "P11" : "N01";
    const QString another = isWards ? "P13" : "N02";

    void setItems(const QString& package, const QString& assignments, const QString& condition = "1 = 1") {
        this->hospital.run("UPDATE " + table + " SET " + assignments + " WHERE " + key + " = '" + package +
                           "' AND " + condition);
    }
    int itemCount(const QString& package) { return this->count(table, key + " = '" + package + "'"); }
};

using Both = testing::Types<frmNuclearPackage, frmNucCharges>;
class ScreenNames {
  public:
    template <typename Screen>
    static std::string GetName(int) {
        return std::is_same_v<Screen, frmNuclearPackage> ? "NuclearPackage" : "NucCharges";
    }
};
TYPED_TEST_SUITE(EitherPackageScreen, Both, ScreenNames);

TEST_F(NuclearPackage, SendsItsTwoStatements) {
    takeTexts();
    open<frmNuclearPackage>();
    EXPECT_EQ(takeTexts(), QStringList{"STATION..sp_Get_AdmPackages 11"});
    pick("P12");
    EXPECT_EQ(takeTexts(), QStringList{"STATION..sp_Get_ADMPackage_Items 'P12'"});
    EXPECT_EQ(screen().windowTitle(), "NUCLEAR PACKAGE");
    EXPECT_EQ(info("lblInfo_1"), "CARDIAC ADMISSION PACKAGE");
    EXPECT_EQ(info("lblInfo_2"), "Gross: 14257");
}

TEST_F(NucCharges, SendsItsTwoStatements) {
    takeTexts();
    open<frmNucCharges>();
    EXPECT_EQ(takeTexts(), QStringList{"Nuclear..sp_Get_nucPackages 11"});
    pick("N02");
    EXPECT_EQ(takeTexts(), QStringList{"Nuclear..sp_Get_nucPackage_Items 'N02'"});
    EXPECT_EQ(screen().windowTitle(), "NUCLEAR CHARGES");
    EXPECT_EQ(info("lblInfo_2"), "BONE METASTASES WORK-UP");
    EXPECT_EQ(info("lblInfo_3"), "Gross: 5896");
}

TEST_F(NuclearPackage, HasALegendAndAGuidelineThatItsTwinHasNot) {
    open<frmNuclearPackage>();
    EXPECT_EQ(info("lblLegend"), "Selected Item");
    EXPECT_EQ(info("lblLegend_1"), "Un-used Item");
    EXPECT_EQ(info("lblGuideline"), "Guideline:");
    EXPECT_EQ(info("lblMessage"), "Click on the List of Packages to view the details.");
    open<frmNucCharges>();
    for (const char* name : {"imgLegend", "lblLegend", "lblGuideline", "lblMessage"})
        EXPECT_EQ(screen().findChild<QWidget*>(name), nullptr) << name;
}

TYPED_TEST(EitherPackageScreen, OpensWithItsListAndNothingToAccept) {
    this->template open<TypeParam>();
    const int packageWidths[] = {0, 550, 3500, 0};
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(this->packages().ColWidth(column), packageWidths[column]) << column;
    EXPECT_EQ(this->cells(this->packages(), 0, 0, 3), "|Code|Description|");
    const int itemWidths[] = {0, 350, 600, 800, 3500, 400, 800, 0, 0};
    for (int column = 0; column < 9; ++column)
        EXPECT_EQ(this->items().ColWidth(column), itemWidths[column]) << column;
    EXPECT_EQ(this->cells(this->items(), 0, 0, 8), "||Code|Revenue|Description|Qty|Amt|Location|");
    EXPECT_EQ(this->accept().text(), "Accept ");
    EXPECT_EQ(tests::child<QPushButton>(this->screen(), "cmdOption").text(), "Exit");
    EXPECT_FALSE(this->accept().isEnabled());
    EXPECT_FALSE(this->items().isEnabled());
    EXPECT_TRUE(this->packages().hasFocus());
}

TYPED_TEST(EitherPackageScreen, NoPackagesLeaveTheListOutOfUse) {
    this->hospital.run(this->isWards ? "UPDATE STATION..tbAdmPackage SET Status = 0"
                                     : "UPDATE NUCLEAR..tbNucPackage SET Status = 0");
    this->template open<TypeParam>();
    EXPECT_FALSE(this->packages().isEnabled());
    EXPECT_EQ(this->packages().Rows(), 2);
    this->type("<Enter>"); // on Exit
    EXPECT_TRUE(this->screen().isUnloaded());
}

TYPED_TEST(EitherPackageScreen, ThePickedPackageIsBoldAndRedAndNoOther) {
    this->template open<TypeParam>();
    this->pick(this->first);
    this->pick(this->another);
    const controls::FlexGrid& grid = this->packages();
    for (int row = 1; row < grid.Rows(); ++row) {
        const bool picked = grid.TextMatrix(row, 1) == this->another;
        for (int column = 0; column < 4; ++column) {
            EXPECT_EQ(this->isRed(grid, row, column), picked) << row << ' ' << column;
            EXPECT_EQ(this->shown(grid, row, column, Qt::FontRole).isValid(), picked) << row << ' ' << column;
        }
    }
}

TYPED_TEST(EitherPackageScreen, TheLastColumnSaysWhichPictureAnItemHas) {
    this->setItems(this->first, "ItemStatus = '2'", "LineNum = 2");
    this->setItems(this->first, "ItemStatus = '3'", "LineNum = 3");
    this->template open<TypeParam>();
    this->pick(this->first);
    EXPECT_EQ(this->mark(1), "checked");
    EXPECT_EQ(this->mark(2), "crossed");
    EXPECT_EQ(this->mark(3), "") << "neither";
    EXPECT_FALSE(this->isRed(this->items(), 1, itemDescription));
    EXPECT_TRUE(this->isRed(this->items(), 2, itemDescription));
}

TYPED_TEST(EitherPackageScreen, AClickTurnsAnItemAndItsColour) {
    this->template open<TypeParam>();
    this->pick(this->first);
    const controls::FlexGrid& grid = this->items();
    this->clickRow(this->items(), 2, itemDescription);
    EXPECT_EQ(this->mark(2), "crossed");
    EXPECT_EQ(grid.TextMatrix(2, itemStatus), "2");
    for (int column = 0; column < 9; ++column)
        EXPECT_TRUE(this->isRed(grid, 2, column)) << column;
    EXPECT_EQ(this->mark(1), "checked");
    EXPECT_EQ(grid.Row(), 2);
    this->clickRow(this->items(), 2, itemDescription);
    EXPECT_EQ(this->mark(2), "checked");
    EXPECT_EQ(grid.TextMatrix(2, itemStatus), "1");
    EXPECT_FALSE(this->isRed(grid, 2, itemDescription));
}

TYPED_TEST(EitherPackageScreen, AnItemThatIsNeitherIsSelectedByItsFirstClick) {
    this->setItems(this->first, "ItemStatus = ''", "LineNum = 1");
    this->template open<TypeParam>();
    this->pick(this->first);
    this->clickRow(this->items(), 1, itemDescription);
    EXPECT_EQ(this->mark(1), "checked");
    EXPECT_EQ(this->items().TextMatrix(1, itemStatus), "1");
}

TYPED_TEST(EitherPackageScreen, PickingAgainReloadsTheItemsAndForgetsTheirMarks) {
    this->template open<TypeParam>();
    this->pick(this->first);
    this->clickRow(this->items(), 1, itemDescription);
    this->takeTexts();
    this->pick(this->first);
    EXPECT_EQ(this->takeTexts().size(), 1);
    EXPECT_EQ(this->mark(1), "checked");
    EXPECT_FALSE(this->isRed(this->items(), 1, itemDescription));
}

TYPED_TEST(EitherPackageScreen, IsWorkedByKeysAlone) {
    this->template open<TypeParam>();
    this->type("<Enter>");
    EXPECT_TRUE(this->items().hasFocus());
    EXPECT_EQ(this->items().Rows() - 1, this->itemCount(this->first));
    this->type("<Down><Space>");
    EXPECT_EQ(this->mark(2), "crossed");
    this->takeTexts();
    this->type("<Shift+Tab><Enter>");
    EXPECT_TRUE(this->takeTexts().isEmpty()) << "the picked package is not read again";
    EXPECT_EQ(this->mark(2), "crossed") << "so its marks stay";
    EXPECT_TRUE(this->items().hasFocus());
    this->type("<Enter>");
    EXPECT_TRUE(this->screen().isUnloaded());
    EXPECT_EQ(this->lines.Rows() - 1, this->itemCount(this->first));
    EXPECT_TRUE(this->takeTexts().isEmpty()) << "nothing is written here";
}

TYPED_TEST(EitherPackageScreen, ABlankOnAPackageIsAClick) {
    this->template open<TypeParam>();
    this->takeTexts();
    this->type("<Space><Space>");
    EXPECT_EQ(this->takeTexts().size(), 2);
    EXPECT_TRUE(this->packages().hasFocus());
}

TYPED_TEST(EitherPackageScreen, AnItemOfFourPiecesHasAQuarterOfItsAmountAsUnitPrice) {
    this->setItems(this->first, "Quantity = 4, Amount = 100.00, ItemStatus = '1'", "LineNum = 1");
    const QString code = this->value("SELECT ItemID FROM " + this->table + " WHERE " + this->key + " = '" +
                                     this->first + "' AND LineNum = 1");
    const QString name = this->value("SELECT Description FROM " + this->table + " WHERE " + this->key +
                                     " = '" + this->first + "' AND LineNum = 1");
    this->template open<TypeParam>();
    this->pick(this->first);
    for (const int column : {4, 8, 9, 11, 12, 13, 14})
        this->lines.setTextMatrix(1, column, "before");
    tests::click(this->accept());
    EXPECT_EQ(this->cells(this->lines, 1, 0, 15),
              "1|NU|" + code + '|' + name + "||25|4|100|||25|||||" + this->first);
    EXPECT_EQ(this->unused.TextMatrix(1, 1), "");
}

TYPED_TEST(EitherPackageScreen, TheBlanksOfWideColumnsGoNowhere) {
    this->template open<TypeParam>();
    this->packages().setTextMatrix(1, 1, ' ' + this->first + ' ');
    this->packages().setTextMatrix(1, 3, " 500 ");
    this->takeTexts();
    this->clickRow(this->packages(), 1, 2);
    const QStringList sent = this->takeTexts();
    ASSERT_EQ(sent.size(), 1);
    EXPECT_TRUE(sent[0].endsWith(" '" + this->first + "'")) << sent[0].toStdString();
    EXPECT_EQ(this->info(this->isWards ? "lblInfo_2" : "lblInfo_3"), "Gross: 500");
    QStringList expected;
    for (const int column : {3, 2, 4, 5, 6}) {
        const QString text = this->items().TextMatrix(1, column);
        expected += text;
        this->items().setTextMatrix(1, column, ' ' + text + ' ');
    }
    tests::click(this->accept());
    QStringList line;
    for (const int column : {1, 2, 3, 6, 7})
        line += this->lines.TextMatrix(1, column);
    EXPECT_EQ(line, expected);
    EXPECT_EQ(this->lines.TextMatrix(1, 15), this->first);
    session::gInventoryEntry = false;
}

TYPED_TEST(EitherPackageScreen, LinesGoBehindThoseThatStandThereAndCountOn) {
    this->lines.setRows(4);
    this->lines.setTextMatrix(1, 1, "NU");
    this->template open<TypeParam>();
    this->pick(this->first);
    tests::click(this->accept());
    const int items = this->itemCount(this->first);
    ASSERT_EQ(this->lines.Rows(), 4 + items);
    EXPECT_EQ(this->lines.TextMatrix(1, 15), "");
    EXPECT_EQ(this->lines.TextMatrix(3, 15), "") << "an empty line further down is not used";
    for (int row = 4; row < this->lines.Rows(); ++row) {
        EXPECT_EQ(this->lines.TextMatrix(row, 0), QString::number(row));
        EXPECT_EQ(this->lines.TextMatrix(row, 15), this->first);
    }
}

TYPED_TEST(EitherPackageScreen, TheFirstCellAloneSaysWhereTheFirstLineGoes) {
    this->lines.setRows(3);
    this->lines.setTextMatrix(1, 1, "  ");
    this->lines.setTextMatrix(1, 2, "1001");
    this->lines.setTextMatrix(2, 1, "NU");
    this->template open<TypeParam>();
    this->pick(this->first);
    tests::click(this->accept());
    EXPECT_EQ(this->lines.TextMatrix(1, 15), this->first);
    EXPECT_EQ(this->lines.TextMatrix(1, 0), "2") << "the number is that of the grid's last line";
    EXPECT_EQ(this->lines.TextMatrix(2, 15), "");
    EXPECT_EQ(this->lines.TextMatrix(3, 15), this->first);
}

TYPED_TEST(EitherPackageScreen, AQuantityOfNoughtStopsTheUnfolding) {
    this->setItems(this->first, "Quantity = 0", "LineNum = 2");
    this->template open<TypeParam>();
    this->pick(this->first);
    tests::click(this->accept());
    const base::RunTimeError error = this->errors.take();
    EXPECT_EQ(error.number(), 11);
    EXPECT_EQ(error.description(), "Division by zero");
    EXPECT_EQ(this->lines.Rows(), 2) << "the item before it stands there";
    EXPECT_EQ(this->lines.TextMatrix(1, 15), this->first);
    EXPECT_EQ(this->screens.savesEnabled, 0);
}

TYPED_TEST(EitherPackageScreen, APackageWithoutItemsCanOnlyBeLeft) {
    this->hospital.run("DELETE FROM " + this->table + " WHERE " + this->key + " = '" + this->another + "'");
    this->template open<TypeParam>();
    this->pick(this->first);
    this->pick(this->another);
    EXPECT_FALSE(this->accept().isEnabled());
    EXPECT_FALSE(this->items().isEnabled());
    EXPECT_TRUE(this->items().showsEmptyText()) << "the items of the other package are gone";
    this->type("<Enter>");
    EXPECT_TRUE(this->packages().hasFocus());
    tests::click(tests::child<QPushButton>(this->screen(), "cmdOption"));
    EXPECT_TRUE(this->screen().isUnloaded());
    EXPECT_EQ(this->lines.TextMatrix(1, 1), "");
}

TYPED_TEST(EitherPackageScreen, LeavingByExitAcceptOrEscapeBringsTheSavesOn) {
    for (const char* keys : {"<Esc>", "<Tab><Enter>", "<Enter><Enter>"}) {
        session::gInventoryEntry = false;
        const int before = this->screens.savesEnabled;
        this->template open<TypeParam>();
        this->type(keys);
        EXPECT_TRUE(this->screen().isUnloaded()) << keys;
        EXPECT_EQ(this->screens.savesEnabled, before + 1) << keys;
        EXPECT_TRUE(session::gInventoryEntry) << keys;
    }
    session::gInventoryEntry = false;
}

TYPED_TEST(EitherPackageScreen, AHeldEnterOrASecondPressUnfoldsOnce) {
    this->template open<TypeParam>();
    this->type("<Enter>");
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&this->items(), &held);
    EXPECT_FALSE(this->screen().isUnloaded()) << "the Enter that picked the package accepts nothing";
    this->type("<Enter>");
    const int rows = this->lines.Rows();
    QTest::keyClick(&this->items(), Qt::Key_Return);
    EXPECT_EQ(this->lines.Rows(), rows);
    EXPECT_EQ(this->screens.savesEnabled, 1);
    session::gInventoryEntry = false;
}

TEST_F(NuclearPackage, APictureOfTheLegendLeavesAtOnce) {
    for (const char* image : {"imgLegend", "imgLegend_1"}) {
        session::gInventoryEntry = false;
        open<frmNuclearPackage>();
        auto& button = tests::child<QToolButton>(screen(), image);
        EXPECT_EQ(button.toolTip(), "Exit");
        tests::click(button);
        EXPECT_TRUE(screen().isUnloaded());
        EXPECT_FALSE(session::gInventoryEntry);
    }
    EXPECT_EQ(screens.savesEnabled, 0);
}

TEST_F(NuclearPackage, AllItemsCrossedSayThatNothingIsSelected) {
    open<frmNuclearPackage>();
    pick("P12");
    items().setFocus();
    type("<Space><Down><Space><Down><Space>");
    boxes.expect({"Please select Package Items!", controls::vbCritical, "Message"});
    type("<Enter>");
    EXPECT_FALSE(screen().isUnloaded());
    EXPECT_EQ(lines.TextMatrix(1, 1), "");
    EXPECT_EQ(unused.TextMatrix(1, 1), "");
    EXPECT_EQ(screens.savesEnabled, 0);
    type("<Space><Enter>");
    EXPECT_TRUE(screen().isUnloaded()) << "one of them is enough";
    EXPECT_EQ(lines.Rows(), 4);
    session::gInventoryEntry = false;
}

TEST_F(NuclearPackage, AnUnusedItemIsChargedAndListedOnItsOwn) {
    open<frmNuclearPackage>();
    pick("P12");
    items().setFocus();
    type("<Down><Space><Down><Space><Enter>");
    EXPECT_EQ(lines.Rows(), 4);
    EXPECT_EQ(cells(lines, 2, 0, 15), "2|MN|30013|NORMAL SALINE 1 L||96|2|192|||96|||||P12");
    ASSERT_EQ(unused.Rows(), 3);
    EXPECT_EQ(cells(unused, 1, 0, 7), "|30013|MN|NORMAL SALINE 1 L|2|96|179|P12");
    EXPECT_EQ(cells(unused, 2, 0, 7), "|40007|UR|I.V. TUBING, ADULT|1|65|224|P12");
    session::gInventoryEntry = false;
}

TEST_F(NucCharges, AClickOnThePackageTurnsItsMark) {
    open<frmNucCharges>();
    pick("N02");
    EXPECT_EQ(packages().cellIconName(2, 0), "checked");
    clickRow(items(), 1, itemDescription);
    takeTexts();
    pick("N02");
    EXPECT_EQ(packages().cellIconName(2, 0), "crossed");
    EXPECT_EQ(takeTexts(), QStringList{"Nuclear..sp_Get_nucPackage_Items 'N02'"});
    EXPECT_EQ(mark(1), "checked") << "the marks of its items are forgotten";
    pick("N02");
    EXPECT_EQ(packages().cellIconName(2, 0), "checked");
    open<frmNuclearPackage>();
    pick("P12");
    EXPECT_EQ(packages().cellIconName(2, 0), "") << "the twin has no such mark";
}

TEST_F(NucCharges, ItsItemsAllOfAmountTwoCountAsUnusedWhateverIsMarked) {
    open<frmNucCharges>();
    pick("N05");
    EXPECT_EQ(mark(1), "checked");
    boxes.expect({"Please select Package Items!", controls::vbCritical, "Message"});
    tests::click(accept());
    EXPECT_FALSE(screen().isUnloaded());
    EXPECT_EQ(lines.TextMatrix(1, 1), "");
}

TEST_F(NucCharges, NoMarkMakesAnItemUnused) {
    open<frmNucCharges>();
    pick("N01");
    items().setFocus();
    type("<Space><Down><Space><Down><Space><Enter>");
    EXPECT_TRUE(screen().isUnloaded()) << "all are crossed";
    EXPECT_EQ(lines.Rows(), 4);
    EXPECT_EQ(unused.TextMatrix(1, 1), "");
    session::gInventoryEntry = false;
}

TEST_F(NucCharges, AnAmountOfTwoMakesAnItemUnused) {
    hospital.run("UPDATE NUCLEAR..tbNucPackageItem SET Amount = 2 WHERE Code = 'N01' AND LineNum = 3");
    open<frmNucCharges>();
    pick("N01");
    tests::click(accept());
    EXPECT_EQ(lines.Rows(), 4);
    ASSERT_EQ(unused.Rows(), 2);
    EXPECT_EQ(cells(unused, 1, 0, 7), "|40001|UR|SYRINGE 1 ML|4|0.5|224|N01");
    session::gInventoryEntry = false;
}

} // namespace
