#pragma once

#include <cstddef>
#include <string_view>

struct sqlite3;

namespace engine {

/// The order of texts in a hospital file: that of SQL_Latin1_General_CP1_CI_AS as far as Latin letters go.
/// Neither case nor blanks at the end count; accents do, but only where the letters below them are the same.
/// Signs stand before digits, digits before letters; what is no Latin letter comes behind them by its code.
constexpr std::string_view collationName = "SCINTRA";
/// Behind an expression whose order it shall be.
constexpr const char* textOrder = " COLLATE SCINTRA";
/// From here on a character counts as it is, case included; a file is in the same order whoever made it.
constexpr char32_t beyondLatin = 0x250;

/// Below, at or above 0. UTF-8; a broken sequence counts as one character that is like any other broken one.
int compareTexts(std::string_view first, std::string_view second);
/// Reads the character at `at` and moves behind it. A broken sequence gives U+FFFD.
char32_t readCharacter(std::string_view text, std::size_t& at);
/// The character without its case, below beyondLatin.
char32_t foldedLatin(char32_t character);
/// Makes the order known to a connection to a hospital file; without it nothing there can be compared or
/// checked.
void registerCollation(sqlite3* handle);

} // namespace engine
