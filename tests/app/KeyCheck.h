#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QWidget;

namespace tests {

/// A part of a control that the toolkit lays out by itself.
bool isInnerPart(const QWidget& widget);

/// A key that an open window answers.
struct AnsweredKey {
    QString keys;     ///< "Alt+S", "F3"
    QString where;    ///< name of the field or grid that it is pressed in; empty: anywhere in the window
    QString does;     ///< caption of the command, "To ..." for a field, or what the screen says itself
    QString answerer; ///< name of the control, for failures
};

/// The letters, the shortcuts and the keys that its controls say they answer (controls::noteKeys), on every
/// page of its tabs and in every mode: also of what is hidden or disabled as the window stands.
QList<AnsweredKey> answeredKeys(QWidget& window);

/// What two controls of one page claim: "Alt+S: cmdSave, cmdSelect". Sorted; empty when each key has one
/// meaning.
QStringList clashingKeys(QWidget& window);

/// What takes keys or clicks, can be used as the window stands, and is reached neither by Tab nor by a key of
/// its own. Presses Tab through the window, on every page. A field that is only read may be left out.
QStringList notReachedByKeys(QWidget& window);

} // namespace tests
