#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "tests/support/core/Raised.h"

#include <gtest/gtest.h>

#include <limits>

using namespace base;

namespace {

DateTime day(int year, int month, int dayOfMonth) {
    return *makeDateTime({year, month, dayOfMonth});
}

int errorOf(const std::function<void()>& body) {
    return tests::raised(body).number();
}

constexpr double endless = std::numeric_limits<double>::infinity();

TEST(DateTime, ASerialNumberBeyondTheCalendarOverflows) {
    EXPECT_EQ(fromSerial(-657'434), day(100, 1, 1));
    EXPECT_EQ(dateOnly(fromSerial(2'958'465.5)), day(9999, 12, 31));
    for (const double days : {-657'434.5, 2'958'466.0, 1e300, -1e300, endless, std::nan("")}) {
        EXPECT_EQ(errorOf([&] { fromSerial(days); }), errors::overflow) << days;
        EXPECT_EQ(errorOf([&] { CDate(days); }), errors::overflow) << days;
        EXPECT_EQ(errorOf([&] { Format(days, "mm/dd/yyyy"); }), errors::overflow) << days;
    }
}

TEST(DateTime, DaysThatLeaveTheCalendarOverflow) {
    EXPECT_EQ(addDays(day(2026, 2, 28), 1), day(2026, 3, 1));
    EXPECT_EQ(addDays(day(2026, 3, 1), -1.9), day(2026, 2, 28));
    EXPECT_EQ(addDays(day(9999, 12, 30), 1), day(9999, 12, 31));
    for (const double days : {1.0, 1e9, 1e300, endless, std::nan("")})
        EXPECT_EQ(errorOf([&] { addDays(day(9999, 12, 31), days); }), errors::overflow) << days;
    EXPECT_EQ(errorOf([] { addDays(day(1, 1, 1), -1); }), errors::overflow);
}

TEST(DateTime, AMomentBeyondTheCalendarHasNoDate) {
    EXPECT_EQ(calendarDate(day(9999, 12, 31)).year, 9999);
    EXPECT_EQ(calendarDate(day(1, 1, 1)).year, 1);
    EXPECT_EQ(errorOf([] { calendarDate({day(9999, 12, 31).ms + 86'400'000}); }), errors::overflow);
    EXPECT_EQ(errorOf([] { calendarDate({std::numeric_limits<qint64>::max()}); }), errors::overflow);
    EXPECT_EQ(errorOf([] { calendarDate({std::numeric_limits<qint64>::min()}); }), errors::overflow);
}

TEST(DateTime, AYearBeyondTheCalendarIsNoDay) {
    EXPECT_EQ(makeDateTime({0, 1, 1}), std::nullopt);
    EXPECT_EQ(makeDateTime({10000, 1, 1}), std::nullopt);
    EXPECT_EQ(makeDateTime({65536 + 2026, 11, 21}), std::nullopt) << "not 2026 again";
}

} // namespace
