#pragma once

#include <QPersistentModelIndex>
#include <QString>

#include <optional>
#include <vector>

namespace controls {
class FlexGrid;
}

namespace entry {

/// The cells of a request grid that wait for the clerk, shown in the colour of a warning: those that were
/// typed and not taken yet, and amounts that were made of another code or price than their line has now. They
/// go with their lines.
class WaitingCells {
  public:
    struct Cell {
        int row;
        int column;
        bool operator==(const Cell&) const = default;
    };

    explicit WaitingCells(controls::FlexGrid& grid) : m_grid(grid) {}

    /// The cell was opened when this text stood in it; its text is another one now, or that one again.
    void noteText(Cell cell, const QString& whenOpened);
    void isTaken(Cell cell);
    bool isTyped(Cell cell) const;
    /// In the order of the lines and columns.
    std::optional<Cell> firstTyped() const;

    /// The line's price was `formerPrice` and may be another now, or its code is another one. Its amount
    /// waits until it is made anew, or until the price it was made of is back. A line without an amount has
    /// none to wait.
    void notePrice(int row, const QString& formerPrice, bool otherCode);
    void amountIsMade(int row);
    bool isOld(int row) const;

    /// What the clerk should do about them, but for the cell that is open; "" when nothing waits.
    QString sentence(std::optional<Cell> open) const;

  private:
    struct Typed {
        QPersistentModelIndex index;
        QString taken; ///< what stood there when the cell was taken last
    };
    struct OldAmount {
        QPersistentModelIndex amount;
        QString price; ///< that it was made of
        bool otherCode = false;
    };

    QPersistentModelIndex indexOf(Cell cell) const;
    Cell cellOf(const QPersistentModelIndex& index) const;
    void forgetLost();

    controls::FlexGrid& m_grid;
    std::vector<Typed> m_typed;
    std::vector<OldAmount> m_old;
};

} // namespace entry
