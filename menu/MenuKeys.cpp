#include "menu/MenuKeys.h"

#include <QAbstractButton>
#include <QKeyEvent>

#include <algorithm>

namespace menu {

namespace {

constexpr int columns = 2;

int indexOf(const MenuKeys::Buttons& buttons, const QAbstractButton* button) {
    const auto found = std::ranges::find(buttons, button);
    return found == buttons.end() ? -1 : int(found - buttons.begin());
}

bool focus(const MenuKeys::Buttons& buttons, int index) {
    if (index < 0 || index >= int(buttons.size()))
        return false;
    QAbstractButton* button = buttons[std::size_t(index)];
    if (!button->isVisible() || !button->isEnabled())
        return false;
    button->setFocus(Qt::TabFocusReason);
    return true;
}

/// The letter behind the caption's "&"; null without one.
QChar mnemonicOf(const QAbstractButton* button) {
    const QString text = button->text();
    const qsizetype mark = text.indexOf(u'&');
    return mark < 0 || mark + 1 >= text.size() ? QChar() : text.at(mark + 1).toUpper();
}

} // namespace

MenuKeys::MenuKeys(Buttons mainButtons, Buttons subMenu, Buttons outPatientChoice, QObject* parent)
    : QObject(parent)
    , m_mainButtons(std::move(mainButtons))
    , m_subMenu(std::move(subMenu))
    , m_outPatientChoice(std::move(outPatientChoice)) {
    for (const Buttons* buttons : {&m_mainButtons, &m_subMenu, &m_outPatientChoice}) {
        for (QAbstractButton* button : *buttons)
            button->installEventFilter(this);
    }
}

const MenuKeys::Buttons& MenuKeys::commands() const {
    return m_outPatientChoice.front()->isVisible() ? m_outPatientChoice : m_subMenu;
}

bool MenuKeys::press(int key) {
    if (key >= Qt::Key_1 && key <= Qt::Key_9) {
        const std::size_t index = std::size_t(key - Qt::Key_1);
        if (index >= commands().size() || !commands()[index]->isVisible())
            return false;
        commands()[index]->click();
        return true;
    }
    for (QAbstractButton* button : m_mainButtons) {
        if (mnemonicOf(button) == QChar(ushort(key))) {
            button->setFocus(Qt::ShortcutFocusReason);
            button->click();
            return true;
        }
    }
    return false;
}

bool MenuKeys::walk(QAbstractButton* from, int key) {
    const int step = key == Qt::Key_Left || key == Qt::Key_Up ? -1 : 1;
    const bool across = key == Qt::Key_Left || key == Qt::Key_Right;
    if (const int main = indexOf(m_mainButtons, from); main >= 0) {
        if (across)
            return focus(m_mainButtons, main + step);
        return step > 0 && (focus(commands(), 0) || focus(commands(), 1));
    }
    const int command = indexOf(commands(), from);
    if (command < 0)
        return false;
    if (focus(commands(), command + (across ? step : step * columns)))
        return true;
    if (key != Qt::Key_Up || command >= columns)
        return false;
    const auto active = std::ranges::find_if(m_mainButtons, &QAbstractButton::isChecked);
    return focus(m_mainButtons, active == m_mainButtons.end() ? 0 : int(active - m_mainButtons.begin()));
}

bool MenuKeys::eventFilter(QObject* watched, QEvent* event) {
    auto* button = qobject_cast<QAbstractButton*>(watched);
    if (!button || event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        walk(button, static_cast<QKeyEvent*>(event)->key());
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

} // namespace menu
