#pragma once

#include "platform/ado/Provider.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QIcon>

#include <map>
#include <memory>
#include <vector>

namespace controls {

/// How one cell differs from the others.
struct CellFormat {
    QColor foreColor;
    QColor backColor;
    bool bold = false;
    QIcon icon;
};

/// The cells of a FlexGrid, fixed ones included. What a view sees is the rest: fixed rows are its horizontal
/// header, the first fixed column is its vertical header. Texts of a bound result are made when they are
/// asked for; what code writes lies above them, row by row, so that a row that moves takes its texts along.
class FlexGridModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit FlexGridModel(QObject* parent);

    int rows() const { return int(m_rows.size()); }
    int columns() const { return m_columns; }
    int fixedRows() const { return m_fixedRows; }
    int fixedColumns() const { return m_fixedColumns; }
    /// Columns that the vertical header shows: 0 or 1.
    int headerColumns() const { return m_fixedColumns > 0 ? 1 : 0; }

    void setRows(int rows);
    void setColumns(int columns);
    void setFixed(int rows, int columns);

    QString text(int row, int column) const;
    void setText(int row, int column, const QString& text);
    void insertRow(int index, const QStringList& cells);
    void removeRow(int row);
    void clear();
    /// One row for each row of the result, at least one, behind the fixed ones; its fields from the first
    /// column that is not fixed on.
    void bind(const ado::Rows& source, int columns);
    bool rowIsEmpty(int row) const;

    CellFormat format(int row, int column) const;
    void setFormat(int row, int column, const CellFormat& format);
    void setAlignment(int column, Qt::Alignment alignment);
    Qt::Alignment alignment(int column) const;
    /// Amounts, quantities, dates: right-aligned, or a number or a date of the bound result.
    bool holdsValues(int column) const;
    void setShowRowNumbers(bool show);
    bool showsRowNumbers() const { return m_showRowNumbers; }

    QModelIndex cell(int row, int column) const { return index(row - m_fixedRows, column - headerColumns()); }
    int rowOf(const QModelIndex& index) const { return index.row() + m_fixedRows; }
    int columnOf(const QModelIndex& index) const { return index.column() + headerColumns(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    struct Row {
        int source = -1;
        /// Texts written by code; a null one shows the source's.
        std::vector<QString> texts = {};
        std::unique_ptr<std::map<int, CellFormat>> formats = {};
    };

    QString headerText(int column) const;
    QString shownText(int row, int column) const;
    QString numberedText(int row) const;
    void changed(int row, int column);

    std::vector<Row> m_rows;
    /// A copy: assigning the next result reuses its memory.
    ado::Rows m_source;
    std::vector<Qt::Alignment> m_alignments;
    int m_columns = 2;
    int m_fixedRows = 1;
    int m_fixedColumns = 1;
    bool m_showRowNumbers = false;
};

} // namespace controls
