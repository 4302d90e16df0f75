#pragma once

#include "tests/long/Attack.h"

namespace attacks {

/// Values that mean something to a server, a file or a screen, pasted into every field of every screen, and
/// every command tried on them: what goes out is one statement whose literals are the values, or nothing.
void hostile(Course& course);
/// Every value in every field of every screen.
void allHostile(Course& course);
/// SCREEN PLACE: the value at that place of the table, through every field of the screen.
int hostilePart(const QStringList& words);

} // namespace attacks
