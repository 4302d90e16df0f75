#include "platform/odbc/Diagnostics.h"

#include <algorithm>
#include <array>
#include <utility>

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

bool isWarning(const Record& record) {
    return record.state.startsWith(QLatin1StringView("01"));
}

/// FreeTDS: not read, not written, ended, dead.
bool isBrokenLine(const Record& record) {
    constexpr int numbers[] = {20004, 20006, 20017, 20047};
    return std::find(std::begin(numbers), std::end(numbers), record.native) != std::end(numbers);
}

/// The record that says most of what went wrong: the first that is no warning, with exceptions.
Record tellingRecord(const std::vector<Record>& records) {
    constexpr int missingDatabase = 4060;
    const auto find = [&](const auto& which) { return std::find_if(records.begin(), records.end(), which); };
    const auto none = records.end();
    const auto first = find([](const Record& record) { return !isWarning(record); });
    // a missing database refuses the login, too; FreeTDS tells that first
    if (first != none && first->native == errors::loginFailed) {
        const auto missing = find([](const Record& record) { return record.native == missingDatabase; });
        return missing != none ? *missing : *first;
    }
    if (first != none && first->native != 0)
        return *first;
    // FreeTDS tells why a line or a log-on came to nothing as a warning, beside an error without a number
    const auto broken = find(isBrokenLine);
    if (broken != none)
        return {broken->native, QStringLiteral("08S01"), broken->words};
    // a driver that cannot be loaded is told with the state of a warning, alone
    if (first == none)
        return records.front();
    const auto numbered = find([](const Record& record) { return record.native != 0; });
    if (first->state == QLatin1StringView("08001") && numbered != none)
        return {numbered->native, first->state, numbered->words};
    return *first;
}

} // namespace

base::RunTimeError errorOf(SQLSMALLINT kind, SQLHANDLE handle, const QString& statement) {
    std::vector<Record> records;
    for (Record record; readRecord(kind, handle, SQLSMALLINT(records.size() + 1), record);)
        records.push_back(std::exchange(record, {}));
    const Record found = records.empty() ? Record() : tellingRecord(records);
    return base::RunTimeError(numberOf(found),
                              found.words.isEmpty() ? QStringLiteral("The driver failed and did not say why.")
                                                    : found.words,
                              found.state, statement);
}

bool isConnectionError(const base::RunTimeError& error) {
    // FreeTDS tells a database that a name does not find (911) as a connection that was refused
    return error.sqlState().startsWith(QLatin1StringView("08")) &&
           error.sqlState() != QLatin1StringView("08004");
}

} // namespace odbc
