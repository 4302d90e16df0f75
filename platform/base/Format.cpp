#include "platform/base/Format.h"

#include "platform/base/Conversion.h"

#include <QStringList>

#include <array>
#include <cmath>

namespace base {
namespace {

constexpr std::array monthNames{"January", "February", "March",     "April",   "May",      "June",
                                "July",    "August",   "September", "October", "November", "December"};
constexpr std::array dayNames{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

bool isNumberPattern(const QString& pattern) {
    return pattern.contains(u'0') || pattern.contains(u'#');
}

/// How many times the character at `start` stands there in a row, in either case.
int runLength(const QString& pattern, qsizetype start) {
    const QChar first = pattern[start].toLower();
    qsizetype end = start;
    while (end < pattern.size() && pattern[end].toLower() == first)
        ++end;
    return int(end - start);
}

QString padded(int number, int width) {
    return QString::number(number).rightJustified(width, u'0');
}

class DateFormatter {
  public:
    DateFormatter(DateTime moment, const QString& pattern)
        : m_date(calendarDate(moment))
        , m_time(clockTime(moment))
        , m_weekday(weekday(moment))
        , m_pattern(pattern)
        , m_twelveHours(pattern.contains(QStringLiteral("AM/PM"), Qt::CaseInsensitive) ||
                        pattern.contains(QStringLiteral("AMPM"), Qt::CaseInsensitive) ||
                        pattern.contains(QStringLiteral("A/P"), Qt::CaseInsensitive)) {}

    QString text() {
        qsizetype at = 0;
        while (at < m_pattern.size())
            at += writeToken(at);
        return m_text;
    }

  private:
    qsizetype writeToken(qsizetype at) {
        if (const qsizetype length = writeHalfOfDay(at))
            return length;
        const QChar c = m_pattern[at];
        if (c == u'\\' && at + 1 < m_pattern.size()) {
            m_text += m_pattern[at + 1];
            return 2;
        }
        const int run = runLength(m_pattern, at);
        switch (c.toLower().unicode()) {
        case u'd':
            writeDay(run);
            break;
        case u'm':
            writeMonthOrMinute(run);
            break;
        case u'y':
            m_text += run <= 2 ? padded(m_date.year % 100, 2) : padded(m_date.year, 4);
            break;
        case u'h':
            writeHour(run);
            m_afterHour = true;
            return run;
        case u'n':
            m_text += padded(m_time.minute, qMin(run, 2));
            break;
        case u's':
            m_text += padded(m_time.second, qMin(run, 2));
            break;
        default:
            m_text += c;
            if (c != u':')
                m_afterHour = false;
            return 1;
        }
        m_afterHour = false;
        return run;
    }

    qsizetype writeHalfOfDay(qsizetype at) {
        if (m_pattern[at].toLower() != u'a')
            return 0;
        const bool morning = m_time.hour < 12;
        for (const char* token : {"AM/PM", "AMPM", "A/P"}) {
            const QString name = QString::fromLatin1(token);
            const QString here = m_pattern.mid(at, name.size());
            if (here.compare(name, Qt::CaseInsensitive) != 0)
                continue;
            QString half = morning ? QStringLiteral("AM") : QStringLiteral("PM");
            if (name.size() == 3)
                half.truncate(1);
            m_text += here[0].isLower() ? half.toLower() : half;
            return name.size();
        }
        return 0;
    }

    void writeDay(int run) {
        if (run <= 2)
            m_text += padded(m_date.day, run);
        else
            writeName(QLatin1StringView(dayNames[size_t(m_weekday - 1)]), run);
    }

    void writeMonthOrMinute(int run) {
        if (m_afterHour && run <= 2) {
            m_text += padded(m_time.minute, run);
            return;
        }
        if (run <= 2)
            m_text += padded(m_date.month, run);
        else
            writeName(QLatin1StringView(monthNames[size_t(m_date.month - 1)]), run);
    }

    void writeName(QLatin1StringView name, int run) { m_text += run == 3 ? name.left(3) : name; }

    void writeHour(int run) {
        int hour = m_time.hour;
        if (m_twelveHours)
            hour = hour % 12 == 0 ? 12 : hour % 12;
        m_text += padded(hour, qMin(run, 2));
    }

    CalendarDate m_date;
    ClockTime m_time;
    int m_weekday;
    const QString& m_pattern;
    bool m_twelveHours;
    bool m_afterHour = false;
    QString m_text;
};

/// The 15 digits of a number, rounded half away from zero to `places` behind the point.
/// Whole digits and fraction digits come back apart, without sign; whole digits without leading noughts.
std::pair<QString, QString> roundedDigits(double number, int places) {
    const QByteArray scientific = QByteArray::number(std::fabs(number), 'e', 14);
    const qsizetype e = scientific.indexOf('e');
    QByteArray digits = scientific.left(e);
    digits.remove(1, 1);
    const int exponent = scientific.mid(e + 1).toInt();
    // The point stands behind digit `exponent`; pad so that it lies inside.
    int point = exponent + 1;
    if (point < 1) {
        digits.prepend(QByteArray(1 - point, '0'));
        point = 1;
    }
    if (digits.size() < point + places + 1)
        digits.append(QByteArray(point + places + 1 - digits.size(), '0'));
    const bool roundUp = digits[point + places] >= '5';
    digits.truncate(point + places);
    for (qsizetype i = digits.size() - 1; roundUp; --i) {
        if (i < 0) {
            digits.prepend('1');
            ++point;
            break;
        }
        if (digits[i] != '9') {
            ++digits[i];
            break;
        }
        digits[i] = '0';
    }
    QString whole = QString::fromLatin1(digits.left(point));
    while (whole.startsWith(u'0'))
        whole.remove(0, 1);
    return {whole, QString::fromLatin1(digits.mid(point))};
}

QString withThousands(QString whole) {
    for (qsizetype at = whole.size() - 3; at > 0; at -= 3)
        whole.insert(at, u',');
    return whole;
}

QString formatNumber(double number, const QString& given) {
    const QStringList sections = given.split(u';');
    QString pattern = sections[0];
    bool signWritten = false;
    if (number < 0 && sections.size() > 1 && !sections[1].isEmpty()) {
        pattern = sections[1];
        signWritten = true;
    } else if (number == 0 && sections.size() > 2 && !sections[2].isEmpty()) {
        pattern = sections[2];
    }
    if (pattern.contains(u'%'))
        number *= 100;

    const QString placeholders = QStringLiteral("0#.,");
    qsizetype first = 0;
    while (first < pattern.size() && !placeholders.contains(pattern[first]))
        ++first;
    qsizetype last = first;
    while (last < pattern.size() && placeholders.contains(pattern[last]))
        ++last;
    const QString body = pattern.mid(first, last - first);
    const qsizetype point = body.indexOf(u'.');
    const QString wholePattern = point < 0 ? body : body.left(point);
    const QString fractionPattern = point < 0 ? QString() : body.mid(point + 1);

    auto [whole, fraction] = roundedDigits(number, int(fractionPattern.size()));
    const qsizetype leastDigits = wholePattern.count(u'0');
    while (whole.size() < leastDigits)
        whole.prepend(u'0');
    if (wholePattern.contains(u','))
        whole = withThousands(whole);
    for (qsizetype i = fractionPattern.size(); i > 0 && fractionPattern[i - 1] == u'#'; --i) {
        if (!fraction.endsWith(u'0'))
            break;
        fraction.chop(1);
    }
    QString text = whole;
    if (point >= 0)
        text += u'.' + fraction;
    if (number < 0 && !signWritten)
        text.prepend(u'-');
    return pattern.left(first) + text + pattern.mid(last);
}

} // namespace

QString Format(const Value& value, const QString& pattern) {
    if (value.isNull())
        return {};
    if (isNumberPattern(pattern)) {
        if (!value.asText())
            return formatNumber(CDbl(value), pattern);
        if (IsNumeric(value))
            return formatNumber(CDbl(value), pattern);
        return IsDate(value) ? formatNumber(toSerial(CDate(value)), pattern) : *value.asText();
    }
    if (value.asText()) {
        if (IsDate(value))
            return DateFormatter(CDate(value), pattern).text();
        if (!IsNumeric(value))
            return *value.asText();
    }
    const DateTime moment = value.asDateTime() ? *value.asDateTime() : fromSerial(CDbl(value));
    return DateFormatter(moment, pattern).text();
}

} // namespace base
