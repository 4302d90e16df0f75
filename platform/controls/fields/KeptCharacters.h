#pragma once

#include <QString>

namespace controls {

/// What a server keeps of the texts that are sent to it.
enum class KeptCharacters {
    All,
    Western, ///< those of code page 1252: a server with one byte a character
    Ascii    ///< of any other code page only these are sure
};

/// For the whole program, from its log-on on; All before.
void setKeptCharacters(KeptCharacters kept);

/// What would be lost of a text, in words for the one who put it in: "The hospital's server does not keep ≥
/// α: nothing was put in."; "" when all of it is kept. No server keeps a NUL or half of a character.
QString lostCharactersSentence(const QString& text);

} // namespace controls
