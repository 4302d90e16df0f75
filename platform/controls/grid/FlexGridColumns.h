#pragma once

#include <vector>

namespace controls {

/// Widths of a grid's columns: as they were given, in twips (15 to a logical pixel), and as they fill a view.
class FlexGridColumns {
  public:
    static constexpr int twipsPerPixel = 15;
    static constexpr int usualTwips = 960;

    void setCount(int count) { m_given.resize(std::size_t(count), notGiven); }
    int twips(int column) const;
    bool isGiven(int column) const { return m_given[std::size_t(column)] != notGiven; }
    void give(int column, int twips) { m_given[std::size_t(column)] = twips; }
    void setStretchColumn(int column) { m_stretch = column; }

    /// Pixels of the columns from `first` on. Room beyond the given widths goes to the stretch column or is
    /// shared in proportion; given widths never shrink.
    std::vector<int> pixels(int first, int room) const;

    static int toPixels(int twips) { return (twips + twipsPerPixel / 2) / twipsPerPixel; }

  private:
    static constexpr int notGiven = -1;

    std::vector<int> m_given;
    int m_stretch = -1;
};

} // namespace controls
