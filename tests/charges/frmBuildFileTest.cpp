#include "charges/frmBuildFile.h"

#include "platform/base/TestDoors.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/reports/ReportLaunch.h"
#include "tests/support/core/Raised.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"
#include "tests/support/screens/ScriptedSession.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using tests::child;
using tests::click;
using tests::keys;
using Row = std::vector<base::Value>;

const char* const listColumns =
    "Dummy,NucExam,NucExamID,NucSectionID,RateA,RateB,RateC,RateD,RateE,Fixrate,Status,Beyond";
const char* const examColumns = "NucExamID,NucExam,RateA,RateB,RateC,RateD,RateE,common,Status,Fixrate";
const QString list = QStringLiteral("build_file..sp_Bui_Find_Revenue_Center_Items 'NU'");
const QString last = QStringLiteral("sp_Bui_Find_Last_Item_Number 'NU'");

QString oneExam(const char* code) {
    return QStringLiteral("build_file..sp_Bui_Show_Item_Details 'NU','%1'").arg(QLatin1String(code));
}
QString byDescription(const char* text) {
    return QStringLiteral("select Top 1 NucExamID From BUILD_FILE..tbCoNucExam Where NucExam Like '%1%'")
        .arg(QLatin1String(text));
}
QString section(const char* letter, const char* code) {
    return QStringLiteral("UPDATE tbCoNucExam SET NucSectionID = '%1' WHERE NucExamID = '%2'")
        .arg(QLatin1String(letter), QLatin1String(code));
}

class BuildFile : public testing::Test {
  protected:
    BuildFile() {
        script.acceptAny();
        answer("build_file..sp_Bui_Show_Item_Details 'NU','1001'", examColumns,
               {{"1001", "BONE SCAN", "4800.0000", "5200.5000", "5760.0000", "6240", "6720", "N", "A", "N"}});
        answer("build_file..sp_Bui_Show_Item_Details 'NU','1002'", examColumns,
               {{"1002", "GALLIUM SCAN", "1", "2", "3", "4", "5", "Y", "I", "Y"}});
        answer("build_file..sp_Bui_Show_Item_Details 'NU','1003'", examColumns,
               {{"1003", "THYROID SCAN", "6", "7", "8", "9", "10", nullptr, nullptr, nullptr}});
        answer("build_file..sp_Bui_Show_Item_Details", examColumns);
    }
    ~BuildFile() override { screen.reset(); }

    static Row exam(const char* name, const char* code) {
        return {"", name, code, "O", "4800", "5200", "5760", "6240", "6720", "N", "A", "beyond"};
    }
    void answer(const char* statement, const char* columns, const std::vector<Row>& rows = {},
                bool once = false) {
        session.server().answer(QLatin1String(statement),
                                tests::ScriptedProvider::rowsOf(QLatin1String(columns), rows), once);
    }
    void answerLast(const char* number) { answer("sp_Bui_Find_Last_Item_Number", "lastnumber", {{number}}); }
    void answerSearch(const std::vector<Row>& codes) { answer("select Top 1 NucExamID", "NucExamID", codes); }
    void show() {
        answer("build_file..sp_Bui_Find_Revenue_Center_Items", listColumns, exams);
        screen = std::make_unique<charges::frmBuildFile>();
        screen->Show();
        screen->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(screen.get()));
    }
    QStringList takeTexts() { return std::exchange(session.texts(), {}); }
    QStringList boxes() const {
        QStringList texts;
        for (const tests::MessageScript::Box& box : script.boxes())
            texts += QStringLiteral("%1|%2|%3").arg(box.style).arg(box.title, box.prompt);
        return texts;
    }

    QPushButton& button(const char* name) { return child<QPushButton>(*screen, name); }
    QLineEdit& field(const char* name) { return child<QLineEdit>(*screen, name); }
    controls::FlexGrid& grid() { return child<controls::FlexGrid>(*screen, "grdExams"); }
    QString status() { return child<QLabel>(*screen, "lblStatus").text(); }
    /// Code, description and the rates.
    QString details() {
        QStringList texts;
        for (const char* name :
             {"txtCode", "txtDecription", "txtRateA", "txtRateB", "txtRateC", "txtRateD", "txtRateE"})
            texts += field(name).text();
        return texts.join(u'|');
    }
    /// Common, active, fixed.
    QString ticks() {
        QString letters;
        for (const char* name : {"chkCommon", "chkActive", "chkVariableRate"})
            letters += child<QCheckBox>(*screen, name).isChecked() ? u'x' : u'-';
        return letters;
    }
    /// A row of the table of states.
    QString state() {
        const auto seen = [](const QWidget& command) {
            return QStringLiteral("%1 %2").arg(command.isHidden() ? "hidden" : "shown",
                                               command.isEnabled() ? "enabled" : "disabled");
        };
        const auto live = [](const QWidget& control) {
            return QString(control.isEnabled() ? "enabled" : "disabled");
        };
        QStringList others;
        for (const char* name : {"btnEdit", "btnNew", "btnRefresh", "btnPrint"})
            others += live(button(name));
        others.removeDuplicates();
        const bool cancelShown = !button("btnCancel").isHidden();
        return QStringList{live(child<QGroupBox>(*screen, "fmeExamInfo")),
                           status(),
                           grid().isEnabled() ? "in use" : "out of use",
                           others.join(u'/'),
                           seen(button("btnSave")),
                           cancelShown ? "shown" : "hidden"}
            .join(u'|');
    }

    base::FixedClock clock = tests::fixedClock();
    tests::ScriptedSession session;
    tests::MessageScript script;
    std::vector<Row> exams{exam("BONE SCAN", "1001"), exam("GALLIUM SCAN", "1002"),
                           exam("THYROID SCAN", "1003")};
    std::unique_ptr<charges::frmBuildFile> screen;
};

