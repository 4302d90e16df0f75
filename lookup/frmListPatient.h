#pragma once

#include "platform/ado/Statement.h"
#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmListPatient;
}

namespace lookup {

/// The admitted patients that answer to a text: the way into request entry. It stays open behind the request
/// screen, for the next patient.
class frmListPatient : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmListPatient(QWidget* parent = nullptr);
    ~frmListPatient() override;

    /// The admission number that was chosen last; "" when none was.
    QString ResultCode;
    bool Valid = false;
    /// The cells of the chosen row, the empty leading one included.
    QStringList PatientRecord;

  protected:
    void Form_Load() override;
    void search() override;
    void rowTaken() override;
    void leave() override;

  private:
    ado::Statement patientQuery() const;
    void markRow(int row);
    /// False, with its message, when nothing may be charged to the patient of the row.
    bool mayBeCharged(int row) const;
    void openRequest(int row);

    std::unique_ptr<Ui::frmListPatient> m_ui;
};

} // namespace lookup
