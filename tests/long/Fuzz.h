#pragma once

#include "tests/long/Attack.h"

namespace attacks {

/// Inputs that are nearly right, made from a corpus and from those that came to something new: the scanner
/// behind every statement, the T-SQL parser and the engine behind it, the readers of report definitions and
/// of character files.
void fuzz(Course& course);
/// TARGET SEED TIMES: a batch; or TARGET HEX: one input, as a batch that died tells it.
int fuzzPart(const QStringList& words);

} // namespace attacks
