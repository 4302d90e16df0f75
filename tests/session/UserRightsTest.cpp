#include "session/rights/frmUserRights.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/HeaderBand.h"
#include "session/Session.h"
#include "session/rights/CheckAccess.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"
#include "tests/support/screens/ScriptedSession.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTest>

using namespace session;
using controls::FlexGrid;
using tests::child;
using tests::keys;
using tests::keysToFocus;
using tests::runModal;
using tests::ScriptedProvider;

namespace {

const QString readCatalogue =
    QStringLiteral("Select * From  NUCLEAR..tbNuclearUserSettings Where Status = 'A'");

void open() {
    controls::SharedScreen<frmUserRights>::fresh().ShowModal();
}

/// Numbers of the ticked entries, in the order of the list.
QString ticked(const QWidget& screen) {
    const auto& list = child<QListWidget>(screen, "lstRights");
    QStringList numbers;
    for (int i = 0; i < list.count(); ++i)
        if (list.item(i)->checkState() == Qt::Checked)
            numbers += list.item(i)->text().right(2).trimmed();
    return numbers.join(u' ');
}

ado::Result catalogue() {
    return ScriptedProvider::rowsOf(
        QStringLiteral("ItemID,Description,Status"),
        {{"1", "Assessment", "A"}, {"7", "Request Cancellation", "A"}, {"17", "Exams", "A"}});
}

class UserRights : public testing::Test {
  protected:
    UserRights() {
        session.server().answer(readCatalogue, catalogue());
        session.server().answer(QStringLiteral("NUCLEAR..spNuclear_SearchProgramAccess"), catalogue());
        session.server().answer(
            QStringLiteral("NUCLEAR..spNuclear_SearchNuclearUsers"),
            ScriptedProvider::rowsOf(
                QStringLiteral("Employee Code,Employee Name,Position"),
                {{" 1002 ", "BAUTISTA, MARICEL O.", "ENCODER"}, {"1007", "TOLENTINO, EFREN Y.", "TRAINEE"}}));
        session.server().answer(QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearUserRights"),
                                ScriptedProvider::rowsOf(QStringLiteral("EmployeeID,EmployeeRights")));
    }
    tests::ScriptedSession session;
};

/// What is ticked once a user with these saved rights was chosen.
QString tickedFor(const base::Value& employeeRights) {
    tests::ScriptedSession session;
    session.server().answer(readCatalogue, catalogue());
    session.server().answer(QStringLiteral("NUCLEAR..spNuclear_SearchNuclearUsers"),
                            ScriptedProvider::rowsOf(QStringLiteral("Employee Code,Employee Name,Position"),
                                                     {{"1002", "BAUTISTA, MARICEL O.", "ENCODER"}}));
    session.server().answer(
        QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearUserRights"),
        ScriptedProvider::rowsOf(QStringLiteral("EmployeeID,EmployeeRights"), {{"1002", employeeRights}}));
    QString result;
    runModal(open, {[&](QWidget& screen) {
                 keys(child<QLineEdit>(screen, "txtEmployeeID"), QStringLiteral("1002<Enter><Enter>"));
                 result = ticked(screen);
                 keysToFocus(screen, QStringLiteral("<Esc>"));
             }});
    return result;
}

TEST_F(UserRights, OpensOnTheSearchWithItsListFilled) {
    runModal(open, {[this](QWidget& screen) {
                 EXPECT_EQ(screen.windowTitle(), u"User Rights");
                 EXPECT_EQ(child<controls::HeaderBand>(screen, "header").title(), u"Add/ Edit User Rights ");
                 EXPECT_EQ(session.texts(), QStringList{readCatalogue});
                 EXPECT_EQ(child<QPushButton>(screen, "cmdSearch").text(), u"...");
                 EXPECT_EQ(child<QGroupBox>(screen, "Frame2").title(), u"2. Select User Rights");
                 EXPECT_EQ(child<QCheckBox>(screen, "chkSelectAll").text(), u"Select &All");
                 EXPECT_EQ(child<QPushButton>(screen, "cmdSave").text(), u"&Save");
                 EXPECT_EQ(child<QPushButton>(screen, "cmdClose").text(), u"&Close");
                 EXPECT_FALSE(child<QWidget>(screen, "Frame2").isVisible());
                 EXPECT_FALSE(child<QWidget>(screen, "fmeUsers").isVisible());
                 EXPECT_FALSE(child<QPushButton>(screen, "cmdSave").isEnabled());
                 EXPECT_TRUE(child<QLineEdit>(screen, "txtEmployeeID").hasFocus());
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST_F(UserRights, EntriesKeepTheirNumberBehind120Blanks) {
    runModal(open, {[](QWidget& screen) {
                 const auto& list = child<QListWidget>(screen, "lstRights");
                 ASSERT_EQ(list.count(), 3);
                 EXPECT_EQ(list.item(1)->text(),
                           QStringLiteral("Request Cancellation") + QString(120, u' ') + u'7');
                 EXPECT_EQ(list.item(2)->text(),
                           QStringLiteral("Exams") + QString(120, u' ') + QStringLiteral("17"));
                 const auto* drawn = qobject_cast<QStyledItemDelegate*>(list.itemDelegate());
                 ASSERT_NE(drawn, nullptr);
                 EXPECT_EQ(drawn->displayText(list.item(1)->text(), QLocale()), u"Request Cancellation");
                 keysToFocus(screen, QStringLiteral("<Esc>"));
             }});
}

TEST_F(UserRights, SearchListsUsersAndTakesTheFirstRow) {
    runModal(open, {[this](QWidget& screen) {
                 session.texts().clear();
                 keys(child<QLineEdit>(screen, "txtEmployeeID"), QStringLiteral("o'ba <Enter>"));
                 EXPECT_EQ(session.texts(),
                           QStringList{QStringLiteral("NUCLEAR..spNuclear_SearchNuclearUsers '5','O`BA '")});
                 auto& grid = child<FlexGrid>(screen, "grdUsers");
                 EXPECT_TRUE(child<QWidget>(screen, "fmeUsers").isVisible());
                 EXPECT_TRUE(grid.hasFocus());
                 EXPECT_EQ(grid.Row(), 1);
                 ASSERT_EQ(grid.Cols(), 4);
                 const char* const heads[] = {" ", " Employee Code ", " Employee Name ", " Position "};
                 const int widths[] = {80, 1100, 3000, 2000};
                 for (int column = 0; column < 4; ++column) {
                     EXPECT_EQ(grid.TextMatrix(0, column), QLatin1String(heads[column]));
                     EXPECT_EQ(grid.ColWidth(column), widths[column]);
                 }
                 ASSERT_EQ(grid.Rows(), 3);
                 EXPECT_EQ(grid.TextMatrix(2, 1), u"1007");
                 EXPECT_EQ(grid.TextMatrix(2, 3), u"TRAINEE");
                 EXPECT_FALSE(child<QPushButton>(screen, "cmdSave").isEnabled());
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST_F(UserRights, TheSearchButtonSearchesToo) {
    runModal(open, {[this](QWidget& screen) {
                 session.texts().clear();
                 tests::click(child<QPushButton>(screen, "cmdSearch"));
                 EXPECT_EQ(session.texts(),
                           QStringList{QStringLiteral("NUCLEAR..spNuclear_SearchNuclearUsers '5',''")});
                 EXPECT_TRUE(child<QWidget>(screen, "fmeUsers").isVisible());
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST(UserRightsSearch, WithoutAHitNoGridComesUp) {
    tests::ScriptedSession session;
    session.server().answer(readCatalogue, catalogue());
    session.server().answer(QStringLiteral("NUCLEAR..spNuclear_SearchNuclearUsers"),
                            ScriptedProvider::rowsOf(QStringLiteral("Employee Code,Employee Name,Position")));
    runModal(open, {[](QWidget& screen) {
                 keys(child<QLineEdit>(screen, "txtEmployeeID"), QStringLiteral("ZZ<Enter>"));
                 EXPECT_FALSE(child<QWidget>(screen, "fmeUsers").isVisible());
                 EXPECT_TRUE(child<QLineEdit>(screen, "txtEmployeeID").hasFocus());
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST_F(UserRights, ChoosingReadsByTheTrimmedCodeAndShowsTheRights) {
    runModal(open, {[this](QWidget& screen) {
                 keys(child<QLineEdit>(screen, "txtEmployeeID"), QStringLiteral("BA<Enter>"));
                 session.texts().clear();
                 keysToFocus(screen, QStringLiteral("<Enter>"));
                 EXPECT_EQ(session.texts(),
                           QStringList{QStringLiteral(
                               "SELECT * FROM NUCLEAR..tbNuclearUserRights WHERE EmployeeID = '1002'")});
                 EXPECT_EQ(child<QLineEdit>(screen, "txtEmployeeID").text(), u" 1002 ");
                 EXPECT_EQ(child<QLineEdit>(screen, "txtEmployee").text(), u"BAUTISTA, MARICEL O.");
                 EXPECT_FALSE(child<QWidget>(screen, "fmeUsers").isVisible());
                 EXPECT_TRUE(child<QWidget>(screen, "Frame2").isVisible());
                 EXPECT_TRUE(child<QPushButton>(screen, "cmdSave").isEnabled());
                 EXPECT_TRUE(child<QListWidget>(screen, "lstRights").hasFocus());
                 EXPECT_EQ(ticked(screen), u"") << "no row, nothing ticked";
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST_F(UserRights, AClickChoosesAUser) {
    runModal(open, {[this](QWidget& screen) {
                 keys(child<QLineEdit>(screen, "txtEmployeeID"), QStringLiteral("<Enter>"));
                 session.texts().clear();
                 auto& grid = child<FlexGrid>(screen, "grdUsers");
                 const QRect cell = grid.cellRect(2, 2).translated(-grid.pos());
                 QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier,
                                   grid.viewport()->mapFrom(&grid, cell.center()));
                 EXPECT_EQ(session.texts(),
                           QStringList{QStringLiteral(
                               "SELECT * FROM NUCLEAR..tbNuclearUserRights WHERE EmployeeID = '1007'")});
                 EXPECT_EQ(child<QLineEdit>(screen, "txtEmployee").text(), u"TOLENTINO, EFREN Y.");
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST(UserRightsTicks, ComeFromThePartsBetweenTheBars) {
    EXPECT_EQ(tickedFor("|7"), u"7") << "not 17";
    EXPECT_EQ(tickedFor("|17"), u"17");
    EXPECT_EQ(tickedFor("|1|17|99"), u"1 17");
    EXPECT_EQ(tickedFor("1|7"), u"1 7");
    EXPECT_EQ(tickedFor("| 7"), u"") << "a part is compared as it is";
    EXPECT_EQ(tickedFor("|1|7   "), u"1 7") << "the column's blanks belong to no part";
}

TEST(UserRightsTicks, ATextShorterThanTwoCharactersTicksNothing) {
    EXPECT_EQ(tickedFor(""), u"");
    EXPECT_EQ(tickedFor("7"), u"");
    EXPECT_EQ(tickedFor("|"), u"");
    EXPECT_EQ(tickedFor(nullptr), u"");
}

TEST(UserRightsSave, TheBlanksOfAWideColumnHideNoNumber) {
    tests::ScriptedSession session;
    session.server().answer(readCatalogue,
                            ScriptedProvider::rowsOf(QStringLiteral("ItemID,Description,Status"),
                                                     {{"7    ", "Request Cancellation   ", "A"}}));
    session.server().answer(QStringLiteral("NUCLEAR..spNuclear_SearchNuclearUsers"),
                            ScriptedProvider::rowsOf(QStringLiteral("Employee Code,Employee Name,Position"),
                                                     {{"1002", "BAUTISTA, MARICEL O.", "ENCODER"}}));
    session.server().answer(QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearUserRights"),
                            ScriptedProvider::rowsOf(QStringLiteral("EmployeeID,EmployeeRights")));
    tests::MessageScript boxes{
        {QStringLiteral("User Rights Updated"), controls::vbInformation, QStringLiteral("Message")}};
    runModal(open, {[&session](QWidget& screen) {
                 keys(child<QLineEdit>(screen, "txtEmployeeID"), QStringLiteral("BA<Enter><Enter>"));
                 session.texts().clear();
                 keysToFocus(screen, QStringLiteral("<Alt+A><Alt+S>"));
             }});
    ASSERT_FALSE(session.texts().isEmpty());
    EXPECT_EQ(session.texts()[0], u"NUCLEAR..spNuclear_SaveUserRights '1002','|7','1001'");
}

TEST_F(UserRights, RightsAreNotSavedUnderACodeThatWasTypedOverTheChosenOne) {
    runModal(open, {[this](QWidget& screen) {
                 auto& code = child<QLineEdit>(screen, "txtEmployeeID");
                 auto& save = child<QPushButton>(screen, "cmdSave");
                 keys(code, QStringLiteral("BA<Enter><Enter><Alt+A>"));
                 EXPECT_TRUE(save.isEnabled());
                 code.selectAll();
                 keys(code, QStringLiteral("1007"));
                 EXPECT_FALSE(save.isEnabled());
                 session.texts().clear();
                 keysToFocus(screen, QStringLiteral("<Alt+S>"));
                 EXPECT_EQ(session.texts(), QStringList());
                 EXPECT_EQ(ticked(screen), u"1 7 17") << "nothing is lost";
                 code.selectAll();
                 keys(code, QStringLiteral("1002"));
                 EXPECT_TRUE(save.isEnabled());
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST_F(UserRights, SelectAllTicksAndClearsEveryEntry) {
    runModal(open, {[](QWidget& screen) {
                 keys(child<QLineEdit>(screen, "txtEmployeeID"), QStringLiteral("BA<Enter><Enter>"));
                 keysToFocus(screen, QStringLiteral("<Alt+A>"));
                 EXPECT_EQ(ticked(screen), u"1 7 17");
                 keysToFocus(screen, QStringLiteral("<Alt+A>"));
                 EXPECT_EQ(ticked(screen), u"");
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST_F(UserRights, AnotherUserStartsWithoutTheTicksOfTheFirst) {
    runModal(open, {[](QWidget& screen) {
                 auto& code = child<QLineEdit>(screen, "txtEmployeeID");
                 keys(code, QStringLiteral("BA<Enter><Enter><Alt+A>"));
                 EXPECT_EQ(ticked(screen), u"1 7 17");
                 keys(code, QStringLiteral("<Enter><Down><Enter>"));
                 EXPECT_EQ(code.text(), u"1007");
                 EXPECT_EQ(ticked(screen), u"");
                 EXPECT_FALSE(child<QCheckBox>(screen, "chkSelectAll").isChecked());
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST_F(UserRights, SaveSendsTheTickedNumbersThenTheLog) {
    tests::MessageScript boxes{
        {QStringLiteral("User Rights Updated"), controls::vbInformation, QStringLiteral("Message")}};
    runModal(open, {[this](QWidget& screen) {
                 keys(child<QLineEdit>(screen, "txtEmployeeID"), QStringLiteral("BA<Enter><Enter>"));
                 session.texts().clear();
                 keysToFocus(screen, QStringLiteral("<Down><Space><Down><Space><Alt+S>"));
                 EXPECT_FALSE(screen.isVisible());
             }});
    const QStringList sent{
        QStringLiteral("NUCLEAR..spNuclear_SaveUserRights '1002','|7|17','1001'"),
        QStringLiteral("BUILD_FILE..spBuild_LogUserUpdate '1001','User Rights','SAVE/EDIT USER RIGHTS; "
                       "EmployeeCode:1002'")};
    EXPECT_EQ(session.texts(), sent);
}

TEST_F(UserRights, ItIsSaidBehindBothStatementsAndBeforeTheScreenCloses) {
    tests::MessageScript boxes;
    runModal(open, {[&](QWidget& screen) {
                 keys(child<QLineEdit>(screen, "txtEmployeeID"), QStringLiteral("BA<Enter><Enter>"));
                 session.texts().clear();
                 boxes.expect({.prompt = QStringLiteral("User Rights Updated"),
                               .style = controls::vbInformation,
                               .title = QStringLiteral("Message"),
                               .meanwhile = [&] {
                                   EXPECT_EQ(session.texts().size(), 2);
                                   EXPECT_TRUE(screen.isVisible());
                               }});
                 keysToFocus(screen, QStringLiteral("<Alt+S>"));
                 EXPECT_FALSE(screen.isVisible());
             }});
}

TEST_F(UserRights, NothingTickedSendsAnEmptyText) {
    tests::MessageScript boxes{
        {QStringLiteral("User Rights Updated"), controls::vbInformation, QStringLiteral("Message")}};
    runModal(open, {[this](QWidget& screen) {
                 keys(child<QLineEdit>(screen, "txtEmployeeID"), QStringLiteral("BA<Enter><Enter>"));
                 session.texts().clear();
                 keysToFocus(screen, QStringLiteral("<Alt+S>"));
             }});
    ASSERT_EQ(session.texts().size(), 2);
    EXPECT_EQ(session.texts()[0], u"NUCLEAR..spNuclear_SaveUserRights '1002','','1001'");
}

TEST_F(UserRights, F12OpensTheCatalogueOnceAndReadsTheListAgain) {
    const auto leave = [](QWidget& window) { keysToFocus(window, QStringLiteral("<Alt+C>")); };
    const auto openCatalogue = [this](QWidget& screen) {
        keys(child<QLineEdit>(screen, "txtEmployeeID"), QStringLiteral("BA<Enter><Enter>"));
        keysToFocus(screen, QStringLiteral("<Down><Space>"));
        session.texts().clear();
        keysToFocus(screen, QStringLiteral("<F12>"));
        const QStringList sent{QStringLiteral("NUCLEAR..spNuclear_SearchProgramAccess ''"), readCatalogue};
        EXPECT_EQ(session.texts(), sent);
        EXPECT_EQ(child<QListWidget>(screen, "lstRights").count(), 3) << "not twice";
        EXPECT_EQ(ticked(screen), u"7") << "unsaved ticks outlive the look at the catalogue";
    };
    runModal(open, {openCatalogue,
                    [&](QWidget& catalogue) {
                        EXPECT_EQ(catalogue.windowTitle(), u"RADIOLOGY: Access Settings");
                        leave(catalogue);
                    },
                    leave});
}

TEST_F(UserRights, F12WorksFromTheCodeTheGridAndAButton) {
    for (const char* from : {"txtEmployeeID", "grdUsers", "cmdClose"}) {
        int catalogues = 0;
        runModal(open, {[&](QWidget& screen) {
                            keys(child<QLineEdit>(screen, "txtEmployeeID"), QStringLiteral("BA<Enter>"));
                            keys(child<QWidget>(screen, from), QStringLiteral("<F12>"));
                        },
                        [&](QWidget& catalogue) {
                            catalogues += catalogue.objectName() == u"frmProgSettings";
                            keysToFocus(catalogue, QStringLiteral("<Esc>"));
                        },
                        [](QWidget& screen) { keysToFocus(screen, QStringLiteral("<Alt+C>")); }});
        EXPECT_EQ(catalogues, 1) << from;
    }
}

/// On the demo hospital, by keys alone.
using UserRightsOnTheServer = tests::LoggedOn;

TEST_F(UserRightsOnTheServer, GrantsOneRightToATraineeWhoHadNone) {
    tests::MessageScript boxes{
        {QStringLiteral("User Rights Updated"), controls::vbInformation, QStringLiteral("Message")}};
    ASSERT_FALSE(checkAccess().WithRights(QStringLiteral("1007"), QStringLiteral("7")));
    takeTexts();
    runModal(open, {[](QWidget& screen) {
                 keysToFocus(screen, QStringLiteral("tolen<Enter><Enter>"));
                 EXPECT_EQ(child<QLineEdit>(screen, "txtEmployee").text(), u"TOLENTINO, EFREN Y.");
                 EXPECT_EQ(ticked(screen), u"");
                 keysToFocus(screen, QStringLiteral("<Down><Down><Down><Down><Down><Down><Space>"));
                 EXPECT_EQ(ticked(screen), u"7");
                 keysToFocus(screen, QStringLiteral("<Alt+S>"));
             }});
    const QStringList sent{
        readCatalogue, QStringLiteral("NUCLEAR..spNuclear_SearchNuclearUsers '5','TOLEN'"),
        QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearUserRights WHERE EmployeeID = '1007'"),
        QStringLiteral("NUCLEAR..spNuclear_SaveUserRights '1007','|7','1001'"),
        QStringLiteral("BUILD_FILE..spBuild_LogUserUpdate '1001','User Rights','SAVE/EDIT USER RIGHTS; "
                       "EmployeeCode:1007'")};
    EXPECT_EQ(takeTexts(), sent);
    EXPECT_TRUE(checkAccess().WithRights(QStringLiteral("1007"), QStringLiteral("7")));
    EXPECT_TRUE(checkAccess().WithRights(QStringLiteral("1007"), QStringLiteral(" 7 "))) << "padded";
    EXPECT_FALSE(checkAccess().WithRights(QStringLiteral("1007"), QStringLiteral("17")));
    ado::Recordset log = Read(ado::sql("SELECT EmployeeID, Details FROM BUILD_FILE..tbBuildLog WHERE Module "
                                       "= 'User Rights' AND Details LIKE '%1007'"));
    ASSERT_EQ(log.RecordCount(), 1);
    EXPECT_EQ(log.Fields("EmployeeID").text(), u"1001");
}

TEST_F(UserRightsOnTheServer, ShowsWhatIsSavedAndTakesAllAway) {
    tests::MessageScript boxes{
        {QStringLiteral("User Rights Updated"), controls::vbInformation, QStringLiteral("Message")}};
    runModal(open, {[](QWidget& screen) {
                 keysToFocus(screen, QStringLiteral("1002<Enter><Enter>"));
                 EXPECT_EQ(ticked(screen), u"1 2 3 8 9 10 11");
                 keysToFocus(screen, QStringLiteral("<Alt+A><Alt+A><Alt+S>"));
             }});
    EXPECT_EQ(takeTexts()[3], u"NUCLEAR..spNuclear_SaveUserRights '1002','','1001'");
    EXPECT_FALSE(checkAccess().WithRights(QStringLiteral("1002"), QStringLiteral("1")));
}

TEST_F(UserRightsOnTheServer, ListsOnlyTheDepartmentsOwnUsers) {
    runModal(open, {[](QWidget& screen) {
                 keysToFocus(screen, QStringLiteral("<Enter>"));
                 EXPECT_EQ(child<FlexGrid>(screen, "grdUsers").Rows(), 9);
                 keysToFocus(screen, QStringLiteral("<Esc>"));
             }});
}

} // namespace
