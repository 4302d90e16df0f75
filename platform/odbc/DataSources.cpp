#include "platform/odbc/DataSources.h"

#include "platform/base/Error.h"
#include "platform/odbc/Handle.h"

#include <odbcinst.h>

#include <QRegularExpression>

#include <algorithm>

namespace odbc {
namespace {

/// "" when the data source has no such setting.
QString settingOf(const QString& dataSource, const char* keyword) {
    std::vector<char> value(512);
    const int length = SQLGetPrivateProfileString(dataSource.toLocal8Bit().constData(), keyword, "",
                                                  value.data(), int(value.size()), "odbc.ini");
    return length > 0 ? QString::fromLocal8Bit(value.data()) : QString();
}

} // namespace

std::vector<DataSource> dataSources() {
    std::vector<DataSource> found;
    try {
        const Handle environment = makeEnvironment();
        std::vector<SQLWCHAR> name(SQL_MAX_DSN_LENGTH + 1);
        std::vector<SQLWCHAR> driver(256);
        SQLSMALLINT nameLength = 0;
        SQLSMALLINT driverLength = 0;
        for (SQLUSMALLINT direction = SQL_FETCH_FIRST;; direction = SQL_FETCH_NEXT) {
            const SQLRETURN code =
                SQLDataSourcesW(environment.get(), direction, name.data(), SQLSMALLINT(name.size()),
                                &nameLength, driver.data(), SQLSMALLINT(driver.size()), &driverLength);
            if (!SQL_SUCCEEDED(code))
                break;
            found.push_back({fromWide(name.data(), std::min<qsizetype>(nameLength, name.size() - 1)),
                             fromWide(driver.data(), std::min<qsizetype>(driverLength, driver.size() - 1))});
        }
    } catch (const base::RunTimeError&) {
        return {};
    }
    const auto byName = [](const DataSource& a, const DataSource& b) {
        return a.name.compare(b.name, Qt::CaseInsensitive) < 0;
    };
    const auto sameName = [](const DataSource& a, const DataSource& b) {
        return a.name.compare(b.name, Qt::CaseInsensitive) == 0;
    };
    std::stable_sort(found.begin(), found.end(), byName);
    found.erase(std::unique(found.begin(), found.end(), sameName), found.end());
    return found;
}

ConnectionText& ConnectionText::add(const char* keyword, const QString& value) {
    const bool plain = std::all_of(value.begin(), value.end(), [](QChar c) {
        return c.isLetterOrNumber() || QStringView(u"_-./\\: ").contains(c);
    });
    const bool goesBare = value.contains(u'}') && !value.contains(u';') && !value.startsWith(u'{');
    QString safe = value;
    if ((!plain && !goesBare) || value.startsWith(u' ') || value.endsWith(u' '))
        safe = u'{' + safe.replace(u'}', QLatin1StringView("}}")) + u'}';
    m_text += QLatin1StringView(keyword) + u'=' + safe + u';';
    return *this;
}

QString withOwnLogin(const QString& connection) {
    static const QRegularExpression source(QStringLiteral(R"((?:^|;)\s*DSN\s*=\s*(\{[^}]*\}|[^;]*))"),
                                           QRegularExpression::CaseInsensitiveOption);
    const auto match = source.match(connection);
    if (!match.hasMatch() || hasLogin(connection))
        return connection;
    QString name = match.captured(1).trimmed();
    if (name.startsWith(u'{'))
        name = name.mid(1, name.size() - 2);
    const QString user = settingOf(name, "UID");
    if (user.isEmpty())
        return connection;
    ConnectionText login;
    login.add("UID", user).add("PWD", settingOf(name, "PWD"));
    return (connection.endsWith(u';') ? connection : connection + u';') + login.text();
}

bool hasLogin(const QString& connection) {
    static const QRegularExpression login(QStringLiteral(R"((?:^|;)\s*(?:UID|Trusted_Connection)\s*=)"),
                                          QRegularExpression::CaseInsensitiveOption);
    return login.match(connection).hasMatch();
}

} // namespace odbc
