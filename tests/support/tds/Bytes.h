#pragma once

#include <QByteArray>
#include <QString>
#include <QtEndian>

#include <stdexcept>

namespace tests::tds {

/// What a client sent is cut off or makes no sense; the line is of no use any more.
class ProtocolError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Appends numbers in little endian and texts in UTF-16, as tokens hold them.
class ByteWriter {
  public:
    template <typename Number>
    ByteWriter& number(Number value) {
        const Number little = qToLittleEndian(value);
        m_bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
        return *this;
    }
    /// As packets and versions hold them.
    template <typename Number>
    ByteWriter& bigNumber(Number value) {
        const Number big = qToBigEndian(value);
        m_bytes.append(reinterpret_cast<const char*>(&big), sizeof big);
        return *this;
    }
    ByteWriter& byte(int value) { return number(quint8(value)); }
    ByteWriter& raw(const QByteArray& bytes) {
        m_bytes += bytes;
        return *this;
    }
    ByteWriter& text(QStringView text) {
        for (const QChar unit : text)
            number(quint16(unit.unicode()));
        return *this;
    }
    /// A text led by its length in units, in one byte or in two.
    ByteWriter& shortText(QStringView words) { return byte(int(words.size())).text(words); }
    ByteWriter& longText(QStringView words) { return number(quint16(words.size())).text(words); }
    const QByteArray& bytes() const { return m_bytes; }

  private:
    QByteArray m_bytes;
};

/// Reads what ByteWriter writes. Raises ProtocolError at the end of the bytes.
class ByteReader {
  public:
    explicit ByteReader(QByteArray bytes) : m_bytes(std::move(bytes)) {}

    template <typename Number>
    Number number() {
        return qFromLittleEndian<Number>(take(sizeof(Number)).constData());
    }
    int byte() { return number<quint8>(); }
    QByteArray take(qsizetype count) {
        const QByteArray some = at(m_position, count);
        m_position += count;
        return some;
    }
    QByteArray at(qsizetype position, qsizetype count) const {
        if (position < 0 || count < 0 || position > m_bytes.size() - count)
            throw ProtocolError("a message is cut off");
        return m_bytes.mid(position, count);
    }
    QByteArray rest() { return take(m_bytes.size() - m_position); }
    void skipTo(qsizetype position) {
        at(position, 0);
        m_position = position;
    }

  private:
    QByteArray m_bytes;
    qsizetype m_position = 0;
};

/// UTF-16 in little endian, whatever the machine.
inline QString fromUnits(const QByteArray& bytes) {
    QString text;
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2)
        text += QChar(qFromLittleEndian<quint16>(bytes.constData() + i));
    return text;
}

} // namespace tests::tds
