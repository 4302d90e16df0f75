#pragma once

#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmListDeposits;
}

namespace ledger {

/// The patients who hold deposits. It is only looked at, and has no properties.
class frmListDeposits : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmListDeposits(QWidget* parent = nullptr);
    ~frmListDeposits() override;

  protected:
    void Form_Load() override;

  private:
    void FormatGrid();
    void showAmounts();

    std::unique_ptr<Ui::frmListDeposits> m_ui;
};

} // namespace ledger
