#pragma once

#include "platform/controls/screen/Screen.h"

#include <memory>

namespace session {

namespace Ui {
class frmDateEntry;
}

/// "Date Entry": writes gReportFrom and gReportTo; Escape leaves them as they are.
class frmDateEntry : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmDateEntry(QWidget* parent = nullptr);
    ~frmDateEntry() override;

    /// What the dates are for.
    void nameReport(const QString& title);

  protected:
    void Form_Load() override;

  private:
    void cmdDate_Click(int index);

    std::unique_ptr<Ui::frmDateEntry> m_ui;
};

} // namespace session
