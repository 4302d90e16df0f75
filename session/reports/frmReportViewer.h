#pragma once

#include "platform/controls/screen/Screen.h"

namespace report {
class Viewer;
}

namespace session {

/// "VIEW REPORT": shows gReport, which is released when the screen unloads.
class frmReportViewer : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmReportViewer(QWidget* parent = nullptr);
    ~frmReportViewer() override;

    bool ShowGroupTree = false;
    bool DirectPrint = false;

  protected:
    void Form_Load() override;
    void Form_Unload() override;

  private:
    report::Viewer* CRViewer1;
};

} // namespace session
