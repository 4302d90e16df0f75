#pragma once

#include "entry/RequestColumns.h"

#include <QString>

namespace controls {
class FlexGrid;
}

namespace entry {

/// What the charge slip shows besides its lines.
struct ChargeSlipHeader {
    QString patientName = {};
    QString account = {};
    QString admissionNumber = {};
    QString nursingRemarks = {};
    QString doctor = {};
    QString chargeSlip = {};
    QString nurse = {}; ///< as nurseText() gives it
    QString mark = {};  ///< stands across every page; "" for none
};

/// Tells a copy of a slip from the first one.
inline constexpr const char* rePrintMark = "RE-PRINT";

/// A line of the slip's work table; numbers as texts.
struct SlipLine {
    QString code, particular, quantity, price, amount, revenue;
};

/// The texts that put a line into the work table: each screen's has its own blanks.
enum class SlipStatement { Request, Assessment, AssessmentStatus };

/// Which lines of a request grid a screen prints, and at which price.
struct SlipDump {
    SlipStatement statement;
    int priceColumn;        ///< where it is empty the amount is the price
    bool feeCostsItsAmount; ///< the price of a fee is its amount, whatever the column has
    bool endsAtGap; ///< at the first line without a code; else lines without code or revenue are left out
};

inline constexpr SlipDump requestSlip{SlipStatement::Request, colPrice, true, true};
inline constexpr SlipDump assessmentSlip{SlipStatement::Assessment, colRoutinePrice, false, false};

void dumpSlipLine(SlipStatement statement, const SlipLine& line);
/// The work table is not emptied first: the screens do so in words of their own.
void dumpSlipLines(const SlipDump& dump, const controls::FlexGrid& lines);

/// "(id)name", or "" when the employee is not on file.
QString nurseText(const QString& employeeId);

/// Opens the slip over the work table with its ten values; printed at once, or shown.
void launchChargeSlip(const ChargeSlipHeader& header, bool directPrint);

} // namespace entry
