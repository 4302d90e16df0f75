#include "session/logon/frmLogOn.h"

#include "platform/base/Error.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/look/Look.h"
#include "session/logon/PasswordCheck.h"
#include "session/logon/clsCurrentUser.h"
#include "session/logon/frmDatabaseLogin.h"
#include "ui_frmLogOn.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QStyle>
#include <QTimer>

#include <algorithm>

namespace session {

frmLogOn::frmLogOn(clsCurrentUser& user, QWidget* parent)
    : Screen(parent)
    , m_ui(std::make_unique<Ui::frmLogOn>())
    , m_user(user)
    , m_listTimer(new QTimer(this))
    , m_waitTimer(new QTimer(this)) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    m_listTimer->setSingleShot(true);
    m_waitTimer->setInterval(1000);
    controls::setKeyRules(m_ui->txtEmployeeCode,
                          controls::KeyRules(controls::KeyRule::UpperCase) | controls::KeyRule::BackQuote);
    m_ui->txtPassword->installEventFilter(this);
    controls::on(m_ui->txtEmployeeCode, &QLineEdit::returnPressed, this, [this] {
        if (m_ui->txtEmployeeCode->text().trimmed().isEmpty())
            return;
        m_ui->txtPassword->setFocus();
        m_ui->txtPassword->selectAll();
    });
    controls::on(m_ui->txtPassword, &QLineEdit::returnPressed, this, [this] { cmdLogOn_Click(); });
    controls::on(m_ui->cmdLogOn, &QPushButton::clicked, this, [this] { cmdLogOn_Click(); });
    controls::on(m_ui->cmdCancel, &QPushButton::clicked, this, [this] { Unload(); });
    controls::on(m_listTimer, &QTimer::timeout, this, [this] { listServers(); });
    controls::on(m_waitTimer, &QTimer::timeout, this, [this] { sayWait(); });
}

frmLogOn::~frmLogOn() = default;

void frmLogOn::Form_Load() {
    setMinimumWidth(controls::look::scaled(440));
    showLogo();
    m_ui->prgSetUp->hide();
    m_ui->lblCapsLock->clear();
    say({});
    m_ui->txtEmployeeCode->setFocus();
}

/// Asking the driver manager takes as long as drawing the dialog: it is asked when the dialog is seen.
void frmLogOn::paintEvent(QPaintEvent* event) {
    Screen::paintEvent(event);
    if (m_servers.empty())
        m_listTimer->start(0);
}

/// Chosen is the server of the last log-on; before that, a data source called as the hospital's system.
void frmLogOn::listServers() {
    if (!m_servers.empty())
        return;
    m_servers = hospitalServers();
    for (const auto& server : m_servers)
        m_ui->cmbServer->addItem(server->name());
    const int last = m_ui->cmbServer->findText(lastServer(), Qt::MatchFixedString);
    const int named = m_ui->cmbServer->findText(QStringLiteral("Kerova"), Qt::MatchFixedString);
    m_ui->cmbServer->setCurrentIndex(std::max(0, last >= 0 ? last : named));
}

bool frmLogOn::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_ui->txtPassword && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        watchCapsLock(key->key(), key->text(), key->modifiers() & Qt::ShiftModifier);
    }
    return Screen::eventFilter(watched, event);
}

void frmLogOn::showLogo() {
    auto* band = qobject_cast<QBoxLayout*>(m_ui->header->layout());
    const QIcon icon = controls::look::icon(QStringLiteral("app"), Qt::white);
    if (!band || icon.isNull())
        return;
    auto* logo = new QLabel(m_ui->header);
    logo->setObjectName(QStringLiteral("lblLogo"));
    const int side = fontMetrics().height() * 2;
    logo->setPixmap(icon.pixmap(QSize(side, side), devicePixelRatioF()));
    band->insertWidget(0, logo);
}

