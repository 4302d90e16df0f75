#pragma once

class QLineEdit;

namespace controls {

/// Gives a field the letter that Alt takes to it, unless its label has one: the first letter of its label
/// that no other caption of the screen has. A field without a label gets one, "Search", at the beginning of
/// its row.
void giveLetter(QLineEdit& field);

} // namespace controls
