// Colours, weight and pictures of single cells.

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/grid/FlexGridModel.h"

namespace controls {

void FlexGrid::changeFormat(int row, int column, const std::function<void(CellFormat&)>& change) {
    requireCell(row, column);
    CellFormat format = m_model->format(row, column);
    change(format);
    m_model->setFormat(row, column, format);
}

void FlexGrid::setCellForeColor(int row, int column, const QColor& color) {
    changeFormat(row, column, [&](CellFormat& format) { format.foreColor = color; });
}

void FlexGrid::setCellBackColor(int row, int column, const QColor& color) {
    changeFormat(row, column, [&](CellFormat& format) { format.backColor = color; });
}

void FlexGrid::setCellBold(int row, int column, bool bold) {
    changeFormat(row, column, [&](CellFormat& format) { format.bold = bold; });
}

void FlexGrid::setCellIcon(int row, int column, const QIcon& icon) {
    changeFormat(row, column, [&](CellFormat& format) { format.icon = icon; });
}

} // namespace controls
