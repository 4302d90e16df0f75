#include "menu/ClickLabel.h"

#include "platform/controls/fields/Keys.h"
#include "platform/controls/look/Look.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace menu {

ClickLabel::ClickLabel(QWidget* parent) : QLabel(parent) {
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT Click();
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
    if (controls::isEnter(*event) || event->key() == Qt::Key_Space)
        Q_EMIT Click();
    else
        QLabel::keyPressEvent(event);
}

void ClickLabel::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(QPen(controls::look::accent, 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

} // namespace menu
