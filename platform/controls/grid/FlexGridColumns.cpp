#include "platform/controls/grid/FlexGridColumns.h"

#include <numeric>

namespace controls {

int FlexGridColumns::twips(int column) const {
    const int given = m_given[std::size_t(column)];
    return given == notGiven ? usualTwips : given;
}

std::vector<int> FlexGridColumns::pixels(int first, int room) const {
    std::vector<int> widths;
    for (int column = first; column < int(m_given.size()); ++column)
        widths.push_back(toPixels(twips(column)));
    const int total = std::accumulate(widths.begin(), widths.end(), 0);
    if (total == 0 || room <= total)
        return widths;
    const int stretched = m_stretch - first;
    if (stretched >= 0 && stretched < int(widths.size()) && widths[std::size_t(stretched)] > 0) {
        widths[std::size_t(stretched)] += room - total;
        return widths;
    }
    // Edges are rounded, not widths, so that the last one ends exactly at the border.
    long long edge = 0;
    int placed = 0;
    for (int& width : widths) {
        edge += width;
        const int end = int(edge * room / total);
        width = width == 0 ? 0 : end - placed;
        placed = end;
    }
    return widths;
}

} // namespace controls
