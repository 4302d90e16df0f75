#pragma once

#include "platform/controls/screen/Screen.h"

#include <functional>

/// What tests and benchmarks do to the screens and no source of the program does.
namespace controls {

/// Who shows the boxes: null for real boxes, else whoever gives the answers.
using MessageScript = std::function<int(const QString& prompt, int style, const QString& title)>;
void setMessageScript(MessageScript script);

/// The program that was stopping goes on.
void goOn();

/// Forgets the shared instance of a screen; it must be unloaded or never shown.
template <typename T>
void release() {
    SharedScreen<T>::forget();
}

} // namespace controls
