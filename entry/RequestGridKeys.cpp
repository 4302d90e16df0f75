// What the keys do on the request grid and its editors.

#include "entry/RequestGrid.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/ErrorBoundary.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

namespace entry {

using namespace controls;

namespace {

bool isEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isBackTab(const QKeyEvent& event) {
    return event.key() == Qt::Key_Backtab || event.modifiers().testFlag(Qt::ShiftModifier);
}

/// A key that would leave a character in a text box.
bool typesText(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text()[0] >= u' ' && event.text()[0] != QChar(0x7f) &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

} // namespace

bool RequestGrid::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel && watched == &m_cboEntry)
        return true; // a turn of the wheel must not change a price
    if (event->type() == QEvent::ShortcutOverride && watched != &m_grid) {
        // Keys of an open editor are the editor's, whatever the window has on them.
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape || isEnter(key) || key == Qt::Key_F3)
            event->accept();
        return false;
    }
    if (event->type() == QEvent::Resize && watched == &m_grid && isEditing()) {
        const QScopedValueRollback placing(m_placing, true);
        const QRect place = m_grid.cellRect(m_grid.Row(), m_grid.Col());
        m_txtEntry.setGeometry(place);
        m_cboEntry.setGeometry(place);
    }
    if (watched == m_header && event->type() == QEvent::MouseButtonPress)
        leaveCell();
    if (watched == m_header || event->type() != QEvent::KeyPress)
        return false;
    auto* key = static_cast<QKeyEvent*>(event);
    bool handled = false;
    ErrorBoundary::guard([&] {
        if (watched == &m_grid)
            handled = gridKey(key);
        else if (watched == &m_txtEntry)
            handled = entryKey(key);
        else
            handled = listKey(key);
    });
    return handled;
}

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
        if (m_cboEntry.isVisible())
            return listKey(event);
        // The key goes through the rules of the column as if it had been typed there.
        if (m_txtEntry.isVisible()) {
            QKeyEvent typed(event->type(), event->key(), event->modifiers(), event->text());
            QCoreApplication::sendEvent(&m_txtEntry, &typed);
        }
        return isEditing();
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
        return stepCell(isBackTab(*event) ? -1 : 1);
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
        if (row >= 2) {
            m_grid.setRow(row - 1);
            BeginCellEdit();
        }
        return true;
    }
    if (key == Qt::Key_Down) {
        if (row < m_grid.Rows() - 1) {
            m_grid.setRow(row + 1);
            BeginCellEdit();
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
    BeginCellEdit();
    return true;
}

} // namespace entry
