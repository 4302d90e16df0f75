#pragma once

#include <QStringView>
#include <QTextLayout>

class QPainter;

namespace report {

/// True when signs must be joined, stacked or put in another order before they stand right: scripts that run
/// from right to left, those of India and around, signs that are set over others. All other text keeps the
/// fast way.
bool needsShaping(QStringView text);

/// What is taken of a line, from its left end, in the font's unit.
struct Extent {
    double left = 0;
    double width = 0;
};

/// One line of such text, in the order in which it stands. `font` is taken with shaping, whatever it says.
class ShapedLine {
  public:
    /// `rightToLeft`: the paragraph's direction, which places signs without a direction of their own.
    ShapedLine(const QString& text, const QFont& font, bool rightToLeft);

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
