#include "lookup/frmSearch.h"

#include "tests/lookup/LookupFixture.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

using tests::child;

class Search : public tests::LookupFixture {
  protected:
    Search()
        : text(child<QLineEdit>(screen, "txtSearchStr"))
        , autoSearch(child<QCheckBox>(screen, "chkAutoSearch"))
        , grid(child<controls::FlexGrid>(screen, "grdDispWindow"))
        , cmdSelect(child<QPushButton>(screen, "cmdSelect")) {
        screen.SearchCaption = QStringLiteral("Revenue Codes");
        screen.Criteria = QStringLiteral("N");
        screen.Query = "spNuclear_SearchRevenue '0','##'";
    }

    void show() {
        screen.Show();
        screen.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
    }
    void answerThree() {
        answer("spNuclear_SearchRevenue '0'", "Revenue,RevenueID",
               {{"NUCLEAR MEDICINE", "NU"}, {"NUCLEAR SUPPLY", "UR"}, {"NURSERY", "NY"}});
    }

    lookup::frmSearch screen;
    QLineEdit& text;
    QCheckBox& autoSearch;
    controls::FlexGrid& grid;
    QPushButton& cmdSelect;
};

QStringList asked(const char* words) {
    return {QStringLiteral("spNuclear_SearchRevenue '0','%1'").arg(QString::fromLatin1(words))};
}

TEST_F(Search, OpensWithItsCaptionAndSearchesTheCriteriaAtOnce) {
    answerThree();
    show();
    EXPECT_EQ(screen.windowTitle(), QStringLiteral("Search Listing"));
    EXPECT_EQ(child<QLabel>(screen, "lblHospital").text(), QStringLiteral("Kerova General Hospital"));
    EXPECT_EQ(child<QLabel>(screen, "lblTitle").text(), QStringLiteral("Revenue Codes"));
    EXPECT_EQ(takeStatements(), asked("N"));
    EXPECT_EQ(grid.Rows(), 4);
    EXPECT_EQ(grid.ColWidth(0), 200);
    EXPECT_EQ(grid.ColWidth(1), 4150);
    EXPECT_EQ(grid.ColWidth(2), 1500);
    EXPECT_TRUE(text.hasFocus());
    EXPECT_EQ(text.text(), QStringLiteral("N"));
    EXPECT_EQ(text.selectedText(), QStringLiteral("N"));
}

TEST_F(Search, WaitsWhenItIsToldNotToSearch) {
    answerThree();
    screen.DisableSearch = true;
    show();
    EXPECT_EQ(takeStatements(), QStringList());
    EXPECT_FALSE(cmdSelect.isEnabled());
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(takeStatements(), asked("N"));
    EXPECT_FALSE(screen.Valid);
}

TEST_F(Search, SearchesOnEachChangeWhenAutoSearchIsOn) {
    answerThree();
    show();
    takeStatements();
    QTest::keyClicks(&text, QStringLiteral("N"));
    EXPECT_EQ(takeStatements(), QStringList()) << "AutoSearch is off";
    QTest::mouseClick(&autoSearch, Qt::LeftButton, {}, QPoint(8, autoSearch.height() / 2));
    ASSERT_TRUE(autoSearch.isChecked());
    text.setFocus();
    text.deselect();
    text.end(false);
    QTest::keyClicks(&text, QStringLiteral("ur"));
    EXPECT_EQ(takeStatements(), asked("Nu") + asked("Nur"));
    EXPECT_TRUE(text.hasFocus());
    EXPECT_EQ(text.text(), QStringLiteral("Nur"));
}

TEST_F(Search, EnterSearchesAChangedTextAndThenTakesTheRowInHand) {
    answerThree();
    show();
    takeStatements();
    QTest::keyClicks(&text, QStringLiteral("NU"));
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(takeStatements(), asked("NU"));
    EXPECT_FALSE(screen.Valid);
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_TRUE(screen.Valid);
    EXPECT_EQ(screen.ResultCode, QStringLiteral("NU"));
    EXPECT_TRUE(screen.isUnloaded());
    EXPECT_EQ(takeStatements(), QStringList());
}

TEST_F(Search, AQuoteIsABackQuoteAsItIsTyped) {
    answerThree();
    show();
    QTest::keyClicks(&text, QStringLiteral("n'u"));
    EXPECT_EQ(text.text(), QStringLiteral("n`u"));
}

TEST_F(Search, MovingInTheGridCopiesTheNameToTheText) {
    answerThree();
    show();
    QTest::mouseClick(&autoSearch, Qt::LeftButton, {}, QPoint(8, autoSearch.height() / 2));
    text.setFocus();
    takeStatements();
    QTest::keyClick(&text, Qt::Key_Down);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(grid.Row(), 1);
    QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(text.text(), QStringLiteral("NUCLEAR SUPPLY"));
    EXPECT_EQ(takeStatements(), QStringList()) << "the list must not follow its own row";
    QTest::keyClick(&grid, Qt::Key_Return);
    EXPECT_TRUE(screen.Valid);
    EXPECT_EQ(screen.ResultCode, QStringLiteral("UR"));
}

TEST_F(Search, EnterInTheTextTakesTheRowThatWasMovedTo) {
    answerThree();
    show();
    QTest::keyClick(&text, Qt::Key_Down);
    QTest::keyClick(&grid, Qt::Key_Down);
    QTest::keyClick(&grid, Qt::Key_Down);
    text.setFocus();
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(screen.ResultCode, QStringLiteral("NY"));
}

TEST_F(Search, CancelLeavesNothingChosen) {
    answerThree();
    show();
    QTest::mouseClick(&child<QPushButton>(screen, "cmdCancel"), Qt::LeftButton);
    EXPECT_TRUE(screen.isUnloaded());
    EXPECT_FALSE(screen.Valid);
    EXPECT_EQ(screen.ResultCode, QString());
}

TEST_F(Search, AnEmptyListTakesNoChoice) {
    answer("spNuclear_SearchRevenue '0'", "Revenue,RevenueID");
    show();
    EXPECT_FALSE(cmdSelect.isEnabled());
    takeStatements();
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(takeStatements(), asked("N")) << "Enter searches again";
    EXPECT_FALSE(screen.isUnloaded());
    EXPECT_EQ(boxes(), QStringList());
}

} // namespace
