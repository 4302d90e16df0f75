#pragma once

#include "platform/report/layout/Page.h"
#include "platform/report/layout/ShapedLine.h"

#include <QFont>
#include <QFontMetricsF>
#include <QStringList>

#include <array>
#include <memory>
#include <vector>

namespace report {

/// The font of a face where one device unit is 1/100 mm. Without kerning and ligatures: widths add up the
/// same on every device, and a PDF's text can be read back sign by sign.
QFont fontOf(const Face& face);

/// Widths of one face in 1/100 mm, the same on screen and on paper.
class FontMeasure {
  public:
    explicit FontMeasure(const Face& face);

    const Face& face() const { return m_face; }
    Length width(QStringView text) const { return {qint32(std::ceil(exactWidth(text)))}; }
    double exactWidth(QStringView text) const;
    Length ascent() const { return m_ascent; }
    Length lineHeight() const { return m_lineHeight; }

    /// Breaks at line ends and at blanks; a word wider than the line is broken where it is full.
    QStringList wrapped(const QString& text, Length width) const;
    /// Where some signs of the run lie, from its left end; counted as they are stored.
    Extent extentIn(const TextRun& run, qsizetype from, qsizetype count) const;
    /// The text, cut with "…" where it is wider.
    QString elided(const QString& text, Length width) const;

  private:
    void wrapParagraph(QStringView paragraph, double width, QStringList& lines) const;
    qsizetype fitting(QStringView text, double width) const;

    Face m_face;
    QFontMetricsF m_metrics;
    Length m_ascent, m_lineHeight;
    std::array<double, 256> m_latin1;
};

/// The measures of the faces in use, made once each.
class FontMeasures {
  public:
    const FontMeasure& of(const Face& face);

  private:
    std::vector<std::unique_ptr<FontMeasure>> m_measures;
};

} // namespace report
