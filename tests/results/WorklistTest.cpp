#include "results/frmRequestMaster.h"
#include "results/frmResultMaster.h"

#include "tests/results/ListFixture.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

using controls::FlexGrid;
using controls::SharedScreen;
using results::frmResult;
using tests::child;
using tests::keys;
using tests::lines;
using tests::Step;

const char* const patientColumns = "HospNum,LastName,FirstName,MiddleName,RequestNum";

/// What the two doors do alike, and the names in which they differ.
struct Door {
    const char* name;
    const char* caption;
    const char* search;
    const char* requests;
    std::function<results::ResultPicker&()> fresh;
};

const Door doors[] = {
    {"frmRequestMaster", "Request Master File", "sp_Nuclear_RequestMaster", "sp_Nuclear_getRequest",
     []() -> results::ResultPicker& { return SharedScreen<results::frmRequestMaster>::fresh(); }},
    {"frmResultMaster", "Result Master File", "sp_Nuclear_ResultMaster", "sp_Nuclear_GetResult",
     []() -> results::ResultPicker& { return SharedScreen<results::frmResultMaster>::fresh(); }},
};

void PrintTo(const Door& door, std::ostream* out) {
    *out << door.name;
}

class Worklist : public tests::ListFixture, public testing::WithParamInterface<Door> {
  protected:
    void open(std::vector<Step> steps, const QString& formMode = QStringLiteral("R")) {
        steps.push_back([](QWidget& window) { tests::close(window); });
        results::ResultPicker& screen = GetParam().fresh();
        screen.FormMode = formMode;
        tests::runModal([&] { screen.ShowModal(); }, std::move(steps));
    }
    static Step searching(const char* text) {
        return [text](QWidget& window) {
            keys(child<QLineEdit>(window, "txtSearch"), QLatin1String(text) + QStringLiteral("<Enter>"));
        };
    }
    static Step selecting() {
        return [](QWidget& window) { tests::click(child<QPushButton>(window, "cmdSelect")); };
    }
    static FlexGrid& grid(QWidget& window) { return child<FlexGrid>(window, "grdTable"); }
    /// The statements of the door, in the order that they were sent.
    QString search(const char* text) const {
        return QLatin1String(GetParam().search) + QStringLiteral(" '%1'").arg(QLatin1String(text));
    }
    QString requests(const char* code) const {
        return QLatin1String(GetParam().requests) + QStringLiteral(" '%1'").arg(QLatin1String(code));
    }
    void answerPatients(bool once = false) {
        answer(GetParam().search, patientColumns,
               {{"104001 ", "SANTOS", "MARIA", "REYES", "90001"},
                {"104002", "SANTOS", "JOSE", nullptr, "90002"}},
               once);
    }
    void answerRequests() {
        answer(GetParam().requests, tests::requestColumns,
               {{"90002", "11/20/2026", "1101", "RENAL SCAN", "11/21/2026", "26-00007", "C901J"},
                {"90001", "11/19/2026", "1001", "BONE SCAN", nullptr, nullptr, "C900J"}});
    }
};

INSTANTIATE_TEST_SUITE_P(Doors, Worklist, testing::ValuesIn(doors),
                         [](const auto& door) { return std::string(door.param.name); });

TEST_P(Worklist, OpensEmptyAtTheSearch) {
    open({[](QWidget& window) {
        EXPECT_EQ(window.objectName(), QLatin1String(GetParam().name));
        EXPECT_EQ(window.windowTitle(), QLatin1String(GetParam().caption));
        EXPECT_TRUE(child<QLineEdit>(window, "txtSearch").hasFocus());
        EXPECT_EQ(child<QPushButton>(window, "cmdSelect").text(), QStringLiteral("&Select"));
        EXPECT_EQ(child<QPushButton>(window, "cmdClose").text(), QStringLiteral("&Close"));
        EXPECT_EQ(window.findChild<QGroupBox*>()->title(), QStringLiteral("Patient List"));
        const auto& choice = child<QComboBox>(window, "cmbSearch");
        ASSERT_EQ(choice.count(), 2);
        EXPECT_EQ(choice.itemText(0), QStringLiteral("Adm #"));
        EXPECT_EQ(choice.currentText(), QStringLiteral("Last Name"));
        const char* const headers[] = {"",           "Code",        "Last Name",
                                       "First Name", "Middle Name", "Request Number"};
        ASSERT_EQ(grid(window).Cols(), 6);
        for (int column = 0; column < 6; ++column)
            EXPECT_EQ(grid(window).TextMatrix(0, column).trimmed(), QLatin1String(headers[column]));
    }});
    EXPECT_EQ(lines(takeTexts()), "");
}

