#include "platform/base/Conversion.h"

#include "platform/base/Error.h"

#include <QRegularExpression>

#include <charconv>
#include <cmath>
#include <limits>

namespace base {
namespace {

QString numberText(double number) {
    constexpr double whole = 1e15; // from here on in another form
    if (number > -whole && number < whole && double(qint64(number)) == number)
        return QString::number(qint64(number)); // no "-0", and most amounts are whole
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, number, std::chars_format::general, 15);
    return QString::fromLatin1(text, written.ptr - text).toUpper(); // 1E+20
}

QString dateText(DateTime moment) {
    const CalendarDate date = calendarDate(moment);
    const ClockTime time = clockTime(moment);
    const QString day = QString::asprintf("%d/%d/%04d", date.month, date.day, date.year);
    const int hour12 = time.hour % 12 == 0 ? 12 : time.hour % 12;
    const QString clock =
        QString::asprintf("%d:%02d:%02d %s", hour12, time.minute, time.second, time.hour < 12 ? "AM" : "PM");
    const bool isEpochDay = date.year == 1899 && date.month == 12 && date.day == 30;
    if (isEpochDay)
        return clock;
    if (time.hour == 0 && time.minute == 0 && time.second == 0)
        return day;
    return day + u' ' + clock;
}

/// Digits and at most one point, as nearly all numbers are written.
std::optional<double> plainNumber(const QString& text) {
    char digits[24];
    std::size_t count = 0;
    for (const QChar c : text) {
        if (count == sizeof digits || !((c >= u'0' && c <= u'9') || c == u'.'))
            return std::nullopt;
        digits[count++] = char(c.unicode());
    }
    double number = 0;
    const auto read = std::from_chars(digits, digits + count, number, std::chars_format::fixed);
    return read.ec == std::errc() && read.ptr == digits + count ? std::optional(number) : std::nullopt;
}

/// A text that is one number and nothing else: sign, thousands commas and a dollar sign are let through.
std::optional<double> wholeNumber(const QString& text) {
    if (const std::optional<double> plain = plainNumber(text))
        return plain;
    static const QRegularExpression pattern(
        QStringLiteral(R"(^\s*([+-]?)\s*\$?((?:\d[\d,]*\.?\d*|\.\d+)(?:[EeDd][+-]?\d+)?)\s*$)"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    QString digits = match.captured(2);
    digits.remove(u',');
    digits.replace(QChar(u'd'), QChar(u'e'), Qt::CaseInsensitive);
    const double number = digits.toDouble();
    return match.captured(1) == u"-" ? -number : number;
}

std::optional<ClockTime> parseClock(const QString& text) {
    static const QRegularExpression pattern(
        QStringLiteral(R"(^(\d{1,2})(?::(\d{1,2}))?(?::(\d{1,2}))?\s*([AaPp][Mm]?)?$)"));
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    const QString half = match.captured(4).toUpper();
    if (!match.hasMatch() || (match.captured(2).isEmpty() && half.isEmpty()))
        return std::nullopt;
    ClockTime time{match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt(), 0};
    if (!half.isEmpty()) {
        if (time.hour < 1 || time.hour > 12)
            return std::nullopt;
        time.hour = time.hour % 12 + (half.startsWith(u'P') ? 12 : 0);
    }
    return time;
}

std::optional<CalendarDate> parseDay(const QString& text) {
    static const QRegularExpression monthFirst(
        QStringLiteral(R"(^(\d{1,2})[/-](\d{1,2})[/-](\d{4}|\d{2})$)"));
    static const QRegularExpression yearFirst(QStringLiteral(R"(^(\d{4})[/-](\d{1,2})[/-](\d{1,2})$)"));
    if (const auto match = yearFirst.match(text); match.hasMatch())
        return CalendarDate{match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()};
    const auto match = monthFirst.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    int year = match.captured(3).toInt();
    if (match.captured(3).size() == 2)
        year += year < 30 ? 2000 : 1900;
    CalendarDate date{year, match.captured(1).toInt(), match.captured(2).toInt()};
    if (date.month > 12) // "31/12/2026" can only be read the other way round
        std::swap(date.month, date.day);
    return date;
}

std::optional<DateTime> parseDate(const QString& given) {
    const QString text = given.trimmed();
    const qsizetype blank = text.indexOf(u' ');
    const std::optional<CalendarDate> day = parseDay(blank < 0 ? text : text.left(blank));
    if (!day) {
        const std::optional<ClockTime> time = parseClock(text);
        return time ? makeDateTime({1899, 12, 30}, *time) : std::nullopt;
    }
    if (blank < 0)
        return makeDateTime(*day);
    QString clock = text.mid(blank + 1).trimmed();
    static const QRegularExpression fraction(QStringLiteral(R"(\.\d+$)"));
    clock.remove(fraction);
    const std::optional<ClockTime> time = parseClock(clock);
    return time ? makeDateTime(*day, *time) : std::nullopt;
}

} // namespace

double Val(const QString& text) {
    QByteArray number;
    number.reserve(text.size());
    for (const QChar c : text) {
        if (c == u' ' || c == u'\t' || c == u'\n')
            continue;
        number.append(c.unicode() < 128 ? char(c.unicode()) : '?');
    }
    if (number.size() > 1 && number[0] == '&') {
        const char base = number[1];
        qulonglong value = 0;
        if (base == 'H' || base == 'h')
            std::from_chars(number.constData() + 2, number.constData() + number.size(), value, 16);
        else if (base == 'O' || base == 'o')
            std::from_chars(number.constData() + 2, number.constData() + number.size(), value, 8);
        // Four digits are a 16-bit number and carry its sign.
        return value > 0x7fff && value <= 0xffff ? double(qint16(value)) : double(value);
    }
    qsizetype end = 0;
    const auto isDigit = [&](qsizetype i) {
        return i < number.size() && number[i] >= '0' && number[i] <= '9';
    };
    if (end < number.size() && (number[end] == '+' || number[end] == '-'))
        ++end;
    while (isDigit(end))
        ++end;
    if (end < number.size() && number[end] == '.') {
        ++end;
        while (isDigit(end))
            ++end;
    }
    if (end < number.size() && QByteArrayView("EeDd").contains(number[end])) {
        qsizetype exponent = end + 1;
        if (exponent < number.size() && (number[exponent] == '+' || number[exponent] == '-'))
            ++exponent;
        if (isDigit(exponent)) {
            number[end] = 'e';
            while (isDigit(exponent))
                ++exponent;
            end = exponent;
        }
    }
    return number.left(end).toDouble();
}

double CDbl(const Value& value) {
    if (value.isNull())
        throw RunTimeError(errors::invalidUseOfNull);
    if (const bool* flag = value.asBool())
        return *flag ? -1 : 0;
    if (const qint64* integer = value.asInteger())
        return double(*integer);
    if (const double* number = value.asDouble())
        return *number;
    if (const DateTime* moment = value.asDateTime())
        return toSerial(*moment);
    const std::optional<double> number = wholeNumber(*value.asText());
    if (!number)
        throw RunTimeError(errors::typeMismatch);
    return *number;
}

int CLng(const Value& value) {
    const double number = std::nearbyint(CDbl(value));
    if (!(number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max()))
        throw RunTimeError(errors::overflow);
    return int(number);
}

DateTime CDate(const Value& value) {
    if (value.isNull())
        throw RunTimeError(errors::invalidUseOfNull);
    if (const DateTime* moment = value.asDateTime())
        return *moment;
    if (!value.asText())
        return fromSerial(CDbl(value));
    const std::optional<DateTime> moment = parseDate(*value.asText());
    if (!moment)
        throw RunTimeError(errors::typeMismatch);
    return *moment;
}

QString CStr(const Value& value) {
    if (value.isNull())
        throw RunTimeError(errors::invalidUseOfNull);
    return textOf(value);
}

QString Str(double number) {
    const QString text = numberText(number);
    return number < 0 ? text : u' ' + text;
}

QString textOf(const Value& value) {
    if (const QString* text = value.asText())
        return *text;
    if (const qint64* integer = value.asInteger())
        return QString::number(*integer);
    if (const double* number = value.asDouble())
        return numberText(*number);
    if (const DateTime* moment = value.asDateTime())
        return dateText(*moment);
    if (const bool* flag = value.asBool())
        return *flag ? QStringLiteral("True") : QStringLiteral("False");
    return {};
}

bool IsNumeric(const Value& value) {
    if (const QString* text = value.asText())
        return wholeNumber(*text).has_value();
    return !value.isNull() && !value.asDateTime();
}

bool IsDate(const Value& value) {
    if (const QString* text = value.asText())
        return parseDate(*text).has_value();
    return value.asDateTime() != nullptr;
}

QString LTrim(const QString& text) {
    qsizetype start = 0;
    while (start < text.size() && text[start] == u' ')
        ++start;
    return text.mid(start);
}

QString RTrim(const QString& text) {
    qsizetype end = text.size();
    while (end > 0 && text[end - 1] == u' ')
        --end;
    return text.left(end);
}

QString Trim(const QString& text) {
    return LTrim(RTrim(text));
}

QString BackQuoted(QString text) {
    for (QChar& c : text) {
        if (c == u'\'' || c == QChar(0x02BC) || c == QChar(0x2019) || c == QChar(0xFF07))
            c = u'`';
    }
    return text;
}

} // namespace base
