#include "platform/ado/Statement.h"

#include "platform/ado/Quoting.h"
#include "platform/base/Error.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <vector>

namespace ado {
namespace {

/// Where a value stands in the text, and what it was before its lines were kept together.
struct Range {
    qsizetype begin;
    qsizetype end;
    QStringView value;
};

/// The word or sign that the server would stumble over at `at`.
QString tokenAt(const QString& text, qsizetype at) {
    while (at < text.size() && text[at].isSpace())
        ++at;
    qsizetype end = at;
    while (end < text.size() && (text[end].isLetterOrNumber() || text[end] == u'_'))
        ++end;
    if (end == at && end < text.size())
        ++end;
    return text.mid(at, end - at);
}

[[noreturn]] void syntaxError(const QString& text, qsizetype at) {
    throw base::RunTimeError(102, QStringLiteral("Incorrect syntax near '%1'.").arg(tokenAt(text, at)),
                             QStringLiteral("42000"), text);
}

bool isNumber(QStringView value) {
    if (!value.isEmpty() && (value[0] == u'-' || value[0] == u'+'))
        value = value.mid(1);
    bool digitSeen = false;
    bool pointSeen = false;
    for (const QChar c : value) {
        if (c == u'.' && !pointSeen)
            pointSeen = true;
        else if (c >= u'0' && c <= u'9')
            digitSeen = true;
        else
            return false;
    }
    return digitSeen;
}

/// Reads a statement as the server's scanner does and holds each value against the place it was given.
class ReadBack {
  public:
    ReadBack(const QString& text, const std::vector<Range>& values)
        : m_text(text), m_values(values), m_hasBackslash(text.contains(u'\\')) {}

    void check() {
        while (m_at < m_text.size()) {
            enterValues();
            const qsizetype stop = m_next < m_values.size() ? m_values[m_next].begin : m_text.size();
            passOver(stop);
            if (m_at < stop)
                step();
        }
        enterValues();
        if (m_scanner.place() != Place::Code && m_scanner.place() != Place::LineComment)
            syntaxError(m_text, m_text.size());
    }

  private:
    using Place = StatementScanner::Place;

    /// A value is passed over whole, once it is known to stay in its place. One whose first sign ended the
    /// comment before it is looked at all the same.
    void enterValues() {
        while (m_next < m_values.size() && m_values[m_next].begin <= m_at) {
            const Range& range = m_values[m_next++];
            const QStringView value = QStringView(m_text).mid(range.begin, range.end - range.begin);
            if (m_scanner.place() == Place::Literal)
                checkLiteral(value, range);
            else if (m_scanner.place() != Place::Code || !isNumber(value))
                syntaxError(m_text, range.begin);
            m_at = range.end;
        }
    }

    /// The server finds in the literal what was to stand there, no more and no less.
    void checkLiteral(QStringView value, const Range& range) const {
        for (qsizetype i = 0; i < value.size(); ++i) {
            if (value[i] == u'\'')
                syntaxError(m_text, range.begin + i + 1);
            if (value[i].isNull())
                syntaxError(m_text, range.begin + i);
        }
        if (!m_hasBackslash) // then it stands there as it was put there
            return;
        if (withLinesJoined(value) != range.value || cutsBrokenLine(range.begin) || cutsBrokenLine(range.end))
            syntaxError(m_text, range.begin);
    }

    /// What changes nothing, up to the next value at most.
    void passOver(qsizetype stop) {
        const QChar* text = m_text.constData();
        if (m_scanner.place() == Place::Code) {
            while (m_at < stop && !StatementScanner::opens(text[m_at].unicode()))
                ++m_at;
        } else if (m_scanner.place() == Place::Literal) {
            while (m_at < stop && text[m_at] != u'\'')
                ++m_at;
        }
    }

    /// Whether a backslash before `at` would take away what stands behind it.
    bool cutsBrokenLine(qsizetype at) const {
        for (qsizetype before = std::max<qsizetype>(0, at - 2); before < at; ++before) {
            const qsizetype length = brokenLine(m_text, before);
            if (length > 0 && before + length >= at)
                return true;
        }
        return false;
    }

    void step() {
        const char16_t next = m_at + 1 < m_text.size() ? m_text[m_at + 1].unicode() : u'\0';
        m_at += m_scanner.pass(m_text[m_at].unicode(), next);
    }

