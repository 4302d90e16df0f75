#include "tests/support/tds/LoginRequest.h"

#include "tests/support/tds/Bytes.h"

#include <algorithm>

namespace tests::tds {
namespace {

/// Where the request says where a text lies.
enum Place {
    HostAt = 36,
    UserAt = 40,
    PasswordAt = 44,
    ProgramAt = 48,
    LanguageAt = 64,
    DatabaseAt = 68,
    TicketAt = 78
};

QByteArray bytesAt(ByteReader& reader, Place place, int unitSize) {
    reader.skipTo(place);
    const auto position = reader.number<quint16>();
    const auto length = reader.number<quint16>();
    return reader.at(position, qsizetype(length) * unitSize);
}

QString textAt(ByteReader& reader, Place place) {
    return fromUnits(bytesAt(reader, place, 2));
}

QString passwordAt(ByteReader& reader) {
    QByteArray bytes = bytesAt(reader, PasswordAt, 2);
    for (char& byte : bytes) {
        const auto plain = quint8(quint8(byte) ^ 0xA5U);
        byte = char(quint8(plain >> 4U | plain << 4U));
    }
    return fromUnits(bytes);
}

} // namespace

LoginRequest readLogin(const QByteArray& message) {
    ByteReader reader(message);
    LoginRequest login;
    reader.number<quint32>(); // the length once more
    login.version = reader.number<quint32>();
    login.packetSize = int(std::clamp<quint32>(reader.number<quint32>(), 512, 32'767));
    login.host = textAt(reader, HostAt);
    login.user = textAt(reader, UserAt);
    login.password = passwordAt(reader);
    login.program = textAt(reader, ProgramAt);
    login.language = textAt(reader, LanguageAt);
    login.database = textAt(reader, DatabaseAt);
    login.hasTicket = !bytesAt(reader, TicketAt, 1).isEmpty();
    return login;
}

} // namespace tests::tds
