#include "server/engine/file/SharedTexts.h"

#include <cstddef>
#include <cstring>

namespace engine {
namespace {

QString convertedWhole(std::string_view text) {
    // the conversion takes a mark of byte order at the front for none of the text's own, and a row is found
    // by its text
    const std::string_view mark = "\xEF\xBB\xBF";
    const bool isMarked = text.substr(0, mark.size()) == mark;
    if (isMarked)
        text.remove_prefix(mark.size());
    const QString shown = QString::fromUtf8(text.data(), qsizetype(text.size()));
    return isMarked ? QChar(0xFEFF) + shown : shown;
}

/// Most texts are of letters that need no converting.
QString converted(std::string_view text) {
    unsigned char all = 0;
    for (const char letter : text)
        all |= static_cast<unsigned char>(letter);
    return all < 128 ? QString::fromLatin1(text.data(), qsizetype(text.size())) : convertedWhole(text);
}

/// Soon told, and mostly another one for another text. Texts of one place only push each other out.
std::size_t placeOf(std::string_view text) {
    const auto letter = [text](std::size_t at) { return std::size_t(static_cast<unsigned char>(text[at])); };
    return text.size() + 3 * letter(0) + 29 * letter(text.size() / 2) + 131 * letter(text.size() - 1);
}

} // namespace

QString SharedTexts::shown(std::string_view text) {
    if (text.empty())
        return QStringLiteral("");
    if (text.size() > longestShared)
        return converted(text);
    Text& kept = m_texts[placeOf(text) % m_texts.size()];
    if (kept.size != text.size() || std::memcmp(kept.utf8.data(), text.data(), text.size()) != 0) {
        kept.shown = converted(text);
        kept.size = std::uint8_t(text.size());
        std::memcpy(kept.utf8.data(), text.data(), text.size());
    }
    return kept.shown;
}

} // namespace engine
