#include "platform/controls/look/LineIcon.h"

#include "platform/controls/look/LineDrawing.h"
#include "platform/controls/look/Look.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPixmapCache>

namespace controls {

namespace {

const QByteArray fileFormat("drawing");
constexpr QSize drawnSize(24, 24);

QByteArray readDrawing(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class LineImage : public QImageIOHandler {
  public:
    bool canRead() const override { return true; }
    bool supportsOption(ImageOption option) const override { return option == Size; }
    QVariant option(ImageOption option) const override { return option == Size ? drawnSize : QVariant(); }
    bool read(QImage* image) override {
        *image = QImage(drawnSize, QImage::Format_ARGB32_Premultiplied);
        image->fill(Qt::transparent);
        QPainter painter(image);
        return paintDrawing(painter, image->rect(), device()->readAll(), look::accent);
    }
};

} // namespace

LineIcon::LineIcon(const QString& name, QByteArray drawing, const QColor& color)
    : m_name(name), m_drawing(std::move(drawing)), m_color(color) {}

void LineIcon::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) {
    const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
    painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
}

QPixmap LineIcon::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) {
    const QColor color = mode == QIcon::Disabled ? look::fieldLine : m_color;
    const QString key = QStringLiteral("line %1 %2 %3x%4")
                            .arg(qHash(m_drawing))
                            .arg(color.rgba())
                            .arg(size.width())
                            .arg(size.height());
    QPixmap picture;
    if (QPixmapCache::find(key, &picture))
        return picture;
    picture = QPixmap(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paintDrawing(painter, QRectF(QPointF(), QSizeF(size)), m_drawing, color);
    painter.end();
    QPixmapCache::insert(key, picture);
    return picture;
}

QIconEngine* LineIcon::clone() const {
    return new LineIcon(m_name, m_drawing, m_color);
}

QIconEngine* LineIconPlugin::create(const QString& file) {
    return new LineIcon(QFileInfo(file).baseName(), readDrawing(file), look::accent);
}

QImageIOPlugin::Capabilities LineImagePlugin::capabilities(QIODevice*, const QByteArray& format) const {
    return format == fileFormat ? CanRead : Capabilities();
}

QImageIOHandler* LineImagePlugin::create(QIODevice* device, const QByteArray& format) const {
    auto* image = new LineImage;
    image->setDevice(device);
    image->setFormat(format);
    return image;
}

QIcon look::icon(const QString& name, const QColor& color) {
    QByteArray drawing = readDrawing(QStringLiteral(":/scintra/icons/%1.drawing").arg(name));
    return drawing.isEmpty() ? QIcon() : QIcon(new LineIcon(name, std::move(drawing), color));
}

} // namespace controls
