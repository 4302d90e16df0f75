#pragma once

#include <QObject>

class QKeyEvent;
class QLineEdit;

namespace controls {
class FlexGrid;
}

namespace results {

/// The text box that floats over the current cell of a grid that has no editor of its own. What is typed
/// stands in the cell at once. Both controls belong to the screen.
class CellEntry : public QObject {
    Q_OBJECT

  public:
    CellEntry(controls::FlexGrid& grid, QLineEdit& txtEntry, QObject* parent);

    void enterCell();
    /// Hides the box; the focus goes to the grid.
    void leaveCell();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool entryKey(const QKeyEvent& event);
    bool gridKey(QKeyEvent& event);
    void goTo(int row, int column);

    controls::FlexGrid& m_grid;
    QLineEdit& m_txtEntry;
    bool m_moving = false;
};

} // namespace results
