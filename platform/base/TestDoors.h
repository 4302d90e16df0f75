#pragma once

#include "platform/base/DateTime.h"

#include <optional>

namespace base {

/// Fixes now() while it lives; then the clock is again what it was before. For tests only.
class FixedClock {
  public:
    explicit FixedClock(DateTime moment);
    ~FixedClock();
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;

  private:
    std::optional<DateTime> m_outer;
};

/// Lets now() run ahead of the computer's clock by so many days, while it lives.
class ClockAhead {
  public:
    explicit ClockAhead(int days);
    ~ClockAhead();
    ClockAhead(const ClockAhead&) = delete;
    ClockAhead& operator=(const ClockAhead&) = delete;

  private:
    qint64 m_ms;
};

} // namespace base