/// No desk tells a program plainly whether caps lock is on; a letter whose case does not fit Shift does.
void frmLogOn::watchCapsLock(int key, const QString& text, bool shift) {
    if (key == Qt::Key_CapsLock) {
        m_ui->lblCapsLock->clear();
        return;
    }
    if (text.size() != 1 || !text[0].isLetter())
        return;
    const bool on = text[0].isUpper() != shift && text[0].toUpper() != text[0].toLower();
    m_ui->lblCapsLock->setText(on ? tr("Caps Lock is on.") : QString());
}

void frmLogOn::cmdLogOn_Click() {
    if (!m_ui->cmdLogOn->isEnabled())
        return;
    if (m_ui->txtEmployeeCode->text().trimmed().isEmpty()) {
        say(tr("Type your employee code."), Tone::Wrong);
        m_ui->txtEmployeeCode->setFocus();
        return;
    }
    m_ui->cmdLogOn->setEnabled(false);
    listServers();
    const auto server = m_servers.at(std::size_t(m_ui->cmbServer->currentIndex()));
    try {
        logOn(server);
    } catch (const base::RunTimeError& error) {
        m_ui->prgSetUp->hide();
        refuse(server->sentence(error));
    }
    m_ui->cmdLogOn->setEnabled(true);
}

LogOnResult frmLogOn::tryLogOn(const std::shared_ptr<HospitalServer>& server, const QString& code) {
    const Hourglass busy;
    if (!server->isThere())
        prepareServer(*server);
    return m_user.logOnTo(server, code, m_ui->txtPassword->text());
}

/// A server that wants a database login is told the one that the user is asked for, once a try.
LogOnResult frmLogOn::tryWithAskedLogin(const std::shared_ptr<HospitalServer>& server, const QString& code) {
    try {
        return tryLogOn(server, code);
    } catch (const base::RunTimeError& error) {
        if (!server->refusedLogin(error))
            throw;
        frmDatabaseLogin dialog(*server, this);
        dialog.ShowModal();
        if (!dialog.Valid)
            throw;
    }
    return tryLogOn(server, code);
}

void frmLogOn::logOn(const std::shared_ptr<HospitalServer>& server) {
    const QString code = m_ui->txtEmployeeCode->text().trimmed();
    LogOnResult result = tryWithAskedLogin(server, code);
    if (PasswordTries::secondsToWait(code) > 0)
        result = LogOnResult::Wait;
    switch (result) {
    case LogOnResult::Good:
        setLastServer(server->name());
        Unload();
        break;
    case LogOnResult::Wrong:
        refuse(tr("Employee code or password is wrong."));
        break;
    case LogOnResult::Inactive:
        refuse(tr("This employee code has been closed."));
        break;
    case LogOnResult::Wait:
        m_waitingCode = code;
        m_waitTimer->start();
        refuse({});
        sayWait();
        break;
    }
}

void frmLogOn::prepareServer(HospitalServer& server) {
    say(tr("Setting up the hospital on this computer ..."));
    m_ui->prgSetUp->setValue(0);
    m_ui->prgSetUp->show();
    server.prepare([this](int percent) {
        m_ui->prgSetUp->setValue(percent);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
    m_ui->prgSetUp->hide();
    say({});
}

void frmLogOn::refuse(const QString& message) {
    say(message, Tone::Wrong);
    m_ui->txtPassword->setFocus();
    m_ui->txtPassword->selectAll();
}

void frmLogOn::sayWait() {
    if (PasswordTries::secondsToWait(m_waitingCode) == 0) {
        m_waitTimer->stop();
        say(tr("You can try again now."));
        return;
    }
    say(PasswordTries::waitSentence(m_waitingCode), Tone::Wrong);
}

void frmLogOn::say(const QString& message, Tone tone) {
    controls::look::setKind(m_ui->lblMessage,
                            tone == Tone::Wrong ? QStringLiteral("danger") : QStringLiteral("help"));
    m_ui->lblMessage->setText(message);
    // what a server says may take more lines than the dialog has
    if (isVisible()) {
        layout()->activate();
        resize(width(), std::max(height(), layout()->totalHeightForWidth(width())));
    }
}

} // namespace session
