#pragma once

#include "tools/scintra-tour/Walk.h"

namespace tour {

struct RequestWalkResult {
    QString chargeSlip;
    QString admissionNumber;
};

/// Log-on, menu, an admitted patient, three lines (a stat procedure, a fee, a supply), save and print.
/// `result` must outlive the walk.
void addRequestWalk(Walk& walk, const QString& employeeCode, const QString& password,
                    RequestWalkResult& result);

/// From the menu: an admitted patient's package, one of its items un-used, saved; back to the menu. `result`
/// must outlive the walk.
void addPackageWalk(Walk& walk, RequestWalkResult& result);

} // namespace tour
