// The section's packages: what the screen reads and writes, and its modes.
#include "charges/frmNuclearChargesBuildFile.h"
#include "charges/frmNuclearChargesBuildFile_items.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

using charges::frmNuclearChargesBuildFile;
using controls::FlexGrid;
using tests::child;

const QString wholeList = QStringLiteral("Nuclear..Help_SearchNucPackage '3',''");
const tests::MessageScript::Box sure{"Are you sure?", controls::vbYesNo | controls::vbQuestion, "Message",
                                     controls::vbYes};
const tests::MessageScript::Box saved{"Data was saved.", controls::vbOKOnly, "Notification"};
const tests::MessageScript::Box failed{
    "An error has occured while appending the nuclear charges record. Please click on SAVE again.",
    controls::vbOKOnly, "Notification"};
const tests::MessageScript::Box noRecords{"No Records Yet. Click ADD to insert records.",
                                          controls::vbInformation, "Notification"};

class PackageFile : public tests::LoggedOn {
  public:
    void show() {
        screen.Show();
        screen.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
        QCoreApplication::processEvents();
    }
    void type(const QString& text) { tests::keysToFocus(screen, text); }
    QString label(const char* name) { return child<QLabel>(screen, name).text(); }
    QLineEdit& field(const char* name) { return child<QLineEdit>(screen, name); }
    QPushButton& button(const char* name) { return child<QPushButton>(screen, name); }
    FlexGrid& grid() { return child<FlexGrid>(screen, "Grid1"); }
    QGroupBox& frame() { return child<QGroupBox>(screen, "frameBussClass"); }
    QCheckBox& active() { return child<QCheckBox>(screen, "chkActive"); }
    /// As the screen told each control by itself, whatever its frame says.
    bool isOn(const char* name) { return child<QWidget>(screen, name).isEnabledTo(&frame()); }

    void expectView() {
        EXPECT_FALSE(frame().isEnabled());
        EXPECT_TRUE(isOn("txtPackageID"));
        EXPECT_TRUE(isOn("txtPackage"));
        for (const char* on : {"cmdAdd", "cmdEdit", "cmdRefresh", "txtSearch", "Grid1"})
            EXPECT_TRUE(child<QWidget>(screen, on).isEnabled()) << on;
        for (const char* off : {"cmdSave", "cmdCancel"})
            EXPECT_FALSE(button(off).isEnabled()) << off;
    }
    void expectTyping() {
        EXPECT_TRUE(frame().isEnabled());
        for (const char* off : {"cmdAdd", "cmdEdit", "cmdRefresh", "Grid1"})
            EXPECT_FALSE(child<QWidget>(screen, off).isEnabled()) << off;
        for (const char* on : {"cmdSave", "cmdCancel"})
            EXPECT_TRUE(button(on).isEnabled()) << on;
    }

    frmNuclearChargesBuildFile screen;
    tests::MessageScript boxes;
    tests::ErrorRecorder errors;
};

TEST_F(PackageFile, OpensInViewOnItsFirstPackage) {
    takeTexts();
    show();
    EXPECT_EQ(takeTexts(), (QStringList{wholeList, "Nuclear..Help_SearchNucPackage '1','N01'"}));
    EXPECT_EQ(label("lblMode"), "( VIEW )");
    EXPECT_EQ(label("lblRecordNum"), "[1  out of  5]");
    expectView();
    const int widths[] = {0, 700, 4000, 700};
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(grid().ColWidth(column), widths[column]) << column;
    EXPECT_EQ(grid().TextMatrix(0, 1), "Code");
    EXPECT_EQ(grid().TextMatrix(0, 2), "Description");
    EXPECT_EQ(grid().TextMatrix(0, 3), "Status");
    EXPECT_EQ(field("txtPackage").text(), "THYROID WORK-UP");
    EXPECT_TRUE(active().isChecked());
    const char* const captions[][2] = {{"cmdAdd", "&Add"},   {"cmdEdit", "&Edit"},
                                       {"cmdSave", "&Save"}, {"cmdCancel", "Can&cel"},
                                       {"cmdExit", "E&xit"}, {"cmdDetails", "Add &Items"}};
    for (const auto& caption : captions)
        EXPECT_EQ(button(caption[0]).text(), caption[1]);
    EXPECT_EQ(frame().title(), "Information");
    EXPECT_EQ(label("lblSearch"), "&Search");
}

