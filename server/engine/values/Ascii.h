#pragma once

#include <array>
#include <string>
#include <string_view>

namespace engine {

constexpr char upperOf(char c) {
    return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
}
constexpr bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
/// Bytes above 127 belong to letters such as Ñ.
constexpr bool isWordStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '#' ||
           static_cast<unsigned char>(c) >= 128;
}
inline constexpr std::array<bool, 256> wordParts = [] {
    std::array<bool, 256> parts{};
    for (int byte = 0; byte < 256; ++byte) {
        const char c = char(byte);
        parts[std::size_t(byte)] = isWordStart(c) || isDigit(c) || c == '$' || c == '@';
    }
    return parts;
}();
constexpr bool isWordPart(char c) {
    return wordParts[static_cast<unsigned char>(c)];
}

/// Bytes of a backslash at `at` and the line break (LF or CRLF) right behind it, which a literal loses; else
/// 0.
constexpr std::size_t brokenLine(std::string_view text, std::size_t at) {
    if (text[at] != '\\')
        return 0;
    const std::string_view behind = text.substr(at + 1, 2);
    return behind == "\r\n" ? 3 : !behind.empty() && behind.front() == '\n' ? 2 : 0;
}

/// Equal but for case. `word` and `other` in UTF-8; only A to Z have case here, as in the hospital file's
/// names.
constexpr bool sameWord(std::string_view word, std::string_view other) {
    if (word.size() != other.size())
        return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (upperOf(word[i]) != upperOf(other[i]))
            return false;
    }
    return true;
}

inline std::string upperText(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        c = upperOf(c);
    return upper;
}

/// Bytes of the first `characters` characters.
constexpr std::size_t bytesOf(std::string_view text, std::size_t characters) {
    std::size_t at = 0;
    while (at < text.size()) {
        if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80) {
            if (characters == 0)
                return at;
            --characters;
        }
        ++at;
    }
    return at;
}

constexpr std::size_t charactersOf(std::string_view text) {
    std::size_t count = 0;
    for (const char c : text)
        count += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    return count;
}

} // namespace engine
