#pragma once

#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmResult;
}

namespace results {

/// One patient's requests. The one that is chosen opens on the entry screen of its exam's form type, and this
/// screen goes.
class frmResult : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmResult(QWidget* parent = nullptr);
    ~frmResult() override;

    QString HospitalNumber;
    /// "R" enters, views and edits, "C" revokes. With any other nothing is loaded.
    QString FormMode;

    /// Empties the list and lays its columns out.
    void Init_Grid();
    /// After HospitalNumber and FormMode are set.
    void showRequests(const ado::Recordset& requests);
    void setPatientName(const QString& name);

    /// Each fills the entry screen for the request that was chosen last, unloads this screen and shows the
    /// other one modally.
    void LoadGenericResult();
    /// No form type leads here.
    void LoadMPIResult();
    void LoadGFRResult();
    void LoadRadioResult();

  protected:
    void Form_Load() override;
    void rowTaken() override;

  private:
    std::unique_ptr<Ui::frmResult> m_ui;
    QString m_requestNumber;
    QString m_resultDate;
};

} // namespace results
