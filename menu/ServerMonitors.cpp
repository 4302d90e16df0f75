#include "menu/ServerMonitors.h"

#include "menu/IndicatorButton.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/screen/Connect.h"
#include "session/Screens.h"
#include "session/Session.h"

#include <QLabel>
#include <QScopedValueRollback>

namespace menu {

using ado::sql;

namespace {

const QColor phaseColors[] = {QColor(0xC8, 0xE3, 0xCB), QColor(0x96, 0xA6, 0x79)};

void setShown(std::initializer_list<QWidget*> widgets, bool shown) {
    for (QWidget* widget : widgets)
        widget->setVisible(shown);
}

void setRunning(QTimer& timer, bool running) {
    if (!running)
        timer.stop();
    else if (!timer.isActive())
        timer.start();
}

} // namespace

struct ServerMonitors::Row {
    QTimer ServerMonitors::*timer;
    const char* name;
    int milliseconds;
    bool enabledAtLoad;
    void (ServerMonitors::*handler)();
};

const ServerMonitors::Row ServerMonitors::rows[] = {
    {&ServerMonitors::m_tmrChkPendingRequests, "tmrChkPendingRequests", 30000, true,
     &ServerMonitors::tmrChkPendingRequests_Timer},
    {&ServerMonitors::m_tmrGetDischargeNotice, "tmrGetDischargeNotice", 30000, true,
     &ServerMonitors::tmrGetDischargeNotice_Timer},
    {&ServerMonitors::m_tmrPrepaid, "tmrPrepaid", 50000, true, &ServerMonitors::tmrPrepaid_Timer},
    {&ServerMonitors::m_tmrCheckDeposit, "tmrCheckDeposit", 30000, true,
     &ServerMonitors::tmrCheckDeposit_Timer},
    {&ServerMonitors::m_Timer1, "Timer1", 150, false, &ServerMonitors::Timer1_Timer},
    {&ServerMonitors::m_tmrPending, "tmrPending", 250, false, &ServerMonitors::tmrPending_Timer},
    {&ServerMonitors::m_tmrPendingCaption, "tmrPendingCaption", 150, false,
     &ServerMonitors::tmrPendingCaption_Timer},
    {&ServerMonitors::m_tmrPendingButton, "tmrPendingButton", 250, true,
     &ServerMonitors::tmrPendingButton_Timer},
};

ServerMonitors::ServerMonitors(const Indicators& indicators) : m_on(indicators) {
    for (const Row& row : rows) {
        QTimer& timer = this->*row.timer;
        timer.setParent(this);
        timer.setObjectName(QLatin1String(row.name));
        timer.setInterval(row.milliseconds);
        controls::on(&timer, &QTimer::timeout, this, [this, handler = row.handler] { (this->*handler)(); });
    }
    controls::on(&m_merlin.figure(), &agent::Character::Click, this, [this] { openDischargeNotices(); });
    controls::on(&m_merlin.figure(), &agent::Character::Silenced, this, [this] { showSilence(); });
}

ServerMonitors::~ServerMonitors() = default;

void ServerMonitors::start() {
    for (const Row& row : rows)
        setRunning(this->*row.timer, row.enabledAtLoad);
    setRunning(m_Timer1, true);
    Timer1_Timer();
    tmrCheckDeposit_Timer();
    tmrGetDischargeNotice_Timer();
}

void ServerMonitors::checkNow() {
    tmrChkPendingRequests_Timer();
    tmrPrepaid_Timer();
    tmrGetDischargeNotice_Timer();
    m_on.lblNothingWaiting->setText(
        QStringLiteral("No requests of nurses, no prepaid requests, no discharge notices."));
}

void ServerMonitors::tellChecked() {
    m_on.lblChecked->setText(QStringLiteral("checked ") +
                             base::Format(base::now(), QStringLiteral("hh:mm:ss AM/PM")));
    m_on.lblChecked->show();
}

void ServerMonitors::tmrChkPendingRequests_Timer() {
    ado::Recordset requests = session::Read(sql("sp_Nuclear_NurseCommunication"));
    const int count = requests.RecordCount();
    requests.Close();
    tellChecked();
    const bool wait = count >= 1;
    setRunning(m_tmrPending, wait);
    setRunning(m_Timer1, wait);
    m_on.communicationCount->setNum(count);
    setShown({m_on.btnCommunication, m_on.Label1}, wait);
}

void ServerMonitors::tmrPrepaid_Timer() {
    m_tmrPrepaid.stop();
    ado::Recordset requests = session::sharedConnection().Execute(
        sql("NUCLEAR..sp_Nuclear_PrepaidCheckRequest '{}'", session::gDeptCode));
    const int count = requests.RecordCount();
    tellChecked();
    m_on.prepaidCount->setNum(count);
    setShown({m_on.cmdPrepaid, m_on.txtPrepaid}, count >= 1);
    requests.Close();
    m_tmrPrepaid.start();
}

void ServerMonitors::tmrGetDischargeNotice_Timer() {
    ado::Recordset notices = session::Read(sql("Nuclear..spNuclear_LoadDischargeNoticeCount"));
    const int count = notices.Eof() ? 0 : int(base::Val(notices.Fields("recCount").text()));
    notices.Close();
    tellChecked();
    showNotices(count);
    if (count > 0)
        m_merlin.announceNotices();
}

void ServerMonitors::showNotices(int count) {
    m_on.dischargeCount->setNum(count);
    setShown({m_on.btnDischarge, m_on.lblDischarge}, count > 0);
    showSilence();
}

void ServerMonitors::openDischargeNotices() {
    if (m_isClearing)
        return; // the list is open, and there is one of it
    const QScopedValueRollback clearing(m_isClearing, true);
    const session::ChosenPatient chosen = session::screens().openDischargeNotice();
    if (chosen.Valid)
        session::screens().openClearPatient(chosen.IdNum);
    tmrGetDischargeNotice_Timer();
}

void ServerMonitors::turnSilence() {
    m_merlin.figure().setSilenced(!m_merlin.figure().isSilenced());
    showSilence();
}

void ServerMonitors::showSilence() {
    const bool silenced = m_merlin.figure().isSilenced();
    m_on.lblSilence->setText(silenced ? QStringLiteral("Merlin is quiet; let it speak again")
                                      : QStringLiteral("Silence Merlin for this session"));
    m_on.lblSilence->setVisible(silenced || !m_on.lblDischarge->isHidden());
}

void ServerMonitors::type(QLabel* label, const QString& text) {
    if (m_position > text.size()) {
        m_position = 1;
        return;
    }
    label->setText(text.left(m_position));
    ++m_position;
}

void ServerMonitors::Timer1_Timer() {
    type(m_on.Label1, QStringLiteral("There are pending requests."));
}

void ServerMonitors::tmrPendingCaption_Timer() {
    type(m_on.Label2, QStringLiteral("There are Patients Deposit ..."));
}

void ServerMonitors::blink(IndicatorButton* button) {
    button->setBackColor(phaseColors[m_phase]);
    m_phase = m_phase == 0 ? 1 : 0;
}

void ServerMonitors::tmrPending_Timer() {
    blink(m_on.btnCommunication);
}

void ServerMonitors::tmrPendingButton_Timer() {
    blink(m_on.btnDepositComm);
}

} // namespace menu
