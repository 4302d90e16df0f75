#pragma once

#include "platform/controls/screen/Screen.h"

#include <memory>

namespace Ui {
class frmNuclearChargesBuildFile;
}

namespace charges {

/// The section's packages: code, description, whether they are active. The items of a package have no screen.
class frmNuclearChargesBuildFile : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmNuclearChargesBuildFile(QWidget* parent = nullptr);
    ~frmNuclearChargesBuildFile() override;

  protected:
    void Form_Load() override;
    void showEvent(QShowEvent* event) override;
    void reject() override;

  private:
    void connectControls();
    void Form_Activate();
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdSave_Click();
    void cmdCancel_Click();
    void txtSearch_Change();

    void LoadPackages();
    void ShowPackage();
    void showPosition();
    /// Whether a package can be typed; else the list is in use.
    void setEditing(bool editing);
    void backToView();
    void selectRow(int row);
    void goToSaved();

    std::unique_ptr<Ui::frmNuclearChargesBuildFile> m_ui;
    bool m_firstActivation = true;
    bool m_shownByMove = false; ///< the row that a click came to was shown as it became the current one
};

} // namespace charges
