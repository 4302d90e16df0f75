#pragma once

#include "platform/base/DateTime.h"
#include "platform/base/TestDoors.h"

#include <QWidget>

#include <functional>
#include <stdexcept>
#include <vector>

namespace tests {

/// One step of a driver: works on the window that is active when its turn comes.
using Step = std::function<void(QWidget& window)>;

/// Calls `open`, which shows something modal, and runs the steps inside its loop, one after the other. A step
/// that opens a further modal window lets the next one run inside of that. Steps that never ran, a step that
/// raises, and a window that the steps left open fail the test; such a window is closed.
void runModal(const std::function<void()>& open, std::vector<Step> steps);

/// "txtName (QLineEdit)" of every named widget below `parent`, for failures.
QString childrenOf(const QWidget& parent);

/// The child by its name. Raises std::runtime_error that lists the children there are.
template <typename T>
T& child(const QWidget& parent, const char* name) {
    if (T* found = parent.findChild<T*>(QString::fromLatin1(name)))
        return *found;
    throw std::runtime_error("No such child: " + std::string(name) + " among\n" +
                             childrenOf(parent).toStdString());
}

/// Gives the widget the focus and types: "ABC<Enter>", "<F3>", "<Alt+S>", "<Shift+Tab>", "<Ctrl+V>", "<lt>"
/// for
/// "<". Every key goes to whatever has the focus by then, as on a real keyboard. Fails the test when the
/// widget cannot take the focus.
void keys(QWidget& widget, const QString& text);
/// The same without moving the focus first.
void keysToFocus(QWidget& window, const QString& text);
/// A click in the middle of the widget; fails the test on a hidden or disabled one.
void click(QWidget& widget);

/// The clock stands at this moment while the result lives: Saturday, 2026-11-21 08:30:00.
base::FixedClock fixedClock();
base::FixedClock fixedClock(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

} // namespace tests
