#pragma once

#include "platform/controls/screen/Screen.h"

#include <memory>

namespace Ui {
class frmPatientLedger;
}

namespace ledger {

struct LedgerHeading;

/// One patient's statement of account, in a viewer of the screen's own. It has no properties.
class frmPatientLedger : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmPatientLedger(QWidget* parent = nullptr);
    ~frmPatientLedger() override;

  protected:
    void Form_Load() override;
    void Form_Unload() override;

  private:
    void txtIdNum_Enter();
    void findInPatient();
    void findOutPatient();
    void ShowLedger(const LedgerHeading& heading);
    void bringViewerIntoSight();
    void showPatient(const LedgerHeading& heading);

    std::unique_ptr<Ui::frmPatientLedger> m_ui;
};

} // namespace ledger
