#include "platform/controls/grid/FlexGrid.h"

#include "platform/base/Error.h"
#include "platform/controls/grid/FlexGridDelegate.h"
#include "platform/controls/grid/FlexGridModel.h"
#include "platform/controls/look/Look.h"

#include <QHeaderView>
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

// ---- what shows

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

void FlexGrid::setRowSelect(bool wholeRow) {
    m_rowSelect = wholeRow;
    viewport()->update();
}

void FlexGrid::setEmptyText(const QString& text) {
    m_emptyText = text;
    viewport()->update();
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
