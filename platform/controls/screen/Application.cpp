#include "platform/controls/screen/Application.h"

#include "platform/controls/screen/ErrorBoundary.h"

#include <QAbstractButton>
#include <QShortcutEvent>

namespace controls {

namespace {

/// A button's letter presses it at once. The toolkit would show it pressed for a moment first, in which a
/// fast typist's next key arrives before the click.
bool pressedByLetter(QObject* receiver, QEvent* event) {
    if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous())
        return false;
    auto* button = qobject_cast<QAbstractButton*>(receiver);
    if (!button)
        return false;
    if (button->focusPolicy() & Qt::TabFocus)
        button->setFocus(Qt::ShortcutFocusReason);
    button->click();
    return true;
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    // No display name beside it: the toolkit would put it behind the caption of every window.
    setApplicationName(QStringLiteral("Visual Kerova - Visual Scintra"));
}

bool Application::notify(QObject* receiver, QEvent* event) {
    // Inside guarded code (setFocus() from a handler) the error belongs to that code and unwinds to it.
    if (ErrorBoundary::isGuarded())
        return pressedByLetter(receiver, event) || QApplication::notify(receiver, event);
    try {
        return pressedByLetter(receiver, event) || QApplication::notify(receiver, event);
    } catch (...) {
        const std::exception_ptr raised = std::current_exception();
        ErrorBoundary::guardOutermost([&raised] { std::rethrow_exception(raised); });
        return true;
    }
}

} // namespace controls
