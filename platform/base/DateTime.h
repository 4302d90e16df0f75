#pragma once

#include <QString>
#include <QtGlobal>

#include <compare>
#include <optional>

namespace base {

/// A wall-clock moment without a zone, to the millisecond: what a server calls datetime. The calendar goes
/// from 01/01/0001 to 12/31/9999.
struct DateTime {
    /// Milliseconds since 1970-01-01 00:00 of the same wall clock; may be negative.
    qint64 ms = 0;

    auto operator<=>(const DateTime&) const =
        default; // NOLINT(modernize-use-nullptr): not understood by clang-tidy 14
};

struct CalendarDate {
    int year = 1970;
    int month = 1; ///< 1 to 12
    int day = 1;   ///< 1 to 31
};

struct ClockTime {
    int hour = 0;
    int minute = 0;
    int second = 0;
    int ms = 0;
};

/// Nothing when the day does not exist (02/30, a year 0 or 10000) or the time is out of its range.
std::optional<DateTime> makeDateTime(const CalendarDate& date, const ClockTime& time = {});
/// Raises 6 outside of the calendar.
CalendarDate calendarDate(DateTime moment);
ClockTime clockTime(DateTime moment);
/// 1 Sunday to 7 Saturday.
int weekday(DateTime moment);
/// Midnight of the same day.
DateTime dateOnly(DateTime moment);
/// Moved by whole days, back by less than 0; a fraction counts nothing. Raises 6 where that leaves the
/// calendar.
DateTime addDays(DateTime moment, double days);

/// "2026-11-21 08:30:00.000", as the hospital file keeps moments.
QString toIso(DateTime moment);
/// Reads "yyyy-mm-dd", "yyyy-mm-dd hh:mm:ss" and the same with a fraction; nothing for any other text.
std::optional<DateTime> fromIso(const char* text, qsizetype length);

/// Days since 1899-12-30 with the time as fraction, and back. Raises 6 outside of 01/01/0100 to 12/31/9999.
double toSerial(DateTime moment);
DateTime fromSerial(double days);

/// The workstation's clock: Now and Date. Tests fix it (TestDoors.h).
DateTime now();
DateTime today();

} // namespace base
