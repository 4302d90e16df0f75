#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace engine {

enum class NumberReading { Good, NotANumber, Overflow };

/// Digits with a sign and blanks around; "" is 0.
NumberReading readInteger(std::string_view text, std::int64_t& value);
/// Also thousands commas, a currency sign and a minus behind; "" is 0.
NumberReading readMoney(std::string_view text, double& value);
/// Digits with a point; "" is no decimal.
NumberReading readDecimal(std::string_view text, double& value);
/// Also an exponent; "" is 0.
NumberReading readFloat(std::string_view text, double& value);

/// Halves away from zero, on the decimal digits of the number. Places may be negative.
double roundedTo(double value, int places);
/// A number of a statement, as its lexer lets it through: digits, a point, an exponent. Infinite beyond what
/// a float holds.
double literalNumber(std::string_view text);
/// All digits of a float, so that it reads as the same number.
std::string exactText(double value);
/// "12.50" for two places.
std::string fixedText(double value, int places);
/// Money: two places (0), with thousands commas (1), four places (2).
std::string moneyText(double value, int style);
/// Float: six significant digits (0), sixteen in scientific notation (2).
std::string floatText(double value, int style);

} // namespace engine
