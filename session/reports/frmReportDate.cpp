#include "session/reports/frmReportDate.h"

#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/look/Look.h"
#include "ui_frmReportDate.h"

namespace session {

frmReportDate::frmReportDate(QWidget* parent) : Screen(parent), m_ui(std::make_unique<Ui::frmReportDate>()) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    controls::enterMovesOn({m_ui->dtStart, m_ui->dtEnd});
    controls::on(m_ui->cmdEnter, &QPushButton::clicked, this, [this] { cmdEnter_Click(); });
    controls::on(m_ui->cmdClose, &QPushButton::clicked, this, [this] { cmdClose_Click(); });
}

frmReportDate::~frmReportDate() = default;

void frmReportDate::nameReport(const QString& title) {
    m_ui->header->setSubtitle(title);
}

void frmReportDate::Form_Load() {
    setMinimumWidth(controls::look::scaled(360));
    controls::look::setPrimary(m_ui->cmdEnter);
    m_ui->dtStart->setDate(base::today());
    m_ui->dtEnd->setDate(base::today());
    m_ui->dtStart->setFocus();
}

void frmReportDate::hideEndDate() {
    m_ui->lblEnd->hide();
    m_ui->dtEnd->hide();
}

void frmReportDate::cmdEnter_Click() {
    startdate = m_ui->dtStart->dateText();
    enddate = m_ui->dtEnd->dateText();
    Cancel = false;
    hideScreen();
}

void frmReportDate::cmdClose_Click() {
    Cancel = true;
    hideScreen();
}

/// Escape and the window's own close button give up like cmdClose; unloading what was already hidden by
/// cmdEnter leaves the answer alone.
void frmReportDate::Form_QueryUnload(bool&) {
    if (isVisible())
        Cancel = true;
}

} // namespace session
