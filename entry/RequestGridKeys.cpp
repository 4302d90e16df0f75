#include "entry/RequestGrid.h"

#include "platform/controls/fields/Keys.h"
#include "platform/controls/grid/FlexGrid.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

/// What the keys do on the grid and in its editors.
namespace entry {

using namespace controls;

namespace {

bool isBackTab(const QKeyEvent& event) {
    return event.key() == Qt::Key_Backtab || event.modifiers().testFlag(Qt::ShiftModifier);
}

} // namespace

bool RequestGrid::gridKey(QKeyEvent* event) {
    if (event->key() == Qt::Key_F3) {
        deleteRow();
        return true;
    }
    if (isEnter(event->key()) || event->key() == Qt::Key_F2) {
        BeginCellEdit();
        return true;
    }
    if (typesText(*event) && event->key() != Qt::Key_Space) {
        BeginCellEdit();
        m_editor.type(*event); // and so goes through the rules of the column
        return m_editor.isOpen();
    }
    return false;
}

std::optional<bool> RequestGrid::openCellKey(QKeyEvent* event) {
    const int key = event->key();
    if (rowKey(key))
        return true;
    if (key == Qt::Key_Escape) {
        EndCellEdit();
        return true;
    }
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
        return !isLeavable(true) || stepCell(isBackTab(*event) ? -1 : 1);
    return std::nullopt;
}

bool RequestGrid::entryKey(QKeyEvent* event) {
    const int key = event->key();
    if (const auto answered = openCellKey(event))
        return *answered;
    if (key == Qt::Key_F3) {
        if (m_grid.Rows() >= 3)
            deleteRow();
        return true;
    }
    if (isEnter(key)) {
        txtEntry_Enter();
        return true;
    }
    if (m_grid.Col() == colQuantity && typesText(*event) && !m_txtEntry.hasSelectedText() &&
        m_txtEntry.text().size() >= 1)
        return true; // one digit only
    return false;
}

bool RequestGrid::listKey(QKeyEvent* event) {
    const int key = event->key();
    if (const auto answered = openCellKey(event))
        return *answered;
    if (isEnter(key)) {
        EndCellEdit();
        AdvanceCell();
        return true;
    }
    if (!typesText(*event))
        return false;
    const QString typed = event->text().toUpper();
    if (typed == u"S")
        m_cboEntry.setCurrentText(QStringLiteral("STAT"));
    else if (typed == u"R")
        m_cboEntry.setCurrentText(QStringLiteral("ROUTINE"));
    if (typed == u"S" || typed == u"R")
        cboEntry_Change();
    return true;
}

/// Up and Down move one line, on both editors.
bool RequestGrid::rowKey(int key) {
    const int row = m_grid.Row();
    if (key == Qt::Key_Up) {
        if (row >= 2 && isLeavable(false)) {
            m_grid.setRow(row - 1);
            openCell(Opening::PassedThrough);
        }
        return true;
    }
    if (key == Qt::Key_Down) {
        if (row < m_grid.Rows() - 1 && isLeavable(false)) {
            m_grid.setRow(row + 1);
            openCell(Opening::PassedThrough);
        }
        return true;
    }
    return false;
}

/// Tab and Shift+Tab: to the next or former cell that takes an entry, amounts included; over the line's end
/// into the next line. Beyond the first and the last cell the focus leaves the grid, and so it does from the
/// department of a last line that is empty: its quantity is nobody's.
bool RequestGrid::stepCell(int direction) {
    if (direction > 0 && m_grid.Row() == m_grid.Rows() - 1 && m_grid.Col() == colDepartment &&
        cell(colDepartment).isEmpty()) {
        EndCellEdit();
        return false;
    }
    if (cell(colAmountEditable) == u"Y" || isFeeRevenue(cell(colDepartment)))
        SkipColumn[colAmount] = false;
    int row = m_grid.Row();
    int column = m_grid.Col();
    for (;;) {
        column += direction;
        if (column > colAmount) {
            column = colDepartment;
            ++row;
        } else if (column < colDepartment) {
            column = colAmount;
            --row;
        }
        if (row < 1 || row >= m_grid.Rows()) {
            EndCellEdit();
            return false;
        }
        if (!SkipColumn[size_t(column)])
            break;
    }
    m_grid.setCurrentCell(row, column);
    openCell(Opening::PassedThrough);
    return true;
}

} // namespace entry
