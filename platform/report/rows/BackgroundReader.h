#pragma once

#include "platform/ado/Connection.h"
#include "platform/report/rows/StoreSink.h"

#include <thread>

namespace report {

/// Reads a statement's rows on a thread of its own, over a connection that is used for nothing else. Made,
/// asked and destroyed by one thread; going away it stops, and waits for the server to let go.
class BackgroundReader {
  public:
    BackgroundReader(std::unique_ptr<ado::Connection> connection, const ado::Statement& statement);
    ~BackgroundReader();
    BackgroundReader(const BackgroundReader&) = delete;
    BackgroundReader& operator=(const BackgroundReader&) = delete;

    /// Null before the first result begins; another store when a further result does.
    std::shared_ptr<RowStore> rows() const { return m_sink.rows(); }
    /// The statement has ended, whichever way; nothing changes any more.
    bool isFinished() const { return m_finished.load(std::memory_order_acquire); }
    /// Raises what the statement raised; for a finished one.
    void throwError() const;
    void stop() { m_sink.stop(); }
    /// Until rows come or the statement ends, or the time is up.
    void waitForRows(int milliseconds);

  private:
    void read(const ado::Statement& statement);

    std::unique_ptr<ado::Connection> m_connection;
    StoreSink m_sink;
    std::exception_ptr m_error; ///< written before m_finished
    std::atomic<bool> m_finished{false};
    std::mutex m_mutex; ///< for m_news
    std::condition_variable m_changed;
    bool m_news = false;
    std::thread m_thread;
};

} // namespace report
