#include "platform/report/rows/RowStore.h"

#include "platform/report/output/SaveFile.h"

#include <algorithm>

namespace report {
namespace {

[[noreturn]] void failed(const QFile& file) {
    throw fileError(QStringLiteral("rows of a report, set aside"), file.errorString());
}

} // namespace

void RowStore::append(const std::vector<base::Value>& row) {
    const std::scoped_lock lock(m_mutex);
    for (const base::Value& value : row)
        writeCell(m_open, value);
    const qsizetype count = m_count.load(std::memory_order_relaxed) + 1;
    if (count % blockRows == 0) {
        const qsizetype expected = m_open.size();
        close(std::exchange(m_open, {}));
        m_open.reserve(expected);
    }
    m_count.store(count, std::memory_order_release);
}

void RowStore::finish() {
    m_complete.store(true, std::memory_order_release);
}

void RowStore::close(QByteArray block) {
    const qint64 size = block.size();
    if (m_held + size <= heldAtMost) {
        m_held += size;
        block.squeeze();
        m_blocks.push_back({std::move(block), 0, size});
        return;
    }
    // The file has no name where the system can do without one, so that it is gone after a crash as well.
    if (!m_file.isOpen() && !m_file.open())
        failed(m_file);
    if (!m_file.seek(m_onDisk) || m_file.write(block) != size || !m_file.flush())
        failed(m_file);
    m_blocks.push_back({{}, m_onDisk, size});
    m_onDisk += size;
}

/// A block's bytes from a place on.
QByteArray RowStore::bytesOf(qsizetype block, qsizetype from) const {
    const std::scoped_lock lock(m_mutex);
    if (std::size_t(block) == m_blocks.size())
        return QByteArray(m_open.constData() + from, m_open.size() - from); // not shared: it is written on
    const Packed& packed = m_blocks[std::size_t(block)];
    if (packed.size == packed.bytes.size())
        return packed.bytes.mid(from);
    QByteArray bytes;
    if (m_file.seek(packed.at + from))
        bytes = m_file.read(packed.size - from);
    if (bytes.size() != packed.size - from)
        failed(m_file);
    return bytes;
}

/// The block with at least so many of its cells; the rows must have arrived.
const RowBlock& RowStore::unpacked(qsizetype block, std::size_t cells) const {
    auto found = std::find_if(m_unpacked.begin(), m_unpacked.end(),
                              [&](const RowBlock& one) { return one.index() == block; });
    if (found == m_unpacked.end()) {
        if (m_unpacked.size() == unpackedAtMost)
            m_unpacked.pop_back();
        m_unpacked.emplace_front(block);
    } else if (found != m_unpacked.begin()) {
        m_unpacked.splice(m_unpacked.begin(), m_unpacked, found);
    }
    RowBlock& first = m_unpacked.front();
    if (first.cellCount() < cells)
        first.read(bytesOf(block, first.bytesRead()));
    return first;
}

base::Value RowStore::at(qsizetype row, qsizetype column) const {
    const qsizetype block = row / blockRows;
    const auto place = std::size_t(row % blockRows) * m_columns.size() + std::size_t(column);
    if (!m_unpacked.empty() && m_unpacked.front().index() == block && m_unpacked.front().cellCount() > place)
        return m_unpacked.front().cell(place);
    return unpacked(block, place + 1).cell(place);
}

RowStore::Statistics RowStore::statistics() const {
    const std::scoped_lock lock(m_mutex);
    return {m_held + m_open.size(), m_onDisk, qsizetype(m_unpacked.size())};
}

} // namespace report
