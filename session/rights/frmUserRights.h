#pragma once

#include "platform/controls/screen/Screen.h"

#include <memory>

namespace session {

namespace Ui {
class frmUserRights;
}

/// What a user may do in this department: a user is searched, the rights are ticked and saved. F12 opens the
/// catalogue of rights. It has no properties.
class frmUserRights : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmUserRights(QWidget* parent = nullptr);
    ~frmUserRights() override;

  protected:
    void Form_Load() override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void connectControls();
    void cmdSearch_Click();
    void grdUsers_Click();
    void chkSelectAll_Click();
    void cmdSave_Click();
    void openProgSettings();
    void allowSave();

    void LoadRights();
    void tickRights(const QString& employeeRights);
    void tickAll(bool ticked);
    /// "|1|7|18" of the ticked entries; "" with none.
    QString tickedRights() const;
    QString employeeID() const;

    std::unique_ptr<Ui::frmUserRights> m_ui;
    QString m_chosen; ///< the code of the user whose rights are shown; "" before one was chosen
};

} // namespace session
