#include "platform/report/layout/ShapedLine.h"

#include <QPainter>

#include <algorithm>

namespace report {
namespace {

constexpr double endless = 1e6;
constexpr char16_t firstCombining = 0x0300; // nothing before needs any of it

bool runsRightToLeft(char32_t sign) {
    switch (QChar::direction(sign)) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirAN:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirRLI:
        return true;
    default:
        return false;
    }
}

bool isJoined(char32_t sign) {
    const bool indic = sign >= 0x0900 && sign < 0x10A0; // Devanagari to Myanmar
    const bool khmerOrMongolian = sign >= 0x1780 && sign < 0x18B0;
    return indic || khmerOrMongolian || QChar::isMark(sign);
}

QFont shaping(QFont font) {
    font.setStyleStrategy(QFont::StyleStrategy(font.styleStrategy() & ~QFont::PreferNoShaping));
    return font;
}

} // namespace

bool needsShaping(QStringView text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c.unicode() < firstCombining)
            continue;
        const bool pair = c.isHighSurrogate() && i + 1 < text.size();
        const char32_t sign = pair ? QChar::surrogateToUcs4(c, text[i + 1]) : c.unicode();
        if (runsRightToLeft(sign) || isJoined(sign))
            return true;
    }
    return false;
}

ShapedLine::ShapedLine(const QString& text, const QFont& font, bool rightToLeft)
    : m_layout(text, shaping(font)) {
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    m_layout.setTextOption(option);
    m_layout.beginLayout();
    m_line = m_layout.createLine();
    m_line.setLineWidth(endless);
    m_layout.endLayout();
}

void ShapedLine::draw(QPainter& painter, QPointF baseline) const {
    m_line.draw(&painter, baseline - QPointF(m_line.naturalTextRect().left(), m_line.ascent()));
}

Extent ShapedLine::extentOf(qsizetype from, qsizetype count) const {
    const double left = m_line.naturalTextRect().left();
    double least = endless;
    double most = 0;
    for (qsizetype i = from; i < from + count; ++i) {
        const double begin = m_line.cursorToX(int(i), QTextLine::Leading) - left;
        const double end = m_line.cursorToX(int(i), QTextLine::Trailing) - left;
        least = std::min({least, begin, end});
        most = std::max({most, begin, end});
    }
    return {least, std::max(0.0, most - least)};
}

} // namespace report
