#include "session/reports/frmReportViewer.h"

#include "platform/controls/look/HeaderBand.h"
#include "platform/controls/look/Look.h"
#include "platform/report/viewer/Viewer.h"
#include "session/reports/ReportLaunch.h"

#include <QAction>
#include <QLabel>
#include <QVBoxLayout>

namespace session {

frmReportViewer::frmReportViewer(QWidget* parent)
    : Screen(parent)
    , m_band(new controls::HeaderBand(this))
    , lblNotice(new QLabel(this))
    , CRViewer1(new report::Viewer(this)) {
    setObjectName(QStringLiteral("frmReportViewer"));
    setWindowTitle(QStringLiteral("VIEW REPORT"));
    setEscapeCloses(true);
    CRViewer1->setObjectName(QStringLiteral("CRViewer1"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_band->setObjectName(QStringLiteral("bandHeader"));
    m_band->setSubtitle(QStringLiteral("Esc leaves"));
    CRViewer1->putOnTop(m_band);
    lblNotice->setObjectName(QStringLiteral("lblNotice"));
    lblNotice->setTextFormat(Qt::PlainText);
    lblNotice->setWordWrap(true);
    const int gap = controls::look::scaled(14);
    lblNotice->setContentsMargins(gap, gap / 2, gap, gap / 2);
    controls::look::setKind(lblNotice, QStringLiteral("warn"));
    CRViewer1->putOnTop(lblNotice);
    layout->addWidget(CRViewer1);
}

frmReportViewer::~frmReportViewer() = default;

void frmReportViewer::Form_Load() {
    m_band->setTitle(windowTitle());
    lblNotice->setText(Notice);
    lblNotice->setVisible(!Notice.isEmpty());
    resize(controls::look::scaled(1180), controls::look::scaled(760));
    CRViewer1->setGroupTreeShown(ShowGroupTree);
    bool shown = false;
    {
        const Hourglass busy;
        shown = CRViewer1->showReport(*gReport);
    }
    if (!shown) {
        Unload();
        return;
    }
    if (QAction* pageWidth = CRViewer1->command(QStringLiteral("fitWidth")))
        pageWidth->trigger();
    if (DirectPrint)
        CRViewer1->print();
}

void frmReportViewer::Form_Unload() {
    gReport.reset();
}

} // namespace session
