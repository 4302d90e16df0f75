// What became of the cash assessments: the list, revoking, printing the slip again.
#include "revocation/frmAssessmentStatus.h"

#include "platform/controls/list/ListView.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/WorkDone.h"
#include "session/reports/ReportLaunch.h"
#include "tests/revocation/RevocationFixture.h"
#include "tests/support/screens/ScriptedSession.h"

#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <QTreeWidget>

namespace {

using controls::ListView;
using controls::SharedScreen;
using revocation::frmAssessmentStatus;
using tests::child;
using tests::click;
using tests::keys;
using tests::lines;
using tests::Step;

using Row = std::vector<base::Value>;

const char* const statusColumns =
    "PatientName,Code,Exam,Quantity,RefNum,Amount,Status,RecordStatus,AssessID,IdNum,RevenueID,RequestDoctor";

ListView& list(QWidget& window) {
    return child<ListView>(window, "lvwListAssessment");
}
QPushButton& btnCancel(QWidget& window) {
    return child<QPushButton>(window, "btnCancel");
}
QPushButton& btnPrint(QWidget& window) {
    return child<QPushButton>(window, "btnPrint");
}

Row row(const char* reference, const char* status, const char* record, const char* id,
        const char* revenue = "NU", const base::Value& quantity = "1") {
    return {"CRUZ, JUAN", "1001", "BONE SCAN", quantity, reference, "5200",
            status,       record, id,          "",       revenue,   "SANTOS, ALBERTO C"};
}

class Assessments : public testing::Test {
  protected:
    Assessments() {
        session::otherReportLaunchers() = {
            .prepareReport =
                [this](const QString& path, const QString& database, const std::vector<base::Value>& values) {
                    QStringList texts;
                    for (const base::Value& value : values)
                        texts += base::textOf(value);
                    launched += path.section(u'\\', -2) + u' ' + database + u' ' + texts.join(u'|');
                },
            .showReport =
                [this](bool tree, const QString& title, bool directPrint) {
                    launched += QStringLiteral("%1 %2 %3").arg(tree).arg(title).arg(directPrint);
                }};
    }
    ~Assessments() override {
        session::otherReportLaunchers() = {};
        controls::release<frmAssessmentStatus>();
    }
    void answer(const std::vector<Row>& rows, bool once = false) {
        session.server().answer("sp_Nuclear_AssessmentStatus",
                                tests::ScriptedProvider::rowsOf(statusColumns, rows), once);
    }
    void open(std::vector<Step> steps) {
        steps.push_back([](QWidget& window) { tests::keysToFocus(window, "<Esc>"); });
        tests::runModal([] { SharedScreen<frmAssessmentStatus>::fresh().ShowModal(); }, std::move(steps));
    }
    static Step choosing(int index) {
        return [index](QWidget& window) { list(window).select(list(window).Item(index)); };
    }
    Step revoking() {
        return [](QWidget& window) { click(btnCancel(window)); };
    }
    void expect(const char* prompt) { boxes.expect({QLatin1String(prompt), controls::vbOKOnly, "Message"}); }
    QStringList takeTexts() { return std::exchange(session.texts(), {}); }

