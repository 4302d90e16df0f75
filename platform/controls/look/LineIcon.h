#pragma once

#include <QColor>
#include <QIconEngine>

namespace controls {

/// Draws one line drawing (an SVG that strokes in currentColor) in a colour, sharp at every scale.
class LineIcon : public QIconEngine {
  public:
    LineIcon(const QString& name, QByteArray drawing, const QColor& color);
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;
    /// Of the drawing: "check".
    QString iconName() override { return m_name; }

  private:
    QString m_name;
    QByteArray m_drawing;
    QColor m_color;
};

} // namespace controls
