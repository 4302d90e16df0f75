#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace bench {

/// One run of one side; gives its own time in nanoseconds, so that what it sets up stays outside.
using Run = std::function<qint64(int round)>;

/// Nanoseconds that `body` takes.
qint64 timed(const std::function<void()>& body);

struct Side {
    double median = 0; ///< nanoseconds
    double p95 = 0;    ///< nanoseconds
};

struct Outcome {
    Side ours;
    Side floor;
    double ratio() const { return floor.median > 0 ? ours.median / floor.median : 0; }
};

/// Runs both sides in turn, the other one first in every second round, after `warmUp` rounds that do not
/// count.
Outcome interleave(int rounds, int warmUp, const Run& ours, const Run& floor);

/// One line a measure: name, ours, floor, ratio, goal. A goal of 0 is none.
class Report {
  public:
    static void heading();
    /// True when the goal is met or there is none.
    static bool line(const QString& name, const Outcome& outcome, double goal);
    /// Two plain amounts beside each other, in any unit.
    static bool amounts(const QString& name, double ours, double floor, const QString& unit, double goal);
    static void note(const QString& text);
};

/// Bytes of memory this process has held at most; 0 where the system does not tell.
qint64 peakMemory();

} // namespace bench
