#include "platform/controls/grid/CellEditor.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/Connect.h"
#include "platform/controls/screen/Screen.h"

#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace controls {

CellEditor::CellEditor(FlexGrid& grid, const CellEditing& rules, QObject* parent)
    : QObject(parent), m_grid(grid), m_header(grid.horizontalHeader()->viewport()), m_rules(rules) {
    grid.installEventFilter(this);
    grid.horizontalHeader()->viewport()->installEventFilter(this);
    on(grid.horizontalHeader(), &QHeaderView::sectionResized, this, [this] { follow(); });
    for (QScrollBar* bar : {grid.horizontalScrollBar(), grid.verticalScrollBar()})
        on(bar, &QScrollBar::valueChanged, this, [this] { cellMoved(); });
}

void CellEditor::add(QLineEdit& box) {
    watch(box);
    on(&box, &QLineEdit::textChanged, this, [this, &box](const QString& text) {
        if (m_open == &box)
            write(text);
    });
}

void CellEditor::add(QComboBox& list) {
    watch(list);
}

void CellEditor::watch(QWidget& editor) {
    editor.hide();
    editor.installEventFilter(this);
}

// ---- opening and closing

void CellEditor::place(QLineEdit& box, const QString& text) {
    hide();
    box.setText(text);
    show(box);
    write(box.text());
}

void CellEditor::open(QLineEdit& box, const QString& text) {
    place(box, text);
    box.setFocus();
    SelectAllText(&box);
}

void CellEditor::open(QComboBox& list) {
    hide();
    show(list);
    list.setFocus();
}

void CellEditor::show(QWidget& editor) {
    m_open = &editor;
    editor.setAccessibleName(cellName());
    editor.ensurePolished();
    editor.setMinimumSize(0, 0); // what the sheet asks for a field on its own would cover the next row
    follow();
    editor.raise();
    editor.show();
}

/// What a screen reader says of the cell: "Quantity, line 2".
QString CellEditor::cellName() const {
    const int line = m_grid.Row() - m_grid.FixedRows() + 1;
    const QString header = m_grid.FixedRows() > 0 ? m_grid.TextMatrix(0, m_grid.Col()).trimmed() : QString();
    return header.isEmpty() ? QStringLiteral("Line %1").arg(line)
                            : QStringLiteral("%1, line %2").arg(header).arg(line);
}

void CellEditor::type(const QKeyEvent& event) {
    if (!isOpen())
        return;
    QKeyEvent typed(event.type(), event.key(), event.modifiers(), event.text());
    QCoreApplication::sendEvent(m_open, &typed);
}

void CellEditor::write(const QString& text) {
    if (m_rules.writesEachChange && m_grid.Row() >= m_grid.FixedRows() && m_grid.Text() != text)
        m_grid.setText(text);
}

void CellEditor::hide() {
    if (QWidget* editor = std::exchange(m_open, nullptr)) {
        editor->hide();
        Q_EMIT Closed();
    }
}

void CellEditor::close() {
    hide();
    m_grid.setFocus();
}

void CellEditor::leave() {
    if (isOpen() && m_open->hasFocus())
        close();
    else
        hide();
}

bool CellEditor::isOpen() const {
    return m_open && !m_open->isHidden();
}

// ---- staying over the cell

void CellEditor::follow() {
    if (!m_open || m_placing)
        return;
    const QScopedValueRollback placing(m_placing, true);
    const int inset = m_rules.inset;
    m_open->setGeometry(m_grid.cellRect(m_grid.Row(), m_grid.Col()).adjusted(inset, inset, -inset, -inset));
}

/// Scrolled: to bring the cell back into view would take the grid out of the user's hands.
void CellEditor::cellMoved() {
    if (!isOpen() || m_placing)
        return;
    const QRect seen = m_grid.viewport()->geometry().translated(m_grid.pos());
    const QRect left = m_grid.shownCellRect(m_grid.Row(), m_grid.Col()) & seen;
    const int inset = m_rules.inset;
    if (m_rules.closesWhenMoved || left.isEmpty())
        leave();
    else
        m_open->setGeometry(left.adjusted(inset, inset, -inset, -inset));
}

// ---- events

bool CellEditor::eventFilter(QObject* watched, QEvent* event) {
    bool taken = false;
    ErrorBoundary::guard([&] {
        if (watched == m_header) {
            if (event->type() == QEvent::MouseButtonPress && m_rules.closesWhenMoved)
                leave();
        } else if (watched == &m_grid) {
            if (event->type() == QEvent::Resize)
                follow();
            else if (event->type() == QEvent::EnabledChange && !m_grid.isEnabled())
                hide();
        } else {
            taken = editorEvent(*static_cast<QWidget*>(watched), *event);
        }
    });
    return taken;
}

bool CellEditor::editorEvent(QWidget& editor, QEvent& event) {
    switch (event.type()) {
    case QEvent::Wheel:
        return qobject_cast<QComboBox*>(&editor);
    case QEvent::ShortcutOverride: {
        const auto& own = m_rules.ownKeys;
        if (std::find(own.begin(), own.end(), static_cast<QKeyEvent&>(event).key()) != own.end())
            event.accept();
        return false;
    }
    case QEvent::FocusOut: {
        const Qt::FocusReason reason = static_cast<QFocusEvent&>(event).reason();
        if (m_rules.hidesOnFocusOut && reason != Qt::PopupFocusReason &&
            reason != Qt::ActiveWindowFocusReason) {
            hide();
            editor.clearFocus(); // else its page gives it the focus when it comes back
        }
        return false;
    }
    case QEvent::KeyPress:
        return tellKey(static_cast<QKeyEvent&>(event));
    default:
        return false;
    }
}

bool CellEditor::tellKey(QKeyEvent& event) {
    const bool was = event.isAccepted();
    event.ignore();
    Q_EMIT KeyDown(&event);
    if (event.isAccepted())
        return true;
    event.setAccepted(was);
    return false;
}

} // namespace controls
