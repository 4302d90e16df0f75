#pragma once

#include "server/engine/parser/Token.h"

#include <string_view>
#include <vector>

namespace engine {

/// Stands in a text for a value that was taken out of it: this byte, then one that tells the value's type.
inline constexpr char parameterMark = '\x01';

/// Cuts a text into tokens; the last one is End. Comments and blanks are passed over.
class Lexer {
  public:
    /// `withParameters`: the text may hold parameter marks.
    explicit Lexer(std::string_view text, bool withParameters = false)
        : m_text(text), m_withParameters(withParameters) {}

    /// Raises 102, 105 and 113 (a comment without end).
    std::vector<Token> tokens();
    /// After an error: the tokens before it.
    std::vector<Token> takeTokens() { return std::move(m_tokens); }

  private:
    void skipBlanks();
    void skipBlockComment();
    Token next();
    void readWord(Token& token);
    void readNumber(Token& token);
    void readQuoted(Token& token, char end);
    void readSymbol(Token& token);
    SourcePosition position() const;
    char peek(std::size_t ahead = 0) const {
        return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : '\0';
    }
    void advance();

    std::string_view m_text;
    bool m_withParameters;
    std::vector<Token> m_tokens;
    int m_parameters = 0;
    std::size_t m_at = 0;
    int m_line = 1;
    std::size_t m_lineStart = 0;
};

} // namespace engine