// ---- opening

TEST_F(BuildFile, OpensWithItsLists) {
    show();
    EXPECT_EQ(screen->windowTitle(), QStringLiteral("Build File: Nuclear Exams"));
    const auto entries = [&](const char* name) {
        const auto& box = child<QComboBox>(*screen, name);
        QStringList texts;
        for (int i = 0; i < box.count(); ++i)
            texts += box.itemText(i);
        EXPECT_EQ(box.currentIndex(), 0) << name;
        return texts.join(u',');
    };
    EXPECT_EQ(entries("cmbSearch"), QStringLiteral("Decription,Code"));
    EXPECT_EQ(entries("cmbMedicareType"), QStringLiteral("N = Non-Medicare"));
    EXPECT_EQ(entries("cmdSectionID"), QStringLiteral("O = Others,M = MPI,T = Therapy"));
    QStringList captions;
    for (const char* name :
         {"btnPrint", "btnRefresh", "btnNew", "btnEdit", "btnSave", "btnCancel", "btnExit"})
        captions += button(name).text();
    EXPECT_EQ(captions.join(u','), QStringLiteral("F9=Print,F5=Refresh,F8=New,F7=Edit,&Save,&Cancel,E&xit"));
    EXPECT_EQ(takeTexts(), QStringList{list});
}

TEST_F(BuildFile, TheGridTakesTheFirstElevenColumnsUnderItsHeadings) {
    show();
    const char* const headers[] = {"dumm",   "Exam Description", "Exam Code", "NucSectionID",
                                   "Rate A", "Rate B",           "Rate C",    "Rate D",
                                   "Rate E", "FixRate",          "Status"};
    const int widths[] = {0, 3500, 900, 0, 1200, 1200, 1200, 1200, 1200, 0, 1100};
    const char* const cells[] = {"",     "BONE SCAN", "1001", "O", "4800", "5200",
                                 "5760", "6240",      "6720", "N", "A"};
    for (int column = 0; column < 11; ++column) {
        EXPECT_EQ(grid().TextMatrix(0, column).trimmed(), QLatin1String(headers[column]));
        EXPECT_EQ(grid().ColWidth(column), widths[column]) << column;
        EXPECT_EQ(grid().TextMatrix(1, column), QLatin1String(cells[column]));
    }
    EXPECT_EQ(grid().ColWidth(11), 0) << "columns beyond are not shown";
}

