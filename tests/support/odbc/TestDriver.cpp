#include "tests/support/odbc/TestDriver.h"

#include "platform/base/Error.h"
#include "tests/support/core/Databases.h"
#include "tests/support/odbc/ServerViews.h"

#include <QDir>
#include <QFile>
#include <QLibrary>
#include <QSysInfo>
#include <QTemporaryDir>

#include <stdexcept>

namespace tests {
namespace {

FakeError errorOf(const base::RunTimeError& error) {
    return {error.number(), error.sqlState().isEmpty() ? QStringLiteral("42000") : error.sqlState(),
            QStringLiteral("[Test][Driver][Server]") + error.description(), false};
}

/// A batch's row count comes as a result of its own before the rows, as a server tells it without SET
/// NOCOUNT.
std::vector<ado::Result> resultsOf(ado::Result whole) {
    std::vector<ado::Result> results;
    if (whole.affected >= 0)
        results.push_back({{}, whole.affected});
    if (!whole.rows.columns.empty())
        results.push_back({std::move(whole.rows), -1});
    return results;
}

/// The lines of one data source in an odbc.ini; "" when it is not there.
QByteArray sectionOf(const QString& ini, const QByteArray& name) {
    QFile file(ini);
    QByteArray section;
    if (!file.open(QIODevice::ReadOnly))
        return section;
    for (bool inside = false; !file.atEnd();) {
        const QByteArray line = file.readLine();
        if (line.startsWith('['))
            inside = line.trimmed().compare('[' + name + ']', Qt::CaseInsensitive) == 0;
        if (inside)
            section += line;
    }
    return section;
}

/// The driver manager asks for its folder once: before main() is early enough for every test. Of the
/// machine's data sources the tests see none but the one that they are given: the log-on would choose another
/// one by itself.
const bool early = [] {
    const QByteArray given = qgetenv("SCINTRA_TEST_DSN");
    if (given.isEmpty()) {
        qputenv("ODBCSYSINI", SCINTRA_TEST_DRIVERS);
        qputenv("ODBCINI", SCINTRA_TEST_DRIVERS "/odbc.ini");
        return true;
    }
    const QString systems = qEnvironmentVariable("ODBCSYSINI", QStringLiteral("/etc"));
    QByteArray section =
        sectionOf(qEnvironmentVariable("ODBCINI", QDir::homePath() + QStringLiteral("/.odbc.ini")), given);
    if (section.isEmpty())
        section = sectionOf(systems + QStringLiteral("/odbc.ini"), given);
    static const QTemporaryDir folder;
    const QString ini = folder.filePath(QStringLiteral("odbc.ini"));
    QFile file(ini);
    if (!file.open(QIODevice::WriteOnly) || file.write(section) != section.size())
        throw std::runtime_error("no place for an odbc.ini");
    QFile::copy(systems + QStringLiteral("/odbcinst.ini"), folder.filePath(QStringLiteral("odbcinst.ini")));
    qputenv("ODBCSYSINI", folder.path().toLocal8Bit());
    qputenv("ODBCINI", ini.toLocal8Bit());
    return true;
}();

} // namespace

QString testDriver() {
    return QStringLiteral(SCINTRA_TEST_DRIVER);
}

QString sqliteDriver() {
    return QStringLiteral(SCINTRA_SQLITE_DRIVER);
}

void setDataSources(const QString& text) {
    static const QTemporaryDir folder;
    const QString ini = folder.filePath(QStringLiteral("odbc.ini"));
    QFile file(ini);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw std::runtime_error("no place for an odbc.ini");
    file.write(text.toUtf8());
    qputenv("ODBCINI", ini.toLocal8Bit());
}

FakeDriver& fakeDriver() {
    static FakeDriver* const driver = [] {
        QLibrary library(testDriver());
        using Script = FakeDriver* (*)();
        const auto script = reinterpret_cast<Script>(library.resolve("scintraFakeDriver"));
        if (!script)
            throw std::runtime_error("the test driver cannot be loaded");
        return script();
    }();
    return *driver;
}

LoopbackServer::LoopbackServer(QString file) : m_file(std::move(file)) {
    fakeDriver() = {};
    fakeDriver().answer = [this](int connection, const QString& text) { return answer(connection, text); };
    fakeDriver().step = [this](int connection, FakeStep what) { return step(connection, what); };
}

LoopbackServer::~LoopbackServer() {
    fakeDriver() = {};
}

void LoopbackServer::strike(int step, Fault fault) {
    m_strikeAt = step;
    m_seen = 0;
    m_fault = fault;
}

std::optional<FakeError> LoopbackServer::struck(int connection) {
    if (++m_seen != m_strikeAt)
        return std::nullopt;
    switch (m_fault) {
    case Fault::Error:
        return FakeError{50000, QStringLiteral("42000"),
                         QStringLiteral("[Test][Driver][Server]Injected failure."), false};
    case Fault::Deadlock:
        if (m_sessions.at(connection)->inTransaction())
            m_sessions.at(connection)->rollback();
        return FakeError{1205, QStringLiteral("40001"),
                         QStringLiteral("[Test][Driver][Server]Transaction was deadlocked on lock resources "
                                        "with another process and has been chosen as the deadlock victim. "
                                        "Rerun the transaction."),
                         false};
    case Fault::TimeOut:
        return FakeError{0, QStringLiteral("HYT00"), QStringLiteral("[Test][Driver]Query timeout expired"),
                         false};
    case Fault::Cut:
        m_sessions.erase(connection); // the server rolls back as the line goes
        return FakeError{0, QStringLiteral("08S01"),
                         QStringLiteral("[Test][Driver]Communication link failure"), true};
    }
    return std::nullopt;
}

FakeAnswer LoopbackServer::answer(int connection, const QString& text) {
    engine::EmbeddedProvider& provider = *m_sessions.at(connection);
    if (text == QLatin1StringView("SELECT @@TRANCOUNT"))
        return run(provider, text); // the provider's own question, after an error
    wire += text;
    if (const auto error = struck(connection))
        return {{}, error};
    return run(provider, text);
}

FakeAnswer LoopbackServer::run(engine::EmbeddedProvider& provider, const QString& text) {
    try {
        if (auto rows = catalogueRows(provider, text))
            return {{*rows}, std::nullopt};
        return {resultsOf(provider.execute(text)), std::nullopt};
    } catch (const base::RunTimeError& error) {
        return {{}, errorOf(error)};
    }
}

std::optional<FakeError> LoopbackServer::step(int connection, FakeStep what) {
    try {
        if (what == FakeStep::Connect) {
            engine::Options options;
            options.hostName = QSysInfo::machineHostName();
            options.programName = QStringLiteral("Visual Scintra");
            options.newDatabases = tests::databases();
            m_sessions[connection] = engine::EmbeddedProvider::open(m_file, options);
            return std::nullopt;
        }
        if (what == FakeStep::Disconnect) {
            m_sessions.erase(connection);
            return std::nullopt;
        }
        if (what == FakeStep::Autocommit)
            return std::nullopt;
        engine::EmbeddedProvider& provider = *m_sessions.at(connection);
        wire += what == FakeStep::Begin    ? QStringLiteral("BEGIN")
                : what == FakeStep::Commit ? QStringLiteral("COMMIT")
                                           : QStringLiteral("ROLLBACK");
        if (what != FakeStep::Rollback) {
            if (const auto error = struck(connection))
                return error;
        }
        if (what == FakeStep::Begin)
            provider.begin();
        else if (what == FakeStep::Commit)
            provider.commit();
        else if (provider.inTransaction())
            provider.rollback();
    } catch (const base::RunTimeError& error) {
        return errorOf(error);
    }
    return std::nullopt;
}

} // namespace tests
