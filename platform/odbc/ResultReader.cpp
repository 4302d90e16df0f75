#include "platform/odbc/ResultReader.h"

#include "platform/odbc/Diagnostics.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace odbc {
namespace {

constexpr std::size_t blockBytes = 64 * 1024;
constexpr SQLULEN mostRows = 128;
/// Wider texts are not worth a place for each row of a block.
constexpr SQLULEN widestBound = 2000;
constexpr std::size_t pieceUnits = 4096;

base::DateTime moment(const SQL_TIMESTAMP_STRUCT& stamp) {
    constexpr int nanosecondsPerMs = 1'000'000;
    const int ms = std::min(999, int((stamp.fraction + nanosecondsPerMs / 2) / nanosecondsPerMs));
    const auto made = base::makeDateTime({stamp.year, stamp.month, stamp.day},
                                         {stamp.hour, stamp.minute, stamp.second, ms});
    return made.value_or(base::DateTime());
}

base::Value valueOf(ado::DataType type, const std::byte* data) {
    switch (type) {
    case ado::DataType::Integer: {
        SQLBIGINT number = 0;
        std::memcpy(&number, data, sizeof number);
        return base::Value(qint64(number));
    }
    case ado::DataType::Double:
    case ado::DataType::Money: {
        double number = 0;
        std::memcpy(&number, data, sizeof number);
        return base::Value(number);
    }
    case ado::DataType::Bit:
        return base::Value(*data != std::byte(0));
    case ado::DataType::DateTime: {
        SQL_TIMESTAMP_STRUCT stamp{};
        std::memcpy(&stamp, data, sizeof stamp);
        return base::Value(moment(stamp));
    }
    default:
        return {};
    }
}

SQLPOINTER attribute(std::uintptr_t value) {
    return reinterpret_cast<SQLPOINTER>(value);
}

} // namespace

ResultReader::ResultReader(SQLHSTMT statement)
    : m_statement(statement), m_piece(pieceUnits), m_status(mostRows) {
    SQLSetStmtAttrW(m_statement, SQL_ATTR_ROWS_FETCHED_PTR, &m_fetched, 0);
    SQLSetStmtAttrW(m_statement, SQL_ATTR_ROW_STATUS_PTR, m_status.data(), 0);
}

ResultReader::Slot ResultReader::slotFor(SQLSMALLINT sqlType, SQLULEN size, SQLSMALLINT digits) {
    Slot slot;
    switch (sqlType) {
    case SQL_BIT:
        return {ado::DataType::Bit, SQL_C_BIT, 1};
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return {ado::DataType::Integer, SQL_C_SBIGINT, sizeof(SQLBIGINT)};
    case SQL_DECIMAL:
    case SQL_NUMERIC: {
        // money is told as decimal(19,4), smallmoney as decimal(10,4)
        const bool money = digits == 4 && (size == 19 || size == 10);
        return {money ? ado::DataType::Money : ado::DataType::Double, SQL_C_DOUBLE, sizeof(double)};
    }
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return {ado::DataType::Double, SQL_C_DOUBLE, sizeof(double)};
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
        return {ado::DataType::DateTime, SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)};
    default:
        if (size > 0 && size <= widestBound)
            slot.width = (std::size_t(size) + 1) * sizeof(SQLWCHAR);
        return slot;
    }
}

std::vector<ado::Column> ResultReader::columns() {
    std::vector<ado::Column> columns;
    m_slots.clear();
    SQLSMALLINT count = 0;
    if (!SQL_SUCCEEDED(SQLNumResultCols(m_statement, &count)))
        fail();
    if (count == 0)
        return columns;
    for (SQLSMALLINT i = 1; i <= count; ++i) {
        SQLSMALLINT length = 0;
        SQLSMALLINT type = 0;
        SQLSMALLINT digits = 0;
        SQLSMALLINT nullable = 0;
        SQLULEN size = 0;
        if (!SQL_SUCCEEDED(SQLDescribeColW(m_statement, SQLUSMALLINT(i), m_piece.data(),
                                           SQLSMALLINT(m_piece.size()), &length, &type, &size, &digits,
                                           &nullable)))
            fail();
        m_slots.push_back(slotFor(type, size, digits));
        columns.push_back({fromWide(m_piece.data(), length), m_slots.back().type, {}, {}});
    }
    bind();
    return columns;
}

void ResultReader::bind() {
    const bool all =
        std::all_of(m_slots.begin(), m_slots.end(), [](const Slot& slot) { return slot.width > 0; });
    if (!all) {
        setBlock(1);
        return;
    }
    std::size_t rowBytes = 0;
    for (const Slot& slot : m_slots)
        rowBytes += slot.width;
    const SQLULEN rows = std::clamp<SQLULEN>(blockBytes / rowBytes, 1, mostRows);
    std::size_t bytes = 0;
    for (std::size_t i = 0; i < m_slots.size(); ++i) {
        constexpr std::size_t alignment = alignof(std::max_align_t);
        bytes = (bytes + alignment - 1) / alignment * alignment;
        m_slots[i].data = bytes;
        m_slots[i].indicator = i * rows;
        bytes += m_slots[i].width * rows;
    }
    if (m_buffer.size() < bytes)
        m_buffer.resize(bytes);
    if (m_indicators.size() < m_slots.size() * rows)
        m_indicators.resize(m_slots.size() * rows);
    setBlock(rows);
    m_bound = true;
    for (std::size_t i = 0; i < m_slots.size(); ++i) {
        const Slot& slot = m_slots[i];
        if (!SQL_SUCCEEDED(SQLBindCol(m_statement, SQLUSMALLINT(i + 1), slot.target, &m_buffer[slot.data],
                                      SQLLEN(slot.width), &m_indicators[slot.indicator])))
            fail();
    }
}

