#pragma once

class QKeyEvent;

namespace controls {

/// Return, or Enter of the keypad, whatever is held with it.
bool isEnter(int key);
bool isEnter(const QKeyEvent& event);
/// Enter that repeats itself because it is still held down: it answers nothing that nobody has read yet.
bool isHeldEnter(const QKeyEvent& event);
/// An arrow, Home, End or a page key: what moves in a table, and all that does.
bool movesInTable(int key);
/// The key leaves a character in a text box. AltGr types (it arrives as Ctrl and Alt together, or as a
/// modifier of its own); with Ctrl, Alt or Meta alone a key is a command, whatever character it carries.
/// Enter, Tab, Backspace and Delete carry one as well, but type none.
bool typesText(const QKeyEvent& event);

} // namespace controls
