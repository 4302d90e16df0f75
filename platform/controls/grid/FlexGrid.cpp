#include "platform/controls/grid/FlexGrid.h"

#include "platform/base/Error.h"
#include "platform/controls/fields/Keys.h"
#include "platform/controls/grid/FlexGridDelegate.h"
#include "platform/controls/grid/FlexGridModel.h"
#include "platform/controls/look/Look.h"

#include <utility>

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>

namespace controls {

namespace {

constexpr int cannotRemoveLastRow = 30015;

Qt::Alignment alignmentOf(QChar mark) {
    if (mark == QLatin1Char('^'))
        return Qt::AlignHCenter;
    if (mark == QLatin1Char('>'))
        return Qt::AlignRight;
    return Qt::AlignLeft;
}

bool isMark(QChar c) {
    return c == QLatin1Char('<') || c == QLatin1Char('^') || c == QLatin1Char('>');
}

} // namespace

FlexGrid::FlexGrid(QWidget* parent)
    : QTableView(parent)
    , m_model(new FlexGridModel(this))
    , m_delegate(new FlexGridDelegate(this))
    , m_fit(*m_model, *m_delegate) {
    m_columns.setCount(m_model->columns());
    setItemDelegate(m_delegate);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setMinimumSectionSize(4);
    verticalHeader()->setHighlightSections(false);
    verticalHeader()->setSectionsClickable(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(4);
    setModel(m_model);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &FlexGrid::takeColumnWidth);
    connect(m_model, &FlexGridModel::dataChanged, this, &FlexGrid::awaitFit);
    connect(m_model, &FlexGridModel::rowsInserted, this, &FlexGrid::awaitFit);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &FlexGrid::awaitFit);
    measure();
    placeCurrent(1, 1, true);
}

FlexGrid::~FlexGrid() = default;

void FlexGrid::requireColumn(int column) const {
    if (column < 0 || column >= m_model->columns())
        throw base::RunTimeError(base::errors::subscriptOutOfRange);
}

void FlexGrid::requireCell(int row, int column) const {
    requireColumn(column);
    if (row < 0 || row >= m_model->rows())
        throw base::RunTimeError(base::errors::subscriptOutOfRange);
}

// ---- rows, columns and the current cell

int FlexGrid::Rows() const {
    return m_model->rows();
}

void FlexGrid::setRows(int rows) {
    if (rows < m_model->fixedRows())
        throw base::RunTimeError(base::errors::subscriptOutOfRange);
    m_placing = true;
    m_model->setRows(rows);
    m_placing = false;
    placeCurrent(m_row, m_column);
}

int FlexGrid::Cols() const {
    return m_model->columns();
}

void FlexGrid::setCols(int columns) {
    if (columns < m_model->fixedColumns())
        throw base::RunTimeError(base::errors::subscriptOutOfRange);
    m_placing = true;
    m_model->setColumns(columns);
    m_placing = false;
    m_columns.setCount(columns);
    layOutColumns();
    placeCurrent(m_row, m_column);
}

int FlexGrid::FixedRows() const {
    return m_model->fixedRows();
}

void FlexGrid::setFixedRows(int rows) {
    if (rows < 0 || rows > m_model->rows())
        throw base::RunTimeError(base::errors::subscriptOutOfRange);
    m_placing = true;
    m_model->setFixed(rows, m_model->fixedColumns());
    m_placing = false;
    showHeaders();
    placeCurrent(m_row, m_column);
}

int FlexGrid::FixedCols() const {
    return m_model->fixedColumns();
}

void FlexGrid::setFixedCols(int columns) {
    if (columns < 0 || columns > m_model->columns())
        throw base::RunTimeError(base::errors::subscriptOutOfRange);
    m_placing = true;
    m_model->setFixed(m_model->fixedRows(), columns);
    m_placing = false;
    showHeaders();
    placeCurrent(m_row, m_column);
}

int FlexGrid::Row() const {
    return m_row;
}

void FlexGrid::setRow(int row) {
    setCurrentCell(row, m_column);
}

int FlexGrid::Col() const {
    return m_column;
}

void FlexGrid::setCol(int column) {
    setCurrentCell(m_row, column);
}

void FlexGrid::setCurrentCell(int row, int column) {
    requireCell(row, column);
    placeCurrent(row, column);
}

void FlexGrid::placeCurrent(int row, int column, bool quietly) {
    const bool hasRows = m_model->rows() > m_model->fixedRows();
    const bool hasColumns = m_model->columns() > m_model->fixedColumns();
    const int newRow = hasRows ? qBound(m_model->fixedRows(), row, m_model->rows() - 1) : 0;
    const int newColumn = hasColumns ? qBound(m_model->fixedColumns(), column, m_model->columns() - 1) : 0;
    const bool moved = newRow != m_row || newColumn != m_column;
    m_row = newRow;
    m_column = newColumn;
    m_placing = true;
    const QModelIndex index = hasRows && hasColumns ? m_model->cell(newRow, newColumn) : QModelIndex();
    if (index != currentIndex())
        selectionModel()->setCurrentIndex(index, index.isValid() ? QItemSelectionModel::ClearAndSelect
                                                                 : QItemSelectionModel::Clear);
    m_placing = false;
    if (!moved)
        return;
    viewport()->update();
    if (!quietly)
        Q_EMIT RowColChange();
}

void FlexGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    viewport()->update();
    if (m_placing || !current.isValid())
        return;
    m_row = m_model->rowOf(current);
    m_column = m_model->columnOf(current);
    Q_EMIT RowColChange();
}

// ---- texts and rows

QString FlexGrid::TextMatrix(int row, int column) const {
    requireCell(row, column);
    return m_model->text(row, column);
}

