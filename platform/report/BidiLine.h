#pragma once

#include <QStringView>
#include <QTextLayout>

class QPainter;

namespace report {

/// True when something in the text runs from right to left. All other text keeps the fast way.
bool runsBothWays(QStringView text);

/// What is taken of a line, from its left end, in the font's unit.
struct Extent {
    double left = 0;
    double width = 0;
};

/// One line of text with parts that run from right to left, shaped and in the order in which it is read.
class BidiLine {
  public:
    /// `rightToLeft`: the paragraph's direction, which places signs without a direction of their own.
    BidiLine(const QString& text, const QFont& font, bool rightToLeft);

    double width() const { return m_line.naturalTextWidth(); }
    /// `baseline`: its left end.
    void draw(QPainter& painter, QPointF baseline) const;
    /// From the leftmost to the rightmost of some signs, counted as they are stored.
    Extent extentOf(qsizetype from, qsizetype count) const;

  private:
    QTextLayout m_layout;
    QTextLine m_line;
};

} // namespace report
