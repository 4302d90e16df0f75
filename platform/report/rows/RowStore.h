#pragma once

#include "platform/report/rows/RowBlock.h"
#include "platform/report/rows/RowSource.h"

#include <QTemporaryFile>

#include <atomic>
#include <condition_variable>
#include <list>
#include <mutex>

namespace report {

/// The rows of one result, kept compactly in blocks and beyond a few megabytes on disk, in a file that nobody
/// else may read and that goes with the store. One thread appends; one thread, the same or another, reads.
class RowStore : public RowSource {
  public:
    static constexpr qsizetype blockRows = 1024;
    static constexpr qint64 heldAtMost = 4 * 1024 * 1024;
    static constexpr std::size_t unpackedAtMost = 8;

    explicit RowStore(std::vector<ado::Column> columns) : m_columns(std::move(columns)) {}

    /// Raises 75 when rows cannot be set aside: the disk is full.
    void append(const std::vector<base::Value>& row);
    /// No more rows come.
    void finish();

    const std::vector<ado::Column>& columns() const override { return m_columns; }
    qsizetype count() const override { return m_count.load(std::memory_order_acquire); }
    base::Value at(qsizetype row, qsizetype column) const override;
    bool isComplete() const override { return m_complete.load(std::memory_order_acquire); }

    struct Statistics {
        qint64 held;        ///< bytes in memory, packed
        qint64 onDisk;      ///< bytes
        qsizetype unpacked; ///< blocks that are values at present
    };
    Statistics statistics() const;

  private:
    struct Packed {
        QByteArray bytes; ///< empty when it lies on disk
        qint64 at = 0;
        qint64 size = 0;
    };
    void close(QByteArray block);
    QByteArray bytesOf(qsizetype block, qsizetype from) const;
    const RowBlock& unpacked(qsizetype block, std::size_t cells) const;

    const std::vector<ado::Column> m_columns;
    std::atomic<qsizetype> m_count{0};
    std::atomic<bool> m_complete{false};

    mutable std::mutex m_mutex; ///< guards what follows
    std::vector<Packed> m_blocks;
    QByteArray m_open; ///< the block that is being filled
    qint64 m_held = 0;
    qint64 m_onDisk = 0;
    mutable QTemporaryFile m_file;

    mutable std::list<RowBlock> m_unpacked; ///< of the reading thread, last used first
};

} // namespace report
