#pragma once

#include "tests/long/Attack.h"

namespace attacks {

/// A process that is ended before or behind one statement of one save: the file holds the whole save or
/// nothing of it, and the next save is what it would have been.
void steps(Course& course);
/// Every point of every save.
void allSteps(Course& course);
/// SAVE FILE POINT: that save on that file, cut at that point; 0 is the whole save, which tells its points
/// and statements.
int stepsPart(const QStringList& words);

} // namespace attacks
