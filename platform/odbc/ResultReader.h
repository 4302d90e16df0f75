#pragma once

#include "platform/ado/Provider.h"
#include "platform/odbc/Api.h"

#include <cstddef>

namespace odbc {

/// Reads the results of one statement handle. Columns of a known, moderate width are bound and come a block
/// of rows at a time; a result with a column of unknown or great width (long texts, varchar(max), which some
/// drivers give width 0) comes row by row, texts in pieces. Forward only.
class ResultReader {
  public:
    explicit ResultReader(SQLHSTMT statement);
    ResultReader(const ResultReader&) = delete;
    ResultReader& operator=(const ResultReader&) = delete;

    /// The present result's columns; none when it is a row count. Gets ready to read it.
    std::vector<ado::Column> columns();
    /// Reads the next block of rows behind `values`, row after row; false at the end. Raises what the driver
    /// says, 8152 when a text is longer than it was described and the driver cannot give the rest.
    bool next(std::vector<base::Value>& values);
    /// Lets go of the buffers; to be called before the next result.
    void unbind();
    /// Drops what is left of the results; to be called before the statement is used again.
    void finish();

  private:
    struct Slot {
        ado::DataType type = ado::DataType::Text;
        SQLSMALLINT target = SQL_C_WCHAR;
        /// Bytes of one value in the block; 0 for a text that comes in pieces.
        std::size_t width = 0;
        std::size_t data = 0;      ///< where the column's values begin in m_buffer
        std::size_t indicator = 0; ///< where its lengths begin in m_indicators
    };

    static Slot slotFor(SQLSMALLINT sqlType, SQLULEN size, SQLSMALLINT digits);
    void bind();
    void setBlock(SQLULEN rows);
    base::Value boundValue(const Slot& slot, SQLULEN row, std::size_t column);
    base::Value pieceValue(const Slot& slot, std::size_t column);
    QString longText(std::size_t column);
    void requireGoodRows();
    QString cutText(SQLULEN row, std::size_t column);
    [[noreturn]] void fail();

    SQLHSTMT m_statement;
    std::vector<Slot> m_slots;
    std::vector<std::byte> m_buffer;
    std::vector<SQLLEN> m_indicators;
    std::vector<SQLWCHAR> m_piece;
    std::vector<SQLUSMALLINT> m_status;
    SQLULEN m_block = 1;
    SQLULEN m_fetched = 0;
    bool m_bound = false;
};

} // namespace odbc
