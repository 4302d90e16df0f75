#pragma once

#include <QColor>
#include <QIconEngine>

namespace controls {

/// Draws one line drawing (an SVG that strokes in currentColor) in a colour, sharp at every scale.
class LineIcon : public QIconEngine {
  public:
    LineIcon(QByteArray drawing, const QColor& color);
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;

  private:
    QByteArray m_drawing;
    QColor m_color;
};

} // namespace controls
