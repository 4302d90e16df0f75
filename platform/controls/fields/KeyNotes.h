#pragma once

#include <QList>
#include <QString>

#include <initializer_list>
#include <utility>

class QWidget;

namespace controls {

/// A key that a control answers beside those of its kind, and what it does, in a clerk's words.
struct KeyNote {
    const char* keys; ///< "F3", "Up, Down"
    const char* does; ///< "Deletes the line"
};

/// The control, or what watches it, answers these keys: said beside the code that answers them. The notes of
/// a control add up; the page of keys is written from them.
void noteKeys(QWidget* control, std::initializer_list<KeyNote> notes);
/// Keys and what they do, in the order in which it was said; none for most controls.
QList<std::pair<QString, QString>> notedKeys(const QWidget& control);

} // namespace controls
