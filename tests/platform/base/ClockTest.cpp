#include "platform/base/DateTime.h"
#include "platform/base/TestDoors.h"

#include <gtest/gtest.h>

namespace {

using namespace base;

constexpr qint64 msPerDay = 86'400'000;

TEST(ClockAhead, RunsAheadWhileItLives) {
    const DateTime before = now();
    {
        const ClockAhead ahead(40);
        EXPECT_GE(now().ms, before.ms + 40 * msPerDay);
        EXPECT_LT(now().ms, before.ms + 40 * msPerDay + msPerDay / 2);
        const ClockAhead further(-41);
        EXPECT_LT(now().ms, before.ms);
    }
    EXPECT_LT(now().ms, before.ms + msPerDay / 2);
}

TEST(ClockAhead, DoesNotMoveAFixedClock) {
    const FixedClock fixed(*makeDateTime({2026, 11, 21}, {8, 30}));
    const ClockAhead ahead(1);
    EXPECT_EQ(now(), *makeDateTime({2026, 11, 21}, {8, 30}));
}

} // namespace