    base::FixedClock clock = tests::fixedClock();
    tests::ScriptedSession session;
    tests::MessageScript boxes;
    QStringList launched;
};

TEST_F(Assessments, AreListedAtOnceWithTheirIcons) {
    answer({row("NU5001", "PENDING", "", "7", "NU", nullptr), row("NU5002", "REVOKED", "R", "8"),
            row("NU5003", "REVOKED", "X", "9"), row("OR31001", "PAID", "1", "10", "NU", ""),
            row("NU5004", "PENDING", "?", "11", "NU", "3")});
    takeTexts();
    open({[](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Assessment Status");
        EXPECT_EQ(btnCancel(window).text(), " &Revoke");
        EXPECT_EQ(btnCancel(window).property("kind").toString(), "danger");
        EXPECT_EQ(child<QLabel>(window, "lblHint").text(),
                  "To Search, type the admission Number or Lastname on the box provided for it.");
        const auto& choice = child<QComboBox>(window, "cmbSearch");
        EXPECT_EQ(choice.itemText(0) + u'|' + choice.itemText(1), "Adm #|Last Name");
        const char* const headers[] = {"Name",     "Code",     "Item Description", "Quantity",
                                       "RefNum",   "Amount",   "Status",           "RecordStatus",
                                       "AssessID", "Adm.Num.", "RevenueId",        "RequestingDoctor"};
        for (int column = 0; column < 12; ++column)
            EXPECT_EQ(list(window).headerItem()->text(column), headers[column]);
        ASSERT_EQ(list(window).Count(), 5);
        const char* const icons[] = {"pending", "revoke", "revoke", "paid", "pending"};
        const char* const quantities[] = {"1", "1", "1", "1", "3"};
        for (int index = 1; index <= 5; ++index) {
            EXPECT_EQ(list(window).Item(index).Icon(), icons[index - 1]) << index;
            EXPECT_EQ(list(window).Item(index).SubItem(3), quantities[index - 1]) << index;
            EXPECT_EQ(list(window).Item(index).key(), QStringLiteral("K%1").arg(index));
        }
        EXPECT_EQ(list(window).Item(1).Text(), "CRUZ, JUAN");
        EXPECT_EQ(list(window).Item(1).SubItem(11), "SANTOS, ALBERTO C");
    }});
    EXPECT_EQ(lines(takeTexts()), "sp_Nuclear_AssessmentStatus ''");
}

/// The text as it stands, blanks included; the choice beside it is not sent.
TEST_F(Assessments, AreSearchedForByTheTextAlone) {
    answer({row("NU5001", "PENDING", "", "7")});
    takeTexts();
    open({[](QWidget& window) {
        child<QComboBox>(window, "cmbSearch").setCurrentIndex(1);
        keys(child<QLineEdit>(window, "txtSearch"), " cruz <Enter>");
        EXPECT_EQ(list(window).Count(), 1) << "cleared before";
    }});
    EXPECT_EQ(lines(takeTexts()),
              lines({"sp_Nuclear_AssessmentStatus ''", "sp_Nuclear_AssessmentStatus ' CRUZ '"}));
}

TEST_F(Assessments, AnEmptyListPutsTheCommandsOutOfUseUntilTheScreenIsOpenedAgain) {
    answer({row("NU5001", "PENDING", "", "7")}, true);
    answer({}, true);
    answer({row("NU5001", "PENDING", "", "7")});
    const auto search = [](QWidget& window) { keys(child<QLineEdit>(window, "txtSearch"), "<Enter>"); };
    open({[](QWidget& window) { EXPECT_TRUE(btnCancel(window).isEnabled() && btnPrint(window).isEnabled()); },
          search,
          [](QWidget& window) {
              EXPECT_FALSE(btnCancel(window).isEnabled() || btnPrint(window).isEnabled());
              EXPECT_EQ(list(window).Count(), 0);
          },
          search,
          [&](QWidget& window) {
              EXPECT_EQ(list(window).Count(), 1);
              EXPECT_FALSE(btnCancel(window).isEnabled() || btnPrint(window).isEnabled());
              takeTexts();
              list(window).select(list(window).Item(1));
              keys(list(window), "<Enter>");
          }});
    EXPECT_EQ(lines(takeTexts()), "");
    open({[](QWidget& window) {
        EXPECT_TRUE(btnCancel(window).isEnabled() && btnPrint(window).isEnabled());
    }});
}

// ---- revoking

TEST_F(Assessments, RevokingMarksTheItemWithoutANewReadAndASecondTimeIsRefused) {
    answer({row("NU5001", "PENDING", "", "7")});
    expect("Data is Successfully Revoked.");
    expect("Entry is already Revoked.");
    open({choosing(1), [this](QWidget&) { takeTexts(); }, revoking(),
          [](QWidget& window) {
              EXPECT_EQ(list(window).Item(1).Icon(), "revoke");
              EXPECT_EQ(list(window).Item(1).SubItem(6), "REVOKED");
              EXPECT_EQ(list(window).Item(1).SubItem(7), "R");
          },
          revoking()});
    EXPECT_EQ(lines(takeTexts()), "sp_Nuclear_RevokeAssessment '7'");
    ASSERT_EQ(session::workDone().size(), 1U);
    EXPECT_EQ(session::workDone().front().work, session::Work::RevokedAssessment);
    EXPECT_EQ(session::workDone().front().number, "NU5001");
}

TEST_F(Assessments, OneWithAReceiptAnywhereInItsReferenceIsPaidWhateverTheListSays) {
    answer({row("OR31001", "PENDING", "", "7"), row("NU-OR-9", "REVOKED", "R", "8"),
            row("NU5001", "PAID", "1", "9")});
    for (int i = 0; i < 3; ++i)
        expect("Entry is already Paid.");
    takeTexts();
    open({choosing(1), revoking(), choosing(2), revoking(), choosing(3), revoking()});
    EXPECT_EQ(lines(takeTexts()), "sp_Nuclear_AssessmentStatus ''");
}

TEST_F(Assessments, NothingIsRevokedOrPrintedBeforeOneWasChosen) {
    answer({row("NU5001", "PENDING", "", "7")});
    takeTexts();
    open({revoking(), [](QWidget& window) {
              EXPECT_EQ(child<QLabel>(window, "lblHits").text(), "Choose an assessment first.");
              EXPECT_TRUE(list(window).hasFocus());
              click(btnPrint(window));
          }});
    EXPECT_EQ(lines(takeTexts()), "sp_Nuclear_AssessmentStatus ''");
}

// ---- printing

TEST_F(Assessments, ASlipHasEveryLineOfItsReference) {
    std::vector<Row> rows{row("NU5001", "PENDING", "", "7", "NU", "3"), row("NU5002", "PENDING", "", "8"),
                          row("NU5001", "PENDING", "", "9", "MD", "0"),
                          row("NU5001", "PENDING", "", "10", "NU", "-2")};
    rows[0][9] = "26004001";
    answer(rows);
    open({choosing(1), [this](QWidget& window) {
              takeTexts();
              click(btnPrint(window));
          }});
    EXPECT_EQ(lines(takeTexts()),
              lines({"DELETE tbNucChargeSlip",
                     "sp_Nuclear_DumpChargeSlip '1001','BONE SCAN','3','1733.33','5200','1001','NU'",
                     "sp_Nuclear_DumpChargeSlip '1001','** BONE SCAN **','0','5200.00','5200','1001','MD'",
                     "sp_Nuclear_DumpChargeSlip '1001','BONE SCAN','-2','5200.00','5200','1001','NU'"}));
    EXPECT_EQ(lines(launched), lines({"Reports\\Chargeslip.RPT NUCLEAR NUCLEAR MEDICINE COST CENTER "
                                      "SLIP|CRUZ, JUAN||26004001|REYES, JOAN "
                                      "P.||11/21/2026|SANTOS, ALBERTO C|NU5001|",
                                      "0 Charge Slip Printing 0"}));
}

TEST_F(Assessments, EnterAndADoubleClickPrintWhatTheyStandOn) {
    answer({row("NU5001", "PENDING", "", "7")});
    open({[](QWidget& window) {
        keys(child<QLineEdit>(window, "txtSearch"), "<Down><Enter>");
        QTest::mouseDClick(list(window).viewport(), Qt::LeftButton, {},
                           list(window).visualItemRect(list(window).topLevelItem(0)).center());
    }});
    EXPECT_EQ(launched.count(), 4);
}

// ---- on the hospital

class AssessmentRoad : public tests::RevocationFixture {
  public:
    AssessmentRoad() { session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR)); }
    ~AssessmentRoad() override { session::setProgramFolder({}); }
};

