#pragma once

namespace tests {

/// Ends the process with 3 and says that it hangs, when it takes that many seconds of a processor without a
/// beat, or ten times as many of its own waiting: a machine that gives it no time is no fault of its. One for
/// the process.
class Watchdog {
  public:
    explicit Watchdog(int seconds);
    static void beat();
};

} // namespace tests