TEST_F(BuildFile, AnEmptyListLeavesTheGridAsItWas) {
    answer("build_file..sp_Bui_Find_Revenue_Center_Items", listColumns, exams, true);
    exams.clear();
    show();
    const int rows = grid().Rows();
    click(button("btnRefresh"));
    EXPECT_EQ(grid().Rows(), rows);
    EXPECT_EQ(grid().TextMatrix(1, 2), QStringLiteral("1001"));
}

// ---- the table of states

TEST_F(BuildFile, StateAfterLoad) {
    show();
    EXPECT_EQ(state(), QStringLiteral("disabled|Nuclear Exams|in use|enabled|hidden enabled|hidden"));
}

TEST_F(BuildFile, StateAfterNew) {
    show();
    grid().setRow(2);
    click(grid());
    click(button("btnNew"));
    EXPECT_EQ(state(), QStringLiteral("enabled|Add new exam|out of use|disabled|shown disabled|shown"));
    EXPECT_EQ(details(), QStringLiteral("||||||")) << "nothing of the exam that was in hand";
    EXPECT_FALSE(field("txtCode").isEnabled());
    EXPECT_TRUE(field("txtDecription").hasFocus());
}

TEST_F(BuildFile, StateAfterEdit) {
    show();
    grid().setRow(1);
    takeTexts();
    click(button("btnEdit"));
    EXPECT_EQ(state(), QStringLiteral("enabled|Edit Exam|out of use|disabled|shown enabled|shown"));
    EXPECT_EQ(takeTexts(), QStringList{oneExam("1001")});
}

TEST_F(BuildFile, StateAfterCancel) {
    show();
    for (const char* command : {"btnNew", "btnEdit"}) {
        click(button(command));
        click(button("btnCancel"));
        EXPECT_EQ(state(),
                  QStringLiteral("disabled|Cancel Nuclear Exams|in use|enabled|hidden enabled|hidden"))
            << command;
        EXPECT_TRUE(grid().hasFocus());
    }
}

TEST_F(BuildFile, TheHelpSaysWhatTheKeysDoInEachMode) {
    show();
    const auto help = [this] { return child<QLabel>(*screen, "lblKeys").text(); };
    const QString search = QStringLiteral("in the search"), save = QStringLiteral("allows Save");
    EXPECT_TRUE(help().contains(search) && !help().contains(save)) << help().toStdString();
    for (const char* command : {"btnNew", "btnEdit"}) {
        click(button(command));
        EXPECT_TRUE(help().contains(save) && !help().contains(search)) << command;
        click(button("btnCancel"));
        EXPECT_TRUE(help().contains(search) && !help().contains(save)) << command;
    }
}

TEST_F(BuildFile, CancelKeepsTheMode) {
    show();
    click(button("btnEdit"));
    click(button("btnCancel"));
    button("btnSave").show(); // no command of the screen brings it back
    takeTexts();
    click(button("btnSave"));
    EXPECT_TRUE(takeTexts().value(0).startsWith("build_File..sp_Bui_Update_Item_Details")) << "still editing";
}

TEST_F(BuildFile, WithoutAModeASaveSendsNothing) {
    show();
    button("btnSave").show();
    takeTexts();
    click(button("btnSave"));
    EXPECT_EQ(takeTexts(), QStringList());
    EXPECT_EQ(boxes(), QStringList());
}

// ---- the exam in hand

TEST_F(BuildFile, AClickOnARowShowsItsExam) {
    show();
    takeTexts();
    const QRect row = grid().visualRect(grid().model()->index(1, 1));
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(takeTexts(), QStringList{oneExam("1002")});
    EXPECT_EQ(details(), QStringLiteral("1002|GALLIUM SCAN|1|2|3|4|5"));
    EXPECT_EQ(ticks(), QStringLiteral("x-x"));
    EXPECT_EQ(status(), QStringLiteral("Search Exams"));
}

TEST_F(BuildFile, EveryKeyInTheGridShowsTheExamOfItsRow) {
    show();
    takeTexts();
    keys(grid(), "<Down>");
    EXPECT_EQ(takeTexts(), QStringList{oneExam("1002")}) << "of the row that the key led to";
    keys(grid(), "<Up>");
    EXPECT_EQ(takeTexts(), QStringList{oneExam("1001")});
    keys(grid(), "x");
    EXPECT_EQ(takeTexts(), QStringList{oneExam("1001")});
}

