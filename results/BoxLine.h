#pragma once

#include <QString>

class QGridLayout;
class QWidget;

namespace results {

/// Adds a caption (column 0) and two text boxes of the given names (columns 1 and 2) to a row; the columns'
/// captions stand in row 0. Tab comes to them from `before`. Both boxes belong to the layout's widget; gives
/// the second one.
QWidget* addBoxLine(QGridLayout& grid, int row, const QString& caption, const QString& firstBox,
                    const QString& secondBox, QWidget* before);

/// Gives the captions of two grids one width: their boxes then stand in one place from page to page.
void alignCaptions(QGridLayout& one, QGridLayout& other);

} // namespace results
