#include "server/engine/parser/StatementKey.h"

#include "server/engine/parser/Keywords.h"
#include "server/engine/parser/Lexer.h"
#include "server/engine/values/Ascii.h"

#include <charconv>

namespace engine {

/// By the first word behind blanks and comments.
bool StatementKey::takesValues() {
    m_at = 0;
    while (m_at < m_text.size()) {
        if (isBlank(peek()) || peek() == ';')
            ++m_at;
        else if (atComment())
            passComment();
        else
            break;
    }
    std::size_t end = m_at;
    while (end < m_text.size() && isWordPart(m_text[end]))
        ++end;
    const std::string_view word = m_text.substr(m_at, end - m_at);
    const bool named =
        peek() == '[' || (!word.empty() && isWordStart(word.front()) && !beginsStatement(word));
    m_isCall = named || sameWord(word, "EXEC") || sameWord(word, "EXECUTE");
    m_at = 0;
    return m_isCall || sameWord(word, "SELECT") || sameWord(word, "INSERT") || sameWord(word, "UPDATE") ||
           sameWord(word, "DELETE");
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
        const char c = peek();
        if (c == '\'') {
            takeText(false);
        } else if ((c == 'N' || c == 'n') && peek(1) == '\'') {
            takeText(true);
        } else if (isWordStart(c) || c == '@') {
            do
                ++m_at;
            while (m_at < m_text.size() && isWordPart(m_text[m_at]));
            m_before = 'a';
        } else if (isDigit(c)) {
            takeNumber();
        } else if (atComment()) {
            passComment();
        } else if (c == '[' || c == '"') {
            passQuotedName(c == '[' ? ']' : '"');
        } else {
            ++m_at;
            if (!isBlank(c))
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
    while (m_at < m_text.size()) {
        if (m_text[m_at] != '\'' && m_text[m_at] != '\\') {
            ++m_at;
            continue;
        }
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
    if (m_at >= m_text.size() || m_text.substr(first, m_at - first).find('\0') != std::string_view::npos) {
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

void StatementKey::passComment() {
    const bool line = peek() == '-';
    int depth = 0;
    do {
        if (line) {
            if (peek() == '\n')
                break;
            ++m_at;
        } else if (peek() == '/' && peek(1) == '*') {
            ++depth;
            m_at += 2;
        } else if (peek() == '*' && peek(1) == '/') {
            --depth;
            m_at += 2;
        } else {
            ++m_at;
        }
    } while (m_at < m_text.size() && (line || depth > 0));
}

void StatementKey::passQuotedName(char end) {
    ++m_at;
    while (m_at < m_text.size()) {
        if (peek() == end) {
            if (peek(1) != end)
                break;
            ++m_at;
        }
        ++m_at;
    }
    if (m_at < m_text.size())
        ++m_at;
    m_before = ']';
}

} // namespace engine
