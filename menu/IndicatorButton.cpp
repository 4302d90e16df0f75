#include "menu/IndicatorButton.h"

#include "platform/controls/look/Look.h"

#include <QPainter>

namespace menu {

void IndicatorButton::setBackColor(const QColor& color) {
    if (m_backColor == color)
        return;
    m_backColor = color;
    update();
}

void IndicatorButton::paintEvent(QPaintEvent* event) {
    if (m_backColor.isValid()) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_backColor);
        const int radius = controls::look::scaled(5);
        painter.drawRoundedRect(rect(), radius, radius);
    }
    QToolButton::paintEvent(event);
}

} // namespace menu
