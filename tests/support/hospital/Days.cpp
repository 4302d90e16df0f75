#include "tests/support/hospital/Days.h"

#include <QElapsedTimer>
#include <QRegularExpression>

#include <cstdlib>
#include <optional>

namespace tests {
namespace {

const QDate testsToday(2026, 11, 21);

QDate& today() {
    static QDate day = testsToday;
    return day;
}

/// A clock that runs on from what the server told.
struct ServerClock {
    base::DateTime told;
    QElapsedTimer since;
};
std::optional<ServerClock>& serverClock() {
    static std::optional<ServerClock> clock;
    return clock;
}

/// A date in the same form: "1/5/2026" has no noughts, "01/05/2026" has.
QString inForm(const QDate& day, const QRegularExpressionMatch& found) {
    if (!found.captured(QStringLiteral("year")).isEmpty())
        return day.toString(found.captured(QStringLiteral("line")) == u"-" ? u"yyyy-MM-dd" : u"yyyy/MM/dd");
    const bool noughts =
        found.captured(QStringLiteral("month")).startsWith(u'0') ||
        found.captured(QStringLiteral("day")).startsWith(u'0') ||
        found.capturedLength(QStringLiteral("month")) + found.capturedLength(QStringLiteral("day")) == 4;
    return day.toString(noughts ? u"MM/dd/yyyy" : u"M/d/yyyy");
}

QString moved(const QString& text, qint64 days) {
    if (days == 0)
        return text;
    static const QRegularExpression date(
        QStringLiteral(R"(\b(?:(?<year>\d{4})(?<line>[-/])(?<isoMonth>\d\d)\g{line}(?<isoDay>\d\d))"
                       R"(|(?<month>\d{1,2})/(?<day>\d{1,2})/(?<last>\d{4}))(?!\d))"));
    QString result;
    qsizetype from = 0;
    for (auto it = date.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch found = it.next();
        const auto number = [&](const char* name) {
            return found.captured(QString::fromLatin1(name)).toInt();
        };
        const QDate day = number("year") ? QDate(number("year"), number("isoMonth"), number("isoDay"))
                                         : QDate(number("last"), number("month"), number("day"));
        if (!day.isValid())
            continue;
        result += text.mid(from, found.capturedStart() - from);
        result += inForm(day.addDays(days), found);
        from = found.capturedEnd();
    }
    return result + text.mid(from);
}

} // namespace

base::DateTime demoMoment() {
    return *base::makeDateTime({today().year(), today().month(), today().day()}, {8, 30});
}

void setServerNow(base::DateTime now) {
    const base::CalendarDate day = base::calendarDate(now);
    today() = QDate(day.year, day.month, day.day);
    serverClock() = ServerClock{now, {}};
    serverClock()->since.start();
}

bool isServerNow(base::DateTime moment) {
    constexpr qint64 tolerance = 120'000; // milliseconds
    if (!serverClock())
        return moment == demoMoment();
    return std::abs(moment.ms - (serverClock()->told.ms + serverClock()->since.elapsed())) < tolerance;
}

QString toServerDays(const QString& text) {
    return moved(text, testsToday.daysTo(today()));
}

QDate toServerDays(const QDate& day) {
    return day.addDays(testsToday.daysTo(today()));
}

QString toTestDays(const QString& text) {
    return moved(text, today().daysTo(testsToday));
}

} // namespace tests
