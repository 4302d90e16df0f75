#include "platform/report/evaluation/Functions.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace report {
namespace {

using base::Value;
using Arguments = std::vector<Value>;

constexpr qint64 dayMs = 86'400'000;

qsizetype length(const Value& value) {
    return qsizetype(std::clamp(base::CDbl(value), 0.0, 1e9));
}

Value runIf(const Arguments& a) {
    return isTrue(a[0]) ? a[1] : a[2];
}
Value runIsNull(const Arguments& a) {
    return a[0].isNull();
}
Value runIsEmpty(const Arguments& a) {
    return base::Trim(base::textOf(a[0])).isEmpty();
}
Value runUpper(const Arguments& a) {
    return base::textOf(a[0]).toUpper();
}
Value runLower(const Arguments& a) {
    return base::textOf(a[0]).toLower();
}
Value runTrim(const Arguments& a) {
    return base::Trim(base::textOf(a[0]));
}
Value runLeft(const Arguments& a) {
    return base::textOf(a[0]).left(length(a[1]));
}
Value runRight(const Arguments& a) {
    return base::textOf(a[0]).right(length(a[1]));
}
Value runMid(const Arguments& a) {
    const qsizetype from = std::max<qsizetype>(length(a[1]), 1) - 1;
    return base::textOf(a[0]).mid(from, a.size() > 2 ? length(a[2]) : -1);
}
Value runLength(const Arguments& a) {
    return qint64(base::textOf(a[0]).size());
}
Value runFormat(const Arguments& a) {
    return base::Format(a[0], base::textOf(a[1]));
}
Value runIsDate(const Arguments& a) {
    return base::IsDate(a[0]);
}
/// One part of a date, or of a text that reads as one; Null of Null.
template <typename Part>
Value partOf(const Value& value, Part part) {
    return value.isNull() ? Value() : Value(qint64(part(base::CDate(value))));
}
Value runYear(const Arguments& a) {
    return partOf(a[0], [](base::DateTime moment) { return base::calendarDate(moment).year; });
}
Value runMonth(const Arguments& a) {
    return partOf(a[0], [](base::DateTime moment) { return base::calendarDate(moment).month; });
}
Value runDay(const Arguments& a) {
    return partOf(a[0], [](base::DateTime moment) { return base::calendarDate(moment).day; });
}
Value runWeekday(const Arguments& a) {
    return partOf(a[0], [](base::DateTime moment) { return base::weekday(moment); });
}
Value runAddDays(const Arguments& a) {
    if (a[0].isNull() || a[1].isNull())
        return {};
    return base::addDays(base::CDate(a[0]), base::CDbl(a[1]));
}
/// Whole calendar days: the hours do not count.
Value runDaysBetween(const Arguments& a) {
    if (a[0].isNull() || a[1].isNull())
        return {};
    return (base::dateOnly(base::CDate(a[1])).ms - base::dateOnly(base::CDate(a[0])).ms) / dayMs;
}
Value runVal(const Arguments& a) {
    return base::Val(base::textOf(a[0]));
}
Value runAbs(const Arguments& a) {
    return a[0].isNull() ? Value() : Value(std::fabs(base::CDbl(a[0])));
}
Value runRound(const Arguments& a) {
    if (a[0].isNull())
        return {};
    const double scale = std::pow(10.0, a.size() > 1 ? double(std::min<qsizetype>(length(a[1]), 12)) : 0.0);
    // Halves are told on the decimal digits: 2.345 is a half although its binary value lies below.
    const double scaled = QString::number(base::CDbl(a[0]) * scale, 'g', 15).toDouble();
    return std::round(scaled) / scale;
}

constexpr std::array functions{
    Function{"If", 3, 3, runIf},
    Function{"IsNull", 1, 1, runIsNull},
    Function{"IsEmpty", 1, 1, runIsEmpty},
    Function{"Upper", 1, 1, runUpper},
    Function{"Lower", 1, 1, runLower},
    Function{"Trim", 1, 1, runTrim},
    Function{"Left", 2, 2, runLeft},
    Function{"Right", 2, 2, runRight},
    Function{"Mid", 2, 3, runMid},
    Function{"Length", 1, 1, runLength},
    Function{"Format", 2, 2, runFormat},
    Function{"Val", 1, 1, runVal},
    Function{"Abs", 1, 1, runAbs},
    Function{"Round", 1, 2, runRound},
    Function{"IsDate", 1, 1, runIsDate},
    Function{"Year", 1, 1, runYear},
    Function{"Month", 1, 1, runMonth},
    Function{"Day", 1, 1, runDay},
    Function{"Weekday", 1, 1, runWeekday},
    Function{"AddDays", 2, 2, runAddDays},
    Function{"DaysBetween", 2, 2, runDaysBetween},
};

} // namespace

int functionIndex(const QString& name) {
    for (std::size_t i = 0; i < functions.size(); ++i) {
        if (name.compare(QLatin1StringView(functions[i].name), Qt::CaseInsensitive) == 0)
            return int(i);
    }
    return -1;
}

const Function& functionAt(int index) {
    return functions[std::size_t(index)];
}

bool isTrue(const Value& value) {
    if (const bool* truth = value.asBool())
        return *truth;
    if (const qint64* whole = value.asInteger())
        return *whole != 0;
    if (const double* number = value.asDouble())
        return *number != 0.0;
    return false;
}

} // namespace report
