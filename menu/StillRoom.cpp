#include "menu/StillRoom.h"

namespace menu {

QSize StillRoom::sizeHint() const {
    const auto* child = findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    return child ? QSize(0, child->sizeHint().height()) : QSize();
}

void StillRoom::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (auto* child = findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        child->setGeometry(rect());
}

} // namespace menu
