#pragma once

#include "charges/ItemGrid.h"
#include "platform/controls/screen/Screen.h"

#include <memory>

namespace Ui {
class ItemRequestScreen;
}

namespace charges {

/// Where the screens of the two stores differ, besides the patients that they refuse.
struct ItemRequestVariant {
    const char* screen; ///< name of the screen
    const char* caption;
    const char* subtitle;
    bool hasItemFrame; ///< fmeItemList stands around the grid
    ItemGridVariant grid;
};

/// Asks the hospital's pharmacy or central supply for items, for one patient: each complete line goes into
/// the wards' log book, which those departments act on. It only adds; past requests are not shown.
class ItemRequestScreen : public controls::Screen {
    Q_OBJECT

  public:
    ~ItemRequestScreen() override;

    void PutTextBox(int column, int row) { m_grid->PutTextBox(column, row); }
    bool ExcemptCol(int column) const { return m_grid->ExcemptCol(column); }
    bool CompleteRow(int row) const { return m_grid->CompleteRow(row); }
    void AddRow(int row) { m_grid->AddRow(row); }
    void DeleteRow(int row) { m_grid->DeleteRow(row); }
    bool Check_Code(const QString& code) const { return m_grid->Check_Code(code); }
    bool QualifiedRow(int row) const { return m_grid->QualifiedRow(row); }

  protected:
    ItemRequestScreen(const ItemRequestVariant& variant, QWidget* parent);

    void Form_Load() override;
    void keyPressEvent(QKeyEvent* event) override;

    /// False, with its message, when nothing may be asked for under this stay; its fields stand by then.
    virtual bool mayAskForInPatient(const QString& idNumber);
    virtual bool mayAskForOutPatient(const QString& idNumber);

  private:
    void connectControls();
    void removeItemFrame();
    void txtPName_Enter();
    bool FindInPatient();
    bool FindOutPatient();
    void showPatient(const QString& hospitalNumber, const QString& idNumber, const QString& name,
                     const QString& room, const QString& age, const QString& sex);
    void takePatient();
    void refusePatient();

    void cmdSave_Click();
    void cmdDelete_Click();
    void appendLines();
    void appendLine(int row, const QString& patientType);

    const ItemRequestVariant& m_variant;
    std::unique_ptr<Ui::ItemRequestScreen> m_ui;
    ItemGrid* m_grid = nullptr;
    QString m_doctorCode; ///< attending doctor of the stay; "" for an out-patient
    bool m_isSaving = false;
};

} // namespace charges
