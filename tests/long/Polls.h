#pragma once

#include "tests/long/Attack.h"

namespace attacks {

/// A menu that watches, for so many polls with all its timers: memory and handles stay as they are, and no
/// statement is lost.
void polls(Course& course);
/// TIMES: that many polls.
int pollsPart(const QStringList& words);

} // namespace attacks
