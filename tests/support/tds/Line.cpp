#include "tests/support/tds/Line.h"

#include "tests/support/tds/Bytes.h"

#include <algorithm>

namespace tests::tds {
namespace {

constexpr int lookEvery = 20; // milliseconds
constexpr int endOfMessage = 0x01;

} // namespace

Line::Line(qintptr descriptor, const std::atomic<bool>& stopping) : m_stopping(stopping) {
    m_socket.setSocketDescriptor(descriptor);
    m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_sinceLook.start();
}

bool Line::fill(int milliseconds) {
    if (m_socket.bytesAvailable() == 0)
        m_socket.waitForReadyRead(milliseconds);
    m_bytes += m_socket.readAll();
    return !m_stopping && m_socket.state() == QAbstractSocket::ConnectedState;
}

qsizetype Line::packetThere() const {
    if (m_bytes.size() < headerSize)
        return 0;
    const auto length = qsizetype(qFromBigEndian<quint16>(m_bytes.constData() + 2));
    if (length < headerSize)
        throw ProtocolError("a packet is shorter than its header");
    return m_bytes.size() < length ? 0 : length;
}

std::optional<Message> Line::read() {
    Message message{};
    for (;;) {
        const qsizetype length = packetThere();
        if (length == 0) {
            if (!fill(lookEvery) && packetThere() == 0)
                return std::nullopt;
            continue;
        }
        message.type = MessageType(quint8(m_bytes[0]));
        const bool last = (m_bytes[1] & endOfMessage) != 0;
        message.data += m_bytes.mid(headerSize, length - headerSize);
        m_bytes.remove(0, length);
        if (last)
            return message;
    }
}

void Line::send(const QByteArray& answer) {
    const qsizetype room = m_packetSize - headerSize;
    quint8 number = 1;
    qsizetype position = 0;
    do {
        const QByteArray part = answer.mid(position, room);
        position += part.size();
        ByteWriter header;
        header.byte(int(MessageType::Answer)).byte(position == answer.size() ? endOfMessage : 0);
        header.bigNumber(quint16(part.size() + headerSize)).bigNumber(quint16(0));
        header.byte(number++).byte(0);
        m_socket.write(header.bytes() + part);
    } while (position < answer.size());
    while (m_socket.bytesToWrite() > 0 && !m_stopping) {
        if (!m_socket.waitForBytesWritten(lookEvery) && m_socket.state() != QAbstractSocket::ConnectedState)
            return;
    }
}

bool Line::isGivenUp() {
    if (m_sinceLook.elapsed() >= lookEvery) {
        m_sinceLook.restart();
        if (!fill(0))
            return true;
    }
    return packetThere() > 0; // nothing else comes while a client waits
}

bool Line::takeAttention() {
    const qsizetype length = packetThere();
    if (length == 0 || MessageType(quint8(m_bytes[0])) != MessageType::Attention)
        return false;
    m_bytes.remove(0, length);
    return true;
}

void Line::waitForAttention() {
    while (packetThere() == 0 && fill(lookEvery)) {
    }
}

void Line::cut() {
    m_socket.abort();
}

} // namespace tests::tds