TEST_F(PackageFile, EveryShowingReadsTheListAgainAndOnlyTheFirstGoesToTheTop) {
    show();
    grid().setFocus();
    type("<Down><Down>");
    EXPECT_EQ(label("lblRecordNum"), "[3  out of  5]");
    screen.hideScreen();
    takeTexts();
    show();
    EXPECT_EQ(takeTexts(), QStringList{wholeList});
}

TEST_F(PackageFile, AnEmptyListSaysSoEachTimeAndLeavesOnlyAdd) {
    hospital.run("DELETE FROM NUCLEAR..tbNucPackage");
    boxes.expect(noRecords);
    show();
    EXPECT_FALSE(button("cmdEdit").isEnabled());
    EXPECT_TRUE(button("cmdAdd").isEnabled());
    screen.hideScreen();
    boxes.expect(noRecords);
    show();
    boxes.expect(noRecords);
    type("<Alt+A><Esc>");
    EXPECT_FALSE(button("cmdEdit").isEnabled());
    type("<Alt+A>X1<Enter>FIRST<Enter><Space>");
    boxes.expect(sure);
    boxes.expect(saved);
    type("<Alt+S>");
    EXPECT_EQ(label("lblRecordNum"), "[1  out of  1]");
    EXPECT_TRUE(button("cmdEdit").isEnabled());
}

TEST_F(PackageFile, AListThatBecameEmptyTakesTheEditOutOfUse) {
    show();
    ASSERT_TRUE(button("cmdEdit").isEnabled());
    screen.hideScreen();
    hospital.run("DELETE FROM NUCLEAR..tbNucPackage");
    boxes.expect(noRecords);
    show();
    EXPECT_FALSE(button("cmdEdit").isEnabled());
}

TEST_F(PackageFile, TheHeadingsAreTheScreensOwn) {
    hospital.replaceProcedure("ALTER PROCEDURE Help_SearchNucPackage @Mode varchar(1), @Code varchar(10) AS "
                              "IF @Mode = '3' SELECT Code AS A, Description AS B, Status AS C FROM "
                              "tbNucPackage ELSE SELECT Code, Description, Status FROM tbNucPackage WHERE "
                              "Code = @Code");
    show();
    QStringList headings;
    for (const int column : {1, 2, 3})
        headings += grid().TextMatrix(0, column);
    EXPECT_EQ(headings, (QStringList{"Code", "Description", "Status"}));
}

TEST_F(PackageFile, TheBlanksOfAWideColumnAreNoPartOfTheCode) {
    show();
    grid().setTextMatrix(2, 1, " N02 ");
    takeTexts();
    grid().setFocus();
    type("<Down>");
    EXPECT_EQ(takeTexts(), QStringList{"Nuclear..Help_SearchNucPackage '1','N02'"});
}

TEST_F(PackageFile, TheSavedPackageComesToTheTop) {
    for (int number = 10; number < 60; ++number)
        hospital.run(QStringLiteral("INSERT INTO NUCLEAR..tbNucPackage (Code, Description, Status) VALUES "
                                    "('N%1', 'PACKAGE %1', 1)")
                         .arg(number));
    show();
    type("<Alt+A>N30<Enter>ANOTHER NAME");
    boxes.expect(sure);
    boxes.expect(saved);
    type("<Alt+S>");
    EXPECT_EQ(grid().TextMatrix(grid().Row(), 1), "N30");
    EXPECT_EQ(grid().visualRect(grid().currentIndex()).top(), 0);
}

TEST_F(PackageFile, BackInViewTheSearchIsEmpty) {
    show();
    type("n04<Alt+A><Esc>");
    EXPECT_EQ(field("txtSearch").text(), "");
    type("n04<Alt+A>N03<Enter>SAME");
    boxes.expect(sure);
    boxes.expect(saved);
    type("<Alt+S>");
    EXPECT_EQ(field("txtSearch").text(), "");
}

