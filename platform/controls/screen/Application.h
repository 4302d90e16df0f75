#pragma once

#include <QApplication>

namespace controls {

/// The application of every program with windows: an error raised in an event handler (a key, a close, a
/// paint) ends at the error boundary as well, not in the event loop. A button's letter (Alt+S) gives it the
/// focus and presses it at once.
class Application : public QApplication {
    Q_OBJECT

  public:
    /// `argc` must live as long as the application.
    Application(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace controls
