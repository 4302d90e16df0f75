#include "tests/support/tds/RowWriter.h"

#include "platform/base/Conversion.h"
#include "tests/support/tds/CodePage.h"
#include "tests/support/tds/Tokens.h"

#include <sqlite3.h>

#include <bit>
#include <cmath>
#include <limits>

namespace tests::tds {
namespace {

enum Token { ColMetadata = 0x81, Row = 0xD1, PackedRow = 0xD2 };
enum TypeToken {
    IntN = 0x26,
    BitN = 0x68,
    FloatN = 0x6D,
    MoneyN = 0x6E,
    DateTimeN = 0x6F,
    VarChar = 0xA7,
    NVarChar = 0xE7
};

constexpr int mostBytes = 8000;
constexpr auto noLength = quint16(0xFFFF);

struct Declared {
    QString type;
    int length = 0;
};

/// What the column's table declares; no type when the result does not name it.
Declared declaredOf(sqlite3* file, const ado::Column& column) {
    Declared declared;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(
        file,
        "SELECT type, length FROM \"scintra.columns\" WHERE databaseName = ?1 COLLATE NOCASE AND "
        "tableName = ?2 COLLATE NOCASE AND name = ?3 COLLATE NOCASE",
        -1, &statement, nullptr);
    const QByteArray names[] = {column.baseTable.section(u'.', 0, 0).toUtf8(),
                                column.baseTable.section(u'.', -1).toUtf8(), column.baseColumn.toUtf8()};
    int index = 0;
    for (const QByteArray& name : names)
        sqlite3_bind_text(statement, ++index, name.constData(), int(name.size()), SQLITE_STATIC);
    if (!column.baseColumn.isEmpty() && sqlite3_step(statement) == SQLITE_ROW) {
        declared.type = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
        declared.length = sqlite3_column_int(statement, 1);
    }
    sqlite3_finalize(statement);
    return declared;
}

bool isOf(const base::Value& value, ado::DataType type) {
    switch (type) {
    case ado::DataType::Integer:
        return value.asInteger();
    case ado::DataType::Bit:
        return value.asBool();
    case ado::DataType::Double:
    case ado::DataType::Money:
        return value.asDouble();
    case ado::DataType::DateTime:
        return value.asDateTime();
    default:
        return true;
    }
}

int integerSize(const Declared& declared) {
    if (declared.type == QLatin1StringView("tinyint"))
        return 1;
    if (declared.type == QLatin1StringView("smallint"))
        return 2;
    return declared.type == QLatin1StringView("bigint") ? 8 : 4;
}

void writeInteger(ByteWriter& out, int size, qint64 number) {
    out.byte(size).raw(ByteWriter().number(number).bytes().first(size));
}

void writeMoney(ByteWriter& out, double amount) {
    const auto units = quint64(std::llround(amount * 10'000));
    out.byte(8).number(quint32(units >> 32U)).number(quint32(units));
}

/// Days since 1900 and three-hundredths of a second.
void writeMoment(ByteWriter& out, base::DateTime moment) {
    constexpr qint64 msPerDay = 86'400'000;
    constexpr qint64 epochDay = -25'567;
    const qint64 midnight = base::dateOnly(moment).ms;
    const qint64 ticks = ((moment.ms - midnight) * 3 + 5) / 10;
    out.byte(8).number(qint32(midnight / msPerDay - epochDay)).number(quint32(ticks));
}

/// A text of (max) length, in pieces.
void writePieces(ByteWriter& out, const QByteArray& bytes) {
    constexpr qsizetype piece = 8000;
    out.number(quint64(bytes.size()));
    for (qsizetype position = 0; position < bytes.size(); position += piece) {
        const QByteArray part = bytes.mid(position, piece);
        out.number(quint32(part.size())).raw(part);
    }
    out.number(quint32(0));
}

} // namespace

RowWriter::RowWriter(sqlite3* file, const ado::Rows& rows, bool packsNulls)
    : m_rows(rows), m_packsNulls(packsNulls) {
    for (qsizetype column = 0; column < qsizetype(rows.columns.size()); ++column)
        m_types.push_back(typeOf(file, column));
}

bool RowWriter::allAre(qsizetype column, ado::DataType type) const {
    for (qsizetype row = 0; row < m_rows.count(); ++row) {
        const base::Value& value = m_rows.at(row, column);
        if (!value.isNull() && !isOf(value, type))
            return false;
    }
    return true;
}

RowWriter::WireType RowWriter::typeOf(sqlite3* file, qsizetype column) const {
    const ado::Column& told = m_rows.columns[std::size_t(column)];
    const Declared declared = declaredOf(file, told);
    if (told.type == ado::DataType::Text || !allAre(column, told.type))
        return textType(column, declared.type.endsWith(QLatin1StringView("char")) ? declared.length : 0);
    switch (told.type) {
    case ado::DataType::Integer: {
        int size = integerSize(declared);
        for (qsizetype row = 0; row < m_rows.count(); ++row) {
            const qint64* number = m_rows.at(row, column).asInteger();
            if (number && *number != qint64(qint32(*number)))
                size = 8;
        }
        return {Kind::Integer, size};
    }
    case ado::DataType::Bit:
        return {Kind::Bit, 1};
    case ado::DataType::Money:
        return {Kind::Money, 8};
    case ado::DataType::DateTime:
        return {Kind::DateTime, 8};
    default:
        return {Kind::Double, 8};
    }
}

RowWriter::WireType RowWriter::textType(qsizetype column, int declared) const {
    WireType type{Kind::Text, std::max(0, declared)};
    for (qsizetype row = 0; row < m_rows.count(); ++row) {
        const base::Value& value = m_rows.at(row, column);
        if (value.isNull())
            continue;
        const QString text = base::textOf(value);
        if (text.size() > type.size)
            type.size = 0;
        if (!toCodePage(text))
            type.kind = Kind::WideText;
    }
    if (type.size * (type.kind == Kind::WideText ? 2 : 1) > mostBytes)
        type.size = 0;
    return type;
}

void RowWriter::writeType(ByteWriter& out, const WireType& type) {
    switch (type.kind) {
    case Kind::Integer:
        out.byte(IntN).byte(type.size);
        return;
    case Kind::Bit:
        out.byte(BitN).byte(type.size);
        return;
    case Kind::Double:
        out.byte(FloatN).byte(type.size);
        return;
    case Kind::Money:
        out.byte(MoneyN).byte(type.size);
        return;
    case Kind::DateTime:
        out.byte(DateTimeN).byte(type.size);
        return;
    case Kind::Text:
        out.byte(VarChar).number(type.size > 0 ? quint16(type.size) : noLength).raw(collationBytes());
        return;
    case Kind::WideText:
        out.byte(NVarChar).number(type.size > 0 ? quint16(2 * type.size) : noLength).raw(collationBytes());
        return;
    }
}

void RowWriter::writeNull(ByteWriter& out, const WireType& type) {
    if (type.kind != Kind::Text && type.kind != Kind::WideText)
        out.byte(0);
    else if (type.size > 0)
        out.number(noLength);
    else
        out.number(std::numeric_limits<quint64>::max());
}

void RowWriter::writeValue(ByteWriter& out, const WireType& type, const base::Value& value) {
    switch (type.kind) {
    case Kind::Integer:
        return writeInteger(out, type.size, *value.asInteger());
    case Kind::Bit:
        out.byte(1).byte(*value.asBool() ? 1 : 0);
        return;
    case Kind::Double:
        out.byte(8).number(std::bit_cast<quint64>(*value.asDouble()));
        return;
    case Kind::Money:
        return writeMoney(out, *value.asDouble());
    case Kind::DateTime:
        return writeMoment(out, *value.asDateTime());
    default:
        break;
    }
    const QString text = base::textOf(value);
    const QByteArray bytes =
        type.kind == Kind::Text ? toCodePage(text).value() : ByteWriter().text(text).bytes();
    if (type.size > 0)
        out.number(quint16(bytes.size())).raw(bytes);
    else
        writePieces(out, bytes);
}

void RowWriter::writeRow(ByteWriter& out, qsizetype row) const {
    const auto columns = qsizetype(m_types.size());
    QByteArray nulls((columns + 7) / 8, '\0');
    bool any = false;
    for (qsizetype column = 0; column < columns; ++column) {
        if (!m_rows.at(row, column).isNull())
            continue;
        any = true;
        nulls[column / 8] = char(quint8(nulls[column / 8]) | 1U << unsigned(column % 8));
    }
    const bool packed = any && m_packsNulls;
    out.byte(packed ? PackedRow : Row);
    if (packed)
        out.raw(nulls);
    for (qsizetype column = 0; column < columns; ++column) {
        const base::Value& value = m_rows.at(row, column);
        const WireType& type = m_types[std::size_t(column)];
        if (!value.isNull())
            writeValue(out, type, value);
        else if (!packed)
            writeNull(out, type);
    }
}

void RowWriter::write(ByteWriter& out) const {
    constexpr quint16 mayBeNull = 0x0001;
    out.byte(ColMetadata).number(quint16(m_types.size()));
    for (std::size_t column = 0; column < m_types.size(); ++column) {
        out.number(quint32(0)).number(mayBeNull);
        writeType(out, m_types[column]);
        out.shortText(m_rows.columns[column].name);
    }
    for (qsizetype row = 0; row < m_rows.count(); ++row)
        writeRow(out, row);
}

} // namespace tests::tds
