#pragma once

#include <QString>

class QGridLayout;

namespace results {

/// Adds a caption (column 0) and two text boxes of the given names (columns 1 and 2) to a row; the columns'
/// captions stand in row 0. Both boxes belong to the layout's widget.
void addBoxLine(QGridLayout& grid, int row, const QString& caption, const QString& firstBox,
                const QString& secondBox);

} // namespace results
