#pragma once

#include <QString>

namespace controls {
class FlexGrid;
}

namespace entry {

/// What the charge slip shows besides its lines.
struct ChargeSlipHeader {
    QString patientName;
    QString account;
    QString admissionNumber;
    QString nursingRemarks;
    QString requestingNurse; ///< employee id; its name is looked up
    QString doctor;
    QString chargeSlip;
};

/// Fills the slip's work table from the grid's lines, down to the first without a code, and prints the slip.
void PrintChargeSlip(controls::FlexGrid& lines, const ChargeSlipHeader& header);

} // namespace entry
