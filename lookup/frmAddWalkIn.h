#pragma once

#include "platform/base/DateTime.h"
#include "platform/controls/screen/Screen.h"

#include <memory>

namespace Ui {
class frmAddWalkIn;
}

namespace lookup {

/// Registers a walk-in cash patient under the next number of their series. The caller shows it and reads
/// NewEntry and IdNum.
class frmAddWalkIn : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmAddWalkIn(QWidget* parent = nullptr);
    ~frmAddWalkIn() override;

    /// A patient was saved.
    bool NewEntry = false;
    /// The hospital number that the patient was given; "" when none was saved.
    QString IdNum;
    /// Difference of the calendar years until today: the birthday inside the year does not count. Negative
    /// for years to come.
    static int CalcAge(base::DateTime birthDate);

  protected:
    void Form_Load() override;

  private:
    void connectControls();
    void mskBdate_LostFocus();
    void cmdTown_Click();
    void btnSave_Click();

    bool isComplete();
    bool isLikely();
    QString takeNumber();
    void savePatient(const QString& number);

    std::unique_ptr<Ui::frmAddWalkIn> m_ui;
};

} // namespace lookup
