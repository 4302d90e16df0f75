#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QTcpSocket>

#include <atomic>
#include <optional>

namespace tests::tds {

enum class MessageType : quint8 {
    Batch = 0x01,
    Call = 0x03,
    Answer = 0x04,
    Attention = 0x06,
    Transaction = 0x0E,
    Login = 0x10,
    Prelogin = 0x12
};

struct Message {
    MessageType type;
    QByteArray data;
};

/// The packets of one connection. Belongs to the thread that made it.
class Line {
  public:
    /// `stopping` ends every wait.
    Line(qintptr descriptor, const std::atomic<bool>& stopping);

    /// Waits for a whole message; nothing when the client has gone or the server stops.
    std::optional<Message> read();
    void send(const QByteArray& answer);
    /// Asked while an answer is made: whether the client wants it no more, or is gone. Looks at the line now
    /// and then only.
    bool isGivenUp();
    /// Takes the client's wish off the line; false when it has sent none.
    bool takeAttention();
    void waitForAttention();
    /// As a line breaks: nothing that was written before comes through any more.
    void cut();
    void setPacketSize(int bytes) { m_packetSize = bytes; }

  private:
    static constexpr qsizetype headerSize = 8;

    bool fill(int milliseconds);
    /// The length of the packet that the bytes begin with; 0 while it is not all there.
    qsizetype packetThere() const;

    QTcpSocket m_socket;
    const std::atomic<bool>& m_stopping;
    QByteArray m_bytes;
    QElapsedTimer m_sinceLook;
    int m_packetSize = 4096;
};

} // namespace tests::tds
