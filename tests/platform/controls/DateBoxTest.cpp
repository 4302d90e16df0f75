#include "platform/controls/fields/DateBox.h"
#include "platform/base/TestDoors.h"
#include "tests/support/screens/Driver.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace controls {

namespace {

class DateBoxTest : public testing::Test {
  protected:
    DateBoxTest() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(field);
        layout->addWidget(next);
        field->setDate(day(2026, 11, 21));
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field->setFocus(Qt::TabFocusReason);
    }
    static base::DateTime day(int year, int month, int dayOfMonth) {
        return *base::makeDateTime({year, month, dayOfMonth});
    }
    void type(const QString& text) { tests::keys(*field, text); }

    QWidget window;
    DateBox* field = new DateBox;
    QPushButton* next = new QPushButton;
};

struct Typed {
    const char* keys;
    const char* date;
};

class DateTyped : public DateBoxTest, public testing::WithParamInterface<Typed> {};

} // namespace

TEST(DateBox, StartsWithToday) {
    const base::FixedClock clock(*base::makeDateTime({2026, 3, 5}, {23, 59}));
    EXPECT_EQ(DateBox().date(), *base::makeDateTime({2026, 3, 5}));
    EXPECT_EQ(DateBox().text(), "03/05/2026");
}

TEST_P(DateTyped, IsTheDateThatStandsThereWhenItIsLeft) {
    type(GetParam().keys);
    EXPECT_EQ(field->dateText(), GetParam().date) << "while it is typed";
    tests::keys(*field, "<Tab>");
    EXPECT_TRUE(next->hasFocus()) << "one stop of Tab";
    EXPECT_EQ(field->text(), GetParam().date);
    EXPECT_EQ(field->dateText(), GetParam().date);
}

INSTANTIATE_TEST_SUITE_P(DateBox, DateTyped,
                         testing::Values(Typed{"", "11/21/2026"}, Typed{"02/03/2024", "02/03/2024"},
                                         Typed{"02032024", "02/03/2024"}, Typed{"2/3/2024", "02/03/2024"},
                                         Typed{"2/3/24", "02/03/2024"}, Typed{"12/1/29", "12/01/2029"},
                                         Typed{"12/1/30", "12/01/1930"}, Typed{"020324", "02/03/2024"},
                                         // parts left out stay
                                         Typed{"3", "03/21/2026"}, Typed{"3/4", "03/04/2026"},
                                         Typed{"03/", "03/21/2026"}, Typed{"00/00/0000", "11/21/2026"},
                                         Typed{"3/4/202", "03/04/2026"},
                                         // days that do not exist
                                         Typed{"02/29/2024", "02/29/2024"}, Typed{"02/29/2026", "02/28/2026"},
                                         Typed{"02/30/2026", "02/28/2026"}, Typed{"04/99/2026", "04/30/2026"},
                                         Typed{"31/12/2026", "12/31/2026"},
                                         Typed{"99/99/2026", "12/31/2026"}));

TEST_F(DateBoxTest, TheLengthOfTheFormerMonthDoesNotCutTheDay) {
    field->setDate(day(2026, 2, 28));
    type("03312026");
    EXPECT_EQ(field->date(), day(2026, 3, 31));
}

TEST_F(DateBoxTest, UpAndDownStepTheDayOrThePartAtTheCursor) {
    type("<Down>");
    EXPECT_EQ(field->text(), "11/20/2026");
    type("<Home><Up>");
    EXPECT_EQ(field->text(), "12/20/2026");
    type("<Up>");
    EXPECT_EQ(field->text(), "01/20/2026") << "the year stays";
    type("<End><Down>");
    EXPECT_EQ(field->text(), "01/20/2025");
    field->setDate(day(2024, 2, 29));
    type("<End><Up>");
    EXPECT_EQ(field->text(), "02/28/2025");
    field->setDate(day(2026, 12, 31));
    field->selectAll();
    type("<Up>");
    EXPECT_EQ(field->text(), "01/01/2027");
}

TEST_F(DateBoxTest, HoldsTheDaysThatTheServerTakes) {
    field->setDate(day(9999, 12, 31));
    EXPECT_EQ(field->text(), "12/30/9999");
    type("<Up>");
    EXPECT_EQ(field->dateText(), "12/30/9999");
    type("<End><Up>");
    EXPECT_EQ(field->dateText(), "12/30/9999");
    field->selectAll();
    type("12319999");
    EXPECT_EQ(field->dateText(), "12/30/9999") << "while it is typed";
    type("<Tab>");
    EXPECT_EQ(field->text(), "12/30/9999");
    field->setDate(day(1600, 5, 1));
    EXPECT_EQ(field->text(), "01/01/1753");
    field->setFocus(Qt::TabFocusReason);
    type("<Down>");
    EXPECT_EQ(field->dateText(), "01/01/1753");
    field->setDate(day(9999, 12, 30));
    QTest::keyClick(field, Qt::Key_F4);
    auto* popUp = QApplication::activePopupWidget();
    ASSERT_NE(popUp, nullptr);
    const auto* calendar = popUp->findChild<QCalendarWidget*>();
    EXPECT_EQ(calendar->minimumDate(), QDate(1753, 1, 1));
    EXPECT_EQ(calendar->maximumDate(), QDate(9999, 12, 30));
    popUp->close();
}

TEST_F(DateBoxTest, TheCalendarOpensOnTheDateAndTakesAnother) {
    type("11/5/26");
    QTest::keyClick(field, Qt::Key_F4);
    auto* popUp = QApplication::activePopupWidget();
    ASSERT_NE(popUp, nullptr);
    auto* calendar = popUp->findChild<QCalendarWidget*>();
    ASSERT_NE(calendar, nullptr);
    EXPECT_EQ(calendar->selectedDate(), QDate(2026, 11, 5));
    QWidget* days = calendar->findChild<QWidget*>("qt_calendar_calendarview");
    ASSERT_NE(days, nullptr);
    QTest::keyClick(days, Qt::Key_Right);
    QTest::keyClick(days, Qt::Key_Return);
    EXPECT_EQ(field->text(), "11/06/2026");
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(DateBoxTest, AltDownOpensTheCalendarAndAltF4DoesNot) {
    QTest::keyClick(field, Qt::Key_F4, Qt::AltModifier);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(field, Qt::Key_Down, Qt::AltModifier);
    auto* popUp = QApplication::activePopupWidget();
    ASSERT_NE(popUp, nullptr);
    popUp->close();
    EXPECT_EQ(field->text(), "11/21/2026");
}

TEST_F(DateBoxTest, EscapeLeavesTheCalendarWithTheDateAsItWas) {
    field->findChild<QAction*>("openCalendar")->trigger();
    auto* popUp = QApplication::activePopupWidget();
    ASSERT_NE(popUp, nullptr);
    QTest::keyClick(popUp, Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(field->text(), "11/21/2026");
}

} // namespace controls
