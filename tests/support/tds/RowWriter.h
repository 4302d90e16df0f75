#pragma once

#include "platform/ado/Provider.h"
#include "tests/support/tds/Bytes.h"

struct sqlite3;

namespace tests::tds {

/// One result as a server sends it: columns with the types that their tables declare, then the rows.
class RowWriter {
  public:
    /// `file` tells what the tables declare. `packsNulls`: rows with Nulls go in the short form.
    RowWriter(sqlite3* file, const ado::Rows& rows, bool packsNulls);
    void write(ByteWriter& out) const;

  private:
    enum class Kind { Integer, Bit, Double, Money, DateTime, Text, WideText };
    struct WireType {
        Kind kind = Kind::Text;
        /// Bytes of a number; units of a text, 0 for (max).
        int size = 0;
    };

    WireType typeOf(sqlite3* file, qsizetype column) const;
    bool allAre(qsizetype column, const ado::DataType type) const;
    WireType textType(qsizetype column, int declared) const;
    static void writeType(ByteWriter& out, const WireType& type);
    static void writeValue(ByteWriter& out, const WireType& type, const base::Value& value);
    static void writeNull(ByteWriter& out, const WireType& type);
    void writeRow(ByteWriter& out, qsizetype row) const;

    const ado::Rows& m_rows;
    bool m_packsNulls;
    std::vector<WireType> m_types;
};

} // namespace tests::tds
