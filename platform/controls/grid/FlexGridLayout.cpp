#include "platform/controls/grid/FlexGrid.h"

#include "platform/controls/grid/FlexGridModel.h"
#include "platform/controls/look/Look.h"

#include <QHeaderView>

#include <utility>

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

void FlexGrid::setColWidths(const std::vector<int>& twips) {
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

void FlexGrid::measure() {
    verticalHeader()->setDefaultSectionSize(look::scaled(27));
    horizontalHeader()->setFixedHeight(look::scaled(30) * qMax(1, m_model->fixedRows()));
    showHeaders();
}

void FlexGrid::showHeaders() {
    // To show what was not hidden would polish and lay out a grid that nobody sees yet.
    if (const bool shown = m_model->fixedRows() > 0; horizontalHeader()->isHidden() == shown)
        horizontalHeader()->setVisible(shown);
    if (const bool shown = m_model->fixedColumns() > 0; verticalHeader()->isHidden() == shown)
        verticalHeader()->setVisible(shown);
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
    std::vector<int> widths = m_columns.pixels(first, room);
    m_fit.fit(widths);
    for (int section = 0; section < int(widths.size()); ++section) {
        const int pixels = widths[std::size_t(section)];
        horizontalHeader()->setSectionHidden(section, pixels == 0);
        if (pixels > 0 && horizontalHeader()->sectionSize(section) != pixels)
            horizontalHeader()->resizeSection(section, pixels);
    }
    m_layingOut = false;
}

/// Until the cells are seen; many changes in a row cost one measuring.
void FlexGrid::awaitFit() {
    if (std::exchange(m_awaitsFit, true))
        return;
    if (isVisible())
        QMetaObject::invokeMethod(this, &FlexGrid::fitToContents, Qt::QueuedConnection);
}

void FlexGrid::fitToContents() {
    if (!m_awaitsFit || !isVisible())
        return; // showing it comes here again
    m_awaitsFit = false;
    const int rows = m_model->rowCount();
    const int first = qMax(0, rowAt(0));
    const int last = rowAt(viewport()->height() - 1);
    std::vector<int> widths;
    for (int section = 0; section < m_model->columnCount(); ++section)
        widths.push_back(columnWidth(section)); // 0 for a hidden one
    if (m_fit.read(first, last < 0 ? rows - 1 : last, widths))
        layOutColumns();
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
    QTableView::updateGeometries();
    m_awaitsGeometries = false;
    const int shownRow = row - m_model->fixedRows();
    const int shownColumn = column - m_model->headerColumns();
    if (shownRow >= 0 && shownColumn >= 0)
        scrollTo(m_model->cell(row, column));
    else if (shownColumn >= 0 && m_model->rowCount() > 0)
        scrollTo(m_model->index(qMax(0, rowAt(0)), shownColumn));
    else if (shownRow >= 0 && m_model->columnCount() > 0)
        scrollTo(m_model->index(shownRow, qMax(0, columnAt(0))));
    return shownCellRect(row, column);
}

QRect FlexGrid::shownCellRect(int row, int column) const {
    requireCell(row, column);
    const int shownRow = row - m_model->fixedRows();
    const int shownColumn = column - m_model->headerColumns();
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

} // namespace controls
