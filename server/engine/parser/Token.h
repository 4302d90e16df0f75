#pragma once

#include "server/engine/errors/ServerError.h"

#include <string>

namespace engine {

enum class TokenKind {
    Word,       ///< a name or a key word
    QuotedName, ///< [name] or "name", never a key word
    Variable,   ///< @name
    Global,     ///< @@name
    Text,       ///< '...'
    NText,      ///< N'...'
    Integer,
    Decimal,
    Float,
    Parameter, ///< the place of a value that was taken out of a text, see StatementKey
    Symbol,
    End
};

struct Token {
    TokenKind kind = TokenKind::End;
    /// The name without brackets, the text without its quotes, the sign itself; "@" stays with a variable.
    std::string text;
    SourcePosition position;
    /// Parameter: its number in the text, from 0.
    int parameter = -1;
    /// Bytes from the start of the text.
    std::size_t begin = 0;
    std::size_t end = 0;
};

} // namespace engine
