#pragma once

#include <QByteArray>
#include <QString>

namespace tests::tds {

/// Versions of the protocol as a login names them.
inline constexpr quint32 version72 = 0x72090002;
inline constexpr quint32 version73 = 0x730A0003;

struct LoginRequest {
    quint32 version = 0;
    int packetSize = 4096;
    QString host;
    QString user;
    QString password;
    QString program;
    QString language;
    QString database;
    /// The client brings a ticket instead of a password.
    bool hasTicket = false;
};

/// Raises ProtocolError.
LoginRequest readLogin(const QByteArray& message);

} // namespace tests::tds
