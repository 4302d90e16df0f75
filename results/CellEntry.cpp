#include "results/CellEntry.h"

#include "platform/controls/fields/KeyFilter.h"
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

bool isEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

CellEntry::CellEntry(FlexGrid& grid, QLineEdit& txtEntry, QObject* parent)
    : QObject(parent), m_grid(grid), m_txtEntry(txtEntry) {
    setKeyRules(&m_txtEntry, KeyRule::BackQuote);
    m_txtEntry.hide();
    m_grid.installEventFilter(this);
    m_txtEntry.installEventFilter(this);
    on(&m_grid, &FlexGrid::Click, this, [this] { enterCell(); });
    on(&m_grid, &FlexGrid::RowColChange, this, [this] {
        if (!m_moving && m_grid.hasFocus())
            enterCell();
    });
    on(&m_txtEntry, &QLineEdit::textChanged, this, [this] {
        if (m_txtEntry.isVisible())
            m_grid.setText(m_txtEntry.text());
    });
}

void CellEntry::enterCell() {
    const QRect place = m_grid.cellRect(m_grid.Row(), m_grid.Col());
    m_txtEntry.hide();
    m_txtEntry.setText(m_grid.Text());
    m_txtEntry.setGeometry(place);
    m_txtEntry.raise();
    m_txtEntry.show();
    m_txtEntry.setFocus();
    SelectAllText(&m_txtEntry);
}

void CellEntry::leaveCell() {
    m_txtEntry.hide();
    m_grid.setFocus();
}

void CellEntry::goTo(int row, int column) {
    leaveCell();
    {
        const QScopedValueRollback moving(m_moving, true);
        m_grid.setCurrentCell(row, column);
    }
    enterCell();
}

bool CellEntry::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_grid && event->type() == QEvent::Resize && m_txtEntry.isVisible())
        m_txtEntry.setGeometry(m_grid.cellRect(m_grid.Row(), m_grid.Col()));
    if (watched == &m_grid && event->type() == QEvent::EnabledChange && !m_grid.isEnabled())
        m_txtEntry.hide();
    if (watched == &m_txtEntry && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        // Another window, or the box's own menu, gives the focus back.
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
            m_txtEntry.hide();
            m_txtEntry.clearFocus(); // else its page gives it the focus when it comes back
        }
    }
    if (event->type() != QEvent::KeyPress)
        return false;
    auto* key = static_cast<QKeyEvent*>(event);
    bool handled = false;
    ErrorBoundary::guard([&] { handled = watched == &m_txtEntry ? entryKey(*key) : gridKey(*key); });
    return handled;
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
bool CellEntry::gridKey(QKeyEvent& event) {
    if (isEnter(event.key()) || event.key() == Qt::Key_F2) {
        enterCell();
        return true;
    }
    const bool types = !event.text().isEmpty() && event.text()[0].isPrint() &&
                       !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (!types)
        return false;
    enterCell();
    QCoreApplication::sendEvent(&m_txtEntry, &event);
    return true;
}

} // namespace results
