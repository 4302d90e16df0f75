#pragma once

#include "tests/support/workstation/PowerCut.h"

#include <QString>

#include <functional>

namespace tests {

/// A workstation in a process of its own: logs 1001 on to a hospital file, does its work a number of times
/// and says what came of it, line by line. It can be made to die right before a step of a save, as when the
/// power goes.
/// An empty name of the file stands for the server that SCINTRA_TEST_DSN names.
///     PROGRAM FILE SAVES [STEP]
class Workstation {
  public:
    /// The exit code of a workstation that died.
    static constexpr int died = PowerCut::died;

    /// Returns the exit code; a run-time error is said, and ends the process with 1. A box is said and
    /// answered with OK. One that hangs is ended (Watchdog). What the longest save took is said on the
    /// standard error in the end.
    static int run(int argc, char** argv, const std::function<void(Workstation&)>& work);

    void say(const QString& line);
    /// What happens inside counts as steps: begin, statements, commit.
    void save(const std::function<void()>& body);

  private:
    int m_stepsLeft = 0;
    qint64 m_longest = 0; ///< milliseconds
};

} // namespace tests
