#pragma once

#include "tests/support/odbc/Fault.h"
#include "tests/support/odbc/driver/FakeDriver.h"

#include "server/engine/EmbeddedProvider.h"

#include <map>
#include <memory>

namespace tests {

// A program that links this sees no data source of the machine, unless SCINTRA_TEST_DSN names one.

/// The driver's file, for "Driver=" in an odbc.ini or a connection string.
QString testDriver();
QString sqliteDriver();
/// The data sources of this process from now on: an odbc.ini text.
void setDataSources(const QString& text);

/// The script of the test driver, as the driver sees it.
FakeDriver& fakeDriver();

/// Stands behind the test driver while it lives: each connection is a session of its own on one hospital file
/// of the server that comes along. So T-SQL can go over ODBC where no SQL Server is.
class LoopbackServer {
  public:
    explicit LoopbackServer(QString file);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    static QString connectionText() { return QStringLiteral("Driver=%1;").arg(testDriver()); }

    /// Strikes at the `step`-th begin, text or commit from now on, counted from 1 over all connections.
    void strike(int step, Fault fault);
    /// Begins, texts and commits since strike().
    int steps() const { return m_seen; }
    /// Texts and "BEGIN", "COMMIT", "ROLLBACK" as they came over the wire.
    QStringList wire;

  private:
    FakeAnswer answer(int connection, const QString& text);
    std::optional<FakeError> step(int connection, FakeStep what);
    std::optional<FakeError> struck(int connection);
    FakeAnswer run(engine::EmbeddedProvider& provider, const QString& text);

    QString m_file;
    std::map<int, std::unique_ptr<engine::EmbeddedProvider>> m_sessions;
    int m_strikeAt = 0;
    int m_seen = 0;
    Fault m_fault = Fault::Error;
};

} // namespace tests
