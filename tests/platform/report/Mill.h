#pragma once

#include "platform/report/Report.h"
#include "tests/platform/report/Bench.h"

#include <atomic>
#include <condition_variable>
#include <mutex>

namespace tests {

/// A server that makes its rows as they are asked for and can be held up between two of them. What tests set
/// is set before the report starts.
class Mill {
  public:
    QString columns = QStringLiteral("A,N");
    qint64 rows = 0;
    /// Row `index`, from 0.
    std::function<std::vector<base::Value>(qint64 index)> row = [](qint64 index) {
        return std::vector<base::Value>{QStringLiteral("group %1").arg(index / 10), index};
    };
    qint64 failingAt = -1;  ///< the row instead of which error 1205 comes
    qint64 heldAt = -1;     ///< the row before which the server waits for letGo()
    qint64 firstResult = 0; ///< rows of another result that is sent before this one

    report::LogOn logOn();
    /// Waits until the server stands still before `heldAt`.
    void waitUntilHeld();
    /// The server goes on, up to row `next`; -1: to the end.
    void letGo(qint64 next = -1);
    qint64 handed() const { return m_handed; }
    int connections() const { return m_connections; }

  private:
    class Server;
    void send(ado::RowSink& sink, ado::Streamed& end);
    bool hold(qint64 index, const ado::RowSink& sink);

    std::atomic<qint64> m_handed{0};
    std::atomic<int> m_connections{0}; ///< open at present
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_held = false;
};

} // namespace tests
