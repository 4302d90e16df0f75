#pragma once

#include "platform/controls/screen/Screen.h"

#include <memory>

namespace session {

namespace Ui {
class frmAccess;
}

/// The hospital's common password. Enter compares and unloads; there is no second try and no message.
class frmAccess : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmAccess(QWidget* parent = nullptr);
    ~frmAccess() override;

    /// The password typed was right. False until Enter was pressed on the right one.
    bool Valid = false;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void txtPassword_KeyPress(bool enter);

    std::unique_ptr<Ui::frmAccess> m_ui;
};

} // namespace session
