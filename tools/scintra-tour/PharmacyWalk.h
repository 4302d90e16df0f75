#pragma once

#include "tools/scintra-tour/Walk.h"

namespace tour {

/// From the menu to a request of a medicine for `admissionNumber`, which is read when its step comes. It must
/// outlive the walk.
void addPharmacyWalk(Walk& walk, const QString& admissionNumber);

} // namespace tour
