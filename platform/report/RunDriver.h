#pragma once

#include "platform/report/Run.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace report {

/// Lets a run work in slices between the events, so that the pages can be read while more of them come.
class RunDriver : public QObject {
    Q_OBJECT

  public:
    explicit RunDriver(QObject* parent = nullptr);
    ~RunDriver() override;

    /// A short report is complete when this returns, of a long one the first page is there if the server was
    /// quick. Raises what Run::work() raises in this time; what it raises later goes to the error boundary.
    void start(std::unique_ptr<Run> run);
    /// Gives it up; the pages so far stay.
    void stop();
    /// Stops and forgets it.
    void clear();
    /// Null when there is none.
    const Run* run() const { return m_run.get(); }
    bool isRunning() const { return m_run && m_run->state() == Run::State::Running; }

  Q_SIGNALS:
    /// Now and then while it runs.
    void grew();
    /// It is complete, or stopped.
    void ended();

  private:
    void work();

    std::unique_ptr<Run> m_run;
    QTimer m_timer;
    QElapsedTimer m_sinceTold;
};

} // namespace report
