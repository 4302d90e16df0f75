#pragma once

#include "server/engine/parser/Ast.h"
#include "server/engine/parser/Token.h"

#include <optional>
#include <string_view>
#include <vector>

namespace engine {

/// Walks over the tokens of a text. Every member that expects something raises 102 or 156 when it is not
/// there.
class TokenReader {
  public:
    TokenReader(std::string_view text, bool withParameters);

  protected:
    static constexpr int deepest = 120;

    /// Counts how deep the parser stands in a text. Raises 191 when that is too deep.
    class Level {
      public:
        explicit Level(TokenReader& reader);
        ~Level() { --m_reader.m_depth; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

      private:
        TokenReader& m_reader;
    };

    const Token& peek(std::size_t ahead = 0) const;
    const Token& next();
    SourcePosition position() const { return peek().position; }
    std::size_t offset() const { return peek().begin; }
    /// The end of the token read last.
    std::size_t lastEnd() const { return m_at == 0 ? 0 : m_tokens[m_at - 1].end; }
    /// Values were taken out of the text.
    bool withParameters() const { return m_withParameters; }
    std::string_view source() const { return m_text; }

    bool isKind(TokenKind kind, std::size_t ahead = 0) const { return peek(ahead).kind == kind; }
    bool isWord(std::string_view upper, std::size_t ahead = 0) const;
    bool isSymbol(std::string_view symbol, std::size_t ahead = 0) const;
    bool acceptWord(std::string_view upper);
    bool acceptSymbol(std::string_view symbol);
    void expectWord(std::string_view upper);
    void expectSymbol(std::string_view symbol);
    /// Raises what made the lexer stop, when that is why the text ends here.
    void expectEnd() const;
    [[noreturn]] void failHere() const;
    [[noreturn]] void notSupportedHere() const;

    /// A name that is no reserved word, or one in brackets.
    bool isName(std::size_t ahead = 0) const;
    std::string name();
    /// database..name, database.dbo.name, dbo.name, name
    ObjectName objectName();
    int integer();
    SqlType typeName();

  private:
    int typeLength();

    std::string_view m_text;
    bool m_withParameters;
    std::vector<Token> m_tokens;
    std::optional<ScriptError> m_broken;
    std::size_t m_at = 0;
    int m_depth = 0;
};

} // namespace engine
