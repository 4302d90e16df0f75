#pragma once

#include "platform/ado/Statement.h"
#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class PatientPicker;
}

namespace lookup {

/// Layout of both lists; the empty leading column counts as 0.
inline constexpr const char* patientFormat = " | Adm # | Last Name | First Name | Middle Name | Adm. Date ";
inline constexpr int patientWidths[] = {200, 1000, 2000, 2000, 2000, 1500};

/// What the patient lists differ in, besides the statement that fills them.
struct PatientPickerVariant {
    const char* screen;   ///< name of the screen
    const char* title;    ///< of the window
    const char* subtitle; ///< what is listed
    bool canAddPatient;   ///< there is a cmdAddWalkIn
    controls::ListVariant list;
};

/// A list of patients to pick one from. The caller sets the inputs, shows the screen and reads Valid and
/// ResultCode.
class PatientPicker : public controls::ListScreen {
    Q_OBJECT

  public:
    ~PatientPicker() override;

    QString ListCaption;
    /// The text that is searched at once; without one only current registrations are listed.
    QString CurrentCaption;
    /// Holds "#1" for chkCurrent, "#2" for the choice in cmbSearch, "#3" for the text. A list with a
    /// statement of its own does not read it.
    ado::QueryTemplate PatientQuery;
    bool EnableAddPatient = false;
    /// "I", "O" or "W"; kept for the caller.
    QString PatientType;

    /// Column 1 of the chosen row; "" when none was chosen.
    QString ResultCode;
    bool Valid = false;
    /// The cells of the chosen row, the empty leading one included.
    QStringList PatientRecord;

  protected:
    explicit PatientPicker(const PatientPickerVariant& variant, QWidget* parent);

    void Form_Load() override;
    void search() override;
    void rowTaken() override;
    void leave() override;

    /// The statement for "0" or "1" of chkCurrent, the index in cmbSearch and the trimmed text.
    virtual ado::Statement patientQuery(const QString& current, const QString& searchBy,
                                        const QString& text) const = 0;
    /// Adds a patient; true when there is a new one.
    virtual bool addPatient() { return false; }

  private:
    void cmdAddWalkIn_Click();
    void emptyAdmissionDates();

    const PatientPickerVariant& m_variant;
    std::unique_ptr<Ui::PatientPicker> m_ui;
};

} // namespace lookup
