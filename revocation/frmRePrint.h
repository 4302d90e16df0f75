#pragma once

#include "platform/controls/list/ListScreen.h"
#include "session/Screens.h"

#include <QHash>

#include <memory>

namespace Ui {
class frmRePrint;
}

namespace session {
struct ListedPatient;
}

namespace revocation {

/// Prints the slip of a charge again. What was posted is not changed: the server lays the slip's lines out.
class frmRePrint : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmRePrint(QWidget* parent = nullptr);
    ~frmRePrint() override;

    /// Looked for once the screen is open, as if its user had: the patient, and the slip's row. Without a
    /// number nothing is.
    session::SlipAgain wanted;

    /// The slip that was printed last once more, through formula fields in place of parameters. No command
    /// calls it.
    void PrintChargeSlipFormulas();
    /// "LAST, FIRST", or "" when the employee is not on file.
    static QString GetEmployeeName(const QString& id);

  protected:
    void Form_Load() override;
    void searchEntered() override;
    void search() override;
    /// A charge was taken: prints.
    void rowTaken() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool isInpatient() const;
    bool patientCodeKey(int key);
    void takePatient(const session::ListedPatient& patient);
    void ListCharges();
    void layOutCharges();
    void rowChanged();
    void findWanted();
    void dumpLine(const QString& code) const;
    QHash<QString, QString> formulaValues() const;

    std::unique_ptr<Ui::frmRePrint> m_ui;
    QString m_patientName, m_company, m_admissionNumber, m_room, m_doctor;
    QString m_slip, m_chargeDate, m_encoder;
};

} // namespace revocation
