#include "platform/odbc/Diagnostics.h"

#include <array>

namespace odbc {
namespace {

struct Record {
    SQLINTEGER native = 0;
    QString state;
    QString words;
};

QString withoutOrigin(QString words) {
    while (words.startsWith(u'[')) {
        const qsizetype end = words.indexOf(u']');
        if (end < 0)
            break;
        words.remove(0, end + 1);
    }
    return words.trimmed();
}

bool readRecord(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number, Record& record) {
    std::array<SQLWCHAR, 6> state{};
    std::vector<SQLWCHAR> words(1024);
    SQLSMALLINT length = 0;
    SQLRETURN code = SQLGetDiagRecW(kind, handle, number, state.data(), &record.native, words.data(),
                                    SQLSMALLINT(words.size()), &length);
    if (code == SQL_SUCCESS_WITH_INFO && std::size_t(length) >= words.size()) {
        words.resize(std::size_t(length) + 1);
        code = SQLGetDiagRecW(kind, handle, number, state.data(), &record.native, words.data(),
                              SQLSMALLINT(words.size()), &length);
    }
    if (!SQL_SUCCEEDED(code))
        return false;
    record.state = fromWide(state.data(), 5);
    record.words = withoutOrigin(fromWide(words.data(), std::min<qsizetype>(length, words.size() - 1)));
    return true;
}

int numberOf(const Record& record) {
    if (record.native != 0)
        return record.native;
    if (record.state.startsWith(QLatin1StringView("HYT")))
        return errors::timeOut;
    return record.state == QLatin1StringView("28000") ? errors::loginFailed : errors::unspecified;
}

} // namespace

base::RunTimeError errorOf(SQLSMALLINT kind, SQLHANDLE handle, const QString& statement) {
    Record found;
    for (SQLSMALLINT number = 1;; ++number) {
        Record record;
        if (!readRecord(kind, handle, number, record))
            break;
        // a driver that cannot be loaded is told with the state of a warning, alone
        if (number == 1)
            found = record;
        if (!record.state.startsWith(QLatin1StringView("01"))) {
            found = record;
            break;
        }
    }
    if (found.words.isEmpty())
        found.words = QStringLiteral("The driver failed and did not say why.");
    return base::RunTimeError(numberOf(found), found.words, found.state, statement);
}

bool isConnectionError(const base::RunTimeError& error) {
    return error.sqlState().startsWith(QLatin1StringView("08"));
}

} // namespace odbc
