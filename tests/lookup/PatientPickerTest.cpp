#include "lookup/frmPatientList.h"
#include "lookup/frmRegisteredOPD.h"
#include "platform/base/Error.h"
#include "tests/lookup/LookupFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace {

using tests::child;

/// What the two lists differ in.
struct Kind {
    const char* name;
    const char* title;
    std::unique_ptr<lookup::PatientPicker> (*make)();
    const char* statement; ///< its beginning
    const char* pattern;   ///< %1 current, %2 choice, %3 text
    bool hasAddButton;
};

template <typename T>
std::unique_ptr<lookup::PatientPicker> make() {
    return std::make_unique<T>();
}

const Kind kinds[] = {{"frmPatientList", "Patient List", make<lookup::frmPatientList>,
                       "spGlobal_RegularPatients", "spGlobal_RegularPatients '%1','%2','%3'", true},
                      {"frmRegisteredOPD", "Registered OPD", make<lookup::frmRegisteredOPD>,
                       "spGlobal_RegisteredOPD", "spGlobal_RegisteredOPD '%1','%2', '%3'", false}};

const char* const columns = "Number,LastName,FirstName,MiddleName,AdmDate,Sex";

class PatientPicker : public tests::LookupFixture {
  protected:
    void open(const Kind& kind, const char* text = "SANTOS", bool add = true) {
        screen = kind.make();
        m_kind = &kind;
        screen->ListCaption = QStringLiteral("Regular Patients");
        screen->CurrentCaption = QString::fromLatin1(text);
        screen->PatientQuery = "spGlobal_RegularPatients '#1','#2','#3'";
        screen->EnableAddPatient = add;
        screen->Show();
        screen->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(screen.get()));
    }
    void answerRows(const Kind& kind, int count, bool once = false) {
        std::vector<std::vector<base::Value>> rows;
        for (int i = 1; i <= count; ++i)
            rows.push_back({QStringLiteral("10400%1").arg(i), "SANTOS", "MARIA", "REYES", "11/20/2026", "F"});
        answer(kind.statement, columns, rows, once);
    }
    QStringList asked(const char* current, const char* choice, const char* text) const {
        return {QString::fromLatin1(m_kind->pattern).arg(current, choice, text)};
    }
    QLineEdit& search() { return child<QLineEdit>(*screen, "txtSearch"); }
    controls::FlexGrid& grid() { return child<controls::FlexGrid>(*screen, "grdTable"); }
    QPushButton& button(const char* name) { return child<QPushButton>(*screen, name); }
    QCheckBox& current() { return child<QCheckBox>(*screen, "chkCurrent"); }
    QLabel& hits() { return child<QLabel>(*screen, "lblHits"); }

    std::unique_ptr<lookup::PatientPicker> screen;

  private:
    const Kind* m_kind = nullptr;
};

class BothLists : public PatientPicker, public testing::WithParamInterface<Kind> {};

