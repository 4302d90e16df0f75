#pragma once

#include "tools/scintra-tour/Walk.h"

namespace tour {

/// What stands on the result's page; "" until it was shown.
struct ResultWalkResult {
    QString page;
};

/// From the menu to the result of the request that was filed under `chargeSlip` for `admissionNumber`:
/// search, list, entry, save and print. Both are read when their step comes. All must outlive the walk.
void addResultWalk(Walk& walk, const QString& admissionNumber, const QString& chargeSlip,
                   ResultWalkResult& result);

} // namespace tour