TEST_F(PackageFile, AClickOrAnArrowShowsThePackage) {
    hospital.run("UPDATE NUCLEAR..tbNucPackage SET Status = 0 WHERE Code = 'N03'");
    show();
    takeTexts();
    const QRect cell = grid().cellRect(3, 2).translated(-grid().pos()).translated(-grid().viewport()->pos());
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(takeTexts(), QStringList{"Nuclear..Help_SearchNucPackage '1','N03'"});
    EXPECT_EQ(field("txtPackageID").text(), "N03");
    EXPECT_EQ(field("txtPackage").text(), "CARDIAC STRESS PACKAGE");
    EXPECT_FALSE(active().isChecked());
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(takeTexts(), QStringList{"Nuclear..Help_SearchNucPackage '1','N03'"});
    type("<Up>");
    EXPECT_EQ(takeTexts(), QStringList{"Nuclear..Help_SearchNucPackage '1','N02'"});
    EXPECT_TRUE(active().isChecked());
    EXPECT_EQ(label("lblRecordNum"), "[2  out of  5]");
}

TEST_F(PackageFile, AClickOnTheHeadingShowsNothing) {
    show();
    takeTexts();
    QTest::mouseClick(grid().horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(80, 8));
    EXPECT_TRUE(takeTexts().isEmpty());
    EXPECT_EQ(field("txtPackageID").text(), "N01");
}

TEST_F(PackageFile, APackageIsAdded) {
    show();
    type("<Alt+A>");
    EXPECT_EQ(label("lblMode"), "( ADD ) ");
    EXPECT_EQ(label("lblRecordNum"), "NEW");
    expectTyping();
    EXPECT_TRUE(field("txtSearch").isEnabled()) << "as it was";
    EXPECT_TRUE(field("txtPackageID").hasFocus());
    EXPECT_EQ(field("txtPackageID").text() + field("txtPackage").text(), "");
    EXPECT_FALSE(active().isChecked());
    takeTexts();
    type(" n03a <Enter>STRESS, CHILD'S <Enter><Space>");
    boxes.expect(sure);
    boxes.expect(saved);
    type("<Alt+S>");
    EXPECT_EQ(
        takeTexts(),
        (QStringList{"Nuclear..sp_Nuclear_Insert_Update_Package 'n03a', 'STRESS, CHILD`S', '1'", wholeList}));
    EXPECT_EQ(label("lblMode"), "( VIEW )");
    expectView();
    EXPECT_EQ(grid().TextMatrix(grid().Row(), 1), "n03a") << "the saved one is the current one";
    EXPECT_EQ(label("lblRecordNum"), "[4  out of  6]");
    EXPECT_TRUE(field("txtSearch").hasFocus());
    EXPECT_EQ(field("txtSearch").text(), "");
}

TEST_F(PackageFile, AnExistingCodeThatIsAddedChangesItsPackage) {
    show();
    type("<Alt+A>N02<Enter>OTHER NAME");
    boxes.expect(sure);
    boxes.expect(saved);
    type("<Alt+S>");
    EXPECT_EQ(count("NUCLEAR..tbNucPackage", "Code = 'N02'"), 1);
    EXPECT_EQ(value("SELECT Description FROM NUCLEAR..tbNucPackage WHERE Code = 'N02'"), "OTHER NAME");
    EXPECT_EQ(grid().Rows() - 1, 5);
    EXPECT_EQ(grid().Row(), 2);
}

TEST_F(PackageFile, APackageIsEdited) {
    show();
    grid().setFocus();
    type("<Down><Enter>");
    EXPECT_EQ(label("lblMode"), "( EDIT )");
    EXPECT_EQ(label("lblRecordNum"), "[2  out of  5]") << "as it was";
    expectTyping();
    EXPECT_FALSE(isOn("txtPackageID"));
    EXPECT_FALSE(field("txtSearch").isEnabled());
    EXPECT_TRUE(field("txtPackage").hasFocus());
    takeTexts();
    type("<Ctrl+A>BONES<Enter><Space>");
    boxes.expect(sure);
    boxes.expect(saved);
    type("<Alt+S>");
    EXPECT_EQ(takeTexts(),
              (QStringList{"Nuclear..sp_Nuclear_Insert_Update_Package 'N02', 'BONES', '0'", wholeList}));
    EXPECT_EQ(grid().Row(), 2);
    expectView();
}

