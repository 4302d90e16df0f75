#include "server/engine/parser/TokenReader.h"

#include "server/engine/parser/Keywords.h"
#include "server/engine/parser/Lexer.h"
#include "server/engine/values/Ascii.h"

#include <charconv>

namespace engine {

TokenReader::TokenReader(std::string_view text, bool withParameters)
    : m_text(text), m_withParameters(withParameters) {
    // What stands before a broken token is read first: an error there is the one that counts.
    Lexer lexer(text, withParameters);
    try {
        m_tokens = lexer.tokens();
    } catch (const ScriptError& error) {
        m_broken = error;
        m_tokens = lexer.takeTokens();
        Token end;
        end.position = error.position();
        end.begin = end.end = text.size();
        m_tokens.push_back(end);
    }
}

TokenReader::Level::Level(TokenReader& reader) : m_reader(reader) {
    if (reader.m_depth >= deepest)
        throw nestedTooDeeply(reader.position());
    ++reader.m_depth;
}

const Token& TokenReader::peek(std::size_t ahead) const {
    return m_at + ahead < m_tokens.size() ? m_tokens[m_at + ahead] : m_tokens.back();
}

const Token& TokenReader::next() {
    const Token& token = peek();
    if (m_at + 1 < m_tokens.size())
        ++m_at;
    return token;
}

bool TokenReader::isWord(std::string_view upper, std::size_t ahead) const {
    const Token& token = peek(ahead);
    return token.kind == TokenKind::Word && sameWord(token.text, upper);
}

bool TokenReader::isSymbol(std::string_view symbol, std::size_t ahead) const {
    const Token& token = peek(ahead);
    return token.kind == TokenKind::Symbol && token.text == symbol;
}

bool TokenReader::acceptWord(std::string_view upper) {
    if (!isWord(upper))
        return false;
    next();
    return true;
}

bool TokenReader::acceptSymbol(std::string_view symbol) {
    if (!isSymbol(symbol))
        return false;
    next();
    return true;
}

void TokenReader::expectWord(std::string_view upper) {
    if (!acceptWord(upper))
        failHere();
}

void TokenReader::expectSymbol(std::string_view symbol) {
    if (!acceptSymbol(symbol))
        failHere();
}

void TokenReader::expectEnd() const {
    if (m_broken && isKind(TokenKind::End))
        throw ScriptError(*m_broken);
    if (!isKind(TokenKind::End))
        failHere();
}

void TokenReader::failHere() const {
    if (m_broken && isKind(TokenKind::End))
        throw ScriptError(*m_broken);
    // At the end the server names the last token that it read.
    const Token& token = isKind(TokenKind::End) && m_at > 0 ? m_tokens[m_at - 1] : peek();
    throw syntaxError(token.text, token.position);
}

void TokenReader::notSupportedHere() const {
    throw notSupported(peek().text, position());
}

bool TokenReader::isName(std::size_t ahead) const {
    const Token& token = peek(ahead);
    return token.kind == TokenKind::QuotedName || (token.kind == TokenKind::Word && !isReserved(token.text));
}

std::string TokenReader::name() {
    if (!isName())
        failHere();
    return next().text;
}

ObjectName TokenReader::objectName() {
    ObjectName result;
    result.position = position();
    std::vector<std::string> parts{name()};
    while (acceptSymbol(".")) {
        if (parts.size() == 3)
            throw notSupported("linked server", result.position);
        if (parts.size() == 1 && isSymbol("."))
            parts.emplace_back();
        else
            parts.push_back(name());
    }
    result.name = parts.back();
    if (parts.size() > 1) {
        const std::string& schema = parts[parts.size() - 2];
        if (!schema.empty() && !sameWord(schema, "DBO"))
            throw notSupported(schema + "." + result.name, result.position);
        if (parts.size() == 3)
            result.database = parts.front();
        else if (schema.empty())
            failHere();
    }
    return result;
}

int TokenReader::integer() {
    if (!isKind(TokenKind::Integer))
        failHere();
    const std::string& text = peek().text;
    int value = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc())
        failHere();
    next();
    return value;
}

int TokenReader::typeLength() {
    if (acceptWord("MAX"))
        return -1;
    const int length = integer();
    if (length == 0)
        throw ScriptError(1001, QStringLiteral("Length or precision specification 0 is invalid."), "42000",
                          position());
    return length;
}

SqlType TokenReader::typeName() {
    if (!isKind(TokenKind::Word) && !isKind(TokenKind::QuotedName))
        failHere();
    SqlType type;
    const Token token = next();
    if (!typeFromWord(token.text, type)) {
        static constexpr std::string_view known[] = {
            "TIME",  "UNIQUEIDENTIFIER", "VARBINARY", "BINARY",     "IMAGE", "XML", "CURSOR",
            "TABLE", "DATETIMEOFFSET",   "TIMESTAMP", "SQL_VARIANT"};
        for (const std::string_view word : known) {
            if (sameWord(token.text, word))
                throw notSupported(token.text, token.position);
        }
        throw ScriptError(2715, QStringLiteral("Cannot find data type %1.").arg(toQString(token.text)),
                          "42000", token.position);
    }
    if (!acceptSymbol("("))
        return type;
    if (isText(type) && type.kind != TypeKind::Text) {
        type.length = typeLength();
    } else if (type.kind == TypeKind::Decimal) {
        integer();
        if (acceptSymbol(","))
            type.scale = integer();
    } else if (type.kind == TypeKind::Float || type.kind == TypeKind::DateTime) {
        integer();
    } else {
        failHere();
    }
    expectSymbol(")");
    return type;
}

} // namespace engine
