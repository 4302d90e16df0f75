#pragma once

#include <QString>

class QWidget;

namespace controls {

/// Style of a message box: one button set + one icon + one default button.
inline constexpr int vbOKOnly = 0;
inline constexpr int vbOKCancel = 1;
inline constexpr int vbYesNo = 4;
inline constexpr int vbCritical = 16;
inline constexpr int vbQuestion = 32;
inline constexpr int vbExclamation = 48;
inline constexpr int vbInformation = 64;
inline constexpr int vbDefaultButton2 = 256;

/// Answers.
inline constexpr int vbOK = 1;
inline constexpr int vbCancel = 2;
inline constexpr int vbYes = 6;
inline constexpr int vbNo = 7;

/// Shows a box and waits. No title: the program's name stands in the window's bar. Escape answers Cancel or
/// No where there is such a button. Ctrl+C copies the text. Nothing else in the program shows a box.
int MsgBox(const QString& prompt, int style = vbOKOnly, const QString& title = {});

} // namespace controls
