#pragma once

#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmRequestForm;
}

namespace orders {

/// Prints the form that goes with the patient of a prepaid request. Loading reads its exams, and unloads the
/// screen with its message where none is left to be printed.
class frmRequestForm : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmRequestForm(QWidget* parent = nullptr);
    ~frmRequestForm() override;

    QString CSNumber; ///< charge-slip number
    QString IdNumber; ///< admission number

    /// Loads the screen for the request of this row and fills its fields.
    void take(ado::Recordset& request);

  protected:
    void Form_Load() override;
    void search() override;
    /// cmdPrint.
    void rowTaken() override;

  private:
    void cmdTown_Click();

    std::unique_ptr<Ui::frmRequestForm> m_ui;
};

} // namespace orders
