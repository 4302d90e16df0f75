#pragma once

#include <QColor>
#include <QIconEngine>
#include <QIconEnginePlugin>
#include <QImageIOPlugin>

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

/// Reads a file of a drawing as an image. The style sheet's icons are the other plug-in's, yet for each part
/// that shows one the tool kit first asks for the size of the image: without this, of all the libraries for
/// images that a system has.
class LineImagePlugin : public QImageIOPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "LineIcon.json")

  public:
    Capabilities capabilities(QIODevice* device, const QByteArray& format) const override;
    QImageIOHandler* create(QIODevice* device, const QByteArray& format = {}) const override;
};

} // namespace controls
