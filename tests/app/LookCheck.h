#pragma once

#include <QStringList>

class QWidget;

namespace tests {

/// What a reader of an open window stumbles over, a line each that begins with the name of the control: help
/// whose keys run into each other, labels that lost the colour of their kind, amounts at the left, empty
/// lists that say nothing.
QStringList whatLooksWrong(const QWidget& window);

/// What of an open window is smaller than what it holds, lines as above: grids of less than three rows or
/// scrolled sideways, fields too narrow for a usual name or number, a page that is scrolled without need or
/// begins out of sight, fields beside each other on different lines.
QStringList whatHasTooLittleRoom(const QWidget& window);

} // namespace tests
