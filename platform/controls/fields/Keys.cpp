#include "platform/controls/fields/Keys.h"

#include <QKeyEvent>

namespace controls {

bool isEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isEnter(const QKeyEvent& event) {
    return isEnter(event.key());
}

bool isHeldEnter(const QKeyEvent& event) {
    return isEnter(event) && event.isAutoRepeat();
}

bool movesInTable(int key) {
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    default:
        return false;
    }
}

bool typesText(const QKeyEvent& event) {
    if (event.text().isEmpty())
        return false;
    const QChar first = event.text().at(0);
    // The half of a character beyond the first plane counts as unprintable by itself.
    if (!first.isPrint() && !first.isHighSurrogate())
        return false;
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    return control == alt && !event.modifiers().testFlag(Qt::MetaModifier);
}

} // namespace controls
