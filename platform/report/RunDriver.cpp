#include "platform/report/RunDriver.h"

#include "platform/controls/screen/Connect.h"

#include <QScopeGuard>

namespace report {
namespace {

// milliseconds
constexpr int slice = 15;
constexpr int restForRows = 15;
constexpr int restForServer = 200;
constexpr int betweenNews = 100;
/// How long the first look may take: with a page to show, and without one.
constexpr int firstLook = 30;
constexpr int firstPatience = 300;

} // namespace

RunDriver::RunDriver(QObject* parent) : QObject(parent) {
    controls::on(&m_timer, &QTimer::timeout, this, [this] { work(); });
}

RunDriver::~RunDriver() = default;

void RunDriver::start(std::unique_ptr<Run> run) {
    clear();
    QElapsedTimer clock;
    clock.start();
    while (run->work(slice) == Run::State::Running) {
        const bool shows = run->document()->pageCount() > 0;
        if (clock.elapsed() >= (shows ? firstLook : firstPatience))
            break;
        if (run->isWaiting())
            run->waitForRows(restForRows);
    }
    m_run = std::move(run);
    m_sinceTold.start();
    if (isRunning())
        m_timer.start(0);
}

void RunDriver::work() {
    const bool wasRunning = isRunning();
    const auto tell = qScopeGuard([&] {
        if (wasRunning && !isRunning())
            Q_EMIT ended();
    });
    m_run->work(slice);
    if (!isRunning()) {
        if (m_run->isIdle())
            m_timer.stop();
        else
            m_timer.setInterval(restForServer);
        return;
    }
    m_timer.setInterval(m_run->isWaiting() ? restForRows : 0);
    if (m_sinceTold.elapsed() >= betweenNews) {
        Q_EMIT grew();
        m_sinceTold.start();
    }
}

void RunDriver::stop() {
    if (!isRunning())
        return;
    m_run->stop();
    Q_EMIT ended();
}

void RunDriver::clear() {
    m_timer.stop();
    m_run.reset();
}

} // namespace report
