#include "server/engine/values/DateReader.h"

#include "server/engine/values/Ascii.h"
#include "server/engine/values/DateText.h"

#include <iterator>

/// The reading half of DateText.
namespace engine {
namespace {

constexpr std::string_view monthNames[] = {"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                           "MAY",       "JUNE",     "JULY",     "AUGUST",
                                           "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};

/// Reads a date and a time in the order in which they stand.
class DateReader {
  public:
    DateReader(std::string_view text, bool dayFirst) : m_text(text), m_dayFirst(dayFirst) {}

    DateReading read(base::DateTime& moment) {
        m_date = {1900, 1, 1};
        skipBlanks();
        if (m_at < m_text.size() && !readParts())
            return DateReading::NotADate;
        const auto made = base::makeDateTime(m_date, m_time);
        if (!made || m_date.year < 1753)
            return DateReading::OutOfRange;
        moment = *made;
        return DateReading::Good;
    }

  private:
    bool readParts() {
        bool dateRead = false;
        bool timeRead = false;
        while (m_at < m_text.size()) {
            if (!timeRead && looksLikeTime()) {
                timeRead = true;
                if (!readTime())
                    return false;
            } else if (!dateRead) {
                dateRead = true;
                if (!readDay())
                    return false;
                if (m_at < m_text.size() && upperOf(m_text[m_at]) == 'T' && isDigit(peek(1)))
                    ++m_at;
            } else {
                return false;
            }
            skipBlanks();
        }
        return dateRead || timeRead;
    }

    char peek(std::size_t ahead) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : '\0'; }

    void skipBlanks() {
        while (m_at < m_text.size() && isBlank(m_text[m_at]))
            ++m_at;
    }

    /// One or two digits and a colon, or a blank and AM or PM.
    bool looksLikeTime() const {
        std::size_t ahead = 0;
        while (ahead < 3 && isDigit(peek(ahead)))
            ++ahead;
        if (ahead == 0 || ahead > 2)
            return false;
        if (peek(ahead) == ':')
            return true;
        while (peek(ahead) == ' ')
            ++ahead;
        const char letter = upperOf(peek(ahead));
        return (letter == 'A' || letter == 'P') && upperOf(peek(ahead + 1)) == 'M' &&
               !isWordStart(peek(ahead + 2));
    }

    bool number(int longest, int& value, int* length = nullptr) {
        const std::size_t begin = m_at;
        value = 0;
        while (isDigit(peek(0)) && int(m_at - begin) < longest)
            value = value * 10 + (m_text[m_at++] - '0');
        if (length)
            *length = int(m_at - begin);
        return m_at > begin && !isDigit(peek(0));
    }

    bool readTime() {
        if (!number(2, m_time.hour))
            return false;
        if (peek(0) == ':') {
            ++m_at;
            if (!number(2, m_time.minute))
                return false;
        }
        if (peek(0) == ':') {
            ++m_at;
            if (!number(2, m_time.second) || !readFraction())
                return false;
        }
        skipBlanks();
        const char letter = upperOf(peek(0));
        if ((letter != 'A' && letter != 'P') || upperOf(peek(1)) != 'M')
            return true;
        m_at += 2;
        if (m_time.hour > 12)
            return letter == 'P' && m_time.hour < 24;
        m_time.hour = m_time.hour % 12 + (letter == 'P' ? 12 : 0);
        return true;
    }

    bool readFraction() {
        if (peek(0) != '.' && peek(0) != ':')
            return true;
        ++m_at;
        int value = 0;
        int length = 0;
        if (!number(9, value, &length))
            return false;
        for (; length < 3; ++length)
            value *= 10;
        for (; length > 3; --length)
            value /= 10;
        m_time.ms = value;
        return true;
    }

    bool readDay() {
        if (isWordStart(peek(0)))
            return readMonthFirst();
        int first = 0;
        int length = 0;
        if (!number(8, first, &length))
            return false;
        if (length == 8 || length == 6) {
            const int year = first / 10000;
            m_date = {length == 6 ? fullYear(year, 2) : year, first / 100 % 100, first % 100};
            return true;
        }
        const char separator = peek(0);
        if (separator != '/' && separator != '-' && separator != '.') {
            if (length == 4 && m_at == m_text.size()) {
                m_date = {first, 1, 1};
                return true;
            }
            return readDayFirst(first);
        }
        return readSeparated(first, length, separator);
    }

    bool readSeparated(int first, int length, char separator) {
        int second = 0;
        int third = 0;
        int thirdLength = 0;
        ++m_at;
        if (isWordStart(peek(0))) { // 21-Nov-2026
            int month = 0;
            if (!readMonth(month) || peek(0) != separator)
                return false;
            ++m_at;
            if (!number(4, third, &thirdLength))
                return false;
            m_date = {fullYear(third, thirdLength), month, first};
            return true;
        }
        if (!number(2, second) || peek(0) != separator)
            return false;
        ++m_at;
        if (!number(4, third, &thirdLength))
            return false;
        if (length == 4)
            m_date = {first, second, third};
        else if (m_dayFirst)
            m_date = {fullYear(third, thirdLength), second, first};
        else
            m_date = {fullYear(third, thirdLength), first, second};
        return length == 4 ? thirdLength <= 2 : length <= 2 && (thirdLength == 2 || thirdLength == 4);
    }

    bool readMonth(int& month) {
        const std::size_t begin = m_at;
        while (isWordStart(peek(0)))
            ++m_at;
        const std::string_view word = m_text.substr(begin, m_at - begin);
        for (std::size_t i = 0; i < std::size(monthNames); ++i) {
            if (sameWord(word, monthNames[i]) || sameWord(word, monthNames[i].substr(0, 3))) {
                month = int(i) + 1;
                return true;
            }
        }
        return false;
    }

    bool readMonthFirst() { // Nov 21 2026, November 21, 2026
        int year = 0;
        int length = 0;
        if (!readMonth(m_date.month))
            return false;
        skipBlanks();
        if (!number(2, m_date.day))
            return false;
        if (peek(0) == ',')
            ++m_at;
        skipBlanks();
        if (!number(4, year, &length) || (length != 2 && length != 4))
            return false;
        m_date.year = fullYear(year, length);
        return true;
    }

    bool readDayFirst(int day) { // 21 Nov 2026
        int year = 0;
        int length = 0;
        skipBlanks();
        if (!readMonth(m_date.month))
            return false;
        skipBlanks();
        if (!number(4, year, &length) || (length != 2 && length != 4))
            return false;
        m_date.day = day;
        m_date.year = fullYear(year, length);
        return true;
    }

    static int fullYear(int year, int length) {
        if (length > 2)
            return year;
        return year < 50 ? 2000 + year : 1900 + year;
    }

    std::string_view m_text;
    bool m_dayFirst;
    std::size_t m_at = 0;
    base::CalendarDate m_date;
    base::ClockTime m_time;
};

} // namespace

DateReading readDate(std::string_view text, int style, base::DateTime& moment) {
    if (const auto iso = fromIsoText(text)) {
        moment = *iso;
        return base::calendarDate(moment).year < 1753 ? DateReading::OutOfRange : DateReading::Good;
    }
    const bool dayFirst = (style >= 103 && style <= 105) || (style >= 3 && style <= 5);
    return DateReader(text, dayFirst).read(moment);
}

} // namespace engine
