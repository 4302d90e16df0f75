#pragma once

#include <QString>

namespace entry {

/// Columns of a request grid; the same numbers on every request screen.
enum RequestColumn {
    colLineNumber = 0,
    colDepartment = 1, ///< revenue code: "NU", "MD", "FN", "UR", "MN"
    colCode = 2,
    colParticular = 3,
    colType = 4, ///< "ROUTINE" or "STAT"
    colPrice = 5,
    colQuantity = 6,
    colAmount = 7,
    colWithItems = 8,
    colAmountEditable = 9,   ///< "Y" lets the clerk key the amount
    colSearchInventory = 10, ///< "Y" or "N"; the unit price on stock and package lines
    colLink = 11,            ///< stock location, or the ward's own request number
    colInventoryCode = 12,   ///< or the ward's own request number of an out-patient
    colRoutinePrice = 13,
    colNothing = 14,
    colPackageCode = 15, ///< "" on a line that is not out of a package
    colLast = 16,        ///< holds nothing
    requestColumnCount = 17
};

/// Professional or reader's fee.
inline bool isFeeRevenue(const QString& revenue) {
    return revenue == u"MD" || revenue == u"FN";
}

/// How prices and amounts stand in the grid.
inline const QString amountFormat = QStringLiteral("0.00");

/// What a stat procedure costs: this many times its routine price.
inline constexpr double statFactor = 1.25;

} // namespace entry
