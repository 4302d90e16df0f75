#include "menu/MenuBar.h"

#include "platform/controls/screen/Connect.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>

#include <algorithm>

namespace menu {

MenuBar::MenuBar(const std::function<void(const Command&)>& run, QWidget* parent) : QMenuBar(parent) {
    setNativeMenuBar(false);
    for (const MenuItem& item : menuTree()) {
        const auto parentMenu = m_menus.find(item.parent);
        if (item.command.deed == Deed::SubMenu) {
            QMenu* menu = parentMenu == m_menus.end() ? addMenu(item.caption)
                                                      : parentMenu->second->addMenu(item.caption);
            menu->setObjectName(item.name);
            m_menus[item.name] = menu;
            continue;
        }
        QAction* action = parentMenu->second->addAction(item.caption);
        action->setObjectName(item.name);
        action->setEnabled(item.available);
        if (item.shortcut != Qt::Key_unknown)
            action->setShortcut(QKeySequence(item.shortcut));
        controls::on(action, &QAction::triggered, this, [run, &item] { run(item.command); });
    }
}

bool MenuBar::takesLetterOf(const QString& caption) const {
    const QKeySequence letter = QKeySequence::mnemonic(caption);
    return std::ranges::any_of(
        actions(), [&](const QAction* title) { return QKeySequence::mnemonic(title->text()) == letter; });
}

} // namespace menu