TEST_F(BuildFile, RatesAreShownAsNumbersAndForEditingAsTheFileHasThem) {
    show();
    grid().setRow(1);
    keys(grid(), "<Home>");
    EXPECT_EQ(details(), QStringLiteral("1001|BONE SCAN|4800|5200.5|5760|6240|6720"));
    EXPECT_EQ(ticks(), QStringLiteral("-x-"));
    click(button("btnEdit"));
    EXPECT_EQ(details(), QStringLiteral("1001|BONE SCAN|4800.0000|5200.5000|5760.0000|6240|6720"));
}

TEST_F(BuildFile, ANullFlagIsCommonAndNeitherActiveNorFixed) {
    show();
    keys(grid(), "<Down><Down>");
    EXPECT_EQ(details(), QStringLiteral("1003|THYROID SCAN|6|7|8|9|10"));
    EXPECT_EQ(ticks(), QStringLiteral("x--"));
}

TEST_F(BuildFile, AnExamThatIsGoneLeavesTheFields) {
    show();
    keys(grid(), "<Home>");
    const QString before = details();
    grid().setTextMatrix(2, 2, QStringLiteral("9"));
    keys(grid(), "<Down>");
    EXPECT_EQ(details(), before);
}

TEST_F(BuildFile, RefreshReadsTheListAndClearsTheFields) {
    show();
    keys(grid(), "<Down><F8>");
    click(button("btnCancel"));
    ASSERT_EQ(status(), QStringLiteral("Cancel Nuclear Exams"));
    takeTexts();
    click(button("btnRefresh"));
    EXPECT_EQ(takeTexts(), QStringList{list});
    EXPECT_EQ(details(), QStringLiteral("||||||"));
    EXPECT_EQ(status(), QStringLiteral("Nuclear Exams"));
}

// ---- keys of the commands

TEST_F(BuildFile, TheGridsKeysAreItsCommands) {
    show();
    keys(grid(), "<Down>");
    takeTexts();
    keys(grid(), "<F5>");
    EXPECT_EQ(takeTexts(), QStringList{list});
    EXPECT_EQ(details(), QStringLiteral("||||||"));
    keys(grid(), "<F8>");
    EXPECT_EQ(status(), QStringLiteral("Add new exam"));
    EXPECT_EQ(takeTexts(), QStringList());
    EXPECT_EQ(details(), QStringLiteral("||||||"));
    tests::keysToFocus(*screen, "<Esc>");
    EXPECT_EQ(status(), QStringLiteral("Cancel Nuclear Exams"));
    keys(grid(), "<F7>");
    EXPECT_EQ(status(), QStringLiteral("Edit Exam"));
    EXPECT_EQ(takeTexts(), QStringList{oneExam("1001")});
}

TEST_F(BuildFile, OutsideOfTheGridTheirKeysDoNothing) {
    show();
    takeTexts();
    for (const char* key : {"<F5>", "<F7>", "<F8>", "<F9>"})
        keys(field("txtSearch"), key);
    EXPECT_EQ(takeTexts(), QStringList());
    EXPECT_EQ(status(), QStringLiteral("Nuclear Exams"));
}

TEST_F(BuildFile, AGridOutOfUseTakesNoKey) {
    show();
    click(button("btnNew"));
    takeTexts();
    QTest::keyClick(&grid(), Qt::Key_F7);
    QTest::keyClick(&grid(), Qt::Key_Down);
    EXPECT_EQ(takeTexts(), QStringList());
    EXPECT_EQ(status(), QStringLiteral("Add new exam"));
}

TEST_F(BuildFile, PrintsTheListOfProcedures) {
    show();
    takeTexts();
    QStringList told;
    session::otherReportLaunchers().prepareReport = [&](const QString& path, const QString& database,
                                                        const std::vector<base::Value>& values) {
        told << path << database << QString::number(values.size()) << status();
    };
    session::otherReportLaunchers().showReport = [&](bool tree, const QString& title, bool direct) {
        told << QString::number(tree) << title << QString::number(direct);
    };
    keys(grid(), "<F9>");
    session::otherReportLaunchers() = {};
    EXPECT_EQ(told, (QStringList{session::programFolder() + "\\Reports\\NucExams.RPT", "NUCLEAR", "0",
                                 "Print Nuclear Exams", "0", "List of Nuclear Procedures", "0"}));
    EXPECT_EQ(takeTexts(), QStringList());
}

