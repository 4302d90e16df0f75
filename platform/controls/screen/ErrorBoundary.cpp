#include "platform/controls/screen/ErrorBoundary.h"

#include "platform/controls/screen/TestDoors.h"

#include <QCoreApplication>
#include <QThread>

namespace controls {

namespace {

constexpr int internalError = 51;

struct State {
    ErrorBoundary::Handler handler;
    int depth = 0;
    bool reporting = false;
    bool stopping = false;
    bool loopsEnded = false;
};

State& state() {
    static State instance;
    return instance;
}

class DepthGuard {
  public:
    DepthGuard() { ++state().depth; }
    ~DepthGuard() { --state().depth; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;
};

/// Ends the program's loop and every loop inside it, also those that dialogs of the toolkit run.
void endLoops() {
    if (QCoreApplication::instance() && QThread::currentThread()->loopLevel() > 0) {
        state().loopsEnded = true;
        QCoreApplication::exit(1);
    }
}

} // namespace

void ErrorBoundary::setHandler(Handler handler) {
    state().handler = std::move(handler);
}

void ErrorBoundary::report(const base::RunTimeError& error) {
    // What fails while an error is shown, or once the program is on its way out, follows from the first one.
    if (state().reporting || state().stopping)
        return;
    state().reporting = true;
    if (const Handler handler = state().handler) {
        const ModalLevel level;
        handler(error);
    }
    state().reporting = false;
    state().stopping = true;
    endLoops();
}

bool ErrorBoundary::isStopping() {
    return state().stopping;
}

void ErrorBoundary::throwIfStopping() {
    if (!state().stopping)
        return;
    // A loop that was entered outside the last exit is told as well.
    endLoops();
    throw ProgramStopped();
}

void ErrorBoundary::reset() {
    state().stopping = false;
    state().reporting = false;
    if (!state().loopsEnded || QThread::currentThread()->loopLevel() > 0)
        return;
    // Ended loops leave the thread refusing new ones until the program's own loop has run once more.
    state().loopsEnded = false;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
    QCoreApplication::exec();
}

void goOn() {
    ErrorBoundary::reset();
}

void ErrorBoundary::guard(const std::function<void()>& body) {
    if (state().stopping)
        return;
    if (state().depth > 0) {
        const DepthGuard deeper;
        body();
        return;
    }
    guardOutermost(body);
}

void ErrorBoundary::guardOutermost(const std::function<void()>& body) {
    try {
        const DepthGuard deeper;
        body();
    } catch (const ProgramStopped&) {
        // The loops are ended already.
    } catch (const base::RunTimeError& error) {
        report(error);
    } catch (const std::exception& error) {
        report(base::RunTimeError(internalError,
                                  QStringLiteral("Internal error: ") + QString::fromUtf8(error.what())));
    } catch (...) {
        report(base::RunTimeError(internalError, QStringLiteral("Internal error")));
    }
}

bool ErrorBoundary::isGuarded() {
    return state().depth > 0;
}

ModalLevel::ModalLevel() : m_outerDepth(state().depth) {
    state().depth = 0;
}

ModalLevel::~ModalLevel() {
    state().depth = m_outerDepth;
}

} // namespace controls
