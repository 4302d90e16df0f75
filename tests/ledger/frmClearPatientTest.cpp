#include "ledger/frmClearPatient.h"

#include "ledger/frmDischargeNotice.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/list/ListView.h"
#include "session/WorkDone.h"
#include "tests/ledger/InquiryFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

using tests::child;
using tests::click;

const char* const noticeColumns =
    "LastName,FirstName,MiddleName,HospNum,IdNum,AdmDate,RoomID,Doctor,OrderDate,"
    "NoticeDate,DischargeNurse,Remarks,ClearDate,ClearRemarks,UserID";
const QString oneNotice = QStringLiteral("Nuclear..spNuclear_LoadDischargeNoticePatient '26004001'");
const QString charges = QStringLiteral("Nuclear..spNuclear_GetForDischargePatientChages '26004001'");
const QString listed = QStringLiteral("Nuclear..spNuclear_LoadDischargeNotice ");

class ClearPatient : public tests::InquiryFixture {
  protected:
    void answerNotice(const base::Value& admitted = "11/16/2026 10:30:00 AM",
                      const base::Value& cleared = nullptr, const base::Value& remarks = nullptr,
                      const base::Value& user = nullptr) {
        answer("Nuclear..spNuclear_LoadDischargeNoticePatient", noticeColumns,
               {{"SANTOS", "MARIA", "REYES", "104001", "26004001", admitted, "201", "CRUZ, ANA",
                 "11/21/2026 6:30:00 AM", "11/21/2026 7:30:00 AM", "MERCADO, GRACE", "MAY GO HOME", cleared,
                 remarks, user}});
    }
    void answerCleared() { answerNotice("11/16/2026", "11/21/2026 8:00:00 AM", "NO BALANCE", "1002"); }
    void show() {
        answerRest({"Nuclear..spNuclear_LoadDischargeNoticePatient",
                    "Nuclear..spNuclear_GetForDischargePatientChages",
                    "Nuclear..spNuclear_LoadDischargeNotice "});
        screen.IdNum = QStringLiteral("26004001");
        screen.Show();
        screen.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
    }
    QString text(const char* box) { return child<QLineEdit>(screen, box).text(); }
    QPushButton& save() { return child<QPushButton>(screen, "cmdSave"); }

    ledger::frmClearPatient screen;
};

TEST_F(ClearPatient, ShowsTheNoticeAndWhoIsAboutToClearIt) {
    answerNotice();
    show();
    EXPECT_EQ(screen.windowTitle(), QStringLiteral("Clear Patient"));
    EXPECT_EQ(takeTexts(), (QStringList{oneNotice, charges}));
    EXPECT_EQ(text("txtLastName"), QStringLiteral("SANTOS"));
    EXPECT_EQ(text("txtFirstName"), QStringLiteral("MARIA"));
    EXPECT_EQ(text("txtMiddleName"), QStringLiteral("REYES"));
    EXPECT_EQ(text("txtHospNum"), QStringLiteral("104001"));
    EXPECT_EQ(text("txtAdmNo"), QStringLiteral("26004001"));
    EXPECT_EQ(text("txtDoctor"), QStringLiteral("CRUZ, ANA"));
    EXPECT_EQ(text("txtRoom"), QStringLiteral("201"));
    EXPECT_EQ(text("txtAdmDate"), QStringLiteral("11/16/2026 10:30:00 AM"));
    EXPECT_EQ(text("txtOrderDate"), QStringLiteral("11/21/2026 6:30:00 AM"));
    EXPECT_EQ(text("txtNoticeDate"), QStringLiteral("11/21/2026 7:30:00 AM"));
    EXPECT_EQ(text("txtDischargeNurse"), QStringLiteral("MERCADO, GRACE"));
    EXPECT_EQ(text("txtRemarks"), QStringLiteral("MAY GO HOME"));
    EXPECT_EQ(text("txtClearDate"), QStringLiteral("For clearing"));
    EXPECT_EQ(text("txtClearedBy"), QStringLiteral("(1001) REYES, JOAN P."));
    EXPECT_EQ(text("txtClearRemarks"), QString());
    EXPECT_EQ(save().text(), QStringLiteral("&Save"));
}

TEST_F(ClearPatient, ANullAdmissionDateShowsAsEmpty) {
    answerNotice(nullptr);
    show();
    EXPECT_EQ(text("txtAdmDate"), QString());
}

