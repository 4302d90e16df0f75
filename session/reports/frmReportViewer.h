#pragma once

#include "platform/controls/screen/Screen.h"

class QLabel;

namespace controls {
class HeaderBand;
}

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
    /// Why a report that was to be printed is shown instead; "" where it was to be shown.
    QString Notice;

  protected:
    void Form_Load() override;
    void Form_Unload() override;

  private:
    controls::HeaderBand* m_band;
    QLabel* lblNotice;
    report::Viewer* CRViewer1;
};

} // namespace session
