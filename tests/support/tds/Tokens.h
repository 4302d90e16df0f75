#pragma once

#include "tests/support/tds/Bytes.h"

namespace tests::tds {

struct ServerMessage {
    int number = 0;
    int state = 1;
    /// 10 and below is no error.
    int severity = 16;
    QString words;
    int line = 1;
};

enum class Environment {
    Database = 1,
    Language = 2,
    PacketSize = 4,
    Begun = 8,
    Committed = 9,
    RolledBack = 10
};

/// Whose end a Done tells.
enum class End { Statement, InProcedure, Procedure };

/// The tokens of one answer.
class Answer {
  public:
    /// Bits of what a Done says.
    enum DoneBit { More = 0x01, Failed = 0x02, InTransaction = 0x04, Counted = 0x10, GivenUp = 0x20 };

    ByteWriter out;

    void loginAccepted(quint32 version);
    void message(const ServerMessage& message);
    void changed(Environment what, const QString& now, const QString& before);
    /// A transaction's number, as later requests name it.
    void changed(Environment what, quint64 transaction);
    void collation();
    void returned(int status);
    void done(End end, int bits, int command, qint64 rows = 0);
};

/// SQL_Latin1_General_CP1_CI_AS.
QByteArray collationBytes();
QString serverName();

} // namespace tests::tds
