#include "platform/report/rows/BackgroundReader.h"

#include <chrono>

namespace report {

BackgroundReader::BackgroundReader(std::unique_ptr<ado::Connection> connection,
                                   const ado::Statement& statement)
    : m_connection(std::move(connection))
    , m_sink([this](const Progress&) {
        {
            const std::scoped_lock lock(m_mutex);
            m_news = true;
        }
        m_changed.notify_one();
        return true;
    })
    , m_thread([this, statement] { read(statement); }) {}

BackgroundReader::~BackgroundReader() {
    stop();
    m_thread.join();
    // Here, not on the thread: the list of open connections belongs to this one.
    if (m_connection->State() == ado::Connection::adStateOpen)
        m_connection->Close();
}

void BackgroundReader::read(const ado::Statement& statement) {
    try {
        if (!m_connection->stream(statement, m_sink).stopped)
            m_sink.finish();
    } catch (...) {
        m_error = std::current_exception();
    }
    m_finished.store(true, std::memory_order_release);
    {
        const std::scoped_lock lock(m_mutex);
        m_news = true;
    }
    m_changed.notify_one();
}

void BackgroundReader::throwError() const {
    if (m_error)
        std::rethrow_exception(m_error);
}

void BackgroundReader::waitForRows(int milliseconds) {
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return m_news; });
    m_news = false;
}

} // namespace report
