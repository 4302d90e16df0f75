#pragma once

#include <QString>

namespace controls {
class FlexGrid;
}

namespace entry {

/// What a save takes from a line of a request grid; texts untrimmed.
struct PostedLine {
    QString ItemCode, ItemName, Revenue;
    QString LinkNum;    ///< the ward's own request number; "" where the column is none
    QString RequestNum; ///< drawn by the save
    double Quantity = 0;
    double Amount = 0;
};

/// A cell as a double; an empty one is 0. Raises 13 for a text that is no number.
double numberIn(const QString& cell);
/// Raises 13 for a quantity or an amount that is no number.
PostedLine readLine(const controls::FlexGrid& lines, int row, int linkColumn);

} // namespace entry
