#include "ledger/frmDischargeNotice.h"

#include "platform/controls/list/ListView.h"
#include "tests/ledger/InquiryFixture.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {

using tests::child;
using tests::click;

const char* const columns = "PatientName,RoomID,IdNum,DischargeNurse,NoticeDate,ClearDate";
const QString listed = QStringLiteral("Nuclear..spNuclear_LoadDischargeNotice ");
const QString counted = QStringLiteral("Nuclear..spNuclear_LoadDischargeNoticeCount");
const QString checked = QStringLiteral("RADIOLOGY..spRadio_PendingRequestPatient '26004002','NU'");

class DischargeNotice : public tests::InquiryFixture {
  protected:
    DischargeNotice() {
        answer("Nuclear..spNuclear_LoadDischargeNotice ", columns,
               {{"SANTOS, MARIA L", "201", "26004001", "MERCADO, GRACE", "11/21/2026 7:10:00 AM",
                 "11/21/2026 8:00:00 AM"},
                {"CRUZ, JUAN D", "305", "26004002", "MERCADO, GRACE", "11/21/2026 8:10:00 AM", nullptr}});
    }

    void show(int waiting = 1) {
        answer("Nuclear..spNuclear_LoadDischargeNoticeCount", "recCount", {{waiting}});
        screen.Show();
        screen.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
    }
    /// Nothing pends for anybody unless a request is told.
    void answerPending(const std::vector<tests::Row>& requests = {}) {
        answer("RADIOLOGY..spRadio_PendingRequestPatient", "RequestNum", requests);
    }
    QPushButton& select() { return child<QPushButton>(screen, "cmdSelect"); }

    tests::RecordedCharacter merlin;
    ledger::frmDischargeNotice screen;
    controls::ListView& list = child<controls::ListView>(screen, "lvwRequest");
};

TEST_F(DischargeNotice, ListsTheNoticesWithTheirIcons) {
    show();
    EXPECT_EQ(screen.windowTitle(), QStringLiteral("Discharge Notice"));
    QStringList headers;
    for (int column = 0; column < list.columnCount(); ++column)
        headers += list.headerItem()->text(column);
    EXPECT_EQ(headers, (QStringList{"Patient", "Room", "Adm. #", "Discharge Nurse", "Notice Time"}));
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Item(1).Text(), QStringLiteral("SANTOS, MARIA L"));
    QStringList subItems;
    for (int index = 1; index <= 4; ++index)
        subItems += list.Item(1).SubItem(index);
    EXPECT_EQ(subItems, (QStringList{"201", "26004001", "MERCADO, GRACE", "11/21/2026 7:10:00 AM"}));
    EXPECT_EQ(list.Item(1).Icon(), QStringLiteral("clear"));
    EXPECT_EQ(list.Item(2).Icon(), QStringLiteral("open"));
    EXPECT_EQ(child<QLabel>(screen, "lblClear").text(), QStringLiteral("Cleared"));
    EXPECT_EQ(child<QLabel>(screen, "lblOpen").text(), QStringLiteral("Not Cleared"));
    EXPECT_EQ(takeTexts(), QStringList{listed});
    EXPECT_EQ(merlin.told, QStringList{"hide"}) << "before anything else";
}

TEST_F(DischargeNotice, SelectingNothingDoesNothing) {
    show();
    takeTexts();
    EXPECT_EQ(list.SelectedItem(), nullptr) << "opening chooses nobody";
    click(select());
    EXPECT_EQ(takeTexts(), QStringList());
    EXPECT_EQ(boxes(), QStringList());
    EXPECT_FALSE(screen.isUnloaded());
}

TEST_F(DischargeNotice, APatientWithoutPendingRequestsIsHandedOver) {
    answerPending();
    show();
    takeTexts();
    list.select(list.Item(2));
    click(select());
    EXPECT_EQ(takeTexts(), (QStringList{checked, counted}));
    EXPECT_TRUE(screen.isUnloaded());
    EXPECT_TRUE(screen.Valid);
    EXPECT_EQ(screen.IdNum, QStringLiteral("26004002"));
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(DischargeNotice, EnterAndADoubleClickSelectAsWell) {
    answerPending();
    show();
    tests::keys(list, "<Down><Down><Enter>");
    EXPECT_TRUE(screen.Valid);
    EXPECT_EQ(screen.IdNum, QStringLiteral("26004002"));
    ledger::frmDischargeNotice another;
    another.Show();
    auto& rows = child<controls::ListView>(another, "lvwRequest");
    const QPoint first = rows.visualItemRect(&rows.Item(1)).center();
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, first);
    QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, first);
    EXPECT_TRUE(another.Valid);
    EXPECT_EQ(another.IdNum, QStringLiteral("26004001"));
}

TEST_F(DischargeNotice, APatientWithPendingRequestsIsNot) {
    answerPending({{"7000001"}});
    show();
    takeTexts();
    list.select(list.Item(2));
    click(select());
    EXPECT_EQ(boxes(), QStringList{"64||The patient still have pending requests. Please process the requests "
                                   "before clearing the patient for discharge."});
    EXPECT_EQ(takeTexts(), (QStringList{checked, counted}));
    EXPECT_TRUE(screen.isUnloaded());
    EXPECT_FALSE(screen.Valid);
    EXPECT_EQ(screen.IdNum, QString());
}

TEST_F(DischargeNotice, CloseHandsNobodyOver) {
    show();
    list.select(list.Item(2));
    click(child<QPushButton>(screen, "cmdClose"));
    EXPECT_TRUE(screen.isUnloaded());
    EXPECT_FALSE(screen.Valid);
    EXPECT_EQ(screen.IdNum, QString());
}

TEST_F(DischargeNotice, CloseForgetsWhoWasHandedOverBefore) {
    screen.IdNum = QStringLiteral("26004001");
    show();
    click(child<QPushButton>(screen, "cmdClose"));
    EXPECT_EQ(screen.IdNum, QString());
}

TEST_F(DischargeNotice, TheCharacterComesBackWhileANoticeWaits) {
    show();
    screen.Unload();
    EXPECT_EQ(takeTexts().last(), counted);
    EXPECT_EQ(merlin.told, (QStringList{"hide", "show"}));
}

TEST_F(DischargeNotice, TheCharacterStaysAwayOnceAllAreCleared) {
    show(0);
    screen.Unload();
    EXPECT_EQ(merlin.told, (QStringList{"hide", "hide"}));
}

TEST_F(DischargeNotice, ADesktopWithoutACharacterListsThemToo) {
    session::setCharacter(nullptr);
    show();
    EXPECT_EQ(list.Count(), 2);
    EXPECT_TRUE(screen.Unload());
}

} // namespace
