// What of the FlexGrid concerns the screen and the keyboard: widths, metrics, events.

#include "platform/base/Error.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/grid/FlexGridModel.h"
#include "platform/controls/look/Look.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>

namespace controls {

int FlexGrid::ColWidth(int column) const {
    requireColumn(column);
    return m_columns.twips(column);
}

void FlexGrid::setColWidth(int column, int twips) {
    requireColumn(column);
    m_columns.give(column, qMax(0, twips));
    layOutColumns();
}

void FlexGrid::setColWidths(std::initializer_list<int> twips) {
    int column = 0;
    for (const int width : twips) {
        requireColumn(column);
        m_columns.give(column++, qMax(0, width));
    }
    layOutColumns();
}

void FlexGrid::setColAlignment(int column, Qt::Alignment alignment) {
    requireColumn(column);
    m_model->setAlignment(column, alignment);
}

void FlexGrid::setStretchColumn(int column) {
    m_columns.setStretchColumn(column);
    layOutColumns();
}

void FlexGrid::setShowRowNumbers(bool show) {
    m_model->setShowRowNumbers(show);
    layOutColumns();
}

void FlexGrid::setRowSelect(bool wholeRow) {
    m_rowSelect = wholeRow;
    viewport()->update();
}

void FlexGrid::setEmptyText(const QString& text) {
    m_emptyText = text;
    viewport()->update();
}

void FlexGrid::measure() {
    verticalHeader()->setDefaultSectionSize(look::scaled(27));
    horizontalHeader()->setFixedHeight(look::scaled(30) * qMax(1, m_model->fixedRows()));
    showHeaders();
}

void FlexGrid::showHeaders() {
    horizontalHeader()->setVisible(m_model->fixedRows() > 0);
    verticalHeader()->setVisible(m_model->fixedColumns() > 0);
    horizontalHeader()->setFixedHeight(look::scaled(30) * qMax(1, m_model->fixedRows()));
    layOutColumns();
}

void FlexGrid::layOutColumns() {
    if (m_layingOut)
        return;
    m_layingOut = true;
    const int first = m_model->headerColumns();
    if (first > 0) {
        int width = FlexGridColumns::toPixels(m_columns.twips(0));
        if (m_model->showsRowNumbers())
            width =
                qMax(width, fontMetrics().horizontalAdvance(QString(
                                qMax(4, int(QString::number(m_model->rows()).size())), QLatin1Char('0'))));
        verticalHeader()->setFixedWidth(qMax(width, 1));
    }
    // The view takes its margins from the headers only when it next lays itself out.
    const int head = first > 0 ? verticalHeader()->maximumWidth() : 0;
    const int room = viewport()->width() + viewportMargins().left() - head;
    const std::vector<int> widths = m_columns.pixels(first, room);
    for (int section = 0; section < int(widths.size()); ++section) {
        const int pixels = widths[std::size_t(section)];
        horizontalHeader()->setSectionHidden(section, pixels == 0);
        if (pixels > 0 && horizontalHeader()->sectionSize(section) != pixels)
            horizontalHeader()->resizeSection(section, pixels);
    }
    m_layingOut = false;
}

void FlexGrid::takeColumnWidth(int section, int oldWidth, int newWidth) {
    const int column = section + m_model->headerColumns();
    // Hiding and our own sizing come this way too; only a header dragged by hand is a new given width.
    if (m_layingOut || oldWidth == 0 || newWidth == 0 || column >= m_model->columns())
        return;
    m_columns.give(column, newWidth * FlexGridColumns::twipsPerPixel);
}

QRect FlexGrid::cellRect(int row, int column) {
    requireCell(row, column);
    executeDelayedItemsLayout();
    updateGeometries();
    const int shownRow = row - m_model->fixedRows();
    const int shownColumn = column - m_model->headerColumns();
    if (shownRow >= 0 && shownColumn >= 0)
        scrollTo(m_model->cell(row, column));
    else if (shownColumn >= 0 && m_model->rowCount() > 0)
        scrollTo(m_model->index(qMax(0, rowAt(0)), shownColumn));
    else if (shownRow >= 0 && m_model->columnCount() > 0)
        scrollTo(m_model->index(shownRow, qMax(0, columnAt(0))));
    const QPoint origin = viewport()->pos();
    const QHeaderView* across = horizontalHeader();
    const QHeaderView* down = verticalHeader();
    QRect cell;
    if (shownColumn >= 0) {
        cell.setLeft(origin.x() + across->sectionViewportPosition(shownColumn));
        cell.setWidth(across->isSectionHidden(shownColumn) ? 0 : across->sectionSize(shownColumn) - 1);
    } else {
        cell.setLeft(down->x());
        cell.setWidth(down->width());
    }
    if (shownRow >= 0) {
        cell.setTop(origin.y() + down->sectionViewportPosition(shownRow));
        cell.setHeight(down->sectionSize(shownRow) - 1);
    } else {
        const int lineHeight = across->height() / qMax(1, m_model->fixedRows());
        cell.setTop(across->y() + row * lineHeight);
        cell.setHeight(lineHeight);
    }
    return cell.translated(pos());
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
    const QPointer<FlexGrid> self(this);
    event->ignore();
    Q_EMIT KeyDown(event);
    if (event->isAccepted() || !self)
        return;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        event->accept();
        Q_EMIT EnterPressed();
        return;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QTableView::keyPressEvent(event);
        if (self)
            event->accept();
        return;
    default:
        // No search by typing, no selecting: what the grid does not know is the screen's.
        if (event->matches(QKeySequence::Copy))
            QTableView::keyPressEvent(event);
        return;
    }
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
    if (!showsEmptyText())
        return;
    QPainter painter(viewport());
    painter.setPen(look::muted);
    painter.drawText(viewport()->rect().adjusted(8, 0, -8, 0), Qt::AlignCenter | Qt::TextWordWrap,
                     m_emptyText);
}

} // namespace controls
