#include "session/frmLogOn.h"

#include "platform/base/Error.h"
#include "platform/controls/KeyFilter.h"
#include "platform/controls/Look.h"
#include "session/HospitalServer.h"
#include "session/PasswordCheck.h"
#include "session/clsCurrentUser.h"
#include "ui_frmLogOn.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QStyle>
#include <QTimer>

namespace session {

frmLogOn::frmLogOn(clsCurrentUser& user, QWidget* parent)
    : Screen(parent), m_ui(std::make_unique<Ui::frmLogOn>()), m_user(user), m_waitTimer(new QTimer(this)) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
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
    controls::on(m_waitTimer, &QTimer::timeout, this, [this] { sayWait(); });
}

frmLogOn::~frmLogOn() = default;

void frmLogOn::Form_Load() {
    setMinimumWidth(controls::look::scaled(440));
    controls::look::setPrimary(m_ui->cmdLogOn);
    showLogo();
    for (const auto& server : hospitalServers())
        m_ui->cmbServer->addItem(server->name());
    for (QLabel* label : {m_ui->lblEmployeeCode, m_ui->lblPassword, m_ui->lblServer, m_ui->lblHelp})
        label->setProperty("kind", QStringLiteral("help"));
    m_ui->lblCapsLock->setProperty("kind", QStringLiteral("warn"));
    m_ui->prgSetUp->hide();
    m_ui->lblCapsLock->clear();
    say({});
    m_ui->txtEmployeeCode->setFocus();
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
    try {
        logOn();
    } catch (const base::RunTimeError& error) {
        m_ui->prgSetUp->hide();
        refuse(error.description());
    }
    m_ui->cmdLogOn->setEnabled(true);
}

void frmLogOn::logOn() {
    const auto server = hospitalServers().at(std::size_t(m_ui->cmbServer->currentIndex()));
    const QString code = m_ui->txtEmployeeCode->text().trimmed();
    LogOnResult result;
    {
        const Hourglass busy;
        if (!server->isThere())
            prepareServer(*server);
        result = m_user.logOnTo(server, code, m_ui->txtPassword->text());
    }
    if (PasswordTries::secondsToWait(code) > 0)
        result = LogOnResult::Wait;
    switch (result) {
    case LogOnResult::Good:
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
    const int seconds = PasswordTries::secondsToWait(m_waitingCode);
    if (seconds == 0) {
        m_waitTimer->stop();
        say(tr("You can try again now."));
        return;
    }
    say(seconds == 1 ? tr("Too many wrong tries. Please wait 1 second.")
                     : tr("Too many wrong tries. Please wait %1 seconds.").arg(seconds),
        Tone::Wrong);
}

void frmLogOn::say(const QString& message, Tone tone) {
    m_ui->lblMessage->setProperty("kind",
                                  tone == Tone::Wrong ? QStringLiteral("danger") : QStringLiteral("help"));
    m_ui->lblMessage->style()->polish(m_ui->lblMessage);
    m_ui->lblMessage->setText(message);
}

} // namespace session
