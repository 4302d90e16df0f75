#include "server/engine/values/Like.h"

#include "server/engine/values/Ascii.h"
#include "server/engine/values/Collation.h"

#include <QChar>

#include <algorithm>

namespace engine {
namespace {

/// Reads the character at `at` without its case, and moves behind it.
char32_t nextCharacter(std::string_view text, std::size_t& at) {
    const char32_t character = readCharacter(text, at);
    if (character < beyondLatin)
        return foldedLatin(character);
    const char32_t upper = QChar::toUpper(character);
    return upper < beyondLatin ? character : upper;
}

/// Matches a set whose "[" was read; moves behind its "]".
bool matchesSet(std::string_view pattern, std::size_t& at, char32_t character) {
    bool negated = false;
    bool found = false;
    if (at < pattern.size() && pattern[at] == '^') {
        negated = true;
        ++at;
    }
    const std::size_t first = at;
    while (at < pattern.size() && (pattern[at] != ']' || at == first)) {
        const char32_t low = nextCharacter(pattern, at);
        char32_t high = low;
        if (at + 1 < pattern.size() && pattern[at] == '-' && pattern[at + 1] != ']') {
            ++at;
            high = nextCharacter(pattern, at);
        }
        found = found || (character >= low && character <= high);
    }
    if (at < pattern.size())
        ++at;
    return found != negated;
}

/// Of the plain letters that both begin with; most patterns are some of these and a % behind them.
std::size_t commonStart(std::string_view text, std::string_view pattern) {
    const auto isPlain = [](char c) {
        return static_cast<unsigned char>(c) < 0x80 && c != '%' && c != '_' && c != '[';
    };
    const std::size_t least = std::min(text.size(), pattern.size());
    std::size_t at = 0;
    while (at < least && isPlain(pattern[at]) && upperOf(text[at]) == upperOf(pattern[at]))
        ++at;
    return at;
}

} // namespace

bool matchesLike(std::string_view text, std::string_view pattern) {
    std::size_t textAt = commonStart(text, pattern);
    std::size_t patternAt = textAt;
    // where to go on when the text behind the last % does not fit
    std::size_t retryText = std::string_view::npos;
    std::size_t retryPattern = 0;
    while (true) {
        if (patternAt < pattern.size() && pattern[patternAt] == '%') {
            retryPattern = ++patternAt;
            if (patternAt == pattern.size())
                return true;
            retryText = textAt;
            continue;
        }
        bool matched = false;
        if (textAt < text.size() && patternAt < pattern.size()) {
            const char32_t character = nextCharacter(text, textAt);
            if (pattern[patternAt] == '_') {
                ++patternAt;
                matched = true;
            } else if (pattern[patternAt] == '[') {
                ++patternAt;
                matched = matchesSet(pattern, patternAt, character);
            } else {
                matched = nextCharacter(pattern, patternAt) == character;
            }
        } else if (patternAt >= pattern.size()) {
            // blanks at the end of the text do not count
            std::size_t rest = textAt;
            while (rest < text.size() && text[rest] == ' ')
                ++rest;
            if (rest == text.size())
                return true;
        }
        if (matched)
            continue;
        if (retryText == std::string_view::npos || retryText >= text.size())
            return false;
        nextCharacter(text, retryText);
        textAt = retryText;
        patternAt = retryPattern;
    }
}

std::string likePrefix(std::string_view pattern, bool latin) {
    std::size_t length = 0;
    while (length < pattern.size() &&
           std::string_view("%_[").find(pattern[length]) == std::string_view::npos) {
        std::size_t next = length;
        if (readCharacter(pattern, next) >= (latin ? beyondLatin : 0x80))
            break;
        length = next;
    }
    return std::string(pattern.substr(0, length));
}

} // namespace engine
