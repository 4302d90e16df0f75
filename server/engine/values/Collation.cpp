#include "server/engine/values/Collation.h"

#include "server/engine/file/Sqlite.h"
#include "server/engine/values/Ascii.h"

#include <QChar>
#include <QString>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace engine {
namespace {

/// What a character weighs: the letter first, its accent where all letters are the same.
struct Weight {
    std::uint32_t letter;
    std::uint16_t accent;
};

constexpr std::uint32_t firstDigit = 0x400;
constexpr std::uint32_t firstLetter = 0x1000;
constexpr std::uint32_t perLetter = 16;
constexpr std::uint32_t otherLatin = 0x2000;

/// Letters of their own right behind another, and one that is an accented one without being written as such.
struct Neighbour {
    char32_t character;
    char letter;
    std::uint8_t place; ///< behind the letter; 0 for an accented one
};
constexpr Neighbour neighbours[] = {{0xC6, 'A', 1},  {0xD0, 'D', 1},  {0x110, 'D', 2}, {0x126, 'H', 1},
                                    {0x131, 'I', 1}, {0x138, 'K', 1}, {0x141, 'L', 1}, {0x14A, 'N', 1},
                                    {0xD8, 'O', 0},  {0x152, 'O', 1}, {0xDF, 'S', 1},  {0x17F, 'S', 2},
                                    {0xDE, 'T', 1},  {0x166, 'T', 2}};

constexpr std::uint32_t letterWeight(char32_t letter) {
    return firstLetter + std::uint32_t(letter - 'A') * perLetter;
}

constexpr bool isLetter(char32_t character) {
    return character >= 'A' && character <= 'Z';
}

/// Of a character below 128 without its case, which has no accent.
constexpr std::uint32_t plainWeight(char32_t character) {
    if (character >= '0' && character <= '9')
        return firstDigit + std::uint32_t(character - '0');
    return isLetter(character) ? letterWeight(character) : std::uint32_t(character);
}

/// Most comparisons are of these only.
constexpr std::size_t plainCount = 128;
constexpr auto plainWeights = [] {
    std::array<std::uint32_t, plainCount> weights{};
    for (std::size_t character = 0; character < plainCount; ++character)
        weights[character] = plainWeight(char32_t(upperOf(char(character))));
    return weights;
}();

/// The letter below its accents, of which there may be more than one.
char32_t bareLetter(char32_t character) {
    while (QChar::decompositionTag(character) == QChar::Canonical) {
        const QString parts = QChar::decomposition(character);
        if (parts.isEmpty() || parts[0].isSurrogate())
            break;
        character = parts[0].unicode();
    }
    return character;
}

char32_t withoutCase(char32_t character) {
    if (character == 0xB5 || character == 0x131 ||
        character == 0x17F) // as capitals they would be other letters
        return character;
    const char32_t upper = QChar::toUpper(character);
    return upper < beyondLatin ? upper : character;
}

Weight weightOf(char32_t character) {
    if (character < plainCount)
        return {plainWeight(character), 0};
    for (const Neighbour& neighbour : neighbours) {
        if (neighbour.character == character)
            return {letterWeight(char32_t(neighbour.letter)) + neighbour.place,
                    std::uint16_t(neighbour.place > 0 ? 0 : character)};
    }
    if (const char32_t bare = bareLetter(character); isLetter(bare))
        return {letterWeight(bare), std::uint16_t(character)};
    const bool sign = character < 0xC0 || character == 0xD7 || character == 0xF7;
    return {sign ? std::uint32_t(character) : otherLatin + std::uint32_t(character), 0};
}

struct Tables {
    Tables() {
        for (char32_t character = 0; character < beyondLatin; ++character) {
            folded[character] = std::uint16_t(withoutCase(character));
            weights[character] = weightOf(folded[character]);
        }
    }
    std::array<std::uint16_t, beyondLatin> folded;
    std::array<Weight, beyondLatin> weights;
};

const Tables& tables() {
    static const Tables made;
    return made;
}

std::string_view withoutBlanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

/// Of what both begin with, up to the first letter beyond ASCII: it decides nothing, and most comparisons of
/// an index are over behind it.
std::size_t commonBytes(std::string_view first, std::string_view second) {
    const std::size_t least = std::min(first.size(), second.size());
    std::size_t at = 0;
    for (std::uint64_t one = 0, other = 0; at + sizeof one <= least; at += sizeof one) {
        std::memcpy(&one, first.data() + at, sizeof one);
        std::memcpy(&other, second.data() + at, sizeof other);
        if (one != other || (one & 0x8080808080808080U) != 0)
            break;
    }
    while (at < least && first[at] == second[at] && static_cast<unsigned char>(first[at]) < 0x80)
        ++at;
    return at;
}

int callback(void*, int firstSize, const void* first, int secondSize, const void* second) {
    return compareTexts({static_cast<const char*>(first), std::size_t(firstSize)},
                        {static_cast<const char*>(second), std::size_t(secondSize)});
}

} // namespace

char32_t readCharacter(std::string_view text, std::size_t& at) {
    const auto first = static_cast<unsigned char>(text[at++]);
    if (first < 0x80)
        return first;
    const int following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
    char32_t value = first & (0x3F >> following);
    for (int i = 0; i < following; ++i) {
        if (at >= text.size() || (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80)
            return 0xFFFD;
        value = (value << 6) | (static_cast<unsigned char>(text[at++]) & 0x3F);
    }
    return value;
}

char32_t foldedLatin(char32_t character) {
    return tables().folded[character];
}

int compareTexts(std::string_view first, std::string_view second) {
    first = withoutBlanks(first);
    second = withoutBlanks(second);
    const std::size_t begun = commonBytes(first, second);
    if (begun == first.size() && begun == second.size())
        return 0;
    const auto weightAt = [](std::string_view text, std::size_t& at) {
        if (const auto byte = static_cast<unsigned char>(text[at]); byte < plainCount) {
            ++at;
            return Weight{plainWeights[byte], 0};
        }
        const char32_t character = readCharacter(text, at);
        return character < beyondLatin
                   ? tables().weights[character]
                   : Weight{std::uint32_t(beyondLatin << 8) + std::uint32_t(character), 0};
    };
    int accents = 0;
    std::size_t firstAt = begun;
    std::size_t secondAt = begun;
    while (firstAt < first.size() && secondAt < second.size()) {
        if (first[firstAt] == second[secondAt] && static_cast<unsigned char>(first[firstAt]) < 0x80) {
            ++firstAt;
            ++secondAt;
            continue;
        }
        const Weight left = weightAt(first, firstAt);
        const Weight right = weightAt(second, secondAt);
        if (left.letter != right.letter)
            return left.letter < right.letter ? -1 : 1;
        if (accents == 0)
            accents = int(left.accent) - int(right.accent);
    }
    if (firstAt < first.size() || secondAt < second.size())
        return firstAt < first.size() ? 1 : -1;
    return accents;
}

void registerCollation(sqlite3* handle) {
    sqlite3_create_collation_v2(handle, collationName.data(), SQLITE_UTF8, nullptr, callback, nullptr);
}

} // namespace engine
