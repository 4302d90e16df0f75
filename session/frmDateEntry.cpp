#include "session/frmDateEntry.h"

#include "platform/controls/Look.h"
#include "session/DateFields.h"
#include "session/ReportLaunch.h"
#include "ui_frmDateEntry.h"

namespace session {

frmDateEntry::frmDateEntry(QWidget* parent) : Screen(parent), m_ui(std::make_unique<Ui::frmDateEntry>()) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    enterMovesOn({m_ui->dtStart, m_ui->dtEnd}, m_ui->cmdDate_0);
    controls::on(m_ui->cmdDate_0, &QPushButton::clicked, this, [this] { cmdDate_Click(0); });
    controls::on(m_ui->cmdDate_1, &QPushButton::clicked, this, [this] { cmdDate_Click(1); });
}

frmDateEntry::~frmDateEntry() = default;

void frmDateEntry::Form_Load() {
    setMinimumWidth(controls::look::scaled(360));
    controls::look::setPrimary(m_ui->cmdDate_0);
    setToday(m_ui->dtStart);
    setToday(m_ui->dtEnd);
    m_ui->dtStart->setFocus();
}

void frmDateEntry::cmdDate_Click(int index) {
    if (index == 0) {
        gReportFrom = dateText(m_ui->dtStart);
        gReportTo = dateText(m_ui->dtEnd);
    } else {
        gReportFrom = QStringLiteral("CANCEL");
    }
    Unload();
}

} // namespace session