INSTANTIATE_TEST_SUITE_P(Pickers, BothLists, testing::ValuesIn(kinds),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_P(BothLists, OpensWithItsGridAndSearchesAtOnce) {
    answerRows(GetParam(), 2);
    open(GetParam());
    EXPECT_EQ(screen->objectName(), GetParam().name);
    EXPECT_EQ(screen->windowTitle(), GetParam().title);
    EXPECT_EQ(child<QLabel>(*screen, "lblCaption").text(), "    Regular Patients");
    EXPECT_EQ(current().text(), "Current Registration Only");
    const auto& choice = child<QComboBox>(*screen, "cmbSearch");
    ASSERT_EQ(choice.count(), 2);
    EXPECT_EQ(choice.itemText(0), "Last Name");
    EXPECT_EQ(choice.itemText(1), "Admission #");
    EXPECT_EQ(choice.currentIndex(), 0);
    const int widths[] = {200, 1000, 2000, 2000, 2000, 1500};
    const char* const headers[] = {"", "Adm #", "Last Name", "First Name", "Middle Name", "Adm. Date"};
    for (int column = 0; column < 6; ++column) {
        EXPECT_EQ(grid().ColWidth(column), widths[column]) << column;
        EXPECT_EQ(grid().TextMatrix(0, column).trimmed(), headers[column]);
    }
    EXPECT_EQ(grid().ColWidth(6), 0) << "further columns are hidden";
    EXPECT_EQ(tests::cells(grid(), 1), "|104001|SANTOS|MARIA|REYES|11/20/2026|F");
    EXPECT_EQ(takeStatements(), asked("0", "0", "SANTOS"));
    EXPECT_EQ(hits().text(), "2 patients");
    EXPECT_TRUE(search().hasFocus());
    EXPECT_EQ(search().selectedText(), "SANTOS");
}

TEST_P(BothLists, WithoutATextOnlyCurrentRegistrationsAreAsked) {
    answerRows(GetParam(), 1);
    open(GetParam(), "");
    EXPECT_TRUE(current().isChecked());
    EXPECT_EQ(takeStatements(), asked("1", "0", ""));
}

TEST_P(BothLists, ABlankIsATextAndIsTrimmedInTheStatement) {
    answerRows(GetParam(), 1);
    open(GetParam(), " ");
    EXPECT_FALSE(current().isChecked());
    EXPECT_EQ(takeStatements(), asked("0", "0", ""));
}

TEST_P(BothLists, EnterSearchesAgainAndNeverSelects) {
    answerRows(GetParam(), 2);
    open(GetParam());
    takeStatements();
    tests::keys(search(), QStringLiteral("<End> o'brien, sean <Enter>"));
    EXPECT_EQ(takeStatements(), asked("0", "0", "SANTOS O`BRIEN, SEAN"));
    tests::keysToFocus(*screen, QStringLiteral("<Enter>"));
    EXPECT_EQ(takeStatements(), asked("0", "0", "SANTOS O`BRIEN, SEAN"));
    EXPECT_FALSE(screen->isUnloaded());
}

TEST_P(BothLists, TheCheckBoxSearchesAgain) {
    answerRows(GetParam(), 1);
    open(GetParam());
    takeStatements();
    tests::keys(current(), QStringLiteral("<Space>"));
    EXPECT_EQ(takeStatements(), asked("1", "0", "SANTOS"));
    tests::keysToFocus(*screen, QStringLiteral("<Space>"));
    EXPECT_EQ(takeStatements(), asked("0", "0", "SANTOS"));
}

TEST_P(BothLists, TheChoiceGoesWithTheNextSearch) {
    answerRows(GetParam(), 1);
    open(GetParam());
    takeStatements();
    tests::keys(child<QComboBox>(*screen, "cmbSearch"), QStringLiteral("<Down>"));
    EXPECT_EQ(takeStatements(), QStringList());
    tests::keysToFocus(*screen, QStringLiteral("o002001<Enter>"));
    EXPECT_EQ(takeStatements(), asked("0", "1", "O002001"));
}

TEST_P(BothLists, DownAndEnterPickByKeyboard) {
    answerRows(GetParam(), 3);
    open(GetParam());
    tests::keysToFocus(*screen, QStringLiteral("<Down>"));
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_EQ(grid().Row(), 1);
    tests::keysToFocus(*screen, QStringLiteral("<Down><Enter>"));
    EXPECT_TRUE(screen->Valid);
    EXPECT_EQ(screen->ResultCode, "104002");
    EXPECT_EQ(screen->PatientRecord.join(u'|'), "|104002|SANTOS|MARIA|REYES|11/20/2026|F");
    EXPECT_TRUE(screen->isUnloaded());
}

TEST_P(BothLists, ADoubleClickPicks) {
    answerRows(GetParam(), 2);
    open(GetParam());
    const QRect cell = grid().cellRect(2, 3);
    const QPoint middle = grid().viewport()->mapFrom(grid().parentWidget(), cell.center());
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(screen->ResultCode, "104002");
}

TEST_P(BothLists, TheCommandPicksTheRowInHand) {
    answerRows(GetParam(), 2);
    open(GetParam());
    tests::keysToFocus(*screen, QStringLiteral("<Alt+S>"));
    EXPECT_TRUE(screen->Valid);
    EXPECT_EQ(screen->ResultCode, "104001");
}

TEST_P(BothLists, NoRowEmptiesTheListWithoutABox) {
    answerRows(GetParam(), 2, true);
    answerRows(GetParam(), 0, true);
    answerRows(GetParam(), 1);
    open(GetParam());
    EXPECT_TRUE(button("cmdSelect").isEnabled());
    tests::keysToFocus(*screen, QStringLiteral("Q<Enter>"));
    EXPECT_FALSE(button("cmdSelect").isEnabled());
    EXPECT_EQ(grid().TextMatrix(1, 1), "");
    EXPECT_EQ(hits().text(), "No patient found.");
    tests::keysToFocus(*screen, QStringLiteral("<Down>"));
    EXPECT_TRUE(search().hasFocus()) << "there is no row to go to";
    grid().setFocus();
    tests::keysToFocus(*screen, QStringLiteral("<Enter>"));
    EXPECT_FALSE(screen->isUnloaded());
    EXPECT_EQ(boxes(), QStringList());
    tests::keys(search(), QStringLiteral("<Enter>"));
    EXPECT_TRUE(button("cmdSelect").isEnabled());
    EXPECT_EQ(grid().TextMatrix(1, 1), "104001");
}

TEST_P(BothLists, CloseAndEscapeLeaveNothingChosen) {
    answerRows(GetParam(), 2);
    for (const char* key : {"<Alt+C>", "<Esc>"}) {
        open(GetParam());
        tests::keysToFocus(*screen, QString::fromLatin1(key));
        EXPECT_TRUE(screen->isUnloaded()) << key;
        EXPECT_FALSE(screen->Valid);
        EXPECT_EQ(screen->ResultCode, "");
        EXPECT_EQ(screen->PatientRecord, QStringList());
    }
}

TEST_P(BothLists, AFullListAsksForMoreOfTheName) {
    answer(GetParam().statement, columns, std::vector(199, std::vector<base::Value>(6, "X")), true);
    answer(GetParam().statement, columns, std::vector(200, std::vector<base::Value>(6, "X")));
    open(GetParam());
    EXPECT_EQ(hits().text(), "199 patients");
    EXPECT_EQ(hits().property("kind"), "help");
    tests::keysToFocus(*screen, QStringLiteral("<Enter>"));
    EXPECT_EQ(hits().text(), "Only the first 200 are shown: type more of the name.");
    EXPECT_EQ(hits().property("kind"), "warn");
}

TEST_P(BothLists, AddingIsForOneOfThemOnly) {
    answerRows(GetParam(), 1);
    open(GetParam());
    auto* add = screen->findChild<QPushButton*>("cmdAddWalkIn");
    EXPECT_EQ(add != nullptr, GetParam().hasAddButton);
    EXPECT_EQ(add ? add->text() : QString(), GetParam().hasAddButton ? "&Add Cash Patient" : "");
}

class PatientList : public PatientPicker {
  protected:
    const Kind& kind = kinds[0];
};

TEST_F(PatientList, TheAddButtonIsVisibleAsTheCallerSays) {
    answerRows(kind, 1);
    open(kind, "SANTOS", false);
    EXPECT_FALSE(button("cmdAddWalkIn").isVisible());
    open(kind, "SANTOS", true);
    EXPECT_TRUE(button("cmdAddWalkIn").isVisible());
}

TEST_F(PatientList, NobodyAddedSearchesNothing) {
    answerRows(kind, 1);
    open(kind);
    takeStatements();
    tests::runModal([&] { tests::keysToFocus(*screen, QStringLiteral("<Alt+A>")); }, {[](QWidget& window) {
                        EXPECT_EQ(window.objectName(), "frmAddWalkIn");
                        tests::keysToFocus(window, QStringLiteral("<Esc>"));
                    }});
    EXPECT_EQ(takeStatements(), QStringList());
}

TEST_F(PatientList, AWalkInHasNoAdmissionDate) {
    answer("spGlobal_RegularPatients", "HospNum,LastName,FirstName,MiddleName,CivilStatusID,CivilStatus",
           {{"W8001", "LUNA", "ANA", "R", "2", "MARRIED"}});
    open(kind);
    EXPECT_EQ(tests::cells(grid(), 1), "|W8001|LUNA|ANA|R||MARRIED");
}

TEST_F(PatientList, ATemplateMayLeaveTheCheckBoxOut) {
    answer("spGlobal_CashPatient", columns);
    screen = std::make_unique<lookup::frmPatientList>();
    screen->PatientQuery = "spGlobal_CashPatient '#2','#3'";
    screen->CurrentCaption = QStringLiteral("#1 #2");
    screen->Show();
    EXPECT_EQ(takeStatements(), QStringList{"spGlobal_CashPatient '0','#1 #2'"})
        << "a text is no place-holder";
}

TEST_F(PatientList, AQuoteFromTheCallerIsRefusedBeforeAnythingIsSent) {
    screen = std::make_unique<lookup::frmPatientList>();
    screen->PatientQuery = "spGlobal_CashPatient '#2','#3'";
    screen->CurrentCaption = QStringLiteral("O'BRIEN");
    EXPECT_THROW(screen->Show(), base::RunTimeError);
    EXPECT_EQ(takeStatements(), QStringList());
}

} // namespace
