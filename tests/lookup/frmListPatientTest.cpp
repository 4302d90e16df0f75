#include "lookup/frmListPatient.h"

#include "tests/lookup/LookupFixture.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

using tests::child;

const char* const columns = "Hosp.No.,Adm.No.,Patient Name,Billed Date,Charging Status,NucStatus,DcrDate";

class ListPatient : public tests::LookupFixture {
  protected:
    ListPatient()
        : search(child<QLineEdit>(screen, "txtSearch"))
        , choice(child<QComboBox>(screen, "cmbSearch"))
        , grid(child<controls::FlexGrid>(screen, "grdTable"))
        , cmdSelect(child<QPushButton>(screen, "cmdSelect")) {
        screen.Show();
        screen.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
    }

    /// What the search text sends.
    QStringList searched(const QString& text) {
        search.setFocus();
        search.selectAll();
        QTest::keyClicks(&search, text);
        QTest::keyClick(&search, Qt::Key_Return);
        return takeStatements();
    }

    /// Answers every search with these rows and searches.
    void list(const std::vector<std::vector<base::Value>>& rows) {
        answer("sp_Nuclear_getpatientby", columns, rows);
        searched(QStringLiteral("S"));
    }

    lookup::frmListPatient screen;
    QLineEdit& search;
    QComboBox& choice;
    controls::FlexGrid& grid;
    QPushButton& cmdSelect;
};

std::vector<base::Value> patient(const char* idNumber, const base::Value& billed = nullptr,
                                 const char* nucStatus = "Okey") {
    return {"0045127", idNumber, "SANTOS, MARIA LUISA REYES", billed, "Open", nucStatus, nullptr};
}

TEST_F(ListPatient, OpensWithItsListAndGrid) {
    EXPECT_EQ(screen.windowTitle(), QStringLiteral("List of Patients"));
    ASSERT_EQ(choice.count(), 3);
    EXPECT_EQ(choice.itemText(0), QStringLiteral("Last Name"));
    EXPECT_EQ(choice.itemText(1), QStringLiteral("Admission No."));
    EXPECT_EQ(choice.itemText(2), QStringLiteral("Hospital No."));
    EXPECT_EQ(choice.currentIndex(), 0);
    ASSERT_EQ(grid.Cols(), 8);
    const int widths[] = {100, 1100, 1100, 2500, 1500, 1000, 1000, 1600};
    for (int column = 0; column < 8; ++column)
        EXPECT_EQ(grid.ColWidth(column), widths[column]) << column;
    const char* const headers[] = {
        "", "Hosp.No.", "Adm.No.", "Patient Name", "Billed Date", "Charging Status", "NucStatus", "DcrDate"};
    for (int column = 0; column < 8; ++column)
        EXPECT_EQ(grid.TextMatrix(0, column).trimmed(), QString::fromLatin1(headers[column]));
    EXPECT_TRUE(search.hasFocus());
    EXPECT_FALSE(cmdSelect.isEnabled());
    EXPECT_EQ(takeStatements(), QStringList());
}

TEST_F(ListPatient, SendsTheStatementOfTheChoice) {
    answer("sp_Nuclear_getpatientby", columns);
    EXPECT_EQ(searched(QStringLiteral("SANTOS")),
              QStringList{QStringLiteral("sp_Nuclear_getpatientbylastname 'I','SANTOS'")});
    choice.setCurrentIndex(1);
    EXPECT_EQ(searched(QStringLiteral("2601184")),
              QStringList{QStringLiteral("sp_Nuclear_getpatientbyidnum 'I','2601184'")});
    choice.setCurrentIndex(2);
    EXPECT_EQ(searched(QStringLiteral("0045127")),
              QStringList{QStringLiteral("sp_Nuclear_getpatientbyhospnum 'I','0045127'")});
}

TEST_F(ListPatient, SplitsALastNameAtTheFirstComma) {
    answer("sp_Nuclear_getpatientby", columns);
    EXPECT_EQ(searched(QStringLiteral("SANTOS,MARIA")),
              QStringList{QStringLiteral("sp_Nuclear_getpatientbyfirstname 'I','SANTOS','MARIA'")});
    EXPECT_EQ(searched(QStringLiteral("SANTOS, MARIA,JR ")),
              QStringList{QStringLiteral("sp_Nuclear_getpatientbyfirstname 'I','SANTOS',' MARIA,JR '")});
    EXPECT_EQ(searched(QStringLiteral(",")),
              QStringList{QStringLiteral("sp_Nuclear_getpatientbyfirstname 'I','',''")});
    choice.setCurrentIndex(1);
    EXPECT_EQ(searched(QStringLiteral("26,01")),
              QStringList{QStringLiteral("sp_Nuclear_getpatientbyidnum 'I','26,01'")});
}

