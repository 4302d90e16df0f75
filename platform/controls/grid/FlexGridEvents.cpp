#include "platform/controls/grid/FlexGrid.h"

#include "platform/controls/fields/Keys.h"
#include "platform/controls/grid/FlexGridModel.h"
#include "platform/controls/look/EmptyText.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <utility>

namespace controls {

void FlexGrid::keyPressEvent(QKeyEvent* event) {
    const QPointer<FlexGrid> self(this);
    event->ignore();
    Q_EMIT KeyDown(event);
    if (event->isAccepted() || !self)
        return;
    if (isEnter(*event)) {
        event->accept();
        // The Enter that led here, still held down, must not take a row that nobody has read yet.
        if (!event->isAutoRepeat())
            Q_EMIT EnterPressed();
        return;
    }
    if (movesInTable(event->key())) {
        QTableView::keyPressEvent(event);
        if (self)
            event->accept();
        return;
    }
    // No search by typing, no selecting: what the grid does not know is the screen's.
    if (event->matches(QKeySequence::Copy))
        QTableView::keyPressEvent(event);
}

void FlexGrid::mousePressEvent(QMouseEvent* event) {
    const QPointer<FlexGrid> self(this);
    const bool onCell =
        event->button() == Qt::LeftButton && (indexAt(event->pos()).flags() & Qt::ItemIsEnabled);
    QTableView::mousePressEvent(event);
    if (self && onCell)
        Q_EMIT Click();
}

void FlexGrid::mouseMoveEvent(QMouseEvent* event) {
    // A press moves the current cell; dragging on does not.
    if (event->buttons() == Qt::NoButton)
        QTableView::mouseMoveEvent(event);
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPointer<FlexGrid> self(this);
    const bool onCell =
        event->button() == Qt::LeftButton && (indexAt(event->pos()).flags() & Qt::ItemIsEnabled);
    QTableView::mouseDoubleClickEvent(event);
    if (self && onCell)
        Q_EMIT DblClick();
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    layOutColumns();
    awaitFit();
}

void FlexGrid::updateGeometries() {
    m_awaitsGeometries = !isVisible();
    if (!m_awaitsGeometries)
        QTableView::updateGeometries();
}

void FlexGrid::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (std::exchange(m_awaitsGeometries, false))
        QTableView::updateGeometries();
    QTableView::scrollTo(index, hint);
}

void FlexGrid::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    if (m_awaitsGeometries)
        updateGeometries();
    fitToContents();
}

void FlexGrid::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        measure();
}

void FlexGrid::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    viewport()->update();
}

void FlexGrid::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    viewport()->update();
}

bool FlexGrid::showsEmptyText() const {
    if (m_emptyText.isEmpty())
        return false;
    const int records = m_model->rows() - m_model->fixedRows();
    return records == 0 || (records == 1 && m_model->rowIsEmpty(m_model->fixedRows()));
}

void FlexGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (showsEmptyText())
        paintEmptyText(*viewport(), m_emptyText);
}

} // namespace controls
