#pragma once

#include "platform/controls/screen/Screen.h"

#include <memory>

namespace session {

namespace Ui {
class frmDailyReport;
}

/// "Daily Transaction Report": writes gReportFrom, gReportTo, gReportOption and gReportOptionTitle; Escape
/// leaves them as they are.
class frmDailyReport : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmDailyReport(QWidget* parent = nullptr);
    ~frmDailyReport() override;

    /// What the dates are for.
    void nameReport(const QString& title);

  protected:
    void Form_Load() override;

  private:
    void cmdOptions_Click(int index);

    std::unique_ptr<Ui::frmDailyReport> m_ui;
};

} // namespace session
