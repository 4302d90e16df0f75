#pragma once

#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmVerification;
}

namespace ledger {

/// Whether an official receipt or a charge slip was issued, and what for. It has no properties.
class frmVerification : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmVerification(QWidget* parent = nullptr);
    ~frmVerification() override;

  protected:
    void Form_Load() override;
    void search() override;

  private:
    void listIssued(ado::Recordset& issued);

    std::unique_ptr<Ui::frmVerification> m_ui;
};

} // namespace ledger