    const QString& m_text;
    const std::vector<Range>& m_values;
    const bool m_hasBackslash;
    StatementScanner m_scanner;
    qsizetype m_at = 0;
    std::size_t m_next = 0;
};

/// A letter at a time: the pieces between two values are short.
QChar* putLatin1(QChar* to, const char* begin, const char* end) {
    return std::transform(begin, end, to, [](char letter) { return QLatin1Char(letter); });
}

/// Joins a text and remembers where the values went.
class Joiner {
  public:
    /// Room for all that is going to be added.
    void reserve(qsizetype characters, std::size_t values) {
        m_text.reserve(characters);
        m_values.reserve(values);
    }
    template <typename View>
    void addText(View text) {
        m_text += text;
    }
    void addText(const char* begin, const char* end) {
        const qsizetype at = m_text.size();
        m_text.resize(at + (end - begin));
        putLatin1(m_text.data() + at, begin, end);
    }
    void addValue(const QString& value) {
        m_values.push_back({m_text.size(), m_text.size() + value.size(), value});
        m_text += value;
    }
    QString checked() {
        for (qsizetype at = m_text.indexOf(u'\\'); at >= 0; at = m_text.indexOf(u'\\', at + 1)) {
            const qsizetype length = brokenLine(m_text, at);
            if (length > 0 && touchesValue(at, at + length)) {
                keepLine(at, length);
                at += 1 + length;
            }
        }
        ReadBack(m_text, m_values).check();
        return std::move(m_text);
    }

  private:
    bool touchesValue(qsizetype first, qsizetype last) const {
        return std::any_of(m_values.begin(), m_values.end(), [&](const Range& range) {
            return range.begin < range.end && range.begin <= last && range.end > first;
        });
    }

    /// withLinesKept() for the one backslash; what is put in belongs to the value that holds the backslash,
    /// else to the one that begins behind it.
    void keepLine(qsizetype backslash, qsizetype length) {
        const qsizetype at = backslash + 1;
        const qsizetype added = 1 + length;
        m_text.insert(at, m_text.mid(backslash, added));
        bool taken = false;
        for (Range& range : m_values) {
            const bool holds = range.begin < at && range.end >= at;
            const bool begins = !taken && range.begin == at && range.end > at;
            if (holds || begins) {
                range.end += added;
                taken = true;
            } else if (range.begin > at || (taken && range.begin == at)) {
                range.begin += added;
                range.end += added;
            }
        }
    }

    QString m_text;
    std::vector<Range> m_values;
};

/// A pattern does not compile without as many as it has values.
const char* nextHole(const char* pattern) {
    while (pattern[0] != '{' || pattern[1] != '}')
        ++pattern;
    return pattern;
}

/// Whether a scanner that comes to the value leaves it where it came, and as it stands there.
bool isPlainIn(const PatternHole& hole, const QString& value) {
    if (!hole.inLiteral) // a sign before it may be one with the sign before the hole
        return !value.isEmpty() && value[0].isDigit() && isNumber(value);
    return std::none_of(value.begin(), value.end(),
                        [](QChar c) { return c == u'\'' || c == u'\\' || c.isNull(); });
}

} // namespace

Statement joinStatement(const PatternShape& pattern, const QString* values) {
    bool isPlain = pattern.isPlain;
    qsizetype length = pattern.length;
    for (qsizetype i = 0; i < pattern.count; ++i) {
        isPlain = isPlain && isPlainIn(pattern.holes[i], values[i]);
        length += values[i].size() - 2;
    }
    if (!isPlain)
        return joinStatement(pattern.text, values, pattern.count);
    QString text(length, Qt::Uninitialized);
    QChar* to = text.data();
    const char* from = pattern.text;
    for (qsizetype i = 0; i < pattern.count; ++i) {
        const char* hole = pattern.text + pattern.holes[i].at;
        to = putLatin1(to, from, hole);
        to = std::copy(values[i].begin(), values[i].end(), to);
        from = hole + 2;
    }
    putLatin1(to, from, pattern.text + pattern.length);
    return Statement(std::move(text));
}

Statement joinStatement(const char* pattern, const QString* values, qsizetype count) {
    const char* end = pattern + std::strlen(pattern);
    const auto added = [](qsizetype sum, const QString& value) { return sum + value.size(); };
    Joiner joiner;
    joiner.reserve(std::accumulate(values, values + count, qsizetype(end - pattern), added),
                   std::size_t(count));
    for (qsizetype i = 0; i < count; ++i) {
        const char* hole = nextHole(pattern);
        joiner.addText(pattern, hole);
        joiner.addValue(values[i]);
        pattern = hole + 2;
    }
    joiner.addText(pattern, end);
    return Statement(joiner.checked());
}

Statement QueryTemplate::with(std::initializer_list<Replacement> replacements) const {
    std::vector<DefinedValue> values;
    for (const Replacement& replacement : replacements)
        values.push_back({QString::fromLatin1(replacement.placeholder), replacement.value});
    return definedStatement(QString::fromLatin1(m_text), values);
}

Statement definedStatement(const QString& text, const std::vector<DefinedValue>& values) {
    Joiner joiner;
    qsizetype from = 0;
    for (qsizetype at = 0; at < text.size();) {
        const DefinedValue* found = nullptr;
        for (const DefinedValue& value : values) {
            if (QStringView(text).mid(at).startsWith(value.placeholder))
                found = &value;
        }
        if (!found) {
            ++at;
            continue;
        }
        joiner.addText(QStringView(text).mid(from, at - from));
        joiner.addValue(found->value);
        at += found->placeholder.size();
        from = at;
    }
    joiner.addText(QStringView(text).mid(from));
    return Statement(joiner.checked());
}

} // namespace ado
