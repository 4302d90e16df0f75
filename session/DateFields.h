#pragma once

#include <QDateEdit>
#include <QString>

#include <initializer_list>

class QPushButton;

namespace session {

/// The workstation's date.
void setToday(QDateEdit* field);
/// "mm/dd/yyyy"
QString dateText(const QDateEdit* field);
/// Enter goes from field to field, over those that are hidden, and from the last one to the button, where the
/// next Enter presses it.
void enterMovesOn(std::initializer_list<QDateEdit*> fields, QPushButton* last);

} // namespace session
