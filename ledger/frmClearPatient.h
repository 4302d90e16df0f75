#pragma once

#include "platform/ado/Recordset.h"
#include "platform/controls/screen/Screen.h"

#include <memory>

namespace Ui {
class frmClearPatient;
}

namespace ledger {

/// One notice of discharge, and what the department has charged: the department says here that it holds the
/// patient back no longer. A notice that was answered before is only looked at.
class frmClearPatient : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmClearPatient(QWidget* parent = nullptr);
    ~frmClearPatient() override;

    /// The admission number; set before the screen is shown.
    QString IdNum;

  protected:
    void Form_Load() override;
    void Form_Unload() override;

  private:
    void cmdSave_Click();

    void showNotice(ado::Recordset& notice);
    void showClearing(ado::Recordset& notice);
    void showCharges();

    std::unique_ptr<Ui::frmClearPatient> m_ui;
    bool m_isCleared = false;
};

} // namespace ledger
