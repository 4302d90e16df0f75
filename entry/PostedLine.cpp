#include "entry/PostedLine.h"

#include "entry/RequestColumns.h"
#include "platform/base/Conversion.h"
#include "platform/controls/grid/FlexGrid.h"

namespace entry {

double numberIn(const QString& cell) {
    return cell.isEmpty() ? 0 : base::CDbl(cell);
}

PostedLine readLine(const controls::FlexGrid& lines, int row, int linkColumn) {
    const auto cell = [&](int column) { return lines.TextMatrix(row, column); };
    PostedLine line;
    line.ItemCode = cell(colCode);
    line.ItemName = cell(colParticular);
    line.Quantity = numberIn(cell(colQuantity));
    line.Amount = numberIn(cell(colAmount));
    line.Revenue = cell(colDepartment);
    line.LinkNum = cell(linkColumn);
    return line;
}

} // namespace entry
