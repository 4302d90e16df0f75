#pragma once

#include "menu/MenuTable.h"
#include "platform/controls/screen/Screen.h"

#include <array>
#include <memory>

class QAbstractButton;
class QLabel;

namespace controls {
class FlatButton;
}

namespace menu {

namespace Ui {
class frmMainMenu;
}

class MenuBar;
class MenuKeys;
class Monitors;
struct Indicators;

/// The shell: the only screen that is open between commands. The flat buttons ask the user's rights, the menu
/// bar does not.
class frmMainMenu : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmMainMenu(QWidget* parent = nullptr);
    ~frmMainMenu() override;

    /// 0 to 4; 4 after loading, without a sub-menu.
    int currentGroup() const { return m_group; }
    /// 1, 10, 20, 30 or 40.
    int subMenuBase() const { return m_subMenuBase; }

  protected:
    void Form_Load() override;
    void Form_Unload() override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Pressed;
    static constexpr int outPatientButton = 1; ///< its place in m_fltSubMenu

    void buildMenuBar();
    void layMainButtons();
    void loadSubMenuButtons();
    void buildSubMenu();
    void showDate();
    Indicators indicators() const;
    void showWaiting();
    bool pressWaiting(int key);
    void enterDone();
    void leaveDone();
    void focusGroup();
    void greet();

    void cmdMainMenu_Click(int index);
    void fltSubMenu_Click(int index);
    void btnCashEntry_Click();
    void btnChargeEntry_Click();
    void FlatBttn5_Click();
    void btnCommunication_Click();
    void mnuLogOff_Click();
    void cmdExit_Click();

    /// Shows "Access denied" when the user has not got the right.
    bool mayRun(const SubMenuRow& row);
    void run(const Command& command, QAbstractButton* button);
    void runBehindAccess(const Command& command);
    void runReport(ReportId id);
    void showAgain(const session::WorkDone& done);
    void openBuildFile(QAbstractButton* button);
    void openUserSettings(QAbstractButton* button);
    void chooseOutPatient();
    void showOutPatientChoice();
    void enterOutPatientCharges();
    void leaveOutPatientChoice();

    std::unique_ptr<Ui::frmMainMenu> m_ui;
    std::unique_ptr<Monitors> m_monitors;
    MenuKeys* m_keys;
    std::array<controls::FlatButton*, groupCount> m_cmdMainMenu{};
    std::array<controls::FlatButton*, subMenuCount> m_fltSubMenu{};
    MenuBar* m_menuBar = nullptr;
    QLabel* m_panel1;
    QLabel* m_panel2;
    int m_group = groupAtLoad;
    int m_subMenuBase = 40;
    bool m_subMenuBuilt = false;
    bool m_listAlone = false; ///< the commands have left their room to what was done
    bool m_changingUser = false;
};

} // namespace menu
