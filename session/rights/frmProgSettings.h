#pragma once

#include "platform/controls/screen/Screen.h"

#include <memory>

namespace session {

namespace Ui {
class frmProgSettings;
}

/// The catalogue of rights: descriptions, and which are active. Opened from frmUserRights by F12. It has no
/// properties.
class frmProgSettings : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmProgSettings(QWidget* parent = nullptr);
    ~frmProgSettings() override;

  protected:
    void Form_Load() override;

  private:
    void connectControls();
    void cmdSearch_Click();
    void grdAccess_Click();
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdSave_Click();

    void LoadAccess();
    void setEditing(bool editing);
    bool isEditing() const;
    void goToSaved(const QString& code, const QString& description);

    std::unique_ptr<Ui::frmProgSettings> m_ui;
};

} // namespace session
