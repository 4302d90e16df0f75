#pragma once

#include "menu/ReportTable.h"
#include "session/Screens.h"
#include "session/WorkDone.h"

#include <Qt>

#include <span>

namespace menu {

/// What a command does; the members beside the deed belong to one deed each.
enum class Deed {
    SubMenu, ///< only holds other items
    OpenScreen,
    PasswordThenScreen, ///< the hospital's common password stands before the screen
    Report,
    PopUp,            ///< one of the menu bar's menus, at the button
    ChooseOutPatient, ///< the panel of the out-patient choice
    OutPatientCash,   ///< as the panel's Cash Entry
    OutPatientCharge, ///< as the panel's Charge Entry
    BuildFile,        ///< for the exam maintenance's own users
    UserSettings,     ///< behind the user's own password
    ExitProgram,      ///< asks first
    ChangeUser,
    QuitProgram ///< asks nothing
};

struct Command {
    Deed deed = Deed::SubMenu;
    session::MenuScreen screen = {};
    const char* formMode = "";
    ReportId report = {};
    const char* popUp = "";
};

/// One of the five main buttons.
struct MenuGroup {
    int subMenuBase;
    const char* icon;
};

/// One flat button of the sub-menu.
struct SubMenuRow {
    int group;  ///< 0 to 4
    int number; ///< 0 to 5
    const char* caption;
    const char* toolTip;
    const char* right; ///< "" where no right is asked
    Command command;
    const char* icon;
};

/// What was carried out, as the menu lists it, and how it is looked at once more.
struct WorkRow {
    session::Work work;
    const char* text;
    const char* again = ""; ///< what Enter on it brings; "" where nothing does
    /// The command that leads the same way: its right is asked.
    int group = -1;
    int number = -1;
};

/// One menu or item of the menu bar, parents first.
struct MenuItem {
    const char* parent; ///< "" for a menu of the bar itself
    const char* name;
    const char* caption;
    Command command;
    Qt::Key shortcut = Qt::Key_unknown;
    bool available = true;
};

inline constexpr int groupCount = 5;
inline constexpr int subMenuCount = 6;
inline constexpr int groupAtLoad = 4;

const MenuGroup& menuGroup(int group);
std::span<const SubMenuRow> subMenuTable();
/// Null where the group has no such button.
const SubMenuRow* subMenuRow(int group, int number);
const WorkRow& workRow(session::Work work);
std::span<const MenuItem> menuTree();
/// The function key that opens the same screen from the menu bar; Key_unknown without one.
Qt::Key shortcutOf(const Command& command);

} // namespace menu
