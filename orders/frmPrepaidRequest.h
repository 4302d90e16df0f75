#pragma once

#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmPrepaidRequest;
}

namespace orders {

/// Procedures that were bought in advance and wait for their form. It stays open behind the form, and reads
/// its list again when that is closed.
class frmPrepaidRequest : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmPrepaidRequest(QWidget* parent = nullptr);
    ~frmPrepaidRequest() override;

  protected:
    void Form_Load() override;
    void search() override;
    /// cmdPending.
    void rowTaken() override;

  private:
    void activate();

    std::unique_ptr<Ui::frmPrepaidRequest> m_ui;
};

} // namespace orders
