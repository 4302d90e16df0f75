#pragma once

#include "platform/controls/screen/Screen.h"

#include <memory>

namespace session {

namespace Ui {
class frmReportDate;
}

/// "Reports: Date Range". Hides itself, so that its results stay readable; the opener unloads it.
class frmReportDate : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmReportDate(QWidget* parent = nullptr);
    ~frmReportDate() override;

    /// What the dates are for.
    void nameReport(const QString& title);

    QString startdate; ///< "mm/dd/yyyy"
    QString enddate;   ///< "mm/dd/yyyy"
    bool Cancel = true;

    /// One date only: the second one and its label are not shown.
    void hideEndDate();

  protected:
    void Form_Load() override;
    void Form_QueryUnload(bool& cancel) override;

  private:
    void cmdEnter_Click();
    void cmdClose_Click();

    std::unique_ptr<Ui::frmReportDate> m_ui;
};

} // namespace session
