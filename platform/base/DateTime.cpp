#include "platform/base/DateTime.h"

#include "platform/base/Error.h"
#include "platform/base/TestDoors.h"

#include <QDateTime>

#include <chrono>
#include <cmath>

namespace base {
namespace {

constexpr qint64 msPerDay = 86'400'000;
/// 1899-12-30 in days since 1970-01-01.
constexpr qint64 serialEpochDays = -25569;

std::optional<DateTime>& fixedNow() {
    static std::optional<DateTime> moment;
    return moment;
}

qint64& msAhead() {
    static qint64 ms = 0;
    return ms;
}

qint64 floorDay(qint64 ms) {
    return ms >= 0 ? ms / msPerDay : -((-ms + msPerDay - 1) / msPerDay);
}

// 0001-01-01 and the end of 9999-12-31
constexpr DateTime firstMoment{-62'135'596'800'000};
constexpr DateTime lastMoment{253'402'300'799'999};
// 0100-01-01 and the day behind 9999-12-31, as serial numbers
constexpr double firstSerial = -657'434;
constexpr double behindLastSerial = 2'958'466;

/// Reads `count` digits at `text`; -1 when one is none.
int digits(const char* text, int count) {
    int value = 0;
    for (int i = 0; i < count; ++i) {
        if (text[i] < '0' || text[i] > '9')
            return -1;
        value = value * 10 + (text[i] - '0');
    }
    return value;
}

} // namespace

std::optional<DateTime> makeDateTime(const CalendarDate& date, const ClockTime& time) {
    using namespace std::chrono;
    const year_month_day day{year{date.year}, month{static_cast<unsigned>(date.month)},
                             std::chrono::day{static_cast<unsigned>(date.day)}};
    const bool timeFits = time.hour >= 0 && time.hour < 24 && time.minute >= 0 && time.minute < 60 &&
                          time.second >= 0 && time.second < 60 && time.ms >= 0 && time.ms < 1000;
    if (date.year < 1 || date.year > 9999 || date.month < 1 || date.day < 1 || !day.ok() || !timeFits)
        return std::nullopt;
    const qint64 days = sys_days{day}.time_since_epoch().count();
    return DateTime{days * msPerDay + ((time.hour * 60LL + time.minute) * 60 + time.second) * 1000 + time.ms};
}

CalendarDate calendarDate(DateTime moment) {
    using namespace std::chrono;
    if (moment < firstMoment || moment > lastMoment)
        throw RunTimeError(errors::overflow);
    const year_month_day day{sys_days{days{floorDay(moment.ms)}}};
    return {int(day.year()), int(unsigned(day.month())), int(unsigned(day.day()))};
}

ClockTime clockTime(DateTime moment) {
    const qint64 ms = moment.ms - floorDay(moment.ms) * msPerDay;
    return {int(ms / 3'600'000), int(ms / 60'000 % 60), int(ms / 1000 % 60), int(ms % 1000)};
}

int weekday(DateTime moment) {
    const qint64 days = floorDay(moment.ms) + 4; // 1970-01-01 was a Thursday
    return int(((days % 7) + 7) % 7) + 1;
}

DateTime dateOnly(DateTime moment) {
    return DateTime{floorDay(moment.ms) * msPerDay};
}

DateTime addDays(DateTime moment, double days) {
    const double whole = std::trunc(days);
    if (!(std::fabs(whole) < behindLastSerial - firstSerial))
        throw RunTimeError(errors::overflow);
    const DateTime moved{moment.ms + qint64(whole) * msPerDay};
    if (moved < firstMoment || moved > lastMoment)
        throw RunTimeError(errors::overflow);
    return moved;
}

QString toIso(DateTime moment) {
    const CalendarDate date = calendarDate(moment);
    const ClockTime time = clockTime(moment);
    return QString::asprintf("%04d-%02d-%02d %02d:%02d:%02d.%03d", date.year, date.month, date.day, time.hour,
                             time.minute, time.second, time.ms);
}

std::optional<DateTime> fromIso(const char* text, qsizetype length) {
    if (length < 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const CalendarDate date{digits(text, 4), digits(text + 5, 2), digits(text + 8, 2)};
    if (length == 10)
        return makeDateTime(date);
    if (length < 19 || (text[10] != ' ' && text[10] != 'T') || text[13] != ':' || text[16] != ':')
        return std::nullopt;
    ClockTime time{digits(text + 11, 2), digits(text + 14, 2), digits(text + 17, 2), 0};
    if (length > 19) {
        if (text[19] != '.')
            return std::nullopt;
        int scale = 100;
        for (qsizetype i = 20; i < length; ++i, scale /= 10) {
            if (text[i] < '0' || text[i] > '9')
                return std::nullopt;
            time.ms += (text[i] - '0') * scale;
        }
    }
    return makeDateTime(date, time);
}

double toSerial(DateTime moment) {
    return double(moment.ms) / double(msPerDay) - double(serialEpochDays);
}

DateTime fromSerial(double days) {
    if (!(days >= firstSerial && days < behindLastSerial))
        throw RunTimeError(errors::overflow);
    return DateTime{qint64(std::llround((days + double(serialEpochDays)) * double(msPerDay)))};
}

DateTime now() {
    if (fixedNow())
        return *fixedNow();
    // The zone's rules are asked once a minute: a save asks for the time dozens of times.
    constexpr qint64 msPerMinute = 60'000;
    thread_local qint64 knownMinute = -1;
    thread_local qint64 offset = 0;
    const qint64 utc = QDateTime::currentMSecsSinceEpoch();
    if (utc / msPerMinute != knownMinute) {
        knownMinute = utc / msPerMinute;
        offset = QDateTime::fromMSecsSinceEpoch(utc).offsetFromUtc() * 1000LL;
    }
    return DateTime{utc + offset + msAhead()};
}

DateTime today() {
    return dateOnly(now());
}

FixedClock::FixedClock(DateTime moment) : m_outer(fixedNow()) {
    fixedNow() = moment;
}

FixedClock::~FixedClock() {
    fixedNow() = m_outer;
}

ClockAhead::ClockAhead(int days) : m_ms(days * msPerDay) {
    msAhead() += m_ms;
}

ClockAhead::~ClockAhead() {
    msAhead() -= m_ms;
}

} // namespace base
