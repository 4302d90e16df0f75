#include "server/engine/parser/StatementKey.h"

#include "platform/ado/StatementScanner.h"
#include "server/engine/parser/Keywords.h"
#include "server/engine/parser/Lexer.h"
#include "server/engine/values/Ascii.h"

#include <array>
#include <charconv>

namespace engine {

namespace {

/// What means something inside a literal.
constexpr std::array<bool, 256> literalSigns = [] {
    std::array<bool, 256> signs{};
    for (const char sign : {'\'', '\\', '\0'})
        signs[static_cast<unsigned char>(sign)] = true;
    return signs;
}();

} // namespace

/// By the first word behind blanks and comments.
bool StatementKey::takesValues() {
    m_at = 0;
    while (m_at < m_text.size()) {
        if (isBlank(peek()) || peek() == ';')
            ++m_at;
        else if (atComment())
            passOver();
        else
            break;
    }
    std::size_t end = m_at;
    while (end < m_text.size() && isWordPart(m_text[end]))
        ++end;
    const std::string_view word = m_text.substr(m_at, end - m_at);
    m_at = 0;
    for (const std::string_view taker : {"SELECT", "INSERT", "UPDATE", "DELETE"}) {
        if (sameWord(word, taker)) {
            m_isCall = false;
            return true;
        }
    }
    const bool named = word.empty() ? end < m_text.size() && m_text[end] == '['
                                    : isWordStart(word.front()) && !beginsStatement(word);
    m_isCall = named || sameWord(word, "EXEC") || sameWord(word, "EXECUTE");
    return m_isCall;
}

void StatementKey::read(std::string_view text) {
    m_text = text;
    m_at = 0;
    m_before = '\0';
    m_count = 0;
    m_kept = 0;
    m_key.clear();
    if (text.find(parameterMark) != std::string_view::npos || !takesValues()) {
        m_key = text;
        return;
    }
    while (m_at < m_text.size()) {
        const char c = m_text[m_at];
        if ((c == 'N' || c == 'n') && peek(1) == '\'') {
            takeText(true);
        } else if (isWordPart(c) && !isDigit(c) && c != '$') {
            do
                ++m_at;
            while (m_at < m_text.size() && isWordPart(m_text[m_at]));
            m_before = 'a';
        } else if (isBlank(c)) {
            ++m_at;
        } else if (c == '\'') {
            takeText(false);
        } else if (isDigit(c)) {
            takeNumber();
        } else if (atComment()) {
            passOver();
        } else if (c == '[' || c == '"') {
            passOver();
            m_before = ']';
        } else {
            ++m_at;
            m_before = c;
        }
    }
    m_key.append(m_text, m_kept);
}

/// In place of the text from `begin` to here.
Cell& StatementKey::add(std::size_t begin, char mark) {
    m_key.append(m_text, m_kept, begin - m_kept);
    m_kept = m_at;
    m_key += parameterMark;
    m_key += mark;
    m_before = '\'';
    if (std::size_t(m_count) == m_values.size())
        m_values.emplace_back();
    return m_values[std::size_t(m_count++)];
}

void StatementKey::takeText(bool national) {
    const std::size_t begin = m_at;
    m_at += national ? 2 : 1;
    const std::size_t first = m_at;
    // a pattern that begins with % stays in the text: there is nothing that could bound an index
    const bool stays = peek() == '%';
    std::string* value = stays ? nullptr : &add(begin, national ? 'n' : 's').editText();
    if (value)
        value->clear();
    std::size_t from = first;
    bool isBroken = false;
    while (m_at < m_text.size()) {
        if (!literalSigns[static_cast<unsigned char>(m_text[m_at])]) {
            ++m_at;
            continue;
        }
        isBroken = isBroken || m_text[m_at] == '\0';
        if (const std::size_t joined = brokenLine(m_text, m_at)) {
            if (value)
                value->append(m_text.substr(from, m_at - from));
            m_at += joined;
            from = m_at;
            continue;
        }
        if (peek() == '\'') {
            if (peek(1) != '\'')
                break;
            ++m_at;
            if (value)
                value->append(m_text.substr(from, m_at - from));
            from = m_at + 1;
        }
        ++m_at;
    }
    if (m_at >= m_text.size() || isBroken) {
        // broken text: the parser tells about it
        m_count = 0;
        m_key.clear();
        m_kept = 0;
        m_at = m_text.size();
        return;
    }
    if (value)
        value->append(m_text.substr(from, m_at - from));
    ++m_at;
    m_before = '\'';
    if (value)
        m_kept = m_at;
}

void StatementKey::takeNumber() {
    const std::size_t begin = m_at;
    std::size_t places = 0;
    bool point = false;
    while (isDigit(peek()) || (peek() == '.' && !point)) {
        if (point)
            ++places;
        point = point || peek() == '.';
        ++m_at;
    }
    const std::string_view digits = m_text.substr(begin, m_at - begin);
    // elsewhere a number may be a place in ORDER BY, a length, a style
    const bool compared = m_before == '=' || m_before == '<' || m_before == '>' ||
                          (m_isCall && (m_before == ',' || m_before == 'a' || m_before == ']'));
    if (!compared || digits.size() > 9 || places > 9 || isWordPart(peek()) || peek() == '.') {
        m_before = '0';
        return;
    }
    if (point) {
        double value = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), value);
        add(begin, char('0' + places)).setReal(value);
    } else {
        std::int64_t value = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), value);
        add(begin, 'i').setInteger(value);
    }
}

/// A comment or a name in brackets or quotes, which holds no value.
void StatementKey::passOver() {
    ado::StatementScanner scanner;
    do
        m_at += std::size_t(scanner.pass(char16_t(peek()), char16_t(peek(1))));
    while (m_at < m_text.size() && scanner.place() != ado::StatementScanner::Place::Code);
}

} // namespace engine
