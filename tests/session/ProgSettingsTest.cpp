#include "session/rights/frmProgSettings.h"

#include "platform/base/Error.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/HeaderBand.h"
#include "session/Session.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"
#include "tests/support/screens/ScriptedSession.h"

#include <QCheckBox>
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace session;
using controls::FlexGrid;
using tests::child;
using tests::keys;
using tests::keysToFocus;
using tests::runModal;
using tests::ScriptedProvider;

namespace {

const QString listAll = QStringLiteral("NUCLEAR..spNuclear_SearchProgramAccess ''");
const tests::MessageScript::Box added{QStringLiteral("Record Successfully Added"), controls::vbInformation};

void open() {
    controls::SharedScreen<frmProgSettings>::fresh().ShowModal();
}

QString text(const QWidget& screen, const char* field) {
    return child<QLineEdit>(screen, field).text();
}

/// fmeProperties, cmdAdd, cmdEdit, cmdSave: "+" where enabled.
QString enabled(const QWidget& screen) {
    QString marks;
    for (const char* name : {"fmeProperties", "cmdAdd", "cmdEdit", "cmdSave"})
        marks += child<QWidget>(screen, name).isEnabled() ? u'+' : u'-';
    return marks;
}

class ProgSettings : public testing::Test {
  protected:
    ProgSettings() {
        session.server().answer(
            QStringLiteral("NUCLEAR..spNuclear_SearchProgramAccess"),
            ScriptedProvider::rowsOf(
                QStringLiteral("ItemID,Description,Status"),
                {{" 1 ", " Assessment ", "A"}, {"2", "Charge Entry", "I"}, {"10", "Patient`s Ledger", "A"}}));
    }
    tests::ScriptedSession session;
};

TEST_F(ProgSettings, OpensWithTheWholeList) {
    runModal(open, {[this](QWidget& screen) {
                 EXPECT_EQ(screen.windowTitle(), u"RADIOLOGY: Access Settings");
                 EXPECT_EQ(child<controls::HeaderBand>(screen, "header").title(),
                           u"Add/Edit Program Access Settings");
                 EXPECT_EQ(child<QCheckBox>(screen, "chkStatus").text(), u"&Active");
                 EXPECT_EQ(session.texts(), QStringList{listAll});
                 auto& grid = child<FlexGrid>(screen, "grdAccess");
                 ASSERT_EQ(grid.Cols(), 4);
                 const int widths[] = {200, 1000, 2800, 1000};
                 for (int column = 0; column < 4; ++column)
                     EXPECT_EQ(grid.ColWidth(column), widths[column]);
                 EXPECT_EQ(grid.Rows(), 4);
                 EXPECT_EQ(grid.TextMatrix(3, 1), u"10");
                 EXPECT_EQ(enabled(screen), u"-++-");
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST_F(ProgSettings, SearchSendsTheTrimmedText) {
    runModal(open, {[this](QWidget& screen) {
                 session.texts().clear();
                 keys(child<QLineEdit>(screen, "txtSearchText"), QStringLiteral(" patient's <Enter>"));
                 tests::click(child<QPushButton>(screen, "cmdSearch"));
                 const QString sent = QStringLiteral("NUCLEAR..spNuclear_SearchProgramAccess 'patient`s'");
                 EXPECT_EQ(session.texts(), (QStringList{sent, sent}));
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST_F(ProgSettings, ARowShowsItsRight) {
    runModal(open, {[](QWidget& screen) {
                 auto& grid = child<FlexGrid>(screen, "grdAccess");
                 const auto clickRow = [&](int row) {
                     const QRect cell = grid.cellRect(row, 2).translated(-grid.pos());
                     QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier,
                                       grid.viewport()->mapFrom(&grid, cell.center()));
                 };
                 clickRow(2);
                 EXPECT_EQ(text(screen, "txtCode"), u"2");
                 EXPECT_EQ(text(screen, "txtDescription"), u"Charge Entry");
                 EXPECT_FALSE(child<QCheckBox>(screen, "chkStatus").isChecked());
                 clickRow(1);
                 EXPECT_EQ(text(screen, "txtCode"), u"1") << "trimmed";
                 EXPECT_EQ(text(screen, "txtDescription"), u" Assessment ") << "as it is";
                 EXPECT_TRUE(child<QCheckBox>(screen, "chkStatus").isChecked());
                 keys(grid, QStringLiteral("<Down><Down>"));
                 EXPECT_EQ(text(screen, "txtCode"), u"10") << "by the arrow keys too";
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST_F(ProgSettings, AddStartsANewOneAndSendsFlagAWithCode0) {
    tests::MessageScript boxes{added};
    runModal(open, {[this](QWidget& screen) {
                 keysToFocus(screen, QStringLiteral("<Alt+D>"));
                 EXPECT_EQ(text(screen, "txtCode"), u"(NEW)");
                 EXPECT_EQ(text(screen, "txtDescription"), u"");
                 EXPECT_EQ(enabled(screen), u"+--+");
                 session.texts().clear();
                 keysToFocus(screen, QStringLiteral("Doctor's List<Alt+S>"));
                 const QStringList sent{
                     QStringLiteral("NUCLEAR..spNuclear_SaveProgramSettings 'A','0','Doctor`s List','A'"),
                     listAll};
                 EXPECT_EQ(session.texts(), sent);
                 EXPECT_EQ(enabled(screen), u"-++-");
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST_F(ProgSettings, EditKeepsTheFieldsAndSendsFlagBWithTheCode) {
    tests::MessageScript boxes{added};
    runModal(
        open, {[this](QWidget& screen) {
            keys(child<FlexGrid>(screen, "grdAccess"), QStringLiteral("<Down><Down><Alt+E>"));
            EXPECT_EQ(text(screen, "txtCode"), u"10");
            EXPECT_EQ(text(screen, "txtDescription"), u"Patient`s Ledger");
            EXPECT_EQ(enabled(screen), u"+--+");
            session.texts().clear();
            keysToFocus(screen, QStringLiteral("<End> 2<Alt+A><Alt+S>"));
            const QStringList sent{
                QStringLiteral("NUCLEAR..spNuclear_SaveProgramSettings 'B','10','Patient`s Ledger 2','I'"),
                listAll};
            EXPECT_EQ(session.texts(), sent);
            EXPECT_EQ(child<FlexGrid>(screen, "grdAccess").Row(), 3) << "the saved row stays current";
            keysToFocus(screen, QStringLiteral("<Alt+C>"));
        }});
}

TEST_F(ProgSettings, ItIsSaidBehindTheStatementAndBeforeTheListIsReadAgain) {
    tests::MessageScript boxes;
    runModal(open, {[&](QWidget& screen) {
                 keys(child<FlexGrid>(screen, "grdAccess"), QStringLiteral("<Alt+E>"));
                 session.texts().clear();
                 boxes.expect({.prompt = added.prompt, .style = added.style, .meanwhile = [&] {
                                   EXPECT_EQ(session.texts().size(), 1);
                                   EXPECT_TRUE(session.texts().value(0).contains("SaveProgramSettings"));
                                   EXPECT_EQ(enabled(screen), u"+--+");
                               }});
                 keysToFocus(screen, QStringLiteral("<Alt+S>"));
                 EXPECT_EQ(session.texts().value(1), listAll);
                 EXPECT_EQ(session.texts().size(), 2);
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

TEST_F(ProgSettings, TheArrowKeysLeaveWhatIsBeingTypedAlone) {
    runModal(open, {[](QWidget& screen) {
                 keysToFocus(screen, QStringLiteral("<Alt+D>Scan"));
                 keys(child<FlexGrid>(screen, "grdAccess"), QStringLiteral("<Down>"));
                 EXPECT_EQ(text(screen, "txtCode"), u"(NEW)");
                 EXPECT_EQ(text(screen, "txtDescription"), u"Scan");
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
}

using ProgSettingsOnTheServer = tests::LoggedOn;

TEST_F(ProgSettingsOnTheServer, AddsRight19AndMakesItInactive) {
    tests::MessageScript boxes{added, added};
    runModal(open, {[](QWidget& screen) {
                 auto& grid = child<FlexGrid>(screen, "grdAccess");
                 EXPECT_EQ(grid.Rows(), 19);
                 keysToFocus(screen, QStringLiteral("<Alt+D>Census<Alt+S>"));
                 EXPECT_EQ(grid.Rows(), 20);
                 EXPECT_EQ(text(screen, "txtCode"), u"19") << "the new one, under its own number";
                 keysToFocus(screen, QStringLiteral("<Alt+E><Alt+A><Alt+S>"));
                 EXPECT_EQ(grid.TextMatrix(19, 3), u"I");
                 keysToFocus(screen, QStringLiteral("<Alt+C>"));
             }});
    const QStringList sent{
        listAll, QStringLiteral("NUCLEAR..spNuclear_SaveProgramSettings 'A','0','Census','A'"), listAll,
        QStringLiteral("NUCLEAR..spNuclear_SaveProgramSettings 'B','19','Census','I'"), listAll};
    EXPECT_EQ(takeTexts(), sent);
}

TEST_F(ProgSettingsOnTheServer, EveryRightOfTheCatalogueCanBeEdited) {
    ado::Recordset quoted =
        Read(ado::sql("SELECT ItemID FROM NUCLEAR..tbNuclearUserSettings WHERE Description LIKE '%''%'"));
    EXPECT_EQ(quoted.RecordCount(), 0) << "a quote would break the save";
}

TEST_F(ProgSettingsOnTheServer, TheHundredthRightIsRefused) {
    session::Run(ado::sql("INSERT INTO NUCLEAR..tbNuclearUserSettings (ItemID, Description, Status) VALUES "
                          "('99', 'Last', 'A')"));
    try {
        session::Run(ado::sql("NUCLEAR..spNuclear_SaveProgramSettings 'A','0','Census','A'"));
        FAIL() << "a number of three digits would be cut";
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 50002);
    }
}

} // namespace
