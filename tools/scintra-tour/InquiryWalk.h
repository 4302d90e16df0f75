#pragma once

#include "tools/scintra-tour/Walk.h"

namespace tour {

/// What the inquiries told.
struct InquiryWalkResult {
    QString ledger; ///< the ledger's first page; "" until it was shown
    int issued = 0; ///< lines found under the slip's number
};

/// From the menu to the patient's ledger and to the inquiry about the slip, and back. Both numbers are read
/// when their step comes. All must outlive the walk.
void addInquiryWalk(Walk& walk, const QString& admissionNumber, const QString& chargeSlip,
                    InquiryWalkResult& result);

} // namespace tour
