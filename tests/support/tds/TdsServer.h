#pragma once

#include "tests/support/odbc/Fault.h"

#include <QStringList>

#include <memory>
#include <optional>

namespace tests {

/// FreeTDS' file, for "Driver=" in an odbc.ini or a connection string.
QString freeTdsDriver();

/// A SQL Server as far as the program can tell: speaks TDS 7.2 to 7.4 on 127.0.0.1, without encryption.
/// Behind each connection is a session of its own on one hospital file of the server that comes along, on a
/// thread of its own. The clock is base::now(), so fix it before a server is made.
class TdsServer {
  public:
    struct Options {
        /// Made, without the kit, when it is not there.
        QString file;
        /// 0 takes a port that is free.
        quint16 port = 0;
        /// The one login; empty: any.
        QString user{};
        QString password{};
    };
    /// Raises std::runtime_error when the port is taken.
    explicit TdsServer(Options options);
    /// Ends every connection; what is open is rolled back.
    ~TdsServer();
    TdsServer(const TdsServer&) = delete;
    TdsServer& operator=(const TdsServer&) = delete;

    quint16 port() const;
    /// "Driver=...;Server=127.0.0.1;...", TDS 7.4, a text more to be added.
    QString connectionText() const;
    /// The section of an odbc.ini.
    QString dataSource(const QString& name) const;

    /// Strikes at the `step`-th begin, text or commit from now on, counted from 1 over all connections.
    void strike(int step, Fault fault);
    /// Begins, texts and commits since strike().
    int steps() const;
    /// Texts and "BEGIN", "COMMIT", "ROLLBACK" as they came over the wire since the last call.
    QStringList takeWire();

  private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace tests
