#pragma once

#include "tools/scintra-tour/Walk.h"

namespace tour {

/// From the menu to a saved request of the out-patient `idNumber`, who is on a company's account.
void addOutPatientWalk(Walk& walk, const QString& idNumber);

/// From the menu to a printed assessment of a registered patient: a stat procedure and a fee; the fresh
/// screen behind it is closed.
void addAssessmentWalk(Walk& walk, const QString& hospitalNumber);

} // namespace tour
