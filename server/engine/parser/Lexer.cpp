#include "server/engine/parser/Lexer.h"

#include "server/engine/values/Ascii.h"

namespace engine {

std::vector<Token> Lexer::tokens() {
    do {
        m_tokens.push_back(next());
    } while (m_tokens.back().kind != TokenKind::End);
    return std::move(m_tokens);
}

void Lexer::advance() {
    if (m_text[m_at] == '\n') {
        ++m_line;
        m_lineStart = m_at + 1;
    }
    ++m_at;
}

SourcePosition Lexer::position() const {
    return {m_line, int(charactersOf(m_text.substr(m_lineStart, m_at - m_lineStart))) + 1};
}

void Lexer::skipBlanks() {
    while (m_at < m_text.size()) {
        if (isBlank(peek())) {
            advance();
        } else if (peek() == '-' && peek(1) == '-') {
            while (m_at < m_text.size() && peek() != '\n')
                ++m_at;
        } else if (peek() == '/' && peek(1) == '*') {
            skipBlockComment();
        } else {
            return;
        }
    }
}

void Lexer::skipBlockComment() {
    const SourcePosition start = position();
    int depth = 0; // block comments nest on the server
    do {
        if (m_at >= m_text.size())
            throw ScriptError(113, QStringLiteral("Missing end comment mark '*/'."), "42000", start);
        if (peek() == '/' && peek(1) == '*') {
            ++depth;
            m_at += 2;
        } else if (peek() == '*' && peek(1) == '/') {
            --depth;
            m_at += 2;
        } else {
            advance();
        }
    } while (depth > 0);
}

Token Lexer::next() {
    skipBlanks();
    Token token;
    token.position = position();
    token.begin = m_at;
    if (m_at >= m_text.size()) {
        token.end = m_at;
        return token;
    }
    const char c = peek();
    if ((c == 'N' || c == 'n') && peek(1) == '\'') {
        ++m_at;
        readQuoted(token, '\'');
        token.kind = TokenKind::NText;
    } else if (c == '\'') {
        readQuoted(token, '\'');
        token.kind = TokenKind::Text;
    } else if (c == '[' || c == '"') {
        readQuoted(token, c == '[' ? ']' : '"');
        token.kind = TokenKind::QuotedName;
        if (token.text.empty())
            throw ScriptError(1038, QStringLiteral("An object or column name is missing or empty."), "42000",
                              token.position);
    } else if (isWordStart(c) || c == '@') {
        readWord(token);
    } else if (isDigit(c) || (c == '.' && isDigit(peek(1)))) {
        readNumber(token);
    } else if (c == parameterMark && m_withParameters) {
        token.kind = TokenKind::Parameter;
        token.text = peek(1);
        token.parameter = m_parameters++;
        m_at += 2;
    } else {
        readSymbol(token);
    }
    token.end = m_at;
    return token;
}

void Lexer::readWord(Token& token) {
    const std::size_t begin = m_at;
    token.kind = TokenKind::Word;
    if (peek() == '@') {
        token.kind = peek(1) == '@' ? TokenKind::Global : TokenKind::Variable;
        m_at += token.kind == TokenKind::Global ? 2 : 1;
    }
    while (m_at < m_text.size() && isWordPart(peek()))
        ++m_at;
    token.text = m_text.substr(begin, m_at - begin);
    if (token.text == "@" || token.text == "@@")
        throw syntaxError(token.text, token.position);
}

void Lexer::readNumber(Token& token) {
    const std::size_t begin = m_at;
    token.kind = TokenKind::Integer;
    while (isDigit(peek()))
        ++m_at;
    if (peek() == '.') {
        token.kind = TokenKind::Decimal;
        ++m_at;
        while (isDigit(peek()))
            ++m_at;
    }
    if (peek() == 'e' || peek() == 'E') {
        const std::size_t sign = peek(1) == '+' || peek(1) == '-' ? 1 : 0;
        if (isDigit(peek(1 + sign))) {
            token.kind = TokenKind::Float;
            m_at += 1 + sign;
            while (isDigit(peek()))
                ++m_at;
        }
    }
    token.text = m_text.substr(begin, m_at - begin);
    if (isWordStart(peek()) && token.text == "0" && upperOf(peek()) == 'X')
        throw notSupported("0x", token.position);
}

void Lexer::readQuoted(Token& token, char end) {
    ++m_at;
    const std::size_t begin = m_at;
    while (true) {
        if (m_at >= m_text.size())
            throw unclosedQuote(m_text.substr(begin), token.position);
        if (peek() == '\0')
            throw syntaxError("", position());
        if (const std::size_t joined = end == '\'' ? brokenLine(m_text, m_at) : 0) {
            for (std::size_t i = 0; i < joined; ++i)
                advance();
            continue;
        }
        if (peek() == end) {
            if (peek(1) != end)
                break;
            ++m_at;
        }
        token.text += peek();
        advance();
    }
    ++m_at;
}

void Lexer::readSymbol(Token& token) {
    static constexpr std::string_view pairs[] = {"<=", ">=", "<>", "!=", "!<", "!>",
                                                 "+=", "-=", "*=", "/=", "||"};
    const std::string_view pair = m_text.substr(m_at, 2);
    token.kind = TokenKind::Symbol;
    for (const std::string_view known : pairs) {
        if (pair == known) {
            token.text = pair;
            m_at += 2;
            return;
        }
    }
    const char c = peek();
    token.text = c;
    if (std::string_view("(),;.=<>+-*/%&|^~:").find(c) == std::string_view::npos)
        throw syntaxError(token.text, token.position);
    ++m_at;
}

} // namespace engine
