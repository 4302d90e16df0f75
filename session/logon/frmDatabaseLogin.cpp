#include "session/logon/frmDatabaseLogin.h"

#include "platform/controls/look/Look.h"
#include "session/logon/HospitalServer.h"
#include "ui_frmDatabaseLogin.h"

namespace session {

frmDatabaseLogin::frmDatabaseLogin(HospitalServer& server, QWidget* parent)
    : Screen(parent), m_ui(std::make_unique<Ui::frmDatabaseLogin>()), m_server(server) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    controls::on(m_ui->txtUser, &QLineEdit::returnPressed, this, [this] {
        if (!m_ui->txtUser->text().trimmed().isEmpty())
            m_ui->txtPassword->setFocus();
    });
    controls::on(m_ui->txtPassword, &QLineEdit::returnPressed, this, [this] { cmdOk_Click(); });
    controls::on(m_ui->cmdOk, &QPushButton::clicked, this, [this] { cmdOk_Click(); });
    controls::on(m_ui->cmdCancel, &QPushButton::clicked, this, [this] { Unload(); });
}

frmDatabaseLogin::~frmDatabaseLogin() = default;

void frmDatabaseLogin::Form_Load() {
    setMinimumWidth(controls::look::scaled(440));
    controls::look::setPrimary(m_ui->cmdOk);
    for (QLabel* label : {m_ui->lblUser, m_ui->lblPassword, m_ui->lblHelp})
        controls::look::setKind(label, QStringLiteral("help"));
    m_ui->header->setSubtitle(m_server.name());
    m_ui->txtUser->setFocus();
}

void frmDatabaseLogin::cmdOk_Click() {
    const QString user = m_ui->txtUser->text().trimmed();
    if (user.isEmpty()) {
        m_ui->txtUser->setFocus();
        return;
    }
    m_server.setLogin(user, m_ui->txtPassword->text());
    Valid = true;
    Unload();
}

} // namespace session
