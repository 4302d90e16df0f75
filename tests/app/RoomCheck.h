#pragma once

#include <QSize>
#include <QStringList>

#include <functional>

class QWidget;

namespace tests {

/// The smallest desktop of the scale that the test runs at, less a window's frame: 1366x768 at 100 %, at any
/// other one 1920x1080 pixels.
QSize roomForAWindow();

/// Calls `look` on the open window as it stands, and with every page of every tab widget, inner ones too, on
/// top once. The pages are turned back.
void turnAllPages(QWidget& window, const std::function<void()>& look);

/// What a user cannot reach or read on an open window, on every page of its tabs: a line each, sorted, that
/// begins with the name of the control ("txtName: ..."), without any number of pixels. Empty when all is
/// well:
/// - the window fills more than the desktop,
/// - a control lies outside of what it is a part of, and nothing scrolls there,
/// - a label, a button, a header or a field that is only read shows less than its text, without an ellipsis,
/// - two controls lie over each other.
QStringList whatIsOutOfReach(QWidget& window);

} // namespace tests
