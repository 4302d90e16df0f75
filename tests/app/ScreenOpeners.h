#pragma once

#include <functional>
#include <vector>

class QWidget;

namespace tests {

/// Works on an open screen, which is closed behind it.
using Look = std::function<void(QWidget& screen)>;

/// How a screen of the program comes up on the demo hospital, somebody logged on: filled, as its users see
/// it.
struct ScreenOpener {
    const char* screen; ///< its class
    void (*open)(const Look& look);
};

/// Every screen of the program. A screen that is added gets its line here.
const std::vector<ScreenOpener>& screenOpeners();

} // namespace tests
