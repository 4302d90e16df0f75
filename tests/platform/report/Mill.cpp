#include "tests/platform/report/Mill.h"

#include <gtest/gtest.h>

#include <chrono>

namespace tests {

class Mill::Server : public ScriptedProvider {
  public:
    explicit Server(Mill& mill) : m_mill(mill) { ++m_mill.m_connections; }
    ~Server() override { --m_mill.m_connections; }
    ado::Streamed stream(const QString&, ado::RowSink& sink) override {
        ado::Streamed end;
        m_mill.send(sink, end);
        return end;
    }

  private:
    Mill& m_mill;
};

report::LogOn Mill::logOn() {
    return [this](const QString&, const QString&, const QString&, const QString&) {
        auto connection = std::make_unique<ado::Connection>();
        connection->Open(std::make_unique<Server>(*this), QStringLiteral("mill"));
        return connection;
    };
}

void Mill::send(ado::RowSink& sink, ado::Streamed& end) {
    if (firstResult > 0) {
        sink.begin(ScriptedProvider::rowsOf(QStringLiteral("Other")).rows.columns);
        std::vector<base::Value> other;
        for (qint64 i = 0; i < firstResult; ++i) {
            other = {QStringLiteral("other")};
            sink.row(other);
        }
        hold(-2, sink);
    }
    sink.begin(ScriptedProvider::rowsOf(columns).rows.columns);
    std::vector<base::Value> values;
    for (qint64 i = 0; i < rows; ++i) {
        if (!hold(i, sink)) {
            end.stopped = true;
            return;
        }
        if (i == failingAt)
            throw base::RunTimeError(1205, QStringLiteral("Deadlocked."), QStringLiteral("40001"), {});
        values = row(i);
        ++m_handed;
        ++end.rows;
        end.stopped = !sink.row(values);
        if (end.stopped)
            return;
    }
}

/// False when nobody wants the rows any more.
bool Mill::hold(qint64 index, const ado::RowSink& sink) {
    std::unique_lock lock(m_mutex);
    while (index == heldAt) {
        m_held = true;
        m_changed.notify_all();
        if (!sink.isWanted())
            return false;
        m_changed.wait_for(lock, std::chrono::milliseconds(2));
    }
    m_held = false;
    return true;
}

void Mill::waitUntilHeld() {
    std::unique_lock lock(m_mutex);
    EXPECT_TRUE(m_changed.wait_for(lock, std::chrono::seconds(20), [this] { return m_held; }));
}

void Mill::letGo(qint64 next) {
    const std::scoped_lock lock(m_mutex);
    heldAt = next;
    m_held = false;
    m_changed.notify_all();
}

} // namespace tests