TEST_F(ClearPatient, ListsWhatTheDepartmentCharged) {
    answerNotice();
    answer("Nuclear..spNuclear_GetForDischargePatientChages",
           "ChargeSlip#,Code,Particular,Qty,Amount,IssueDate",
           {{"C20022J", "1001", "BONE SCAN", "1", "6240", "11/20/2026 3:27:00 AM"}});
    show();
    const auto& grid = child<controls::FlexGrid>(screen, "GridCharges");
    ASSERT_EQ(grid.Cols(), 6);
    QStringList headers, cells;
    for (int column = 0; column < 6; ++column) {
        headers += grid.TextMatrix(0, column).trimmed();
        cells += grid.TextMatrix(1, column);
    }
    EXPECT_EQ(headers, (QStringList{"ChargeSlip#", "Code", "Particular", "Qty", "Amount", "IssueDate"}));
    EXPECT_EQ(cells, (QStringList{"C20022J", "1001", "BONE SCAN", "1", "6,240.00", "11/20/2026 3:27:00 AM"}));
    EXPECT_TRUE(grid.isVisible());
    EXPECT_FALSE(child<QLabel>(screen, "lblNoCharges").isVisible());
}

TEST_F(ClearPatient, WithoutChargesALabelSaysSo) {
    answerNotice();
    show();
    EXPECT_FALSE(child<controls::FlexGrid>(screen, "GridCharges").isVisible());
    EXPECT_TRUE(child<QLabel>(screen, "lblNoCharges").isVisible());
    EXPECT_EQ(child<QLabel>(screen, "lblNoCharges").text(), QStringLiteral("NO CHARGES"));
}

TEST_F(ClearPatient, SavesARemarkWithABackQuoteForEachQuote) {
    answerNotice();
    show();
    takeTexts();
    tests::keys(child<QLineEdit>(screen, "txtClearRemarks"), "Mother's 'ok'<Enter><Enter>");
    EXPECT_EQ(takeTexts(),
              (QStringList{"Nuclear..spNuclear_ClearPatientForDischarge '26004001','Mother`s `ok`','1001'",
                           listed}));
    EXPECT_EQ(boxes(), QStringList{"64||Patient has been cleared for discharge."});
    EXPECT_TRUE(screen.isUnloaded());
    ASSERT_EQ(session::workDone().size(), 1U);
    EXPECT_EQ(session::workDone().front().work, session::Work::Clearance);
    EXPECT_EQ(session::workDone().front().IdNum, QStringLiteral("26004001"));
}

TEST_F(ClearPatient, RefreshesTheListOfNotices) {
    answer("Nuclear..spNuclear_LoadDischargeNotice ", "PatientName", {}, true);
    auto& list = controls::SharedScreen<ledger::frmDischargeNotice>::fresh();
    list.Show();
    auto& rows = child<controls::ListView>(list, "lvwRequest");
    EXPECT_EQ(rows.Count(), 0);
    answer("Nuclear..spNuclear_LoadDischargeNotice ",
           "PatientName,RoomID,IdNum,DischargeNurse,NoticeDate,ClearDate",
           {{"CRUZ, JUAN D", "305", "26004002", "MERCADO, GRACE", "11/21/2026", nullptr}});
    answerNotice();
    show();
    takeTexts();
    click(child<QPushButton>(screen, "cmdIgnore"));
    EXPECT_EQ(takeTexts(), QStringList{listed});
    EXPECT_EQ(rows.Count(), 1);
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(ClearPatient, OneWhoWasClearedCannotBeClearedAgain) {
    answerCleared();
    show();
    EXPECT_EQ(save().text(), QStringLiteral("&Close"));
    EXPECT_EQ(text("txtClearDate"), QStringLiteral("11/21/2026 8:00:00 AM"));
    EXPECT_EQ(text("txtClearedBy"), QStringLiteral("1002"));
    EXPECT_EQ(text("txtClearRemarks"), QStringLiteral("NO BALANCE"));
    EXPECT_TRUE(child<QLineEdit>(screen, "txtClearRemarks").isReadOnly());
    takeTexts();
    click(save());
    EXPECT_EQ(takeTexts(), QStringList{listed});
    EXPECT_EQ(boxes(), QStringList());
    EXPECT_TRUE(screen.isUnloaded());
}

TEST_F(ClearPatient, ANoticeThatIsGoneCannotBeAnswered) {
    show();
    EXPECT_FALSE(save().isEnabled());
    QTest::keyClick(&screen, Qt::Key_Escape);
    EXPECT_TRUE(screen.isUnloaded());
}

} // namespace
