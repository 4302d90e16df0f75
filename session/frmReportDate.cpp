#include "session/frmReportDate.h"

#include "platform/controls/Look.h"
#include "session/DateFields.h"
#include "ui_frmReportDate.h"

namespace session {

frmReportDate::frmReportDate(QWidget* parent) : Screen(parent), m_ui(std::make_unique<Ui::frmReportDate>()) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    enterMovesOn({m_ui->dtStart, m_ui->dtEnd}, m_ui->cmdEnter);
    controls::on(m_ui->cmdEnter, &QPushButton::clicked, this, [this] { cmdEnter_Click(); });
    controls::on(m_ui->cmdClose, &QPushButton::clicked, this, [this] { cmdClose_Click(); });
}

frmReportDate::~frmReportDate() = default;

void frmReportDate::Form_Load() {
    setMinimumWidth(controls::look::scaled(360));
    controls::look::setPrimary(m_ui->cmdEnter);
    setToday(m_ui->dtStart);
    setToday(m_ui->dtEnd);
    m_ui->dtStart->setFocus();
}

void frmReportDate::hideEndDate() {
    m_ui->lblEnd->hide();
    m_ui->dtEnd->hide();
}

void frmReportDate::cmdEnter_Click() {
    startdate = dateText(m_ui->dtStart);
    enddate = dateText(m_ui->dtEnd);
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
