#include "platform/report/layout/FontMeasure.h"

#include "platform/controls/look/OwnFonts.h"

#include <algorithm>

namespace report {

QFont fontOf(const Face& face) {
    static const QStringList paperFonts{QStringLiteral("Noto Sans"), QStringLiteral("Segoe UI"),
                                        QStringLiteral("Arial"), QStringLiteral("DejaVu Sans")};
    controls::look::takeOwnFonts();
    QFont font;
    font.setFamilies(face.family.isEmpty() ? paperFonts : QStringList{face.family} + paperFonts);
    font.setPixelSize(std::max(face.size.hundredths, 1));
    font.setBold(face.bold);
    font.setItalic(face.italic);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(
        QFont::StyleStrategy(QFont::PreferOutline | QFont::PreferNoShaping | QFont::PreferAntialias));
    return font;
}

FontMeasure::FontMeasure(const Face& face) : m_face(face), m_metrics(fontOf(face)) {
    m_ascent = {qint32(std::lround(m_metrics.ascent()))};
    m_lineHeight = {qint32(std::ceil(m_metrics.ascent() + m_metrics.descent()))};
    for (int i = 0; i < 256; ++i)
        m_latin1[std::size_t(i)] = i < 32 ? 0.0 : m_metrics.horizontalAdvance(QChar(i));
}

double FontMeasure::exactWidth(QStringView text) const {
    double width = 0.0;
    for (const QChar c : text) {
        if (c.unicode() > 255) {
            return needsShaping(text) ? ShapedLine(text.toString(), fontOf(m_face), false).width()
                                      : m_metrics.horizontalAdvance(text.toString());
        }
        width += m_latin1[c.unicode()];
    }
    return width;
}

/// How many signs fit, at least one (two where a surrogate pair would be torn).
qsizetype FontMeasure::fitting(QStringView text, double width) const {
    qsizetype low = 1;
    qsizetype high = text.size();
    while (low < high) {
        const qsizetype middle = (low + high + 1) / 2;
        if (exactWidth(text.left(middle)) <= width)
            low = middle;
        else
            high = middle - 1;
    }
    if (low < text.size() && text[low - 1].isHighSurrogate())
        low = low > 1 ? low - 1 : low + 1;
    return low;
}

void FontMeasure::wrapParagraph(QStringView paragraph, double width, QStringList& lines) const {
    // A line's text is bounded before it is measured, or a word without end would be measured to its end each
    // time.
    const qsizetype most =
        std::max<qsizetype>(16, qsizetype(width / std::max(1.0, m_face.size.hundredths / 16.0)));
    while (!paragraph.isEmpty()) {
        const QStringView window = paragraph.left(most);
        qsizetype end = window.size() == paragraph.size() && exactWidth(window) <= width
                            ? window.size()
                            : fitting(window, width);
        if (end < paragraph.size() && !paragraph[end].isSpace()) {
            const qsizetype blank = paragraph.left(end).lastIndexOf(u' ');
            if (blank > 0)
                end = blank;
        }
        lines << paragraph.left(end).toString().trimmed();
        while (end < paragraph.size() && paragraph[end] == u' ')
            ++end;
        paragraph = paragraph.mid(end);
    }
}

QStringList FontMeasure::wrapped(const QString& text, Length width) const {
    QStringList lines;
    QString unified = text;
    unified.replace(QLatin1StringView("\r\n"), QLatin1StringView("\n"))
        .replace(u'\r', u'\n')
        .replace(u'\t', u' ');
    for (const QStringView paragraph : QStringView(unified).split(u'\n')) {
        if (paragraph.trimmed().isEmpty())
            lines << QString();
        else
            wrapParagraph(paragraph, double(width.hundredths), lines);
    }
    while (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

QString FontMeasure::elided(const QString& text, Length width) const {
    if (exactWidth(text) <= width.hundredths)
        return text;
    const QString mark = QStringLiteral("\u2026");
    const double room = width.hundredths - exactWidth(mark);
    return (room <= 0 ? QString() : text.left(fitting(text, room)).trimmed()) + mark;
}

Extent FontMeasure::extentIn(const TextRun& run, qsizetype from, qsizetype count) const {
    if (run.rightToLeft || needsShaping(run.text))
        return ShapedLine(run.text, fontOf(m_face), run.rightToLeft).extentOf(from, count);
    const QStringView text(run.text);
    return {exactWidth(text.left(from)), exactWidth(text.mid(from, count))};
}

const FontMeasure& FontMeasures::of(const Face& face) {
    for (const auto& measure : m_measures) {
        if (measure->face() == face)
            return *measure;
    }
    m_measures.push_back(std::make_unique<FontMeasure>(face));
    return *m_measures.back();
}

} // namespace report