// ---- add

TEST_F(BuildFile, AnAddIsAllowedByEnterInTheDescriptionAlone) {
    show();
    click(button("btnNew"));
    keys(field("txtDecription"), "new scan<Tab>12");
    EXPECT_FALSE(button("btnSave").isEnabled()) << "typed and not closed by Enter";
    keys(field("txtDecription"), "<Enter>");
    EXPECT_TRUE(button("btnSave").isEnabled());
    EXPECT_TRUE(field("txtRateA").hasFocus());
}

TEST_F(BuildFile, AnAddSendsItsStatementsAndStaysInAdd) {
    answerLast("1304");
    show();
    keys(grid(), "<Down>"); // its ticks stay behind for the new one
    click(button("btnNew"));
    takeTexts();
    keys(field("txtDecription"), "liver's scan<Enter>4100.50<Enter>4500<Enter><Enter>.5<Enter>0012<Enter>");
    EXPECT_TRUE(child<QComboBox>(*screen, "cmbMedicareType").hasFocus());
    tests::keysToFocus(*screen, "<Alt+S>");
    EXPECT_EQ(takeTexts(), (QStringList{last,
                                        "sp_Bui_Insert_Item 'NU','1305','LIVER`S "
                                        "SCAN','4100.5','4500','0','0.5','12','Y','I','N','Y'",
                                        section("", ""), list}));
    EXPECT_EQ(boxes(), QStringList{"64|Message|Record Saved"});
    EXPECT_EQ(details(), QStringLiteral("||||||"));
    EXPECT_FALSE(button("btnSave").isEnabled());
    EXPECT_FALSE(button("btnSave").isHidden());
    EXPECT_FALSE(button("btnCancel").isHidden());
    EXPECT_FALSE(grid().isEnabled());
    EXPECT_FALSE(button("btnNew").isEnabled());
    EXPECT_EQ(status(), QStringLiteral("Nuclear Exams"));
    EXPECT_TRUE(field("txtDecription").hasFocus());
    // and on, without New
    keys(field("txtDecription"), "B<Enter>");
    tests::keysToFocus(*screen, "<Alt+S>");
    EXPECT_EQ(takeTexts().value(1),
              QStringLiteral("sp_Bui_Insert_Item 'NU','1305','B','0','0','0','0','0','Y','I','N','Y'"));
}

TEST_F(BuildFile, TheStatusSaysAddWhileItIsSaved) {
    QStringList seen;
    answerLast("1");
    show();
    click(button("btnEdit"));
    class Seen : public ado::Observer {
      public:
        std::function<void()> look;
        void beforeStatement(const QString&, ado::StatementKind) override { look(); }
    } observer;
    observer.look = [&] { seen += status(); };
    session::gConnection->addObserver(&observer);
    click(button("btnSave"));
    session::gConnection->removeObserver(&observer);
    seen.removeDuplicates();
    EXPECT_EQ(seen, QStringList{"Add Nuclear Exam"});
}

TEST_F(BuildFile, TheLastNumberIsThe16BitOne) {
    answerLast("32766");
    show();
    click(button("btnNew"));
    takeTexts();
    keys(field("txtDecription"), "A<Enter>");
    tests::keysToFocus(*screen, "<Alt+S>");
    EXPECT_TRUE(takeTexts().value(1).startsWith("sp_Bui_Insert_Item 'NU','32767'"));
}

