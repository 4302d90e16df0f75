#include "session/rights/frmPassword.h"

#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/look/Look.h"
#include "session/logon/PasswordCheck.h"
#include "session/logon/clsCurrentUser.h"
#include "ui_frmPassword.h"

namespace session {

frmPassword::frmPassword(clsCurrentUser& user, QWidget* parent)
    : Screen(parent), m_ui(std::make_unique<Ui::frmPassword>()), m_user(user) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    controls::onEnter(m_ui->txtPassword, [this] { cmdOk_Click(); });
    controls::on(m_ui->cmdOk, &QPushButton::clicked, this, [this] { cmdOk_Click(); });
    controls::on(m_ui->cmdCancel, &QPushButton::clicked, this, [this] { Unload(); });
}

frmPassword::~frmPassword() = default;

void frmPassword::Form_Load() {
    setMinimumWidth(controls::look::scaled(400));
    controls::look::setPrimary(m_ui->cmdOk);
    m_ui->header->setSubtitle(QStringLiteral("(%1)  %2").arg(m_user.employeecode(), m_user.employeename()));
    m_ui->txtPassword->setFocus();
}

void frmPassword::cmdOk_Click() {
    LogOnResult result = LogOnResult::Wrong;
    {
        const Hourglass busy;
        result = m_user.checkPassword(m_ui->txtPassword->text());
    }
    if (result == LogOnResult::Wait) {
        m_ui->lblMessage->setText(PasswordTries::waitSentence(m_user.employeecode()));
        m_ui->txtPassword->selectAll();
        return;
    }
    Valid = result == LogOnResult::Good;
    Unload();
}

} // namespace session