TEST_F(AssessmentRoad, OneIsRevokedAndItsSlipPrintedAgain) {
    const QString id = value("SELECT MAX(AssessID) FROM BILLING..tbCashAssessment WHERE RecordStatus = ''");
    const QString name = value("SELECT PatientName FROM BILLING..tbCashAssessment WHERE AssessID = " + id);
    boxes.expect({"Data is Successfully Revoked.", controls::vbOKOnly, "Message"});
    QString mark;
    tests::runModal([] { SharedScreen<frmAssessmentStatus>::fresh().ShowModal(); },
                    {[&](QWidget& window) {
                         keys(child<QLineEdit>(window, "txtSearch"),
                              name.section(u',', 0, 0) + "<Enter><Down>");
                         ListView& view = list(window);
                         for (int index = 1; index <= view.Count(); ++index) {
                             if (view.Item(index).SubItem(8) == id)
                                 view.select(view.Item(index));
                         }
                         click(btnCancel(window));
                         click(btnPrint(window));
                     },
                     [&](QWidget& viewer) {
                         mark = session::gReport->watermark;
                         tests::close(viewer);
                     },
                     [](QWidget& window) { tests::keysToFocus(window, "<Esc>"); }});
    EXPECT_EQ(value("SELECT RecordStatus FROM BILLING..tbCashAssessment WHERE AssessID = " + id), "R");
    EXPECT_EQ(mark, "RE-PRINT");
}

/// The work table is the section's: a print at a second desk empties it under the first one.
TEST_F(AssessmentRoad, TwoDesksShareTheWorkTableOfTheSlip) {
    run("DELETE tbNucChargeSlip");
    run("sp_Nuclear_DumpChargeSlip 'X9','OF ANOTHER DESK','1','1','1','1002','NU'");
    tests::runModal([] { SharedScreen<frmAssessmentStatus>::fresh().ShowModal(); },
                    {[](QWidget& window) {
                         list(window).select(list(window).Item(1));
                         click(btnPrint(window));
                     },
                     [](QWidget& viewer) { tests::close(viewer); },
                     [](QWidget& window) { tests::keysToFocus(window, "<Esc>"); }});
    EXPECT_EQ(count("NUCLEAR..tbNucChargeSlip", "ItemID = 'X9'"), 0);
    EXPECT_GT(count("NUCLEAR..tbNucChargeSlip", "UserID = '1001'"), 0);
}

} // namespace
