#include "tests/support/tds/Tokens.h"

namespace tests::tds {
namespace {

enum Token {
    ReturnStatus = 0x79,
    Error = 0xAA,
    Info = 0xAB,
    LoginAck = 0xAD,
    EnvChange = 0xE3,
    Done = 0xFD,
    DoneProc = 0xFE,
    DoneInProc = 0xFF
};

void append(ByteWriter& out, Token token, const ByteWriter& body) {
    out.byte(token).number(quint16(body.bytes().size())).raw(body.bytes());
}

int tokenOf(End end) {
    switch (end) {
    case End::InProcedure:
        return DoneInProc;
    case End::Procedure:
        return DoneProc;
    default:
        return Done;
    }
}

} // namespace

void Answer::loginAccepted(quint32 version) {
    ByteWriter body;
    body.byte(1).bigNumber(version).shortText(u"Microsoft SQL Server");
    body.byte(13).byte(0).bigNumber(quint16(1601)); // 2016, the first release
    append(out, LoginAck, body);
}

void Answer::message(const ServerMessage& message) {
    constexpr int lastInfo = 10;
    ByteWriter body;
    body.number(qint32(message.number)).byte(message.state).byte(message.severity);
    body.longText(message.words).shortText(serverName()).shortText(u"").number(qint32(message.line));
    append(out, message.severity > lastInfo ? Error : Info, body);
}

void Answer::changed(Environment what, const QString& now, const QString& before) {
    ByteWriter body;
    body.byte(int(what)).shortText(now).shortText(before);
    append(out, EnvChange, body);
}

void Answer::changed(Environment what, quint64 transaction) {
    ByteWriter body;
    body.byte(int(what));
    if (what == Environment::Begun)
        body.byte(sizeof transaction).number(transaction).byte(0);
    else
        body.byte(0).byte(sizeof transaction).number(transaction);
    append(out, EnvChange, body);
}

void Answer::collation() {
    constexpr int collationChange = 7;
    ByteWriter body;
    body.byte(collationChange).byte(int(collationBytes().size())).raw(collationBytes()).byte(0);
    append(out, EnvChange, body);
}

void Answer::returned(int status) {
    out.byte(ReturnStatus).number(qint32(status));
}

void Answer::done(End end, int bits, int command, qint64 rows) {
    out.byte(tokenOf(end)).number(quint16(bits)).number(quint16(command)).number(quint64(rows));
}

QByteArray collationBytes() {
    return QByteArrayLiteral("\x09\x04\xD0\x00\x34");
}

QString serverName() {
    return QStringLiteral("HOSPITAL");
}

} // namespace tests::tds
