#include "platform/controls/fields/MaskedDate.h"
#include "tests/support/screens/Driver.h"

#include <QTest>

#include <gtest/gtest.h>

namespace controls {

namespace {

class MaskedDateTest : public testing::Test {
  protected:
    MaskedDateTest() {
        field.setObjectName(QStringLiteral("txtBirthDate"));
        field.resize(field.sizeHint());
        field.show();
    }
    MaskedDate field;
};

} // namespace

TEST_F(MaskedDateTest, ShowsItsMaskUntilSomethingIsTyped) {
    EXPECT_EQ(field.Text(), QStringLiteral("__/__/____"));
    EXPECT_TRUE(field.isEmpty());
    EXPECT_FALSE(field.date());
    tests::keys(field, QStringLiteral("1"));
    EXPECT_EQ(field.Text(), QStringLiteral("1_/__/____"));
    EXPECT_FALSE(field.isEmpty());
    EXPECT_FALSE(field.date());
}

TEST_F(MaskedDateTest, TakesDigitsOnlyAndStepsOverTheSlashes) {
    tests::keys(field, QStringLiteral("11x212026"));
    EXPECT_EQ(field.Text(), QStringLiteral("11/21/2026"));
    EXPECT_EQ(field.date(), base::makeDateTime({2026, 11, 21}));
}

TEST_F(MaskedDateTest, ADayThatDoesNotExistIsNoDate) {
    tests::keys(field, QStringLiteral("02302026"));
    EXPECT_EQ(field.Text(), QStringLiteral("02/30/2026"));
    EXPECT_FALSE(field.date());
}

TEST_F(MaskedDateTest, ADayThatTheServerDoesNotTakeIsNoDate) {
    for (const auto& [text, isDate] : {std::pair("12/31/1752", false),
                                       {"01/01/1753", true},
                                       {"12/30/9999", true},
                                       {"12/31/9999", false}}) {
        field.setText(QString::fromLatin1(text));
        EXPECT_EQ(field.date().has_value(), isDate) << text;
    }
}

TEST_F(MaskedDateTest, CodeSetsDatesTextsAndTheEmptyMask) {
    field.setDate(*base::makeDateTime({1972, 3, 14}));
    EXPECT_EQ(field.Text(), QStringLiteral("03/14/1972"));
    field.setText(QStringLiteral("01/02/2003"));
    EXPECT_EQ(field.Text(), QStringLiteral("01/02/2003"));
    field.setText(MaskedDate::emptyText);
    EXPECT_TRUE(field.isEmpty());
    field.setText(QStringLiteral("01/02/2003"));
    field.clear();
    EXPECT_EQ(field.Text(), MaskedDate::emptyText);
}

TEST_F(MaskedDateTest, AClickInTheEmptyMaskTypesFromItsStart) {
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(field.width() - 20, field.height() / 2));
    tests::keysToFocus(field, QStringLiteral("0"));
    EXPECT_EQ(field.Text(), QStringLiteral("0_/__/____"));
}

TEST_F(MaskedDateTest, ReachedByTabItIsTypedOver) {
    field.setText(QStringLiteral("01/02/2003"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    field.clearFocus();
    field.setFocus(Qt::TabFocusReason);
    tests::keysToFocus(field, QStringLiteral("12"));
    EXPECT_EQ(field.Text(), QStringLiteral("12/__/____"));
}

} // namespace controls
