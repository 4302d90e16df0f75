#pragma once

#include "platform/controls/screen/Screen.h"

#include <memory>

namespace session {

class clsCurrentUser;

namespace Ui {
class frmPassword;
}

/// Asks for the user's own password, once.
class frmPassword : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmPassword(clsCurrentUser& user, QWidget* parent = nullptr);
    ~frmPassword() override;

    /// The password was right.
    bool Valid = false;

  protected:
    void Form_Load() override;

  private:
    void cmdOk_Click();

    std::unique_ptr<Ui::frmPassword> m_ui;
    clsCurrentUser& m_user;
};

} // namespace session