TEST_F(ListPatient, UpperCasesLettersAndTurnsQuotesAsTheyAreTyped) {
    answer("sp_Nuclear_getpatientby", columns);
    EXPECT_EQ(searched(QStringLiteral("o'brien")),
              QStringList{QStringLiteral("sp_Nuclear_getpatientbylastname 'I','O`BRIEN'")});
}

TEST_F(ListPatient, ShowsWhatWasFound) {
    list({patient("2601184"), patient("2601185")});
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(tests::cells(grid, 1),
              QStringLiteral("|0045127|2601184|SANTOS, MARIA LUISA REYES||Open|Okey|"));
    EXPECT_TRUE(cmdSelect.isEnabled());
    EXPECT_EQ(child<QLabel>(screen, "lblHits").text(), QStringLiteral("2 patients"));
    EXPECT_TRUE(search.hasFocus());
    EXPECT_EQ(search.selectedText(), search.text());
}

TEST_F(ListPatient, AnEmptyResultIsAnEmptyListWithoutABox) {
    answer("sp_Nuclear_getpatientbylastname", columns, {patient("2601184")}, true);
    answer("sp_Nuclear_getpatientbylastname", columns);
    searched(QStringLiteral("S"));
    ASSERT_TRUE(cmdSelect.isEnabled());
    searched(QStringLiteral("Q"));
    EXPECT_FALSE(cmdSelect.isEnabled());
    EXPECT_EQ(grid.TextMatrix(1, 2), QString());
    EXPECT_EQ(child<QLabel>(screen, "lblHits").text(), QStringLiteral("No patient found."));
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_Return);
    EXPECT_EQ(boxes(), QStringList());
    EXPECT_TRUE(screens.requests.empty());
}

TEST_F(ListPatient, AFullListAsksForMoreOfTheName) {
    list(std::vector(200, patient("2601184")));
    EXPECT_EQ(child<QLabel>(screen, "lblHits").text(),
              QStringLiteral("Only the first 200 are shown: type more of the name."));
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(ListPatient, DownGoesToTheFirstRowAndTypingBackToTheSearch) {
    QTest::keyClick(&search, Qt::Key_Down);
    EXPECT_TRUE(search.hasFocus()) << "no rows yet";
    list({patient("2601184"), patient("2601185")});
    grid.setRow(2);
    QTest::keyClick(&search, Qt::Key_Down);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(grid.Row(), 1);
    QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(grid.Row(), 2);
    QTest::keyClick(&grid, Qt::Key_R);
    EXPECT_TRUE(search.hasFocus());
    EXPECT_EQ(search.text(), QStringLiteral("R"));
}

TEST_F(ListPatient, AClosedAccountCannotBeSelected) {
    list({patient("2601184", "11/20/2026", "Not Okey")});
    QTest::mouseClick(&cmdSelect, Qt::LeftButton);
    EXPECT_EQ(boxes(),
              QStringList{QStringLiteral(
                  "0|Message|Patient`s account has already been closed.\nIf you have charges to make, "
                  "pls. notify the billing for further instructions.")});
    EXPECT_EQ(takeStatements(), QStringList());
    EXPECT_TRUE(screens.requests.empty());
    EXPECT_FALSE(screen.Valid);
}

TEST_F(ListPatient, ABilledDateOfBlanksIsABilledDate) {
    list({patient("2601184", " ")});
    QTest::mouseClick(&cmdSelect, Qt::LeftButton);
    ASSERT_EQ(boxes().size(), 1);
    EXPECT_TRUE(boxes().first().contains(QStringLiteral("closed")));
}

TEST_F(ListPatient, AnAccountUnderCashBasisCannotBeSelected) {
    list({patient("2601184", nullptr, " Not Okey ")});
    QTest::keyClick(&search, Qt::Key_Down);
    QTest::keyClick(&grid, Qt::Key_Return);
    EXPECT_EQ(boxes(), QStringList{QStringLiteral(
                           "0|Message|Patient`s account has been placed under cash basis.\nPls. refer to "
                           "Credit and Collection Dept. for further instructions.")});
    EXPECT_EQ(takeStatements(), QStringList());
    EXPECT_TRUE(screens.requests.empty());
}

TEST_F(ListPatient, ClosesWithItsCommandAndWithEscape) {
    QTest::mouseClick(&child<QPushButton>(screen, "cmdClose"), Qt::LeftButton);
    EXPECT_TRUE(screen.isUnloaded());
    EXPECT_FALSE(screen.Valid);
    lookup::frmListPatient another;
    another.Show();
    QTest::keyClick(&another, Qt::Key_Escape);
    EXPECT_TRUE(another.isUnloaded());
}

} // namespace
