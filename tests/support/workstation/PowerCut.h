#pragma once

#include "platform/ado/Connection.h"

namespace tests {

/// Ends the process, with nothing closed or flushed, at one point of a save: before a statement, a begin or a
/// commit. One that is told to counts the points behind each statement, too, and those that it is shown.
class PowerCut : public ado::Observer {
  public:
    /// The exit code of a process that it ended.
    static constexpr int died = 77;

    enum class Points { Before, BeforeAndBehind };
    /// Counts `pointsLeft` down, and acts at 0; from 0 or less on it only counts.
    explicit PowerCut(int& pointsLeft, Points points = Points::Before);

    void beforeStatement(const QString& text, ado::StatementKind kind) override;
    void afterStatement(const ado::StatementEvent& event) override;
    void transactionStep(ado::TransactionStep step) override;
    /// A point that no statement tells of: behind a commit.
    void point();
    /// Statements, begins and commits that were seen.
    int statements() const { return m_statements; }

  private:
    int& m_left;
    Points m_points;
    int m_statements = 0;
};

} // namespace tests
