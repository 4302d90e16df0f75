#pragma once

#include "entry/RequestGrid.h"
#include "platform/controls/screen/Screen.h"
#include "session/PackageHandOver.h"

#include <memory>

namespace Ui {
class frmRequest;
}

namespace orders {

/// Request entry for one admitted patient. The caller sets the properties, then shows it; the caller, not the
/// screen, refuses closed and cash-basis accounts.
class frmRequest : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmRequest(QWidget* parent = nullptr);
    ~frmRequest() override;

    QString PatientType; ///< "I" admitted, "O" out-patient, "W" walk-in cash patient
    bool CashBasis = false;
    QString PatIdNum;
    QString CashOrNum;
    double CashPrice = 0;
    bool NurseCommnunication = false;
    QString NursingRemarks;
    QString RequestingNurse;
    QString PatientClass;
    QString Classification;
    /// Sets up the hidden grid of an assessment's lines.
    void Initialize_TableInput();

  protected:
    void Form_Load() override;
    void Form_QueryUnload(bool& cancel) override;

  private:
    void connectControls();
    void fillAdmitted();
    void fillOutPatient();
    void fillWalkIn();
    void showMaster(const QString& lastName, const QString& firstName, const QString& middleName);
    void readRoomClass();
    void loadNurseLines();
    void loadCashLines();
    void enableSaves(bool enabled);

    void cmdSave_Click();
    void cmdSavePrint_Click();
    void cmdDoctor_Click(bool withMiddleName);
    void txtDoctor_Enter();
    void cmdPackage_Click();
    void cmdNucCharges_Click();
    void chkPackage_Click();
    void cboPackage_Click();
    session::PackageHandOver packageGrids();

    void SaveRequest();
    void PrintChargeSlip();

    std::unique_ptr<Ui::frmRequest> m_ui;
    entry::RequestGrid* m_grid = nullptr;
    QString DoctorCode;
    QString AccountName;
    QString RoomClass;
    QString ChargeSlip;
    double GrossAmount = 0;
    bool IsDirty = false;
    bool IsSaved = false;
    bool m_isSaving = false;
};

} // namespace orders
