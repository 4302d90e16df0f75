#pragma once

#include "tools/scintra-tour/Walk.h"

namespace tour {

/// What stands on the page of the slip that was printed again, and across it; "" until it was shown.
struct RevocationWalkResult {
    QString page;
    QString mark;
};

/// From the menu to the slip `chargeSlip` of `admissionNumber` once more, to the assessments, and to a
/// request that could be cancelled; nothing is. Both are read when their step comes. All must outlive the
/// walk.
void addRevocationWalk(Walk& walk, const QString& admissionNumber, const QString& chargeSlip,
                       RevocationWalkResult& result);

} // namespace tour
