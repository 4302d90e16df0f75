#include "server/engine/values/NumberText.h"

#include "server/engine/values/Ascii.h"

#include <QByteArray>

#include <charconv>
#include <cmath>

namespace engine {
namespace {

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Digits with at most one point, an exponent where it is allowed, the whole text.
bool plainNumber(std::string_view text, bool exponent, double& value) {
    bool digitSeen = false;
    bool pointSeen = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isDigit(text[i])) {
            digitSeen = true;
        } else if (text[i] == '.' && !pointSeen) {
            pointSeen = true;
        } else if (exponent && digitSeen && (text[i] == 'e' || text[i] == 'E')) {
            break; // from_chars reads it to the end or not at all
        } else {
            return false;
        }
    }
    if (!digitSeen)
        return false;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    return read.ec == std::errc() && read.ptr == text.data() + text.size();
}

/// Never by the desk's locale.
std::string written(double value, std::chars_format format, int digits) {
    char buffer[400];
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value, format, digits).ptr};
}

bool takeSign(std::string_view& text) {
    if (text.empty() || (text.front() != '-' && text.front() != '+'))
        return false;
    const bool minus = text.front() == '-';
    text.remove_prefix(1);
    text = trimmed(text);
    return minus;
}

} // namespace

NumberReading readInteger(std::string_view text, std::int64_t& value) {
    std::string_view number = trimmed(text);
    value = 0;
    if (number.empty())
        return NumberReading::Good;
    const bool minus = takeSign(number);
    if (number.empty())
        return NumberReading::NotANumber;
    for (const char c : number) {
        if (!isDigit(c))
            return NumberReading::NotANumber;
    }
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    if (read.ec != std::errc())
        return NumberReading::Overflow;
    if (minus)
        value = -value;
    return NumberReading::Good;
}

NumberReading readMoney(std::string_view text, double& value) {
    std::string number;
    std::string_view rest = trimmed(text);
    value = 0;
    if (rest.empty())
        return NumberReading::Good;
    bool minus = takeSign(rest);
    if (!rest.empty() && rest.front() == '$')
        rest = trimmed(rest.substr(1));
    if (takeSign(rest))
        minus = true;
    for (const char c : rest) {
        if (c != ',')
            number += c;
    }
    if (!plainNumber(number, false, value))
        return NumberReading::NotANumber;
    if (value > 922337203685477.5)
        return NumberReading::Overflow;
    value = roundedTo(minus ? -value : value, 4);
    return NumberReading::Good;
}

NumberReading readDecimal(std::string_view text, double& value) {
    std::string_view number = trimmed(text);
    const bool minus = takeSign(number);
    if (!plainNumber(number, false, value))
        return NumberReading::NotANumber;
    if (minus)
        value = -value;
    return NumberReading::Good;
}

NumberReading readFloat(std::string_view text, double& value) {
    std::string_view number = trimmed(text);
    value = 0;
    if (number.empty())
        return NumberReading::Good;
    const bool minus = takeSign(number);
    if (!plainNumber(number, true, value))
        return NumberReading::NotANumber;
    if (minus)
        value = -value;
    return NumberReading::Good;
}

double literalNumber(std::string_view text) {
    double value = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc::result_out_of_range)
        return QByteArray(text.data(), qsizetype(text.size())).toDouble(); // infinite or 0
    return value;
}

std::string exactText(double value) {
    return written(value, std::chars_format::general, 17);
}

double roundedTo(double value, int places) {
    constexpr double powersOfTen[] = {1, 10, 100, 1'000, 10'000}; // money's places, over and over
    if (!std::isfinite(value) || places > 15)
        return value;
    const double scale =
        std::abs(places) <= 4 ? powersOfTen[std::abs(places)] : std::pow(10.0, std::abs(places));
    if (places < 0) {
        const double scaled = value / scale;
        return std::trunc(scaled + std::copysign(0.5, scaled)) * scale;
    }
    const double scaled = std::abs(value) * scale;
    if (scaled > 9e15)
        return value;
    // 1.005 is held as 1.00499999999999989: the half is looked for in the digits a clerk sees
    double whole = std::floor(scaled);
    if (scaled - whole >= 0.5 - scaled * 4e-16)
        whole += 1;
    return std::copysign(whole / scale, value);
}

std::string fixedText(double value, int places) {
    double rounded = roundedTo(value, places);
    if (rounded == 0)
        rounded = 0; // no "-0.00"
    return written(rounded, std::chars_format::fixed, places);
}

std::string moneyText(double value, int style) {
    std::string text = fixedText(value, style == 2 ? 4 : 2);
    if (style != 1)
        return text;
    const std::size_t first = text.front() == '-' ? 1 : 0;
    for (std::size_t at = text.find('.'); at > first + 3;) {
        at -= 3;
        text.insert(at, ",");
    }
    return text;
}

std::string floatText(double value, int style) {
    if (value == 0)
        return "0";
    if (style == 1 || style == 2)
        return written(value, std::chars_format::scientific, style == 2 ? 15 : 7);
    return written(value, std::chars_format::general, 6);
}

} // namespace engine
