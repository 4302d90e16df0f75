#include "session/reports/frmDailyReport.h"

#include "platform/controls/fields/EnterKey.h"
#include "session/reports/ReportLaunch.h"
#include "ui_frmDailyReport.h"

#include <array>

namespace session {
namespace {

constexpr std::array optionTitles = {"IN-PATIENT TRANSACTIONS", "OUT-PATIENT TRANSACTIONS",
                                     "CASH-PATIENT TRANSACTIONS", "ALL-PATIENT TRANSACTIONS"};

} // namespace

frmDailyReport::frmDailyReport(QWidget* parent)
    : Screen(parent), m_ui(std::make_unique<Ui::frmDailyReport>()) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    controls::enterMovesOn({m_ui->dtpReportDate, m_ui->dtpEndDate});
    const std::array buttons = {m_ui->cmdOptions_0, m_ui->cmdOptions_1, m_ui->cmdOptions_2,
                                m_ui->cmdOptions_3, m_ui->cmdOptions_4};
    for (std::size_t i = 0; i < buttons.size(); ++i)
        controls::on(buttons[i], &QPushButton::clicked, this, [this, i] { cmdOptions_Click(int(i)); });
}

frmDailyReport::~frmDailyReport() = default;

void frmDailyReport::nameReport(const QString& title) {
    m_ui->header->setSubtitle(title);
}

void frmDailyReport::Form_Load() {
    m_ui->dtpReportDate->setDate(base::today());
    m_ui->dtpEndDate->setDate(base::today());
    m_ui->dtpReportDate->setFocus();
}

void frmDailyReport::cmdOptions_Click(int index) {
    gReportFrom = m_ui->dtpReportDate->dateText();
    gReportTo = m_ui->dtpEndDate->dateText();
    gReportOption = QString::number(index);
    if (std::size_t(index) < optionTitles.size())
        gReportOptionTitle = QString::fromLatin1(optionTitles[std::size_t(index)]);
    else
        gReportFrom = QStringLiteral("CANCEL");
    Unload();
}

} // namespace session
