#pragma once

#include "menu/MenuTable.h"

#include <QMenuBar>

#include <functional>
#include <map>

namespace menu {

/// The conventional way in, built from menuTree(). It asks no rights: whoever can see it can use all of it.
class MenuBar : public QMenuBar {
    Q_OBJECT

  public:
    /// `run` is called under the error boundary.
    MenuBar(const std::function<void(const Command&)>& run, QWidget* parent);

    /// One of its menus by the name in the tree.
    QMenu& menuNamed(const QString& name) const { return *m_menus.at(name); }
    /// Whether Alt and this button's letter already open one of the bar's menus.
    bool takesLetterOf(const QString& caption) const;

  private:
    std::map<QString, QMenu*> m_menus;
};

} // namespace menu
