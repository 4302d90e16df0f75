#pragma once

#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmDischargeNotice;
}

namespace ledger {

/// The notices of discharge, one of which is chosen to be cleared. The character on the desktop is out of the
/// way meanwhile.
class frmDischargeNotice : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmDischargeNotice(QWidget* parent = nullptr);
    ~frmDischargeNotice() override;

    /// A patient was chosen who may be cleared.
    bool Valid = false;
    /// The admission number of that patient; "" without one.
    QString IdNum;

    /// Reads the list anew; nothing is selected then.
    void LoadNotices();

  protected:
    void Form_Load() override;
    void Form_Unload() override;
    void rowTaken() override;
    void leave() override;

  private:
    bool hasPendingRequests(const QString& idNumber) const;

    std::unique_ptr<Ui::frmDischargeNotice> m_ui;
};

} // namespace ledger
