#include "session/reports/frmDateEntry.h"

#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/look/Look.h"
#include "session/reports/ReportLaunch.h"
#include "ui_frmDateEntry.h"

namespace session {

frmDateEntry::frmDateEntry(QWidget* parent) : Screen(parent), m_ui(std::make_unique<Ui::frmDateEntry>()) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    controls::enterMovesOn({m_ui->dtStart, m_ui->dtEnd});
    controls::on(m_ui->cmdDate_0, &QPushButton::clicked, this, [this] { cmdDate_Click(0); });
    controls::on(m_ui->cmdDate_1, &QPushButton::clicked, this, [this] { cmdDate_Click(1); });
}

frmDateEntry::~frmDateEntry() = default;

void frmDateEntry::nameReport(const QString& title) {
    m_ui->header->setSubtitle(title);
}

void frmDateEntry::Form_Load() {
    setMinimumWidth(controls::look::scaled(360));
    controls::look::setPrimary(m_ui->cmdDate_0);
    m_ui->dtStart->setDate(base::today());
    m_ui->dtEnd->setDate(base::today());
    m_ui->dtStart->setFocus();
}

void frmDateEntry::cmdDate_Click(int index) {
    if (index == 0) {
        gReportFrom = m_ui->dtStart->dateText();
        gReportTo = m_ui->dtEnd->dateText();
    } else {
        gReportFrom = QStringLiteral("CANCEL");
    }
    Unload();
}

} // namespace session
