#include "platform/controls/fields/KeptCharacters.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace controls {

namespace {

KeptCharacters kept = KeptCharacters::All;

/// Those that code page 1252 has between its two halves, which are Latin-1's.
constexpr char32_t westernSigns[] = {0x0152, 0x0153, 0x0160, 0x0161, 0x0178, 0x017D, 0x017E, 0x0192, 0x02C6,
                                     0x02DC, 0x2013, 0x2014, 0x2018, 0x2019, 0x201A, 0x201C, 0x201D, 0x201E,
                                     0x2020, 0x2021, 0x2022, 0x2026, 0x2030, 0x2039, 0x203A, 0x20AC, 0x2122};

bool isKept(char32_t c) {
    if (c == 0 || QChar::isSurrogate(c))
        return false;
    if (kept == KeptCharacters::All || c < 0x80)
        return true;
    return kept == KeptCharacters::Western &&
           ((c >= 0xA0 && c <= 0xFF) ||
            std::binary_search(std::begin(westernSigns), std::end(westernSigns), c));
}

QString nameOf(char32_t c) {
    return c == 0 || QChar::isSurrogate(c)
               ? QStringLiteral("U+%1").arg(uint(c), 4, 16, QLatin1Char('0')).toUpper()
               : QString::fromUcs4(&c, 1);
}

/// Surrogates that make a character are joined, others stand for themselves.
QStringList lostCharacters(const QString& text) {
    QStringList lost;
    for (qsizetype at = 0; at < text.size(); ++at) {
        char32_t c = text[at].unicode();
        if (QChar::isHighSurrogate(c) && at + 1 < text.size() && text[at + 1].isLowSurrogate())
            c = QChar::surrogateToUcs4(char16_t(c), text[++at].unicode());
        if (isKept(c))
            continue;
        if (const QString name = nameOf(c); !lost.contains(name))
            lost += name;
    }
    return lost;
}

} // namespace

void setKeptCharacters(KeptCharacters characters) {
    kept = characters;
}

QString lostCharactersSentence(const QString& text) {
    constexpr qsizetype mostNamed = 12;
    const QStringList lost = lostCharacters(text);
    if (lost.isEmpty())
        return {};
    const QString others =
        lost.size() > mostNamed ? QStringLiteral(" and %1 others").arg(lost.size() - mostNamed) : QString();
    return QStringLiteral("The hospital's server does not keep %1%2: nothing was put in.")
        .arg(lost.mid(0, mostNamed).join(QLatin1Char(' ')), others);
}

} // namespace controls
