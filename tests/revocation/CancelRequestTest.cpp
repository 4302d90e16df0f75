// The search for charged requests: what is sent, what is listed, what is handed over.
#include "revocation/frmCancelRequest.h"

#include "platform/controls/screen/TestDoors.h"
#include "revocation/frmCancellation.h"
#include "session/Session.h"
#include "tests/revocation/RevocationFixture.h"
#include "tests/support/screens/ScriptedSession.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QTest>

namespace {

using controls::FlexGrid;
using tests::child;
using tests::keys;
using tests::lines;
using tests::Step;

const char* const requestColumns = "Last Name,First Name,Middle Name,RoomID,Exam,Trans. "
                                   "Date,RequestNum,UserID,Hosp. No.,Adm. No.,RefNum,RevenueID,"
                                   "NurseRequestNum,ItemID,Request No.";

const char* const lineColumns = "ItemID,NucExam,Quantity,Amount,Revenueid";

const QString linesStatement =
    QStringLiteral("SELECT A.ItemID, case isnull(A.RevenueID,'') When 'MD' then C.LastName + ', ' + "
                   "C.FirstName + ' ' + C.MiddleName "
                   "When 'NU' then B.NucExam When 'MN' then D.ItemName End as NucExam, A.Quantity, "
                   "A.Amount,A.Revenueid FROM "
                   "Nuclear..tbNucMaster A LEFT OUTER JOIN BUILD_FILE..tbCoNucExam B on A.ItemID = "
                   "B.NucExamID LEFT OUTER JOIN "
                   "BUILD_FILE..tbCoDoctor C on A.ItemID = C.DoctorID LEFT OUTER JOIN INVENTORY..tbInvMaster "
                   "D on A.ItemID = D.ItemID "
                   "Where A.Itemid <> '' and A.Amount <> '0.0' and A.refNum = '%1' and A.Requestnum = '%2'");

class Search : public testing::Test {
  protected:
    ~Search() override {
        controls::release<revocation::frmCancelRequest>();
        controls::release<revocation::frmCancellation>();
    }
    void answer(const char* statement, const char* columns, const std::vector<std::vector<base::Value>>& rows,
                bool once = false) {
        session.server().answer(QLatin1String(statement), tests::ScriptedProvider::rowsOf(columns, rows),
                                once);
    }
    void answerRequests(bool once = false) {
        answer("sp_Nuclear_GetCancelRequest_new'", requestColumns,
               {{"SANTOS", "MARIA", "REYES", "301", "BONE SCAN", "11/20/2026", "90001", "1001", "104001",
                 "26004001", "C900J", "NU", "90001", "1001", " 90001 "},
                {"SANTOS", "JOSE", nullptr, "OPD", "RENAL SCAN", "11/19/2026", "90002", "1001", "104002",
                 "O26002001", "C901J", "NU", "7000001", "1101", "90002"}},
               once);
    }
    void answerChosen() {
        answer("sp_Nuclear_getCancelRequest_new '", requestColumns,
               {{"SANTOS", "MARIA", "REYES", "301", "BONE SCAN", "11/20/2026", "4711", "1001", "104001",
                 " 26004001", "C900J", "NU", "7000001", "1001", "4711"}});
    }
    /// What has no answer is not found.
    void open(std::vector<Step> steps) {
        answer("sp_Nuclear_GetCancelRequest_new'", requestColumns, {});
        answer("sp_Nuclear_getCancelRequest_new '", requestColumns, {});
        answer("SELECT A.ItemID", lineColumns, {});
        answer("SELECT ISNULL(LABORATORY", "CancelBilled", {{"N"}});
        steps.push_back([](QWidget& window) { tests::keysToFocus(window, "<Esc>"); });
        tests::runModal([] { revocation::openCancelRequest(); }, std::move(steps));
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
    QStringList takeTexts() { return std::exchange(session.texts(), {}); }

    base::FixedClock clock = tests::fixedClock();
    tests::ScriptedSession session;
    tests::MessageScript boxes;
};

TEST_F(Search, OpensEmptyAtTheSearchBox) {
    takeTexts();
    open({[](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "File Maintenance: Request Cancellation");
        EXPECT_EQ(child<QLabel>(window, "bandTitle").text(), "Request Cancellation");
        EXPECT_EQ(window.findChild<QGroupBox*>()->title(), "Search Results");
        EXPECT_EQ(child<QLabel>(window, "lblHint").text(),
                  "To Search, type the Lastname on the Search Box. Click on the button to select.");
        EXPECT_EQ(child<QPushButton>(window, "cmdSelect").text(), "&Select");
        EXPECT_EQ(child<QPushButton>(window, "cmdClose").text(), "&Close");
        const auto& choice = child<QComboBox>(window, "cmbSearch");
        QStringList items;
        for (int i = 0; i < choice.count(); ++i)
            items += choice.itemText(i);
        EXPECT_EQ(items, (QStringList{"LastName", "Hosp.No.", "Adm.No.", "Reference No."}));
        EXPECT_EQ(choice.currentIndex(), 0);
        EXPECT_TRUE(child<QLineEdit>(window, "txtSearch").hasFocus());
        const char* const headers[] = {"",          "LastName",   "FirstName", "MiddleName", "RoomID", "Exam",
                                       "TransDate", "RequestNum", "UserID",    "Hosp.Num",   "Adm.Num"};
        const int widths[] = {100, 1200, 1200, 1200, 800, 3000, 1200, 1000, 1000, 0, 0};
        for (int column = 0; column < 11; ++column) {
            EXPECT_EQ(grid(window).TextMatrix(0, column).trimmed(), headers[column]);
            EXPECT_EQ(grid(window).ColWidth(column), widths[column]);
        }
    }});
    EXPECT_EQ(lines(takeTexts()), "");
}

TEST_F(Search, EachChoiceIsAMode) {
    takeTexts();
    QStringList expected;
    for (int index = 0; index < 4; ++index) {
        open({[&](QWidget& window) { child<QComboBox>(window, "cmbSearch").setCurrentIndex(index); },
              searching(" san")});
        expected += QStringLiteral("sp_Nuclear_GetCancelRequest_new'SAN',%1").arg(index + 1);
    }
    EXPECT_EQ(lines(takeTexts()), lines(expected));
}

TEST_F(Search, TheButtonSearchesAsEnterDoes) {
    takeTexts();
    open({[](QWidget& window) {
        keys(child<QLineEdit>(window, "txtSearch"), "o'hara");
        tests::click(child<QPushButton>(window, "cmdSearch"));
    }});
    EXPECT_EQ(lines(takeTexts()), "sp_Nuclear_GetCancelRequest_new'O`HARA',1");
}

TEST_F(Search, ListsWhatItFindsAndKeepsItWhenItFindsNothing) {
    answerRequests(true);
    open({searching("SANTOS"),
          [](QWidget& window) {
              ASSERT_EQ(grid(window).Rows(), 3);
              EXPECT_EQ(grid(window).TextMatrix(1, 1), "SANTOS");
              EXPECT_EQ(grid(window).TextMatrix(2, 5), "RENAL SCAN");
              EXPECT_EQ(grid(window).TextMatrix(2, 15), "90002");
              EXPECT_EQ(grid(window).ColWidth(9), 0);
              EXPECT_EQ(child<QLabel>(window, "lblHits").text(), "2 requests");
          },
          searching("QQQ"),
          [](QWidget& window) {
              EXPECT_EQ(grid(window).Rows(), 3);
              EXPECT_EQ(child<QLabel>(window, "lblHits").text(),
                        "No request found. The list is that of the search before.");
          }});
}

/// The two forms of the procedure's text, and the number of column 15 in place of that of the row.
TEST_F(Search, HandsOverByTheNumberOfColumn15) {
    answerRequests();
    answerChosen();
    answer("SELECT A.ItemID", lineColumns, {{"1001", "BONE SCAN", "1", "5200", "NU"}});
    takeTexts();
    open({searching("SANTOS"), selecting(), [](QWidget& window) {
              const auto& screen = dynamic_cast<revocation::frmCancellation&>(window);
              EXPECT_EQ(screen.IdNum, "26004001");
              EXPECT_EQ(screen.RequestNum, "90001");
              EXPECT_EQ(screen.NurseRequestNum, "7000001");
              EXPECT_EQ(screen.RevenueID, "NU");
              EXPECT_EQ(screen.ExamCode, "1001");
              EXPECT_EQ(child<FlexGrid>(window, "grdExams").TextMatrix(1, 4), "5200");
              tests::close(window);
          }});
    EXPECT_EQ(
        lines(takeTexts()),
        lines({"sp_Nuclear_GetCancelRequest_new'SANTOS',1", "sp_Nuclear_getCancelRequest_new '90001', 4 ",
               "SELECT ISNULL(LABORATORY.DBO.fn_LabCanCancelBilled('26004001'),'') AS CancelBilled",
               linesStatement.arg("C900J", "90001")}));
}

/// What the laboratory's function may say of the stay.
TEST_F(Search, TheCommandNeedsAYesOfTheLaboratory) {
    answerRequests();
    answerChosen();
    answer("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights", "RightsID", {{"18"}});
    struct {
        base::Value said;
        bool enabled;
    } const answers[] = {{"Y", true}, {" Y ", true},    {"N", false},
                         {"", false}, {nullptr, false}, {"y", false}};
    for (const auto& each : answers)
        answer("SELECT ISNULL(LABORATORY", "CancelBilled", {{each.said}}, true);
    answer("SELECT ISNULL(LABORATORY", "CancelBilled", {}, true); // no row
    const auto expectCommand = [&](bool enabled, const QString& said) {
        open({searching("SANTOS"), selecting(), [&](QWidget& window) {
                  EXPECT_EQ(child<QPushButton>(window, "cmdSave").isEnabled(), enabled) << said.toStdString();
                  tests::close(window);
              }});
    };
    for (const auto& [said, enabled] : answers)
        expectCommand(enabled, base::textOf(said));
    expectCommand(false, "no row");
}

TEST_F(Search, WithoutACurrentRowTheStatementsGoWithAnEmptyNumber) {
    takeTexts();
    open({selecting(),
          [](QWidget& window) {
              EXPECT_EQ(window.objectName(), "frmCancellation");
              EXPECT_EQ(child<FlexGrid>(window, "grdExams").TextMatrix(1, 1), "");
              tests::close(window);
          },
          // a double click on the empty list asks as well; Enter there does not
          [](QWidget& window) {
              keys(grid(window), "<Enter>");
              QTest::mouseDClick(grid(window).viewport(), Qt::LeftButton, {},
                                 grid(window).visualRect(grid(window).model()->index(0, 2)).center());
          },
          [](QWidget& window) { tests::close(window); }});
    const QStringList once{"sp_Nuclear_getCancelRequest_new '', 4 ", linesStatement.arg("", ""),
                           "SELECT ISNULL(LABORATORY.DBO.fn_LabCanCancelBilled(''),'') AS CancelBilled"};
    EXPECT_EQ(lines(takeTexts()), lines(once + once));
}

TEST_F(Search, AnEnterThatIsHeldDownChoosesNothing) {
    answerRequests();
    takeTexts();
    open({searching("SANTOS"), [](QWidget& window) {
              keys(child<QLineEdit>(window, "txtSearch"), "<Down>");
              QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
              QCoreApplication::sendEvent(&grid(window), &held);
          }});
    EXPECT_EQ(lines(takeTexts()), "sp_Nuclear_GetCancelRequest_new'SANTOS',1");
}

// ---- on the hospital

class FoundRequests : public tests::RevocationFixture {};

TEST_F(FoundRequests, ARequestOfNoAmountOpensAnEmptyGrid) {
    tests::Charged line;
    line.amount = 0;
    post(hospital, line);
    cancelling(line,
               {[](QWidget& window) {
                    EXPECT_EQ(child<QLineEdit>(window, "txtCSlip").text(), "C9001J");
                    EXPECT_EQ(child<FlexGrid>(window, "grdExams").TextMatrix(1, 1), "");
                    tests::close(window);
                },
                [](QWidget& search) { tests::keysToFocus(search, "<Esc>"); }},
               false);
}

TEST_F(FoundRequests, AnExamAFeeAndAMedicineAreNamedFromTheirOwnFiles) {
    const std::pair<tests::Charged, const char*> named[] = {
        {tests::Charged(), "SELECT NucExam FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = '1001'"},
        {tests::fee(),
         "SELECT LastName + ', ' + FirstName + ' ' + MiddleName FROM BUILD_FILE..tbcoDoctor WHERE "
         "DoctorID = '201'"},
        {tests::supply(), "SELECT ItemName FROM INVENTORY..tbInvMaster WHERE ItemID = '30001'"}};
    int number = 90001;
    for (auto [line, query] : named) {
        line.request = QString::number(number++);
        post(hospital, line);
        cancelling(line,
                   {[&, text = value(query)](QWidget& window) {
                        EXPECT_EQ(child<FlexGrid>(window, "grdExams").TextMatrix(1, 2), text);
                        EXPECT_FALSE(text.isEmpty());
                        tests::close(window);
                    },
                    [](QWidget& search) { tests::keysToFocus(search, "<Esc>"); }},
                   false);
    }
}

TEST_F(FoundRequests, TheSearchComesUpAnewWithItsTextAndKeepsItForTheNextOpening) {
    post(hospital, {});
    tests::Charged other;
    other.request = "90002";
    other.slip = "C9002J";
    post(hospital, other);
    expectRevoked();
    expectRevoked();
    const auto next = [](QWidget& search) {
        EXPECT_EQ(search.objectName(), "frmCancelRequest");
        EXPECT_EQ(child<QLineEdit>(search, "txtSearch").text(), "90001");
        EXPECT_TRUE(child<QLineEdit>(search, "txtSearch").hasSelectedText());
        EXPECT_EQ(child<FlexGrid>(search, "grdTable").TextMatrix(1, 1), "") << "the list is read anew";
    };
    cancelling({}, {pressing("cmdSave"),
                    [&](QWidget& search) {
                        next(search);
                        child<QComboBox>(search, "cmbSearch").setCurrentIndex(3);
                        keys(child<QLineEdit>(search, "txtSearch"), "90002<Enter>");
                        tests::click(child<QPushButton>(search, "cmdSelect"));
                    },
                    pressing("cmdSave")});
    EXPECT_EQ(books(hospital, other).status, "R");
    tests::runModal([] { revocation::openCancelRequest(); }, {[&](QWidget& search) {
                        EXPECT_EQ(child<QLineEdit>(search, "txtSearch").text(), "90002");
                        tests::keysToFocus(search, "<Esc>");
                    }});
    tests::runModal([] { revocation::openCancelRequest(); }, {[&](QWidget& search) {
                        EXPECT_EQ(child<QLineEdit>(search, "txtSearch").text(), "");
                        tests::keysToFocus(search, "<Esc>");
                    }});
}

} // namespace
