#pragma once

#include "platform/controls/screen/Screen.h"

#include <memory>

class QButtonGroup;
class QMenu;

namespace Ui {
class frmAssessment;
}
namespace ado {
class Recordset;
}
namespace lookup {
class FoundPatient;
}
namespace entry {
class RequestGrid;
}

namespace orders {

/// Prices what a patient must pay at the cashier before a procedure is done: nothing is charged to an
/// account.
class frmAssessment : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmAssessment(QWidget* parent = nullptr);
    ~frmAssessment() override;

    /// The shared screen, and behind each save a fresh one for the next patient, until one is closed.
    static void ShowForEachPatient();

    /// The whole number of the last save, "NU5678"; "" before the first.
    const QString& AssessmentRef() const { return m_assessmentRef; }
    /// It was saved and closed: a fresh one is to follow.
    bool isNextWanted() const { return m_nextWanted; }

  protected:
    void Form_Load() override;

  private:
    enum class Kind { WalkIn, Regular, Confined };
    void connectControls();
    Kind kind() const;

    void optType_Click();
    void txtSname_Edited();
    void txtSname_Enter();
    bool findWalkIn(const QString& name);
    bool findRegular(const QString& name);
    bool findConfined(const QString& name);
    bool CheckCashBasisStatus();
    void show(const lookup::FoundPatient& patient);
    void patientFound();
    void forgetPatient();
    void showBand();

    void txtDoctorID_Enter();
    void txtDoctor_Enter();
    void cmdPackage_Click();
    void addPackage(const QString& letter);
    void addPackageLine(ado::Recordset& line);

    void btnSave_Click();
    void btnClear_Click();
    bool SaveAssessment();
    bool isPatientChosen();
    void enableLines(bool enabled);
    void dropLines();
    bool postAll();
    void PrintAssessmentSlip();
    void goToNextPatient();
    void enableSaves(bool enabled);

    std::unique_ptr<Ui::frmAssessment> m_ui;
    entry::RequestGrid* m_grid = nullptr;
    QButtonGroup* optType = nullptr;
    QMenu* mnuPackages = nullptr;
    QString m_patientName; ///< as joined at the search
    QString m_pricedClass; ///< that of the lines; "" before the first patient
    QString m_assessmentRef;
    bool m_isSaving = false;
    bool m_nextWanted = false;
};

} // namespace orders