void FlexGrid::setTextMatrix(int row, int column, const QString& text) {
    requireCell(row, column);
    m_model->setText(row, column, text);
}

QString FlexGrid::Text() const {
    return TextMatrix(m_row, m_column);
}

void FlexGrid::setText(const QString& text) {
    setTextMatrix(m_row, m_column, text);
}

void FlexGrid::setFormatString(const QString& format) {
    const QStringList cells = format.split(QLatin1Char('|'));
    setCols(int(qMax(cells.size(), qsizetype(m_model->fixedColumns()))));
    m_formatHeaders.clear();
    for (int column = 0; column < int(cells.size()); ++column) {
        QString head = cells[column];
        if (!head.isEmpty() && isMark(head.at(0))) {
            setColAlignment(column, alignmentOf(head.at(0)));
            head.remove(0, 1);
        }
        m_formatHeaders << head;
        if (m_model->rows() > 0)
            m_model->setText(0, column, head);
        if (!m_columns.isGiven(column)) {
            const int pixels = fontMetrics().horizontalAdvance(head) + look::scaled(16);
            m_columns.give(column, pixels * FlexGridColumns::twipsPerPixel);
        }
    }
    layOutColumns();
}

void FlexGrid::AddItem(const QString& cells, int index) {
    const int at = index < 0 ? m_model->rows() : index;
    if (at > m_model->rows() || at < m_model->fixedRows())
        throw base::RunTimeError(base::errors::subscriptOutOfRange);
    m_placing = true;
    m_model->insertRow(at, cells.split(QLatin1Char('\t')));
    m_placing = false;
    placeCurrent(m_row, m_column);
}

void FlexGrid::RemoveItem(int row) {
    if (row < m_model->fixedRows() || row >= m_model->rows())
        throw base::RunTimeError(base::errors::subscriptOutOfRange);
    if (m_model->rows() - m_model->fixedRows() == 1)
        throw base::RunTimeError(cannotRemoveLastRow, QStringLiteral("Cannot remove last non-fixed row"));
    m_placing = true;
    m_model->removeRow(row);
    m_placing = false;
    placeCurrent(m_row, m_column);
}

void FlexGrid::Clear() {
    m_fit.forget();
    m_model->clear();
}

void FlexGrid::setDataSource(const ado::Recordset& recordset) {
    const ado::Rows& rows = recordset.rows();
    const int first = m_model->fixedColumns();
    const int fields = int(rows.columns.size());
    const bool formatted = !m_formatHeaders.isEmpty();
    const int columns = qMax(first + fields, formatted ? m_model->columns() : 0);
    m_placing = true;
    m_model->bind(rows, columns);
    m_fit.expectTexts();
    awaitFit();
    m_placing = false;
    m_columns.setCount(columns);
    bool headless = m_model->fixedRows() > 0;
    for (int column = 0; headless && formatted && column < columns; ++column)
        headless = m_model->text(0, column).isEmpty();
    if (headless && formatted) {
        for (int column = 0; column < qMin(columns, int(m_formatHeaders.size())); ++column)
            m_model->setText(0, column, m_formatHeaders[column]);
    } else if (headless) {
        for (int field = 0; field < fields; ++field)
            m_model->setText(0, first + field, rows.columns[std::size_t(field)].name);
    }
    for (int column = int(m_formatHeaders.size()); formatted && column < columns; ++column)
        if (!m_columns.isGiven(column))
            m_columns.give(column, 0);
    layOutColumns();
    placeCurrent(m_model->fixedRows(), first, true);
    scrollToTop();
    viewport()->update();
}

// ---- widths and measures

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

// ---- colours, weight and pictures of single cells

void FlexGrid::changeFormat(int row, int column, const std::function<void(CellFormat&)>& change) {
    requireCell(row, column);
    CellFormat format = m_model->format(row, column);
    change(format);
    m_model->setFormat(row, column, format);
}

void FlexGrid::setCellForeColor(int row, int column, const QColor& color) {
    changeFormat(row, column, [&](CellFormat& format) { format.foreColor = color; });
}

void FlexGrid::setCellBackColor(int row, int column, const QColor& color) {
    changeFormat(row, column, [&](CellFormat& format) { format.backColor = color; });
}

void FlexGrid::setCellBold(int row, int column, bool bold) {
    changeFormat(row, column, [&](CellFormat& format) { format.bold = bold; });
}

void FlexGrid::setCellIcon(int row, int column, const QIcon& icon) {
    changeFormat(row, column, [&](CellFormat& format) { format.icon = icon; });
}

QString FlexGrid::cellIconName(int row, int column) const {
    requireCell(row, column);
    return m_model->format(row, column).icon.name();
}

// ---- keys, mouse and painting

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
    switch (event->key()) {
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
    if (!showsEmptyText())
        return;
    QPainter painter(viewport());
    painter.setPen(look::muted);
    painter.drawText(viewport()->rect().adjusted(8, 0, -8, 0), Qt::AlignCenter | Qt::TextWordWrap,
                     m_emptyText);
}

// ---- the shared grid routines

void SetGridHeaders(FlexGrid& grid, int columns, const QString& headers, int first) {
    grid.setCols(columns);
    QString cell;
    int column = first;
    for (const QChar c : headers) {
        if (c != QLatin1Char('?')) {
            cell += c;
            continue;
        }
        grid.setTextMatrix(0, column++, cell);
        cell.clear();
    }
}

void SetGridAlignments(FlexGrid& grid, const QString& alignments, int first) {
    int column = first;
    for (const QString& mark : alignments.split(QLatin1Char('|')))
        grid.setColAlignment(column++, alignmentOf(mark.isEmpty() ? QChar() : mark.at(0)));
}

} // namespace controls
