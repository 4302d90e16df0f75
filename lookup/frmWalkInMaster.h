#pragma once

#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmWalkInMaster;
}

namespace lookup {

/// The master file of the walk-in cash patients: found on one tab, changed in place on the other. It has no
/// properties.
class frmWalkInMaster : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmWalkInMaster(QWidget* parent = nullptr);
    ~frmWalkInMaster() override;

  protected:
    void Form_Load() override;
    void search() override;
    void rowTaken() override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void setRules();
    void connectControls();
    void ssWalkIn_Click();
    void cmdAdd_Click();
    void cmdZipCode_Click();
    void cmdSave_Click();
    void cmdCancel_Click();

    bool isEditing() const;
    void goToPatient(const QString& hospitalNumber);
    void showPatient(int row);
    void dtpBirthDate_LostFocus();
    bool isLikely();
    /// False when the patient is not on file any more.
    bool writePatient();

    QString m_shownBirthDate;
    bool m_listHasZipCodes = true;
    std::unique_ptr<Ui::frmWalkInMaster> m_ui;
};

} // namespace lookup