void ResultReader::setBlock(SQLULEN rows) {
    if (rows == m_block)
        return;
    if (!SQL_SUCCEEDED(SQLSetStmtAttrW(m_statement, SQL_ATTR_ROW_ARRAY_SIZE, attribute(rows), 0)))
        fail();
    m_block = rows;
}

bool ResultReader::next(std::vector<base::Value>& values) {
    m_fetched = 1;
    const SQLRETURN code = SQLFetch(m_statement);
    if (code == SQL_NO_DATA)
        return false;
    if (!SQL_SUCCEEDED(code))
        fail();
    if (code == SQL_SUCCESS_WITH_INFO)
        requireGoodRows();
    if (!m_bound) {
        for (std::size_t column = 0; column < m_slots.size(); ++column)
            values.push_back(pieceValue(m_slots[column], column));
        return true;
    }
    for (SQLULEN row = 0; row < m_fetched; ++row) {
        for (std::size_t column = 0; column < m_slots.size(); ++column)
            values.push_back(boundValue(m_slots[column], row, column));
    }
    return true;
}

/// A row of a block that could not be read makes no error of the fetch, only a warning.
void ResultReader::requireGoodRows() {
    const auto end = m_status.begin() + std::ptrdiff_t(std::min<SQLULEN>(m_fetched, m_block));
    if (std::find(m_status.begin(), end, SQLUSMALLINT(SQL_ROW_ERROR)) != end)
        fail();
}

base::Value ResultReader::boundValue(const Slot& slot, SQLULEN row, std::size_t column) {
    const SQLLEN length = m_indicators[slot.indicator + row];
    if (length == SQL_NULL_DATA)
        return {};
    const std::byte* data = &m_buffer[slot.data + slot.width * row];
    if (slot.target != SQL_C_WCHAR)
        return valueOf(slot.type, data);
    if (length == SQL_NO_TOTAL || std::size_t(length) > slot.width - sizeof(SQLWCHAR))
        return base::Value(cutText(row, column));
    return fromWide(reinterpret_cast<const SQLWCHAR*>(data),
                    qsizetype(std::size_t(length) / sizeof(SQLWCHAR)));
}

/// A text longer than its column was described: where the driver lets a bound row be read again, the whole of
/// it is fetched. A cut text is never handed on.
QString ResultReader::cutText(SQLULEN row, std::size_t column) {
    if (m_block > 1 &&
        !SQL_SUCCEEDED(SQLSetPos(m_statement, SQLSETPOSIROW(row + 1), SQL_POSITION, SQL_LOCK_NO_CHANGE)))
        throw base::RunTimeError(errors::truncated,
                                 QStringLiteral("A text is longer than its column was described."),
                                 QStringLiteral("22001"), {});
    return longText(column);
}

base::Value ResultReader::pieceValue(const Slot& slot, std::size_t column) {
    if (slot.target == SQL_C_WCHAR) {
        const QString text = longText(column);
        return text.isNull() ? base::Value() : base::Value(text);
    }
    alignas(std::max_align_t) std::byte data[sizeof(SQL_TIMESTAMP_STRUCT)] = {};
    SQLLEN length = 0;
    if (!SQL_SUCCEEDED(SQLGetData(m_statement, SQLUSMALLINT(column + 1), slot.target, data,
                                  SQLLEN(slot.width), &length)))
        fail();
    return length == SQL_NULL_DATA ? base::Value() : valueOf(slot.type, data);
}

/// Null reads as a null QString, "" as an empty one.
QString ResultReader::longText(std::size_t column) {
    constexpr SQLLEN room = SQLLEN((pieceUnits - 1) * sizeof(SQLWCHAR));
    QString text = QLatin1StringView("");
    for (;;) {
        SQLLEN length = 0;
        const SQLRETURN code = SQLGetData(m_statement, SQLUSMALLINT(column + 1), SQL_C_WCHAR, m_piece.data(),
                                          SQLLEN(m_piece.size() * sizeof(SQLWCHAR)), &length);
        if (code == SQL_NO_DATA)
            return text;
        if (!SQL_SUCCEEDED(code))
            fail();
        if (length == SQL_NULL_DATA)
            return {};
        const bool more = length == SQL_NO_TOTAL || length > room;
        text += fromWide(m_piece.data(), qsizetype((more ? room : length) / SQLLEN(sizeof(SQLWCHAR))));
        if (!more)
            return text;
    }
}

void ResultReader::unbind() {
    if (m_bound)
        SQLFreeStmt(m_statement, SQL_UNBIND);
    m_bound = false;
}

void ResultReader::finish() {
    SQLFreeStmt(m_statement, SQL_CLOSE);
    unbind();
}

void ResultReader::fail() {
    throw errorOf(SQL_HANDLE_STMT, m_statement);
}

} // namespace odbc
