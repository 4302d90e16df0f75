#include "server/engine/functions/FunctionHost.h"

#include "server/engine/errors/ServerError.h"
#include "server/engine/values/Convert.h"
#include "server/engine/values/DateReader.h"
#include "server/engine/values/DateText.h"

#include <algorithm>
#include <array>
#include <limits>

/// The functions on moments. A moment is an ISO text.
namespace engine {
namespace {

constexpr std::int64_t msPerDay = 86'400'000;

base::DateTime momentOf(sqlite3_value* value) {
    const auto moment = fromIsoText(valueText(value));
    if (!moment)
        throw serverError(
            241, QStringLiteral("Conversion failed when converting date and/or time from character string."),
            "22018");
    return *moment;
}

void resultMoment(sqlite3_context* context, base::DateTime moment) {
    // 1753-01-01 to 9999-12-31
    if (moment.ms < -6'847'804'800'000 || moment.ms > 253'402'300'799'999)
        throw serverError(517, QStringLiteral("Adding a value to a 'datetime' column caused an overflow."),
                          "22007");
    resultText(context, isoText(moment));
}

std::int64_t dayNumber(base::DateTime moment) {
    return base::dateOnly(moment).ms / msPerDay;
}

/// Milliseconds of the parts that always have the same length; 0 for the others.
std::int64_t partLength(std::string_view part) {
    static constexpr std::array<std::pair<std::string_view, std::int64_t>, 8> lengths{
        {{"millisecond", 1},
         {"second", 1000},
         {"minute", 60'000},
         {"hour", 3'600'000},
         {"day", msPerDay},
         {"dayofyear", msPerDay},
         {"weekday", msPerDay},
         {"week", 7 * msPerDay}}};
    for (const auto& [name, length] : lengths) {
        if (name == part)
            return length;
    }
    return 0;
}

int daysOfMonth(int year, int month) {
    static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return days[month - 1] + (month == 2 && leap ? 1 : 0);
}

base::DateTime addMonths(base::DateTime moment, std::int64_t count) {
    base::CalendarDate date = base::calendarDate(moment);
    const std::int64_t months = std::int64_t(date.year) * 12 + date.month - 1 + count;
    if (months < 1753 * 12 || months >= 10000 * 12)
        throw serverError(517, QStringLiteral("Adding a value to a 'datetime' column caused an overflow."),
                          "22007");
    date.year = int(months / 12);
    date.month = int(months % 12) + 1;
    date.day = std::min(date.day, daysOfMonth(date.year, date.month));
    return *base::makeDateTime(date, base::clockTime(moment));
}

void dateAdd(sqlite3_context* context, sqlite3_value** values) {
    const std::string_view part = valueText(values[0]);
    const std::int64_t count = sqlite3_value_int64(values[1]);
    const base::DateTime moment = momentOf(values[2]);
    if (count < std::numeric_limits<std::int32_t>::min() || count > std::numeric_limits<std::int32_t>::max())
        throw serverError(8115,
                          QStringLiteral("Arithmetic overflow error converting expression to data type int."),
                          "22003");
    if (const std::int64_t length = partLength(part))
        resultMoment(context, {moment.ms + count * length});
    else
        resultMoment(context, addMonths(moment, count * (part == "year" ? 12 : part == "quarter" ? 3 : 1)));
}

std::int64_t floorDivided(std::int64_t value, std::int64_t by) {
    return value >= 0 ? value / by : -((-value + by - 1) / by);
}

void dateDiff(sqlite3_context* context, sqlite3_value** values) {
    const std::string_view part = valueText(values[0]);
    const base::DateTime from = momentOf(values[1]);
    const base::DateTime to = momentOf(values[2]);
    const base::CalendarDate first = base::calendarDate(from);
    const base::CalendarDate last = base::calendarDate(to);
    std::int64_t count = 0;
    if (part == "year") {
        count = last.year - first.year;
    } else if (part == "quarter") {
        count = (last.year - first.year) * 4 + (last.month - 1) / 3 - (first.month - 1) / 3;
    } else if (part == "month") {
        count = (last.year - first.year) * 12 + last.month - first.month;
    } else if (part == "week") { // Sundays that lie between
        count = floorDivided(dayNumber(to) + 4, 7) - floorDivided(dayNumber(from) + 4, 7);
    } else {
        const std::int64_t length = partLength(part);
        count = floorDivided(to.ms, length) - floorDivided(from.ms, length);
    }
    if (count < std::numeric_limits<std::int32_t>::min() || count > std::numeric_limits<std::int32_t>::max())
        throw serverError(
            535,
            QStringLiteral("The datediff function resulted in an overflow. The number of dateparts "
                           "separating two date/time instances is too large."),
            "22003");
    sqlite3_result_int64(context, count);
}

std::int64_t partOf(std::string_view part, base::DateTime moment) {
    const base::CalendarDate date = base::calendarDate(moment);
    const base::ClockTime time = base::clockTime(moment);
    const base::DateTime newYear = *base::makeDateTime({date.year, 1, 1});
    const std::int64_t dayOfYear = dayNumber(moment) - dayNumber(newYear) + 1;
    if (part == "year")
        return date.year;
    if (part == "quarter")
        return (date.month - 1) / 3 + 1;
    if (part == "month")
        return date.month;
    if (part == "day")
        return date.day;
    if (part == "dayofyear")
        return dayOfYear;
    if (part == "week")
        return (dayOfYear + base::weekday(newYear) - 2) / 7 + 1;
    if (part == "weekday")
        return base::weekday(moment);
    if (part == "hour")
        return time.hour;
    if (part == "minute")
        return time.minute;
    return part == "second" ? time.second : time.ms;
}

void datePart(sqlite3_context* context, sqlite3_value** values) {
    sqlite3_result_int64(context, partOf(valueText(values[0]), momentOf(values[1])));
}

void dateName(sqlite3_context* context, sqlite3_value** values) {
    static constexpr const char* months[] = {"January",   "February", "March",    "April",
                                             "May",       "June",     "July",     "August",
                                             "September", "October",  "November", "December"};
    static constexpr const char* weekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                               "Thursday", "Friday", "Saturday"};
    const std::string_view part = valueText(values[0]);
    const std::int64_t value = partOf(part, momentOf(values[1]));
    if (part == "month")
        resultText(context, months[value - 1]);
    else if (part == "weekday")
        resultText(context, weekdays[value - 1]);
    else
        resultText(context, std::to_string(value));
}

/// A moment moved by days or by another moment (which counts from 1900-01-01).
void moveDays(sqlite3_context* context, sqlite3_value** values) {
    const base::DateTime moment = momentOf(values[0]);
    const bool back = sqlite3_value_int(values[2]) != 0;
    double days = 0;
    if (sqlite3_value_type(values[1]) == SQLITE_TEXT)
        days = base::toSerial(momentOf(values[1])) - 2;
    else
        days = sqlite3_value_double(values[1]);
    if (!(days > -4e6 && days < 4e6))
        throw serverError(
            8115, QStringLiteral("Arithmetic overflow error converting expression to data type datetime."),
            "22003");
    const auto ms = std::int64_t(days * double(msPerDay) + (days < 0 ? -0.5 : 0.5));
    resultMoment(context, {back ? moment.ms - ms : moment.ms + ms});
}

void isDate(sqlite3_context* context, sqlite3_value** values) {
    base::DateTime moment;
    const std::string_view text = valueText(values[0]);
    const bool empty = text.find_first_not_of(' ') == std::string_view::npos;
    sqlite3_result_int(context, !empty && readDate(text, 0, moment) == DateReading::Good);
}

} // namespace

void registerDateFunctions(sqlite3* handle, FunctionHost& host) {
    registerFunction<dateAdd>(handle, host, "ts_dateadd", 3);
    registerFunction<dateDiff>(handle, host, "ts_datediff", 3);
    registerFunction<datePart>(handle, host, "ts_datepart", 2);
    registerFunction<dateName>(handle, host, "ts_datename", 2);
    registerFunction<moveDays>(handle, host, "ts_movedays", 3);
    registerFunction<isDate>(handle, host, "ts_isdate", 1);
}

} // namespace engine
