#pragma once

#include "platform/base/Error.h"

#include <functional>

namespace controls {

/// Unwinds code that waits behind a modal call once the program is stopping. Never caught by screens.
struct ProgramStopped {};

/// The one place where an error without a handler ends: it is shown, the program stops, and no code behind a
/// modal call runs on. app/ installs what is shown and done; tests install a recorder.
class ErrorBoundary {
  public:
    using Handler = std::function<void(const base::RunTimeError&)>;

    /// The handler shows the error and closes the connection. It must not throw.
    static void setHandler(Handler handler);
    /// Runs the handler once, then marks the program as stopping and ends every modal loop and the program's
    /// loop. Errors that come while the handler runs, or later, are dropped: they follow from the first.
    static void report(const base::RunTimeError& error);
    static bool isStopping();
    /// Raises ProgramStopped when the program is stopping. Called behind every nested loop.
    static void throwIfStopping();

    /// Runs `body`. An error goes to report(); called from code that already runs guarded in the same event
    /// loop level (setText() or click() from a handler) it unwinds to that caller instead, as if it had been
    /// raised there.
    /// An error that is no RunTimeError becomes number 51, "Internal error: " and its text. Nothing runs any
    /// more once the program is stopping.
    static void guard(const std::function<void()>& body);
    /// True inside a guard of the present event loop level.
    static bool isGuarded();

  private:
    friend class Application;
    friend void goOn(); // TestDoors.h
    static void reset();
    static void guardOutermost(const std::function<void()>& body);
};

/// Entered around every nested event loop: handlers that run inside are guarded on their own.
class ModalLevel {
  public:
    ModalLevel();
    ~ModalLevel();
    ModalLevel(const ModalLevel&) = delete;
    ModalLevel& operator=(const ModalLevel&) = delete;

  private:
    int m_outerDepth;
};

} // namespace controls
