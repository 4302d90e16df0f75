#include "platform/odbc/DataSources.h"

#include "platform/base/Error.h"
#include "platform/base/LateLibrary.h"
#include "platform/odbc/Handle.h"

#include <odbcinst.h>

#include <QRegularExpression>

#include <algorithm>
#include <string>
#include <vector>

namespace odbc {
namespace {

#ifdef _WIN32
// The narrow function takes the code page of the system, which the names of its registry need not go into.
using Unit = wchar_t;
constexpr const char* readerName = "SQLGetPrivateProfileStringW";
constexpr const char* readerLibrary = "odbccp32";
constexpr int readerVersion = -1;
using ReadSetting = decltype(&::SQLGetPrivateProfileStringW);

std::wstring given(const QString& text) {
    return text.toStdWString();
}
QString taken(const wchar_t* text) {
    return QString::fromWCharArray(text);
}
#else
using Unit = char;
constexpr const char* readerName = "SQLGetPrivateProfileString";
constexpr const char* readerLibrary = "odbcinst";
constexpr int readerVersion = 2;
using ReadSetting = decltype(&::SQLGetPrivateProfileString);

std::string given(const QString& text) {
    return text.toLocal8Bit().toStdString();
}
QString taken(const char* text) {
    return QString::fromLocal8Bit(text);
}
#endif

/// From the part of the driver manager that reads its files, loaded with its first use as the rest is. Null
/// where there is none: then drivers read by themselves what they do.
ReadSetting findReader() {
    ReadSetting read = nullptr;
    try {
        constexpr int notLoaded = 48;
        base::LateLibrary library(notLoaded, QStringLiteral("Data sources"), QLatin1StringView(readerLibrary),
                                  readerVersion);
        library.resolve(readerName, read);
    } catch (const base::RunTimeError&) {
        return nullptr;
    }
    return read;
}

/// "" when the section has no such setting.
QString settingOf(const QString& section, const QString& keyword,
                  const QString& file = QStringLiteral("odbc.ini")) {
    static const ReadSetting read = findReader();
    if (!read || section.isEmpty())
        return {};
    std::vector<Unit> value(512);
    const Unit none = 0;
    const int length = read(given(section).c_str(), given(keyword).c_str(), &none, value.data(),
                            int(value.size()), given(file).c_str());
    return length > 0 ? taken(value.data()) : QString();
}

/// A value of a connection string, without its braces; "" when there is none.
QString valueOf(const QString& connection, const char* keyword) {
    const QRegularExpression pattern(
        QStringLiteral(R"((?:^|;)\s*%1\s*=\s*(\{[^}]*\}|[^;]*))").arg(QLatin1StringView(keyword)),
        QRegularExpression::CaseInsensitiveOption);
    const QString value = pattern.match(connection).captured(1).trimmed();
    return value.startsWith(u'{') ? value.mid(1, value.size() - 2) : value;
}

/// Drivers go by their file or by the name of a section that holds it.
bool isFreeTds(const QString& connection, const QString& dataSource) {
    QString driver = valueOf(connection, "Driver");
    if (driver.isEmpty())
        driver = settingOf(dataSource, QStringLiteral("Driver"));
    return (driver + settingOf(driver, QStringLiteral("Driver"), QStringLiteral("odbcinst.ini")))
        .contains(QLatin1StringView("tds"), Qt::CaseInsensitive);
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

QString completed(const QString& connection, int statementSeconds) {
    const QString dataSource = valueOf(connection, "DSN");
    ConnectionText more;
    if (!dataSource.isEmpty() && !hasLogin(connection)) {
        const QString user = settingOf(dataSource, QStringLiteral("UID"));
        if (!user.isEmpty())
            more.add("UID", user).add("PWD", settingOf(dataSource, QStringLiteral("PWD")));
    }
    if (isFreeTds(connection, dataSource) && valueOf(connection, "Timeout").isEmpty() &&
        settingOf(dataSource, QStringLiteral("Timeout")).isEmpty())
        more.add("Timeout", QString::number(statementSeconds));
    if (more.text().isEmpty() || connection.endsWith(u';'))
        return connection + more.text();
    return connection + u';' + more.text();
}

bool hasLogin(const QString& connection) {
    return !valueOf(connection, "UID").isEmpty() || !valueOf(connection, "Trusted_Connection").isEmpty();
}

} // namespace odbc
