#pragma once

#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmReceivableSearch;
}

namespace charges {

/// The billed patients that answer to a last name: the way into late charges. It stays open behind the entry
/// screen, on its last search. Neither cmbSearch nor chkCurrent changes what is found.
class frmReceivableSearch : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmReceivableSearch(QWidget* parent = nullptr);
    ~frmReceivableSearch() override;

    QString ListCaption;
    QString PatientQuery; ///< kept only
    /// Of chkCurrent, which is hidden without one.
    QString CurrentCaption;
    bool EnableAddPatient = false; ///< kept only
    /// What stands in the search box as the screen opens.
    QString PatientRecord;

  protected:
    void Form_Load() override;
    void search() override;
    void rowTaken() override;

  private:
    /// True while the credit office has not opened the bill again.
    bool IsAccountClosed(const QString& id) const;
    QString age() const;
    void openEntry();

    std::unique_ptr<Ui::frmReceivableSearch> m_ui;
};

} // namespace charges
