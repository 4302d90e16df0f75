#pragma once

#include <vector>

class QWidget;

namespace attacks {

/// What a hand does to one control of an open screen. A text is put into a field; with keys in it
/// ("OK<Enter>") it is typed. A grid takes rows, "NU|1001|BONE SCAN;MD|201", from its column 1 on. A button
/// is pressed; the text is typed into what it opens.
struct Touch {
    const char* control;
    const char* text = "";
};

/// One save of one screen of tests::screenOpeners().
struct Save {
    const char* name;
    const char* screen;
    std::vector<Touch> touches = {}; ///< before the save
    const char* press;               ///< the button that saves
    /// How many transactions follow each other: each is kept whole or not at all, the one before it stays.
    int parts = 1;
    const char* before = ""; ///< T-SQL that the hospital gets first; a ";" and a line's end part it
    void (*prepare)(QWidget&) = nullptr; ///< what no key does
    /// What is done in each window that then opens: keys, or the button to press.
    std::vector<const char*> within = {};
};

/// Every save of every screen. A screen that is added gets its lines here.
const std::vector<Save>& saves();

/// Fills the open screen; the save itself is left.
void fill(QWidget& screen, const Save& save);
/// Presses what saves.
void press(QWidget& screen, const Save& save);

} // namespace attacks
