#include "platform/controls/fields/ShownText.h"

#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

namespace {

class ShownText : public testing::Test {
  protected:
    ShownText() {
        field.setReadOnly(true);
        field.setText("SAN AGUSTIN, ALEJANDRO GUERRERO");
        field.resize(90, 28);
        field.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&field));
    }
    QString toolTip() {
        QHelpEvent asks(QEvent::ToolTip, QPoint(5, 5), field.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&field, &asks);
        return QToolTip::text();
    }
    QImage picture(const QString& text) {
        field.setText(text);
        return field.grab().toImage();
    }
    controls::ShownText field;
};

TEST_F(ShownText, ATextThatIsTooWideEndsInAnEllipsisAndStandsWholeInTheToolTip) {
    EXPECT_TRUE(field.isShortened());
    EXPECT_EQ(toolTip(), "SAN AGUSTIN, ALEJANDRO GUERRERO");
    EXPECT_EQ(field.text(), "SAN AGUSTIN, ALEJANDRO GUERRERO");
    // Two texts that differ behind the ellipsis alone look the same.
    EXPECT_EQ(picture("SAN AGUSTIN, ALEJANDRO GUERRERO"), picture("SAN AGUSTIN, BARTOLOME"));
    field.resize(600, 28);
    EXPECT_FALSE(field.isShortened());
    EXPECT_NE(picture("SAN AGUSTIN, ALEJANDRO GUERRERO"), picture("SAN AGUSTIN, BARTOLOME"));
}

TEST_F(ShownText, HasRoomForANumberOfTheHospitalOrForWhatIsSaid) {
    field.setText("1040788");
    field.resize(field.minimumSizeHint());
    EXPECT_FALSE(field.isShortened());
    field.setText("12/31/2026 12:59:59 PM");
    EXPECT_TRUE(field.isShortened());
    field.setRoomFor("12/31/2026 12:59:59 PM");
    field.resize(field.minimumSizeHint());
    EXPECT_FALSE(field.isShortened());
}

TEST_F(ShownText, WhatIsTypedInIsNeverShortened) {
    field.setReadOnly(false);
    EXPECT_FALSE(field.isShortened());
}

} // namespace
