#include "entry/WaitingCells.h"

#include "entry/RequestColumns.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"

#include <algorithm>
#include <tuple>

namespace entry {

using base::Val;
using controls::look::warn;

QPersistentModelIndex WaitingCells::indexOf(Cell cell) const {
    return m_grid.model()->index(cell.row - m_grid.FixedRows(), cell.column - m_grid.FixedCols());
}

WaitingCells::Cell WaitingCells::cellOf(const QPersistentModelIndex& index) const {
    return {index.row() + m_grid.FixedRows(), index.column() + m_grid.FixedCols()};
}

void WaitingCells::forgetLost() {
    std::erase_if(m_typed, [](const Typed& typed) { return !typed.index.isValid(); });
    std::erase_if(m_old, [](const OldAmount& old) { return !old.amount.isValid(); });
}

// ---- typed

void WaitingCells::noteText(Cell cell, const QString& whenOpened) {
    forgetLost();
    const QPersistentModelIndex index = indexOf(cell);
    const QString text = m_grid.TextMatrix(cell.row, cell.column);
    const auto typed = std::ranges::find(m_typed, index, &Typed::index);
    if (typed != m_typed.end()) {
        if (text == typed->taken)
            isTaken(cell);
    } else if (text != whenOpened) {
        m_typed.push_back({index, whenOpened});
        m_grid.setCellForeColor(cell.row, cell.column, warn);
        m_grid.setCellBold(cell.row, cell.column, true);
    }
}

void WaitingCells::isTaken(Cell cell) {
    const QPersistentModelIndex index = indexOf(cell);
    if (std::erase_if(m_typed, [&](const Typed& typed) { return typed.index == index; }) > 0) {
        m_grid.setCellForeColor(cell.row, cell.column, {});
        m_grid.setCellBold(cell.row, cell.column, false);
    }
}

bool WaitingCells::isTyped(Cell cell) const {
    return std::ranges::find(m_typed, indexOf(cell), &Typed::index) != m_typed.end();
}

std::optional<WaitingCells::Cell> WaitingCells::firstTyped() const {
    std::optional<Cell> first;
    for (const Typed& typed : m_typed) {
        const Cell cell = cellOf(typed.index);
        if (typed.index.isValid() &&
            (!first || std::tie(cell.row, cell.column) < std::tie(first->row, first->column)))
            first = cell;
    }
    return first;
}

// ---- old amounts

void WaitingCells::notePrice(int row, const QString& formerPrice, bool otherCode) {
    forgetLost();
    if (m_grid.TextMatrix(row, colAmount).isEmpty()) {
        amountIsMade(row);
        return;
    }
    const QPersistentModelIndex amount = indexOf({row, colAmount});
    auto old = std::ranges::find(m_old, amount, &OldAmount::amount);
    if (old == m_old.end())
        old = m_old.insert(old, {amount, formerPrice});
    old->otherCode = old->otherCode || otherCode;
    if (!old->otherCode && Val(m_grid.TextMatrix(row, colPrice)) == Val(old->price)) {
        amountIsMade(row);
        return;
    }
    m_grid.setCellForeColor(row, colAmount, warn);
    m_grid.setCellBold(row, colAmount, true);
}

void WaitingCells::amountIsMade(int row) {
    const QPersistentModelIndex amount = indexOf({row, colAmount});
    if (std::erase_if(m_old, [&](const OldAmount& old) { return old.amount == amount; }) == 0)
        return;
    m_grid.setCellForeColor(row, colAmount, {});
    m_grid.setCellBold(row, colAmount, false);
}

bool WaitingCells::isOld(int row) const {
    return std::ranges::find(m_old, indexOf({row, colAmount}), &OldAmount::amount) != m_old.end();
}

// ---- words

QString WaitingCells::sentence(std::optional<Cell> open) const {
    for (const Typed& typed : m_typed) {
        const Cell cell = cellOf(typed.index);
        if (typed.index.isValid() && cell != open)
            return QStringLiteral("Line %1: %2 \"%3\" is not taken yet. Press Enter in it.")
                .arg(QString::number(cell.row), m_grid.TextMatrix(0, cell.column),
                     m_grid.TextMatrix(cell.row, cell.column).left(12));
    }
    for (const OldAmount& old : m_old) {
        if (old.amount.isValid())
            return QStringLiteral("Line %1: Amount is of the former price or code. Confirm Quantity.")
                .arg(cellOf(old.amount).row);
    }
    return {};
}

} // namespace entry
