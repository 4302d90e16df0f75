#pragma once

#include "platform/controls/grid/CellEditor.h"

#include <QObject>

class QKeyEvent;
class QLineEdit;

namespace controls {
class FlexGrid;
}

namespace results {

/// The keys of a grid of measured values: each cell is typed in where it stands, and the arrows and Enter go
/// from cell to cell. Both controls belong to the screen.
class CellEntry : public QObject {
    Q_OBJECT

  public:
    CellEntry(controls::FlexGrid& grid, QLineEdit& txtEntry, QObject* parent);

  private:
    void enterCell();
    bool entryKey(const QKeyEvent& event);
    bool gridKey(const QKeyEvent& event);
    void goTo(int row, int column);

    controls::FlexGrid& m_grid;
    QLineEdit& m_txtEntry;
    controls::CellEditor m_editor;
    bool m_moving = false;
};

} // namespace results
