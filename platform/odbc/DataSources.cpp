#include "platform/odbc/DataSources.h"

#include "platform/base/Error.h"
#include "platform/odbc/Handle.h"

#include <algorithm>

namespace odbc {

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
    QString safe = value;
    if (!plain || value.startsWith(u' ') || value.endsWith(u' '))
        safe = u'{' + safe.replace(u'}', QLatin1StringView("}}")) + u'}';
    m_text += QLatin1StringView(keyword) + u'=' + safe + u';';
    return *this;
}

} // namespace odbc
