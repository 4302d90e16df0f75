#include "platform/report/rows/RowBlock.h"

#include "platform/report/output/SaveFile.h"

#include <algorithm>
#include <cstring>

namespace report {
namespace {

enum class Kind : char { Null, False, True, Integer, Double, Moment, Latin1, Utf16 };

void writeBytes(QByteArray& bytes, Kind kind, const void* data, qsizetype size) {
    bytes.append(char(kind));
    bytes.append(static_cast<const char*>(data), size);
}

void writeText(QByteArray& bytes, const QString& text) {
    const bool narrow = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 256; });
    const auto length = quint32(text.size());
    writeBytes(bytes, narrow ? Kind::Latin1 : Kind::Utf16, &length, sizeof length);
    if (!narrow) {
        bytes.append(reinterpret_cast<const char*>(text.utf16()), text.size() * qsizetype(sizeof(char16_t)));
        return;
    }
    const qsizetype at = bytes.size();
    bytes.resize(at + text.size());
    std::transform(text.begin(), text.end(), bytes.data() + at, [](QChar c) { return char(c.unicode()); });
}

class CellReader {
  public:
    explicit CellReader(const QByteArray& bytes)
        : m_at(bytes.constData()), m_end(bytes.constData() + bytes.size()) {}

    bool atEnd() const { return m_at == m_end; }

    base::Value cell() {
        switch (Kind(*m_at++)) {
        case Kind::Null:
            return {};
        case Kind::False:
            return false;
        case Kind::True:
            return true;
        case Kind::Integer:
            return number<qint64>();
        case Kind::Double:
            return number<double>();
        case Kind::Moment:
            return base::DateTime{number<qint64>()};
        case Kind::Latin1: {
            const auto length = qsizetype(number<quint32>());
            return QString::fromLatin1(taken(length), length);
        }
        case Kind::Utf16: {
            const auto length = qsizetype(number<quint32>());
            QString text(length, Qt::Uninitialized);
            const qsizetype size = length * qsizetype(sizeof(char16_t));
            std::memcpy(text.data(), taken(size), std::size_t(size));
            return text;
        }
        }
        fail();
    }

  private:
    const char* taken(qsizetype size) {
        if (size > m_end - m_at)
            fail();
        const char* begin = m_at;
        m_at += size;
        return begin;
    }

    template <typename Number>
    Number number() {
        Number value;
        std::memcpy(&value, taken(sizeof value), sizeof value);
        return value;
    }

    [[noreturn]] static void fail() {
        throw fileError(QStringLiteral("rows of a report, set aside"), QStringLiteral("they are damaged"));
    }

    const char* m_at;
    const char* m_end;
};

} // namespace

void writeCell(QByteArray& bytes, const base::Value& value) {
    if (const QString* text = value.asText())
        writeText(bytes, *text);
    else if (const qint64* integer = value.asInteger())
        writeBytes(bytes, Kind::Integer, integer, sizeof *integer);
    else if (const double* number = value.asDouble())
        writeBytes(bytes, Kind::Double, number, sizeof *number);
    else if (const base::DateTime* moment = value.asDateTime())
        writeBytes(bytes, Kind::Moment, &moment->ms, sizeof moment->ms);
    else if (const bool* flag = value.asBool())
        bytes.append(char(*flag ? Kind::True : Kind::False));
    else
        bytes.append(char(Kind::Null));
}

void RowBlock::read(const QByteArray& more) {
    CellReader reader(more);
    while (!reader.atEnd())
        m_cells.push_back(reader.cell());
    m_bytesRead += more.size();
}

} // namespace report
