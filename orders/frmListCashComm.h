#pragma once

#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmListCashComm;
}

namespace lookup {
class FoundPatient;
}

namespace orders {

/// The cash assessments that were paid and not taken yet: the way from a receipt into request entry. It stays
/// open behind that, for the next receipt.
class frmListCashComm : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmListCashComm(QWidget* parent = nullptr);
    ~frmListCashComm() override;

  protected:
    void Form_Load() override;
    void search() override;
    /// cmdSelect.
    void rowTaken() override;

  private:
    /// False when no patient was chosen; no screen was opened then.
    bool openForAdmitted(const QString& receipt, const QString& name);
    bool openForRegular(const QString& receipt, const QString& name);
    bool openForCash(const QString& receipt, const QString& name);
    void openOutRequest(const QString& receipt, const lookup::FoundPatient& patient);

    std::unique_ptr<Ui::frmListCashComm> m_ui;
};

} // namespace orders
