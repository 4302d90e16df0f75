#pragma once

#include "tools/scintra-tour/Walk.h"

#include <QStringList>

namespace tour {

struct ResultWalkResult {
    QString page;        ///< what stands on the result's page; "" until it was shown
    QStringList written; ///< what was typed; all of it belongs on the page
};

/// From the menu to the result of the request that was filed under `chargeSlip` for `admissionNumber`:
/// search, list, entry, save and print. Both are read when their step comes. All must outlive the walk.
void addResultWalk(Walk& walk, const QString& admissionNumber, const QString& chargeSlip,
                   ResultWalkResult& result);

} // namespace tour
