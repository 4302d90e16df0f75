#include "platform/controls/look/EmptyText.h"

#include "platform/controls/look/Look.h"

#include <QPainter>
#include <QString>
#include <QWidget>

namespace controls {

void paintEmptyText(QWidget& viewport, const QString& text) {
    QPainter painter(&viewport);
    painter.setPen(look::muted);
    painter.drawText(viewport.rect().adjusted(8, 0, -8, 0), Qt::AlignCenter | Qt::TextWordWrap, text);
}

} // namespace controls
