#include "platform/base/Format.h"
#include "platform/base/TestDoors.h"

#include <gtest/gtest.h>

using namespace base;

namespace {

const DateTime evening = *makeDateTime({2026, 3, 4}, {20, 5, 9});
const DateTime midnight = *makeDateTime({2026, 11, 21});

TEST(Format, WritesDatesForStatementsAndScreens) {
    EXPECT_EQ(Format(evening, "mm/dd/yyyy"), "03/04/2026");
    EXPECT_EQ(Format(evening, "mm/dd/yyyy hh:mm:ss AMPM"), "03/04/2026 08:05:09 PM");
    EXPECT_EQ(Format(evening, "mm/dd/yyyy hh:mm:ss AM/PM"), "03/04/2026 08:05:09 PM");
    EXPECT_EQ(Format(evening, "MM/dd/yyyy hh:mm"), "03/04/2026 20:05");
    EXPECT_EQ(Format(evening, "mm/dd/yyyy hh:mmAM/PM"), "03/04/2026 08:05PM");
    EXPECT_EQ(Format(evening, "MM/dd/yyyy hh:mmAMPM"), "03/04/2026 08:05PM");
    EXPECT_EQ(Format(evening, "hh:mmAM/PM"), "08:05PM");
    EXPECT_EQ(Format(evening, "yyyy/mm/dd"), "2026/03/04");
    EXPECT_EQ(Format(evening, "mm/dd/yy"), "03/04/26");
    EXPECT_EQ(Format(midnight, "hh:mmAM/PM"), "12:00AM");
}

TEST(Format, MinutesStandBehindHoursOnly) {
    EXPECT_EQ(Format(evening, "hh:mm mm"), "20:05 03");
    EXPECT_EQ(Format(evening, "m/d h:n"), "3/4 20:5");
    EXPECT_EQ(Format(evening, "dddd, mmmm d, yyyy"), "Wednesday, March 4, 2026");
    EXPECT_EQ(Format(evening, "ddd mmm"), "Wed Mar");
}

TEST(Format, WritesAmounts) {
    EXPECT_EQ(Format(1234.5, "0.00"), "1234.50");
    EXPECT_EQ(Format(0.0, "0.00"), "0.00");
    EXPECT_EQ(Format(-1.5, "0.00"), "-1.50");
    EXPECT_EQ(Format(1234567.891, "##,###.00"), "1,234,567.89");
    EXPECT_EQ(Format(0.5, "##,###.00"), ".50");
    EXPECT_EQ(Format(0.0, "##,###.00"), ".00");
    EXPECT_EQ(Format(1234.5, "####.00"), "1234.50");
    EXPECT_EQ(Format(123456.5, "#####.00"), "123456.50");
    EXPECT_EQ(Format(true, "0"), "-1");
    EXPECT_EQ(Format(0.256, "0.0%"), "25.6%");
    EXPECT_EQ(Format(1.5, "0.##"), "1.5");
}

TEST(Format, RoundsHalvesAwayFromZeroOnTheDecimalDigits) {
    EXPECT_EQ(Format(0.125, "0.00"), "0.13");
    EXPECT_EQ(Format(1.005, "0.00"), "1.01"); // 15 digits say 1.00500000000000
    EXPECT_EQ(Format(2.5, "0"), "3");
    EXPECT_EQ(Format(-2.5, "0"), "-3");
    EXPECT_EQ(Format(999.995, "0.00"), "1000.00");
    EXPECT_EQ(Format(0.0004, "0.00"), "0.00");
    EXPECT_EQ(Format(1e12 + 0.5, "0.00"), "1000000000000.50");
}

TEST(Format, TakesTextsAsTheGridsHoldThem) {
    EXPECT_EQ(Format("1,250.5", "0.00"), "1250.50");
    EXPECT_EQ(Format("", "0.00"), "");
    EXPECT_EQ(Format("abc", "0.00"), "abc");
    EXPECT_EQ(Format("11/21/2026", "yyyy/mm/dd"), "2026/11/21");
    EXPECT_EQ(Format(Value(), "mm/dd/yyyy"), "");
    EXPECT_EQ(Format("soon", "mm/dd/yyyy"), "soon");
}

TEST(Clock, IsFixedWhileATestSaysSo) {
    const DateTime before = now();
    {
        const FixedClock clock(evening);
        EXPECT_EQ(now(), evening);
        EXPECT_EQ(today(), *makeDateTime({2026, 3, 4}));
    }
    EXPECT_GE(now(), before);
}

} // namespace