TEST_F(BuildFile, BehindTheLastNumberTheAddFails) {
    answerLast("32767");
    show();
    click(button("btnNew"));
    takeTexts();
    keys(field("txtDecription"), "A<Enter>");
    tests::ErrorRecorder errors;
    tests::keysToFocus(*screen, "<Alt+S>");
    EXPECT_EQ(errors.take().number(), base::errors::overflow);
    EXPECT_EQ(takeTexts(), QStringList{last}) << "nothing was written";
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(BuildFile, NothingIsAskedOfAnEmptyExam) {
    answerLast("");
    show();
    click(button("btnNew"));
    takeTexts();
    keys(field("txtDecription"), "<Enter>");
    tests::keysToFocus(*screen, "<Alt+S>");
    EXPECT_EQ(takeTexts().value(1),
              QStringLiteral("sp_Bui_Insert_Item 'NU','1','','0','0','0','0','0','N','I','N','N'"));
}

// ---- edit

TEST_F(BuildFile, AnEditSendsItsStatementsAndEnds) {
    show();
    keys(grid(), "<Down><F7>");
    takeTexts();
    child<QCheckBox>(*screen, "chkActive").setChecked(true);
    child<QCheckBox>(*screen, "chkVariableRate").setChecked(false);
    child<QCheckBox>(*screen, "chkCommon").setChecked(false);
    field("txtRateA").selectAll();
    keys(field("txtRateA"), "1500");
    click(button("btnSave"));
    EXPECT_EQ(takeTexts(), (QStringList{"build_File..sp_Bui_Update_Item_Details 'NU','1002','GALLIUM "
                                        "SCAN','1500','2','3','4','5','N','A','N','N'",
                                        section("", "1002"), list}));
    EXPECT_EQ(boxes(), QStringList{"64|Message|Record Saved"});
    EXPECT_EQ(details(), QStringLiteral("||||||"));
    EXPECT_TRUE(button("btnSave").isHidden());
    EXPECT_TRUE(button("btnCancel").isHidden());
    for (const char* name : {"btnEdit", "btnNew", "btnRefresh", "btnPrint"})
        EXPECT_TRUE(button(name).isEnabled()) << name;
    EXPECT_TRUE(grid().isEnabled());
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_TRUE(child<QGroupBox>(*screen, "fmeExamInfo").isEnabled()) << "only Cancel closes the frame";
}

TEST_F(BuildFile, TheBlanksAroundACodeAreNotSent) {
    show();
    keys(grid(), "<Down><F7>");
    field("txtCode").setText(QStringLiteral(" 1002 "));
    takeTexts();
    click(button("btnSave"));
    const QStringList sent = takeTexts();
    EXPECT_TRUE(sent.value(0).startsWith(
        QStringLiteral("build_File..sp_Bui_Update_Item_Details 'NU','1002','GALLIUM SCAN',")));
    EXPECT_EQ(sent.value(1), section("", "1002"));
}

TEST_F(BuildFile, TheSectionGoesByThePlaceOfTheMedicareType) {
    const std::tuple<int, const char*, const char*> places[] = {
        {-1, "", ""}, {0, "", "N"}, {1, "M", ""}, {2, "T", ""}, {3, "", ""}};
    for (const auto& [place, letter, medicare] : places) {
        show();
        auto& types = child<QComboBox>(*screen, "cmbMedicareType");
        types.addItems({"1", "2", "3"});
        for (int chosen = 0; chosen < 3; ++chosen) {
            click(button("btnEdit"));
            child<QComboBox>(*screen, "cmdSectionID").setCurrentIndex(chosen);
            types.setCurrentIndex(place);
            takeTexts();
            click(button("btnSave"));
            const QStringList texts = takeTexts();
            EXPECT_EQ(texts.value(1), section(letter, "1001")) << place << ' ' << chosen;
            EXPECT_TRUE(texts.value(0).endsWith(QStringLiteral("'N','A','%1','N'").arg(medicare)))
                << qPrintable(texts.value(0));
        }
    }
}

// ---- keys of the fields

TEST_F(BuildFile, ARateTurnsWhatItHasNotIntoBackspace) {
    show();
    click(button("btnNew"));
    for (const char* name : {"txtRateA", "txtRateB", "txtRateC", "txtRateD", "txtRateE"}) {
        for (const QString& key :
             {QStringLiteral("'"), QStringLiteral(","), QStringLiteral("/"), QStringLiteral(":"),
              QStringLiteral("A"), QStringLiteral("z"), QStringLiteral("~"), QString(QChar(0xD1))}) {
            field(name).clear();
            field(name).setFocus();
            QTest::keyClicks(&field(name), QStringLiteral("125") + key + u'7');
            EXPECT_EQ(field(name).text(), QStringLiteral("127")) << name << ' ' << qPrintable(key);
        }
        field(name).clear();
        keys(field(name), "1 +-.90");
        EXPECT_EQ(field(name).text(), QStringLiteral("1 +-.90"));
    }
}

TEST_F(BuildFile, APastedRateLosesWhatCannotBeTyped) {
    show();
    click(button("btnNew"));
    QGuiApplication::clipboard()->setText(QStringLiteral("PHP 1,234'.50/x"));
    keys(field("txtRateA"), "<Ctrl+V>");
    EXPECT_EQ(field("txtRateA").text(), QStringLiteral(" 1234.50"));
}

TEST_F(BuildFile, EnterGoesThroughTheRatesInOrder) {
    show();
    click(button("btnNew"));
    keys(field("txtDecription"), "a");
    EXPECT_EQ(field("txtDecription").text(), QStringLiteral("A"));
    for (const char* next :
         {"txtRateA", "txtRateB", "txtRateC", "txtRateD", "txtRateE", "cmbMedicareType", "cmdSectionID"}) {
        tests::keysToFocus(*screen, "<Enter>");
        EXPECT_EQ(screen->focusWidget()->objectName(), QLatin1String(next));
    }
}

// ---- search

TEST_F(BuildFile, ASearchByDescriptionFollowsEachChange) {
    answerSearch({{"1002"}});
    show();
    takeTexts();
    keys(field("txtSearch"), "ga'");
    EXPECT_EQ(takeTexts(), (QStringList{byDescription("G"), oneExam("1002"), byDescription("GA"),
                                        oneExam("1002"), byDescription("GA`"), oneExam("1002")}));
    EXPECT_EQ(details(), QStringLiteral("1002|GALLIUM SCAN|1|2|3|4|5"));
    EXPECT_EQ(grid().Row(), 2);
    EXPECT_TRUE(grid().marksRowOnly());
    keys(field("txtSearch"), "<Enter>");
    EXPECT_TRUE(grid().hasFocus());
    takeTexts();
    keys(field("txtSearch"), "<Down>");
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_EQ(grid().Row(), 2) << "where the search led to";
}

TEST_F(BuildFile, ASearchByDescriptionWithoutAMatchChangesNoFieldAndLooksForAnEmptyCode) {
    answerSearch({});
    show();
    keys(grid(), "<Down>");
    const QString before = details();
    takeTexts();
    keys(field("txtSearch"), "Q");
    EXPECT_EQ(takeTexts(), QStringList{byDescription("Q")});
    EXPECT_EQ(details(), before);
    EXPECT_EQ(grid().Row(), 2);
    grid().setTextMatrix(3, 2, QString());
    keys(field("txtSearch"), "R");
    EXPECT_EQ(grid().Row(), 3) << "the row without a code";
}

TEST_F(BuildFile, ASearchByCodeShowsTheTypedOne) {
    show();
    child<QComboBox>(*screen, "cmbSearch").setCurrentIndex(1);
    takeTexts();
    keys(field("txtSearch"), " 1003");
    EXPECT_EQ(takeTexts(),
              (QStringList{oneExam(""), oneExam("1"), oneExam("10"), oneExam("100"), oneExam("1003")}));
    EXPECT_EQ(details(), QStringLiteral("1003|THYROID SCAN|6|7|8|9|10"));
    EXPECT_EQ(grid().Row(), 3);
}

TEST_F(BuildFile, TheWalkDoesNotStopAtAMatch) {
    answerSearch({{"1001"}});
    show();
    grid().setTextMatrix(3, 2, QStringLiteral("1001"));
    keys(field("txtSearch"), "B");
    EXPECT_EQ(grid().Row(), 3);
}

TEST_F(BuildFile, AMatchOutOfSightComesToTheTop) {
    exams.clear();
    for (int number = 2001; number <= 2200; ++number)
        exams.push_back(exam("EXAM", QByteArray::number(number).constData()));
    show();
    child<QComboBox>(*screen, "cmbSearch").setCurrentIndex(1);
    const auto search = [&](const char* code) {
        field("txtSearch").selectAll();
        QGuiApplication::clipboard()->setText(QLatin1String(code));
        keys(field("txtSearch"), "<Ctrl+V>");
        return grid().rowAt(1) + 1; // the first row in sight
    };
    EXPECT_EQ(search("2150"), 150);
    EXPECT_EQ(grid().Row(), 150);
    EXPECT_EQ(search("2153"), 150) << "one in sight stays where it is";
    EXPECT_EQ(grid().Row(), 153);
    EXPECT_EQ(search("2020"), 20);
}

TEST_F(BuildFile, ThePointerOnTheGroundOrOnACommandOfTheModePutsTheStatusBack) {
    show();
    const auto passes = [&](QWidget& under) {
        click(button("btnNew"));
        EXPECT_EQ(status(), QStringLiteral("Add new exam"));
        QMouseEvent move(QEvent::MouseMove, QPointF(2, 2), under.mapToGlobal(QPointF(2, 2)), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&under, &move);
        const QString told = status();
        click(button("btnCancel"));
        return told;
    };
    EXPECT_EQ(passes(*screen), QStringLiteral("Nuclear Exams"));
    EXPECT_EQ(passes(button("btnSave")), QStringLiteral("Nuclear Exams"));
    EXPECT_EQ(passes(button("btnCancel")), QStringLiteral("Nuclear Exams"));
}

TEST_F(BuildFile, EscapeLeavesTheModeFirstAndThenTheScreen) {
    show();
    keys(grid(), "<F8>");
    tests::keysToFocus(*screen, "<Esc>");
    EXPECT_FALSE(screen->isUnloaded());
    tests::keysToFocus(*screen, "<Esc>");
    EXPECT_TRUE(screen->isUnloaded());
}

// ---- on the hospital that comes along

class BuildFileOnFile : public tests::LoggedOn {
  protected:
    BuildFileOnFile() {
        screen.Show();
        screen.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
        takeTexts();
    }
    QString exam(const char* code) {
        return value(QStringLiteral("SELECT NucExam + '|' + CONVERT(varchar(20), RateA) + '|' + "
                                    "CONVERT(varchar(20), RateE) + '|' + Fixrate + Status + Common + '|' + "
                                    "MedicareType + '|' + NucSectionID FROM BUILD_FILE..tbCoNucExam WHERE "
                                    "NucExamID = '%1'")
                         .arg(QLatin1String(code)));
    }
    charges::frmBuildFile screen;
    controls::FlexGrid& grid = child<controls::FlexGrid>(screen, "grdExams");
};

TEST_F(BuildFileOnFile, ANewExamIsOnFileUnderTheNextNumber) {
    const int exams = count("BUILD_FILE..tbCoNucExam", "1 = 1");
    tests::MessageScript script{
        {.prompt = "Record Saved", .style = controls::vbInformation, .title = "Message"}};
    keys(grid, "<F8>");
    tests::keysToFocus(screen,
                       "lung scan<Enter>100<Enter>200<Enter>300<Enter>400<Enter>500.25<Enter><Alt+S>");
    EXPECT_EQ(count("BUILD_FILE..tbCoNucExam", "1 = 1"), exams + 1);
    EXPECT_EQ(exam("1305"), QStringLiteral("LUNG SCAN|100.00|500.25|NIN|N|"));
    EXPECT_EQ(grid.Rows(), exams + 2);
}

TEST_F(BuildFileOnFile, AnEditChangesThatExamAndEmptiesItsSection) {
    hospital.run("UPDATE BUILD_FILE..tbCoNucExam SET NucSectionID = 'M' WHERE NucExamID = '1003'");
    tests::MessageScript script{
        {.prompt = "Record Saved", .style = controls::vbInformation, .title = "Message"}};
    child<QComboBox>(screen, "cmbSearch").setCurrentIndex(1);
    keys(child<QLineEdit>(screen, "txtSearch"), "1003<Enter>");
    keys(grid, "<F7>");
    auto& rate = child<QLineEdit>(screen, "txtRateA");
    rate.selectAll();
    keys(rate, "4321.5");
    tests::keysToFocus(screen, "<Alt+S>");
    EXPECT_TRUE(exam("1003").startsWith(QStringLiteral("BONE SCAN, LIMITED|4321.50|")))
        << qPrintable(exam("1003"));
    EXPECT_TRUE(exam("1003").endsWith(QStringLiteral("|N|")));
    EXPECT_TRUE(child<QLineEdit>(screen, "txtCode").text().isEmpty());
}

} // namespace
