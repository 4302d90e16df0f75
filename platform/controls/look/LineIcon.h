#pragma once

#include <QColor>
#include <QIconEngine>
#include <QIconEnginePlugin>

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

/// Gives an icon to whoever names a file of a drawing, as the style sheet does.
class LineIconPlugin : public QIconEnginePlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QIconEngineFactoryInterface_iid FILE "LineIcon.json")

  public:
    QIconEngine* create(const QString& file) override;
};

} // namespace controls
