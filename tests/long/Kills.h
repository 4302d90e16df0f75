#pragma once

#include "tests/long/Attack.h"

namespace attacks {

/// A program killed at a random moment of a save, a result, a registration, a first start, a backup: what
/// the next start finds is the whole or nothing.
void kills(Course& course);

} // namespace attacks