TEST_P(Worklist, SearchesForTheTrimmedUpperCasedText) {
    answerPatients();
    open({searching(" san "), [](QWidget& window) {
              FlexGrid& list = grid(window);
              ASSERT_EQ(list.Rows(), 3);
              EXPECT_EQ(list.TextMatrix(1, 1), QStringLiteral("104001 "));
              EXPECT_EQ(list.TextMatrix(2, 4), QString());
              EXPECT_EQ(list.TextMatrix(0, 1).trimmed(), QStringLiteral("Code"));
              const int widths[] = {100, 1200, 1800, 1800, 1800};
              for (int column = 0; column < 5; ++column)
                  EXPECT_EQ(list.ColWidth(column), widths[column]);
              EXPECT_EQ(child<QLabel>(window, "lblHits").text(), QStringLiteral("2 patients"));
          }});
    EXPECT_EQ(lines(takeTexts()), lines({search("SAN")}));
}

TEST_P(Worklist, TheChoiceNeverReachesTheStatement) {
    answerPatients();
    open({[](QWidget& window) { keys(child<QComboBox>(window, "cmbSearch"), QStringLiteral("<Up>")); },
          [](QWidget& window) {
              EXPECT_EQ(child<QComboBox>(window, "cmbSearch").currentText(), QStringLiteral("Adm #"));
          },
          searching("SANTOS")});
    EXPECT_EQ(lines(takeTexts()), lines({search("SANTOS")}));
}

TEST_P(Worklist, AQuoteInANameIsSentAsABackQuote) {
    answer(GetParam().search, patientColumns);
    open({searching("o'brien")});
    EXPECT_EQ(lines(takeTexts()), lines({search("O`BRIEN")}));
}

TEST_P(Worklist, NoMatchLeavesTheListAndSaysNothing) {
    answerPatients(true);
    answer(GetParam().search, patientColumns);
    answerRequests();
    open({searching("SANTOS"), searching("QQQ"),
          [](QWidget& window) {
              EXPECT_EQ(grid(window).Rows(), 3);
              EXPECT_EQ(grid(window).TextMatrix(1, 2), QStringLiteral("SANTOS"));
              EXPECT_TRUE(child<QLineEdit>(window, "txtSearch").hasFocus());
          },
          selecting(), [](QWidget& list) { tests::close(list); }});
    EXPECT_EQ(lines(takeTexts()), lines({search("SANTOS"), search("QQQ"), requests("104001")}));
}

TEST_P(Worklist, SelectingListsThePatientsRequests) {
    answerPatients();
    answerRequests();
    open({searching("SANTOS"), selecting(),
          [](QWidget& window) {
              auto& list = dynamic_cast<frmResult&>(window);
              EXPECT_EQ(list.windowTitle(), QStringLiteral("Result"));
              EXPECT_EQ(list.HospitalNumber, QStringLiteral("104001"));
              EXPECT_EQ(list.FormMode, QStringLiteral("R"));
              EXPECT_EQ(child<QLabel>(list, "lblName").text(), QStringLiteral("SANTOS, MARIA REYES"));
              EXPECT_EQ(list.findChild<QGroupBox*>()->title(), QStringLiteral("Patient List"));
              FlexGrid& requests = grid(list);
              ASSERT_EQ(requests.Rows(), 3);
              ASSERT_EQ(requests.Cols(), 8);
              const char* const headers[] = {"",     "Request#",   "Exam Date",  "Code",
                                             "Exam", "ResultDate", "FileNumber", ""};
              const int widths[] = {100, 1000, 1100, 900, 2500, 1100, 1100, 5};
              for (int column = 0; column < 8; ++column) {
                  EXPECT_EQ(requests.TextMatrix(0, column).trimmed(), QLatin1String(headers[column]));
                  EXPECT_EQ(requests.ColWidth(column), widths[column]);
              }
              EXPECT_EQ(requests.TextMatrix(1, 6), QStringLiteral("26-00007"));
              EXPECT_GT(requests.cellRect(1, 4).width(),
                        list.fontMetrics().horizontalAdvance("MYOCARDIAL PERFUSION, REST AND STRESS"))
                  << "whole";
              EXPECT_GT(requests.cellRect(1, 2).width(), list.fontMetrics().horizontalAdvance("12/28/2026"));
              EXPECT_TRUE(requests.hasFocus());
              tests::close(list);
          },
          [](QWidget& window) {
              EXPECT_EQ(window.objectName(), QLatin1String(GetParam().name)) << "the list stays open below";
              EXPECT_EQ(grid(window).Rows(), 3);
          }});
    EXPECT_EQ(lines(takeTexts()), lines({search("SANTOS"), requests("104001")}));
}

TEST_P(Worklist, ALongNameTakesASecondLine) {
    const QString part = QString(QStringLiteral("MAGSAYSAY ")).repeated(5);
    answer(GetParam().search, patientColumns, {{"104001", part, part, part, "90001"}});
    answerRequests();
    open({searching("MAG"), selecting(), [](QWidget& list) {
              EXPECT_LE(list.width(), 1366);
              auto& name = child<QLabel>(list, "lblName");
              EXPECT_GE(name.height(), name.heightForWidth(name.width()));
              tests::close(list);
          }});
}

