// How a session begins.
#include "tests/support/core/Databases.h"
#include "tests/support/tds/TdsSession.h"

#include <sqlite3.h>

namespace tests::tds {
namespace {

/// Options of the first message.
enum Option { Version = 0, Encryption = 1, Instance = 2, Process = 3, Sets = 4, Closing = 0xFF };

ServerMessage loginFailed(const QString& user) {
    return {18456, 1, 14, QStringLiteral("Login failed for user '%1'.").arg(user), 1};
}

} // namespace

void TdsSession::answerPrelogin() {
    constexpr char noEncryption = 2;
    const std::pair<Option, QByteArray> options[] = {{Version, QByteArrayLiteral("\x0D\x00\x06\x41\x00\x00")},
                                                     {Encryption, QByteArray(1, noEncryption)},
                                                     {Instance, QByteArray(1, '\0')},
                                                     {Process, {}},
                                                     {Sets, QByteArray(1, '\0')}};
    constexpr int entrySize = 5;
    ByteWriter heads;
    ByteWriter values;
    for (const auto& [option, value] : options) {
        heads.byte(option);
        heads.bigNumber(quint16(entrySize * std::size(options) + 1 + std::size_t(values.bytes().size())));
        heads.bigNumber(quint16(value.size()));
        values.raw(value);
    }
    m_line.send(heads.byte(Closing).bytes() + values.bytes());
}

bool TdsSession::logOn(const LoginRequest& login) {
    if (login.version < version72)
        throw ProtocolError("a version that is not spoken");
    if (login.hasTicket) {
        refuse({{18452, 1, 14,
                 QStringLiteral("Login failed. The login is from an untrusted domain and cannot be used with "
                                "Integrated authentication."),
                 1}});
        return false;
    }
    const bool isKnown = m_hospital.user.isEmpty()
                             ? !login.user.isEmpty()
                             : login.user.compare(m_hospital.user, Qt::CaseInsensitive) == 0 &&
                                   login.password == m_hospital.password;
    if (!isKnown) {
        refuse({loginFailed(login.user)});
        return false;
    }
    engine::Options options;
    options.hostName = login.host;
    options.programName = login.program;
    options.loginName = login.user;
    options.newDatabases = tests::databases();
    m_provider = engine::EmbeddedProvider::open(m_hospital.file, options);
    if (!login.database.isEmpty() && !m_provider->hasDatabase(login.database)) {
        refuse({{4060, 1, 11,
                 QStringLiteral("Cannot open database \"%1\" requested by the login. The login failed.")
                     .arg(login.database),
                 1},
                loginFailed(login.user)});
        return false;
    }
    if (!login.database.isEmpty())
        m_provider->useDatabase(login.database);
    sqlite3_busy_handler(m_provider->handle(), waitForLock, this);
    m_version = login.version;
    tellLogOn(login);
    m_line.setPacketSize(login.packetSize);
    return true;
}

void TdsSession::refuse(const std::vector<ServerMessage>& messages) {
    Answer answer;
    for (const ServerMessage& message : messages)
        answer.message(message);
    answer.done(End::Statement, Answer::Failed, 0);
    m_line.send(answer.out.bytes());
}

void TdsSession::tellLogOn(const LoginRequest& login) {
    const QString database = m_provider->database();
    const QString language = login.language.isEmpty() ? QStringLiteral("us_english") : login.language;
    Answer answer;
    answer.changed(Environment::Database, database, QStringLiteral("master"));
    answer.message({5701, 2, 0, QStringLiteral("Changed database context to '%1'.").arg(database), 1});
    answer.collation();
    answer.changed(Environment::Language, language, {});
    answer.message({5703, 1, 0, QStringLiteral("Changed language setting to %1.").arg(language), 1});
    answer.loginAccepted(login.version);
    answer.changed(Environment::PacketSize, QString::number(login.packetSize), QString::number(4096));
    answer.done(End::Statement, 0, 0);
    m_line.send(answer.out.bytes());
}

} // namespace tests::tds
