#pragma once

#include "tests/support/odbc/Fault.h"

#include <QMutex>
#include <QStringList>

#include <optional>
#include <utility>

namespace tests::tds {

/// What came over all lines of a server, and where it is to strike. For any thread.
class Diary {
  public:
    void strike(int step, Fault fault) {
        const QMutexLocker lock(&m_mutex);
        m_strikeAt = step;
        m_seen = 0;
        m_fault = fault;
    }
    int steps() const {
        const QMutexLocker lock(&m_mutex);
        return m_seen;
    }
    QStringList take() {
        const QMutexLocker lock(&m_mutex);
        return std::exchange(m_wire, {});
    }
    void note(const QString& text) {
        const QMutexLocker lock(&m_mutex);
        m_wire += text;
    }
    /// Notes a step at which the server may strike.
    std::optional<Fault> step(const QString& text) {
        const QMutexLocker lock(&m_mutex);
        m_wire += text;
        return ++m_seen == m_strikeAt ? std::optional(m_fault) : std::nullopt;
    }

  private:
    mutable QMutex m_mutex;
    QStringList m_wire;
    int m_strikeAt = 0;
    int m_seen = 0;
    Fault m_fault = Fault::Error;
};

} // namespace tests::tds
