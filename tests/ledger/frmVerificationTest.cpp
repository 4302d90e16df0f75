#include "ledger/frmVerification.h"

#include "platform/controls/list/ListView.h"
#include "platform/controls/look/Look.h"
#include "tests/ledger/InquiryFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace {

using tests::child;
using tests::keys;

const char* const columns = "Receipt #,Payment From,transaction Date,Amount,Transaction Type";

class Verification : public tests::InquiryFixture {
  protected:
    Verification()
        : receipt(child<QRadioButton>(screen, "Option1_0"))
        , slip(child<QRadioButton>(screen, "Option1_1"))
        , number(child<QLineEdit>(screen, "txtSearch"))
        , issued(child<controls::ListView>(screen, "lvwIssued")) {
        screen.Show();
        screen.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
    }

    ledger::frmVerification screen;
    QRadioButton& receipt;
    QRadioButton& slip;
    QLineEdit& number;
    controls::ListView& issued;
};

TEST_F(Verification, OpensWithNeitherOptionAndItsFiveHeaders) {
    EXPECT_EQ(screen.windowTitle(), QStringLiteral("OR/CHARGESLIP INQUIRY"));
    EXPECT_EQ(receipt.text(), QStringLiteral("OR#"));
    EXPECT_EQ(slip.text(), QStringLiteral("CHARGESLIP#"));
    EXPECT_FALSE(receipt.isChecked());
    EXPECT_FALSE(slip.isChecked());
    QStringList headers;
    for (int column = 0; column < issued.columnCount(); ++column)
        headers += issued.headerItem()->text(column);
    EXPECT_EQ(headers,
              (QStringList{"Receipt #", "Payment From", "Transaction Date", "Amount", "Transaction Type"}));
    EXPECT_EQ(takeTexts(), QStringList());
}

TEST_F(Verification, AReceiptAndAChargeSlipHaveAStatementEach) {
    answer("Nuclear..sp", columns);
    keys(receipt, " or31001<Enter>");
    EXPECT_TRUE(receipt.isChecked());
    EXPECT_EQ(takeTexts(), QStringList{"Nuclear..spCash_InquiryList 'OR31001'"});
    keys(number, "<Alt+H>c20020j");
    tests::click(child<QPushButton>(screen, "cmdSearch"));
    EXPECT_TRUE(slip.isChecked());
    EXPECT_EQ(takeTexts(), QStringList{"Nuclear..spCharge_InquiryList 'C20020J'"});
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(Verification, AnEmptyTextIsSentAsItStands) {
    answer("Nuclear..sp", columns);
    keys(number, "<Alt+O><Enter>");
    EXPECT_EQ(takeTexts(), QStringList{"Nuclear..spCash_InquiryList ''"});
}

TEST_F(Verification, TheBlanksOfATextAreSentAsWell) {
    answer("Nuclear..sp", columns);
    keys(number, "<Alt+O>");
    keys(number, " or1 <Enter>");
    EXPECT_EQ(takeTexts(), QStringList{"Nuclear..spCash_InquiryList ' OR1 '"});
}

TEST_F(Verification, EachColumnIsReadByItsNameAndANullShowsAsEmpty) {
    answer("Nuclear..spCash_InquiryList", columns,
           {{"OR31001", "CRUZ, JUAN D", "11/20/2026 8:30:00 AM", "5200", "NUCLEAR MEDICINE"},
            {"OR31001", nullptr, nullptr, nullptr, nullptr}});
    keys(number, "<Alt+O>OR31001<Enter>");
    ASSERT_EQ(issued.Count(), 2);
    const controls::ListItem& first = issued.Item(1);
    EXPECT_EQ(first.Text(), QStringLiteral("OR31001"));
    QStringList subItems;
    for (int index = 1; index <= 4; ++index)
        subItems += first.SubItem(index);
    EXPECT_EQ(subItems, (QStringList{"CRUZ, JUAN D", "11/20/2026 8:30:00 AM", "5200", "NUCLEAR MEDICINE"}));
    for (int index = 1; index <= 4; ++index)
        EXPECT_EQ(issued.Item(2).SubItem(index), QString());
    EXPECT_TRUE(number.hasFocus());
    EXPECT_EQ(number.selectedText(), QStringLiteral("OR31001")) << "the next one is typed over it";
}

TEST_F(Verification, AnUnknownNumberEmptiesTheListAndShowsNoMessage) {
    answer("Nuclear..spCash_InquiryList 'OR1'", columns, {{"OR1", "A", "B", "1", "C"}});
    answer("Nuclear..spCash_InquiryList", columns);
    keys(number, "<Alt+O>OR1<Enter>");
    ASSERT_EQ(issued.Count(), 1);
    keys(number, "9<Enter>");
    EXPECT_EQ(takeTexts().last(), QStringLiteral("Nuclear..spCash_InquiryList '9'"));
    EXPECT_EQ(issued.Count(), 0);
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(Verification, WithoutAnOptionTheListStaysAsItWas) {
    answer("Nuclear..spCash_InquiryList", columns, {{"OR1", "A", "B", "1", "C"}});
    keys(number, "<Alt+O>OR1<Enter>");
    ASSERT_EQ(issued.Count(), 1);
    takeTexts();
    receipt.setAutoExclusive(false);
    receipt.setChecked(false);
    keys(number, "<Enter>");
    EXPECT_EQ(boxes(), QStringList{"64|Information|Please Enter the OR/ChargeSlip # to Inquire"});
    EXPECT_EQ(takeTexts(), QStringList());
    EXPECT_EQ(issued.Count(), 1);
}

TEST_F(Verification, TheReceiptIsAskedForFirst) {
    answer("Nuclear..sp", columns);
    receipt.setAutoExclusive(false);
    slip.setAutoExclusive(false);
    receipt.setChecked(true);
    slip.setChecked(true);
    keys(number, "7<Enter>");
    EXPECT_EQ(takeTexts(), QStringList{"Nuclear..spCash_InquiryList '7'"});
}

TEST_F(Verification, TheNumbersBoxIsColouredWhileItHasTheFocus) {
    const auto ground = [this] {
        QTest::qWait(0);
        return number.grab().toImage().pixelColor(number.width() / 2, number.height() / 2).name();
    };
    number.setFocus();
    EXPECT_EQ(ground(), QStringLiteral("#00ffff"));
    issued.setFocus();
    EXPECT_EQ(ground(), controls::look::card.name());
}

TEST_F(Verification, ItsCommandAndEscapeLeave) {
    tests::click(child<QPushButton>(screen, "cmdClose"));
    EXPECT_TRUE(screen.isUnloaded());
    ledger::frmVerification another;
    another.Show();
    QTest::keyClick(&another, Qt::Key_Escape);
    EXPECT_TRUE(another.isUnloaded());
}

} // namespace
