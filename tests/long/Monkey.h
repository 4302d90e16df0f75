#pragma once

#include "tests/long/Attack.h"

namespace attacks {

/// Random keys over every screen of the table of openers, one screen after the other.
void monkey(Course& course);
/// The same on a screen that dies of "b" after "a": it must be found, and shrunk to these two keys.
void monkeyOnFaulty(Course& course);
/// SCREEN ANSWERS KEY...
int monkeyPart(const QStringList& words);

} // namespace attacks
