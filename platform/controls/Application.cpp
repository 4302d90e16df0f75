#include "platform/controls/Application.h"

#include "platform/controls/ErrorBoundary.h"

namespace controls {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("scintra"));
    setApplicationDisplayName(QStringLiteral("Visual Kerova - Visual Scintra"));
}

bool Application::notify(QObject* receiver, QEvent* event) {
    // Inside guarded code (setFocus() from a handler) the error belongs to that code and unwinds to it.
    if (ErrorBoundary::isGuarded())
        return QApplication::notify(receiver, event);
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        const std::exception_ptr raised = std::current_exception();
        ErrorBoundary::guardOutermost([&raised] { std::rethrow_exception(raised); });
        return true;
    }
}

} // namespace controls
