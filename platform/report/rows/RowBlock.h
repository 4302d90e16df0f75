#pragma once

#include "platform/base/Value.h"

#include <QByteArray>

#include <vector>

namespace report {

/// Adds one value to a block's bytes: a sign for its kind, then no more than it needs.
void writeCell(QByteArray& bytes, const base::Value& value);

/// A block's rows as values again. What is appended to the block later is read on from where it stopped.
class RowBlock {
  public:
    explicit RowBlock(qsizetype index) : m_index(index) {}

    qsizetype index() const { return m_index; }
    qsizetype bytesRead() const { return m_bytesRead; }
    std::size_t cellCount() const { return m_cells.size(); }
    const base::Value& cell(std::size_t place) const { return m_cells[place]; }
    /// `more` follows the bytes read so far. Raises 75 when they were never written by writeCell().
    void read(const QByteArray& more);

  private:
    qsizetype m_index;
    qsizetype m_bytesRead = 0;
    std::vector<base::Value> m_cells;
};

} // namespace report
