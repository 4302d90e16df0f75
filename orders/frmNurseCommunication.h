#pragma once

#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmNurseCommunication;
}

namespace orders {

/// The section's in-tray: the wards' requests that wait. A row leads into request entry, or is revoked there
/// and then; behind each the list is read anew.
class frmNurseCommunication : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmNurseCommunication(QWidget* parent = nullptr);
    ~frmNurseCommunication() override;

  protected:
    void Form_Load() override;
    void keyPressEvent(QKeyEvent* event) override;
    void search() override;
    /// btnProcess.
    void rowTaken() override;

  private:
    void btnCancel_Click();
    void readAgain();
    /// False when there is no such stay; no screen was opened then.
    bool openForAdmitted();
    bool openForOutPatient();

    std::unique_ptr<Ui::frmNurseCommunication> m_ui;
};

} // namespace orders
