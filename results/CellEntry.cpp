#include "results/CellEntry.h"

#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/fields/Keys.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/Connect.h"
#include "platform/controls/screen/Screen.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

namespace results {

using namespace controls;

namespace {

constexpr int firstRow = 1;
constexpr int firstColumn = 1;
constexpr int lastColumn = 2;

constexpr CellEditing editing = {.hidesOnFocusOut = true};

} // namespace

CellEntry::CellEntry(FlexGrid& grid, QLineEdit& txtEntry, QObject* parent)
    : QObject(parent), m_grid(grid), m_txtEntry(txtEntry), m_editor(grid, editing, this) {
    setKeyRules(&m_txtEntry, KeyRule::BackQuote);
    m_editor.add(m_txtEntry);
    noteKeys(&m_grid, {{"Enter, F2", "Opens the cell; in it: to the next cell"},
                       {"Up, Down, Left, Right", "In the open cell: to the cell beside it"}});
    on(&m_editor, &CellEditor::KeyDown, this, [this](QKeyEvent* event) {
        if (entryKey(*event))
            event->accept();
    });
    on(&m_grid, &FlexGrid::KeyDown, this, [this](QKeyEvent* event) {
        if (gridKey(*event))
            event->accept();
    });
    on(&m_grid, &FlexGrid::Click, this, [this] { enterCell(); });
    on(&m_grid, &FlexGrid::RowColChange, this, [this] {
        if (!m_moving && m_grid.hasFocus())
            enterCell();
    });
}

void CellEntry::enterCell() {
    m_editor.open(m_txtEntry, m_grid.Text());
}

void CellEntry::goTo(int row, int column) {
    m_editor.close();
    {
        const QScopedValueRollback moving(m_moving, true);
        m_grid.setCurrentCell(row, column);
    }
    enterCell();
}

/// Left and Right go from cell to cell, not from letter to letter.
bool CellEntry::entryKey(const QKeyEvent& event) {
    const int row = m_grid.Row();
    const int column = m_grid.Col();
    switch (event.key()) {
    case Qt::Key_Up:
        if (row > firstRow)
            goTo(row - 1, column);
        return true;
    case Qt::Key_Down:
        if (row < m_grid.Rows() - 1)
            goTo(row + 1, column);
        return true;
    case Qt::Key_Left:
        if (column > firstColumn)
            goTo(row, column - 1);
        return true;
    case Qt::Key_Right:
        if (column < m_grid.Cols() - 1)
            goTo(row, column + 1);
        return true;
    case Qt::Key_Escape:
        return true;
    default:
        break;
    }
    if (!isEnter(event.key()))
        return false;
    if (column != lastColumn)
        goTo(row, column + 1);
    else if (row < m_grid.Rows() - 1)
        goTo(row + 1, firstColumn);
    return true;
}

/// The grid reached by Tab: Enter, F2 or typing opens the current cell.
bool CellEntry::gridKey(const QKeyEvent& event) {
    if (isEnter(event.key()) || event.key() == Qt::Key_F2) {
        enterCell();
        return true;
    }
    if (!typesText(event))
        return false;
    enterCell();
    m_editor.type(event);
    return true;
}

} // namespace results
