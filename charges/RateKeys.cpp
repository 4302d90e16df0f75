#include "charges/RateKeys.h"

#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/fields/Keys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

namespace charges {

void RateKeys::attach(QLineEdit* box) {
    controls::setKeyRules(box, controls::KeyRule::Rate);
    // In front of the rules, which would only drop the key.
    box->installEventFilter(new RateKeys(box));
}

RateKeys::RateKeys(QLineEdit* box) : QObject(box), m_box(box) {}

bool RateKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (!controls::typesText(key) || controls::filtered(key.text(), controls::KeyRule::Rate) == key.text())
        return false;
    QKeyEvent backspace(QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier, QStringLiteral("\b"),
                        key.isAutoRepeat());
    QCoreApplication::sendEvent(m_box, &backspace);
    return true;
}

} // namespace charges
