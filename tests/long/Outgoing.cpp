#include "tests/long/Outgoing.h"

#include "platform/ado/Quoting.h"

#include <algorithm>

namespace attacks {

namespace {

/// Where the construct that begins at `at` ends; `end` may be doubled inside of it where that is told.
qsizetype endOf(const QString& text, qsizetype at, QChar end, bool doubled, bool& whole) {
    for (++at; at < text.size(); ++at) {
        if (text[at] != end)
            continue;
        if (!doubled || at + 1 >= text.size() || text[at + 1] != end)
            return at + 1;
        ++at;
    }
    whole = false;
    return text.size();
}

/// Where the comment that begins at `at` ends: a line's with the line, a block behind all that it holds. `at`
/// where none begins.
qsizetype endOfComment(const QString& text, qsizetype at, bool& whole) {
    const auto is = [&](qsizetype place, const char* sign) {
        return QStringView(text).mid(place, 2) == QLatin1String(sign);
    };
    if (is(at, "--")) {
        const qsizetype end = text.indexOf(u'\n', at);
        return end < 0 ? text.size() : end;
    }
    if (!is(at, "/*"))
        return at;
    int open = 0;
    while (at < text.size()) {
        const int change = is(at, "/*") ? 1 : is(at, "*/") ? -1 : 0;
        at += change == 0 ? 1 : 2;
        open += change;
        if (open == 0)
            return at;
    }
    whole = false;
    return at;
}

/// Blanks, quotes of every kind and line breaks do not count, nor the case: fields and procedures are free
/// to trim, to turn a quote into a back-quote and a percent sign into a single wildcard, to write capitals.
/// Nor does half a character, which no field takes.
QString bare(const QString& text) {
    QString left;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar c = text[at];
        const bool isHalf =
            (c.isHighSurrogate() && (at + 1 == text.size() || !text[at + 1].isLowSurrogate())) ||
            (c.isLowSurrogate() && (at == 0 || !text[at - 1].isHighSurrogate()));
        if (!c.isSpace() && !c.isNull() && !isHalf &&
            !QStringLiteral("'`\u00B4\u02BC\u2018\u2019\uFF07\uFEFF").contains(c))
            left += c == u'%' ? QChar(u'_') : c.toUpper();
    }
    return left;
}

/// The value stands in the literal as far as its field took it.
bool isKept(const QString& literal, const QString& value) {
    const QString found = bare(literal);
    const QString given = bare(value);
    const qsizetype at = found.indexOf(marker);
    if (at < 0)
        return true;
    const auto [end, rest] =
        std::mismatch(found.begin() + at, found.end(), given.begin() + given.indexOf(marker), given.end());
    // cut by the field's width, or followed by what the screen adds
    return end == found.end() || rest == given.end() || *end == u'_' || *end == u'|' || *end == u',';
}

} // namespace

Outgoing Outgoing::of(const QString& text) {
    Outgoing result;
    result.whole = true;
    for (qsizetype at = 0; at < text.size();) {
        const QChar c = text[at];
        if (c == u'\'') {
            const qsizetype end = endOf(text, at, c, true, result.whole);
            result.literals += ado::withLinesJoined(QStringView(text).mid(at + 1, end - at - 2))
                                   .replace(QStringLiteral("''"), QStringLiteral("'"));
            result.code += QStringLiteral("''");
            at = end;
        } else if (c == u'[' || c == u'"') {
            const qsizetype end = endOf(text, at, c == u'[' ? u']' : c, true, result.whole);
            result.code += QStringView(text).mid(at, end - at);
            at = end;
        } else {
            const qsizetype end = std::max(at + 1, endOfComment(text, at, result.whole));
            result.code += QStringView(text).mid(at, end - at);
            at = end;
        }
    }
    return result;
}

QString wrongIn(const QString& text, const QString& value) {
    const Outgoing outgoing = Outgoing::of(text);
    if (!outgoing.whole)
        return QStringLiteral("it ends inside a literal or name");
    for (const char* sign : {";", "--", "/*", "ZQXJ", "DROPZ"}) {
        if (outgoing.code.contains(QLatin1String(sign), Qt::CaseInsensitive))
            return QStringLiteral("outside of every literal stands ") + QLatin1String(sign);
    }
    if (std::any_of(outgoing.code.begin(), outgoing.code.end(), [](QChar c) { return c.unicode() > 0x7E; }))
        return QStringLiteral("outside of every literal stands a letter that is none of ours");
    for (const QString& literal : outgoing.literals) {
        if (!isKept(literal, value))
            return QStringLiteral("this is not what was typed: ") + literal;
    }
    return {};
}

} // namespace attacks
