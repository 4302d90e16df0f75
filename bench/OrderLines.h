#pragma once

#include <QString>

#include <vector>

namespace controls {
class FlexGrid;
}

namespace bench {

struct OrderLine {
    QString revenue, code, name, amount;
};

/// Six procedures, two fees, two supplies of the session's hospital. Raises 3021 when it has too few.
std::vector<OrderLine> tenLines();
/// They stand in the request grid, from its first row on.
void fill(controls::FlexGrid& grid, const std::vector<OrderLine>& lines);

} // namespace bench
