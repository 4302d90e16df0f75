#include "server/engine/values/DateText.h"

#include <array>
#include <cstdio>

namespace engine {
namespace {

void digits(char*& at, int value, int width) {
    for (int i = width - 1; i >= 0; --i) {
        at[i] = char('0' + value % 10);
        value /= 10;
    }
    at += width;
}

/// A pattern of a style: Y year, y year of two digits, M month, N month's name, D day, d day without a
/// leading 0, H hour, h hour of twelve, m minute, s second, f thousandths, A AM or PM; any other character
/// stands for itself.
struct DateStyle {
    int style;
    const char* pattern;
};

constexpr DateStyle dateStyles[] = {
    {0, "N d Y h:mA"},
    {100, "N d Y h:mA"},
    {1, "M/D/y"},
    {101, "M/D/Y"},
    {2, "y.M.D"},
    {102, "Y.M.D"},
    {3, "D/M/y"},
    {103, "D/M/Y"},
    {4, "D.M.y"},
    {104, "D.M.Y"},
    {5, "D-M-y"},
    {105, "D-M-Y"},
    {6, "D N y"},
    {106, "D N Y"},
    {7, "N D, y"},
    {107, "N D, Y"},
    {8, "H:m:s"},
    {24, "H:m:s"},
    {108, "H:m:s"},
    {9, "N d Y h:m:s:fA"},
    {109, "N d Y h:m:s:fA"},
    {10, "M-D-y"},
    {110, "M-D-Y"},
    {11, "y/M/D"},
    {111, "Y/M/D"},
    {12, "yMD"},
    {112, "YMD"},
    {13, "D N Y H:m:s:f"},
    {113, "D N Y H:m:s:f"},
    {14, "H:m:s:f"},
    {114, "H:m:s:f"},
    {20, "Y-M-D H:m:s"},
    {120, "Y-M-D H:m:s"},
    {21, "Y-M-D H:m:s.f"},
    {25, "Y-M-D H:m:s.f"},
    {121, "Y-M-D H:m:s.f"},
    {22, "M/D/y h:m:s A"},
    {23, "Y-M-D"},
    {126, "Y-M-DTH:m:s.f"},
};

void append(std::string& text, const char* format, int value) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, format, value);
    text += buffer;
}

std::string_view monthShort(int month) {
    static constexpr std::string_view names[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return names[month - 1];
}

} // namespace

void writeIso(base::DateTime moment, std::string& text) {
    const base::CalendarDate date = base::calendarDate(moment);
    const base::ClockTime time = base::clockTime(moment);
    std::array<char, 23> buffer;
    char* at = buffer.data();
    digits(at, date.year, 4);
    *at++ = '-';
    digits(at, date.month, 2);
    *at++ = '-';
    digits(at, date.day, 2);
    *at++ = ' ';
    digits(at, time.hour, 2);
    *at++ = ':';
    digits(at, time.minute, 2);
    *at++ = ':';
    digits(at, time.second, 2);
    *at++ = '.';
    digits(at, time.ms, 3);
    text.assign(buffer.data(), buffer.size());
}

std::string isoText(base::DateTime moment) {
    std::string text;
    writeIso(moment, text);
    return text;
}

std::optional<base::DateTime> fromIsoText(std::string_view text) {
    return base::fromIso(text.data(), qsizetype(text.size()));
}

bool writeDate(base::DateTime moment, int style, std::string& text) {
    const char* pattern = nullptr;
    for (const DateStyle& known : dateStyles) {
        if (known.style == style)
            pattern = known.pattern;
    }
    if (!pattern)
        return false;
    const base::CalendarDate date = base::calendarDate(moment);
    const base::ClockTime time = base::clockTime(moment);
    const bool padded = style == 0 || style == 100 || style == 9 || style == 109; // their hour has two places
    const int twelve = (time.hour + 11) % 12 + 1;
    text.clear();
    for (; *pattern; ++pattern) {
        switch (*pattern) {
        case 'Y':
            append(text, "%04d", date.year);
            break;
        case 'y':
            append(text, "%02d", date.year % 100);
            break;
        case 'M':
            append(text, "%02d", date.month);
            break;
        case 'N':
            text += monthShort(date.month);
            break;
        case 'D':
            append(text, "%02d", date.day);
            break;
        case 'd':
            append(text, "%2d", date.day);
            break;
        case 'H':
            append(text, "%02d", time.hour);
            break;
        case 'h':
            append(text, padded ? "%2d" : "%d", twelve);
            break;
        case 'm':
            append(text, "%02d", time.minute);
            break;
        case 's':
            append(text, "%02d", time.second);
            break;
        case 'f':
            append(text, "%03d", time.ms);
            break;
        case 'A':
            text += time.hour < 12 ? "AM" : "PM";
            break;
        default:
            text += *pattern;
        }
    }
    return true;
}

} // namespace engine
