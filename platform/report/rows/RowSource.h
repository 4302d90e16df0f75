#pragma once

#include "platform/ado/Provider.h"

namespace report {

/// How an export shows the cells of a column, whichever way their values came.
enum class CellLook {
    Plain,  ///< each as it is
    Amount, ///< two decimals at least
    Day,    ///< no time, whatever the value has
    Moment  ///< day and time, midnight, too
};

/// Rows read by their place, wherever they are kept. Walk them in order where you can: rows that were set
/// aside on disk are fetched a block at a time.
class RowSource {
  public:
    virtual ~RowSource() = default;
    virtual const std::vector<ado::Column>& columns() const = 0;
    /// Both exports go by it. What is no number or no moment stays as it is.
    virtual CellLook look(qsizetype column) const {
        return columns()[std::size_t(column)].type == ado::DataType::Money ? CellLook::Amount
                                                                           : CellLook::Plain;
    }
    /// Rows that have arrived.
    virtual qsizetype count() const = 0;
    /// Both from 0 and in range. Raises 75 when rows that were set aside cannot be read back.
    virtual base::Value at(qsizetype row, qsizetype column) const = 0;
    /// False as long as more rows may arrive.
    virtual bool isComplete() const { return true; }
};

/// Rows that are held whole. Not owned; they must outlive it.
class HeldRows : public RowSource {
  public:
    explicit HeldRows(const ado::Rows& rows) : m_rows(rows) {}
    const std::vector<ado::Column>& columns() const override { return m_rows.columns; }
    qsizetype count() const override { return m_rows.count(); }
    base::Value at(qsizetype row, qsizetype column) const override { return m_rows.at(row, column); }

  private:
    const ado::Rows& m_rows;
};

} // namespace report
