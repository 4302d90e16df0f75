#pragma once

#include "platform/controls/grid/FlexGrid.h"

namespace tests {

/// A procedure and a second line, as the workstations of the tests save them.
inline void putLines(controls::FlexGrid& grid, const char* const (&second)[7]) {
    const char* const first[7] = {"NU", "1001", "BONE SCAN", "ROUTINE", "100.00", "1", "100.00"};
    grid.setRows(3);
    for (int column = 1; column <= 7; ++column) {
        grid.setTextMatrix(1, column, QString::fromLatin1(first[column - 1]));
        grid.setTextMatrix(2, column, QString::fromLatin1(second[column - 1]));
    }
}

} // namespace tests