TEST_F(PackageFile, CancelSpellsItsViewWithABlankLess) {
    show();
    grid().setFocus();
    type("<Down><Down><Alt+E>XX");
    takeTexts();
    type("<Alt+C>");
    EXPECT_EQ(takeTexts().first(), wholeList) << "it reads first";
    EXPECT_EQ(label("lblMode"), "( VIEW)");
    EXPECT_EQ(grid().Row(), 1);
    expectView();
    EXPECT_TRUE(field("txtSearch").hasFocus());
    EXPECT_EQ(field("txtPackage").text(), "THYROID WORK-UP") << "what is shown is the current row's";
    type("<Alt+E>");
    boxes.expect(sure);
    boxes.expect(saved);
    type("<Alt+S>");
    EXPECT_EQ(label("lblMode"), "( VIEW )") << "the save has one more";
}

TEST_F(PackageFile, CancelGoesToTheTypedCodeWhileTheDescriptionIsOutOfUse) {
    show();
    type("<Alt+A>n04");
    field("txtPackage").setEnabled(false);
    type("<Alt+C>");
    EXPECT_EQ(label("lblMode"), "( VIEW)");
    EXPECT_FALSE(isOn("txtPackageID"));
    EXPECT_EQ(grid().Row(), 4);
}

TEST_F(PackageFile, ANoLeavesWhatIsTyped) {
    show();
    type("<Alt+A>N77<Enter>SEVEN");
    takeTexts();
    auto no = sure;
    no.answer = controls::vbNo;
    boxes.expect(no);
    type("<Alt+S>");
    EXPECT_TRUE(takeTexts().isEmpty());
    EXPECT_EQ(label("lblMode"), "( ADD ) ");
    EXPECT_EQ(field("txtPackage").text(), "SEVEN");
}

TEST_F(PackageFile, AFailedSaveAsksForAnother) {
    show();
    type("<Alt+A>N77<Enter>SEVEN");
    {
        tests::FaultInjector fault(*session::gConnection, 1);
        boxes.expect(sure);
        boxes.expect(failed);
        type("<Alt+S>");
    }
    EXPECT_EQ(label("lblMode"), "( ADD ) ");
    EXPECT_EQ(field("txtPackage").text(), "SEVEN");
    EXPECT_EQ(count("NUCLEAR..tbNucPackage", "Code = 'N77'"), 0);
    EXPECT_TRUE(errors.isEmpty());
    boxes.expect(sure);
    boxes.expect(saved);
    type("<Alt+S>");
    EXPECT_EQ(count("NUCLEAR..tbNucPackage", "Code = 'N77'"), 1);
    EXPECT_EQ(label("lblMode"), "( VIEW )");
}

TEST_F(PackageFile, ASearchGoesToACodeOrToADescriptionAndShowsIt) {
    show();
    takeTexts();
    type("n0");
    EXPECT_EQ(grid().Row(), 1);
    type("4");
    EXPECT_EQ(grid().Row(), 4);
    EXPECT_EQ(field("txtPackage").text(), "RENAL FUNCTION PACKAGE");
    type("<Ctrl+A>metas");
    EXPECT_EQ(field("txtPackageID").text(), "N02");
    type("<Enter>");
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_TRUE(takeTexts().filter("'3'").isEmpty()) << "the list is not read for it";
}

TEST_F(PackageFile, CommandsWithoutActionHaveNone) {
    show();
    takeTexts();
    tests::click(button("cmdRefresh"));
    tests::click(button("cmdDetails"));
    EXPECT_TRUE(takeTexts().isEmpty());
    EXPECT_TRUE(screen.isVisible());
    type("<Alt+X>");
    EXPECT_TRUE(screen.isUnloaded());
}

TEST_F(PackageFile, TheScreenOfTheItemsOnlyStands) {
    charges::frmNuclearChargesBuildFile_items items;
    takeTexts();
    items.Show();
    const char* const captions[][2] = {{"lblPackageID", "Package ID"},
                                       {"lblPackage", "Description"},
                                       {"lblGrossAmount", "BreakDown Amount"},
                                       {"lblPackageAmount", "Total Amount"}};
    for (const auto& caption : captions)
        EXPECT_EQ(child<QLabel>(items, caption[0]).text(), caption[1]);
    EXPECT_EQ(child<QLineEdit>(items, "txtGrossAmount").text(), "0.00");
    EXPECT_EQ(child<QPushButton>(items, "cmbDeleteItem").text(), "&Delete Exam");
    for (const char* name : {"cmbDeleteItem", "cmdSave", "cmdExit"})
        tests::click(child<QPushButton>(items, name));
    EXPECT_TRUE(items.isVisible());
    EXPECT_TRUE(takeTexts().isEmpty());
}

} // namespace