TEST_P(Worklist, ADoubleClickAndEnterSelectToo) {
    answerPatients();
    answerRequests();
    open({searching("SANTOS"),
          [](QWidget& window) {
              keys(child<QLineEdit>(window, "txtSearch"), QStringLiteral("<Down>"));
              tests::keysToFocus(window, QStringLiteral("<Down><Enter>"));
          },
          [](QWidget& list) {
              EXPECT_EQ(child<QLabel>(list, "lblName").text(), QStringLiteral("SANTOS, JOSE "));
              tests::close(list);
          },
          [](QWidget& window) {
              FlexGrid& list = grid(window);
              const QRect cell = list.visualRect(list.model()->index(0, 2));
              QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, cell.center());
              QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, cell.center());
          },
          [](QWidget& list) { tests::close(list); }});
    EXPECT_EQ(lines(takeTexts()), lines({search("SANTOS"), requests("104002"), requests("104001")}));
}

TEST_P(Worklist, APatientWithoutRequestsOpensAnEmptyListWithoutAMode) {
    answerPatients();
    answer(GetParam().requests, tests::requestColumns);
    answerFormType(std::nullopt);
    open({searching("SANTOS"), selecting(), [](QWidget& window) {
              auto& list = dynamic_cast<frmResult&>(window);
              EXPECT_EQ(list.FormMode, QString());
              EXPECT_EQ(grid(list).Rows(), 2);
              EXPECT_EQ(grid(list).TextMatrix(1, 1), QString());
              // The exam is read all the same; without a mode nothing is loaded.
              tests::click(child<QPushButton>(list, "cmdSelect"));
              EXPECT_TRUE(list.isVisible());
              tests::close(list);
          }});
    EXPECT_EQ(lines(takeTexts()),
              lines({search("SANTOS"), requests("104001"),
                     QStringLiteral("Select top 1 * from Build_File..tbcoNucExam where NucExamID = ''")}));
}

TEST_P(Worklist, ABlankRowIsSentAsAnEmptyCode) {
    answer(GetParam().requests, tests::requestColumns);
    open({selecting(),
          [](QWidget& window) {
              EXPECT_EQ(child<QLabel>(window, "lblName").text(), QStringLiteral(",  "));
              tests::close(window);
          },
          [](QWidget& window) {
              FlexGrid& list = grid(window);
              QTest::mouseDClick(list.viewport(), Qt::LeftButton, {},
                                 list.visualRect(list.model()->index(0, 2)).center());
          },
          [](QWidget& list) { tests::close(list); }});
    EXPECT_EQ(lines(takeTexts()), lines({requests(""), requests("")}));
}

TEST_P(Worklist, CloseAndEscapeUnload) {
    tests::runModal([] { GetParam().fresh().ShowModal(); },
                    {[](QWidget& window) { tests::click(child<QPushButton>(window, "cmdClose")); }});
    tests::runModal([] { GetParam().fresh().ShowModal(); },
                    {[](QWidget& window) { tests::keysToFocus(window, QStringLiteral("<Esc>")); }});
}

TEST_P(Worklist, AFullListAsksForMoreOfTheName) {
    answer(GetParam().search, patientColumns,
           std::vector<tests::Row>(200, {"104001", "SANTOS", "MARIA", "REYES", "90001"}));
    open({searching("S"), [](QWidget& window) {
              EXPECT_EQ(child<QLabel>(window, "lblHits").text(),
                        QStringLiteral("200 patients at most: type more of the name."));
          }});
}

// ---- the mode that each door passes

class WorklistMode : public Worklist {
  protected:
    QString passed(const QString& formMode) {
        answerPatients();
        answerRequests();
        QString mode;
        open({searching("SANTOS"), selecting(),
              [&](QWidget& window) {
                  mode = dynamic_cast<frmResult&>(window).FormMode;
                  tests::close(window);
              }},
             formMode);
        return mode;
    }
};

class RequestMaster : public WorklistMode {};
INSTANTIATE_TEST_SUITE_P(Door, RequestMaster, testing::Values(doors[0]));

TEST_P(RequestMaster, PassesItsModeUntouched) {
    for (const char* mode : {"R", "C", "", "r", "X"})
        EXPECT_EQ(passed(QLatin1String(mode)), QLatin1String(mode));
}

class ResultMaster : public WorklistMode {};
INSTANTIATE_TEST_SUITE_P(Door, ResultMaster, testing::Values(doors[1]));

TEST_P(ResultMaster, SaysWhatAResultIsChosenFor) {
    const auto told = [this](const char* formMode) {
        QString text;
        open({[&](QWidget& window) { text = child<QLabel>(window, "bandSubtitle").text(); }},
             QLatin1String(formMode));
        return text;
    };
    EXPECT_EQ(told("R"), QStringLiteral("Patients with results, to view or edit one"));
    EXPECT_EQ(told("C"), QStringLiteral("Patients with results, to revoke one"));
}

TEST_P(ResultMaster, RevokesInEveryModeButR) {
    EXPECT_EQ(passed(QStringLiteral("R")), QStringLiteral("R"));
    for (const char* mode : {"C", "", "r", "X"})
        EXPECT_EQ(passed(QLatin1String(mode)), QStringLiteral("C"));
}

} // namespace
