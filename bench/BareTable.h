#pragma once

#include <QAbstractTableModel>

#include <functional>

namespace bench {

/// The least that can show rows in a table view: a model that hands out their texts.
class BareTable : public QAbstractTableModel {
  public:
    using Cell = std::function<QString(int row, int column)>;
    BareTable(int rows, int columns, Cell cell) : m_rows(rows), m_columns(columns), m_cell(std::move(cell)) {}

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_rows; }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_columns; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole)
            return {};
        return m_cell(index.row(), index.column());
    }

  private:
    const int m_rows;
    const int m_columns;
    const Cell m_cell;
};

} // namespace bench
