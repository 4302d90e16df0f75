#include "session/logon/OdbcServer.h"

#include "platform/ado/Connection.h"
#include "platform/ado/Recordset.h"
#include "platform/base/Error.h"
#include "platform/odbc/DataSources.h"
#include "platform/odbc/Diagnostics.h"
#include "platform/odbc/OdbcProvider.h"

#include <QHash>
#include <QSysInfo>

namespace session {
namespace {

struct DatabaseLogin {
    QString user;
    QString password;
};

/// What was asked for each data source since the program was started.
QHash<QString, DatabaseLogin>& askedLogins() {
    static QHash<QString, DatabaseLogin> logins;
    return logins;
}

/// The kinds of failure that a clerk can tell somebody about.
enum class Trouble { None, Login, Line, Encryption, Driver, Database, Objects, Permission };

Trouble troubleOf(const base::RunTimeError& error) {
    struct Kind {
        const char* state;
        Trouble trouble;
    };
    // numbers go before states: a server tells a missing database as a refused login, too
    switch (error.number()) {
    case 911:
    case 4060:
        return Trouble::Database;
    case 208:
    case 2812:
        return Trouble::Objects;
    case 229:
    case 230:
    case 262:
    case 916:
        return Trouble::Permission;
    case odbc::errors::notAgreed:
        return Trouble::Encryption;
    default:
        break;
    }
    constexpr Kind kinds[] = {{"28", Trouble::Login},  {"08", Trouble::Line},   {"HYT", Trouble::Line},
                              {"IM", Trouble::Driver}, {"01", Trouble::Driver}, {"S1T", Trouble::Line}};
    for (const Kind& kind : kinds) {
        if (error.sqlState().startsWith(QLatin1StringView(kind.state)))
            return kind.trouble;
    }
    constexpr int firstLoginError = 18450;
    constexpr int lastLoginError = 18499;
    return error.number() >= firstLoginError && error.number() <= lastLoginError ? Trouble::Login
                                                                                 : Trouble::None;
}

class OdbcServer : public HospitalServer {
  public:
    explicit OdbcServer(QString dataSource) : m_dataSource(std::move(dataSource)) {}

    QString name() const override { return m_dataSource; }
    QString serverName() const override { return m_dataSource; }
    QString connectionString() const override { return QStringLiteral("Provider=ODBC;DSN=") + m_dataSource; }
    bool isThere() const override { return true; }
    void prepare(const std::function<void(int)>&) override {}
    std::unique_ptr<ado::Provider> open(const QString& login) override;
    controls::KeptCharacters keptCharacters(ado::Connection& session) const override;
    void setLogin(const QString& user, const QString& password) override {
        askedLogins()[m_dataSource] = {user, password};
    }
    bool refusedLogin(const base::RunTimeError& error) const override {
        return troubleOf(error) == Trouble::Login;
    }
    QString sentence(const base::RunTimeError& error) const override;

  private:
    QString m_dataSource;
    QString m_refusedUser;
};

std::unique_ptr<ado::Provider> OdbcServer::open(const QString&) {
    odbc::ConnectionText text;
    text.add("DSN", m_dataSource);
    const DatabaseLogin login = askedLogins().value(m_dataSource);
    if (!login.user.isEmpty())
        text.add("UID", login.user).add("PWD", login.password);
    text.add("APP", QStringLiteral("Visual Scintra")).add("WSID", QSysInfo::machineHostName());
    text.add("Language", QStringLiteral("us_english")); // dates go as mm/dd/yyyy
    m_refusedUser.clear();
    try {
        auto provider = odbc::OdbcProvider::open(text.text());
        provider->useDatabase(QStringLiteral("NUCLEAR"));
        return provider;
    } catch (const base::RunTimeError& error) {
        if (refusedLogin(error)) {
            m_refusedUser = login.user;
            askedLogins().remove(m_dataSource);
        }
        throw;
    }
}

/// Tried out, so that neither a collation's name nor a version has to be known.
controls::KeptCharacters OdbcServer::keptCharacters(ado::Connection& session) const {
    const QString anywhere = QStringLiteral("\u2265\u03B1\u4E2D");
    const QString western = QStringLiteral("\u20AC\u0152\u00D1\u00FF");
    ado::Recordset kept;
    kept.Open(ado::sql("SELECT CAST(N'{}' AS varchar(20)) AS Anywhere, CAST(N'{}' AS varchar(20)) AS Western",
                       anywhere, western),
              session);
    return kept.Fields("Anywhere").text() == anywhere ? controls::KeptCharacters::All
           : kept.Fields("Western").text() == western ? controls::KeptCharacters::Western
                                                      : controls::KeptCharacters::Ascii;
}

QString OdbcServer::sentence(const base::RunTimeError& error) const {
    const QString& words = error.description();
    switch (troubleOf(error)) {
    case Trouble::Login:
        return m_refusedUser.isEmpty()
                   ? QStringLiteral("%1 wants a database login.").arg(m_dataSource)
                   : QStringLiteral("%1 refused the database login of %2.").arg(m_dataSource, m_refusedUser);
    case Trouble::Line:
        return QStringLiteral(
                   "%1 cannot be reached. Is the server running, and this computer on the network? "
                   "(%2)")
            .arg(m_dataSource, words);
    case Trouble::Encryption:
        return QStringLiteral("%1 answers, but it and the data source do not agree on encryption or on the "
                              "version of the protocol. (%2)")
            .arg(m_dataSource, words);
    case Trouble::Driver:
        return QStringLiteral("The data source %1 does not work on this computer. (%2)")
            .arg(m_dataSource, words);
    case Trouble::Database:
        return QStringLiteral("%1 has no hospital databases, or not all of them. They are made with "
                              "\"scintra-server install --dsn\". (%2)")
            .arg(m_dataSource, words);
    case Trouble::Objects:
        return QStringLiteral("The hospital databases of %1 are not complete. \"scintra-server install "
                              "--dsn\" adds what is missing. (%2)")
            .arg(m_dataSource, words);
    case Trouble::Permission:
        return QStringLiteral("The database login has no right to the hospital databases of %1. (%2)")
            .arg(m_dataSource, words);
    case Trouble::None:
        break;
    }
    return words;
}

} // namespace

std::shared_ptr<HospitalServer> odbcServer(const QString& dataSource) {
    return std::make_shared<OdbcServer>(dataSource);
}

HospitalServers odbcServers() {
    HospitalServers servers;
    for (const odbc::DataSource& source : odbc::dataSources())
        servers.push_back(odbcServer(source.name));
    return servers;
}

} // namespace session
