#pragma once

#include "platform/controls/screen/Screen.h"
#include "session/logon/HospitalServer.h"

#include <memory>

class QTimer;

namespace session {

class clsCurrentUser;
enum class LogOnResult;

namespace Ui {
class frmLogOn;
}

/// The log-on: employee code, password, server. Unloads on a good log-on and when it is given up.
class frmLogOn : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmLogOn(clsCurrentUser& user, QWidget* parent = nullptr);
    ~frmLogOn() override;

  protected:
    void Form_Load() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    enum class Tone { Plain, Wrong };

    void showLogo();
    void listServers();
    void cmdLogOn_Click();
    void logOn(const std::shared_ptr<HospitalServer>& server);
    LogOnResult tryLogOn(const std::shared_ptr<HospitalServer>& server, const QString& code);
    LogOnResult tryWithAskedLogin(const std::shared_ptr<HospitalServer>& server, const QString& code);
    void prepareServer(HospitalServer& server);
    void refuse(const QString& message);
    void say(const QString& message, Tone tone = Tone::Plain);
    void sayWait();
    void watchCapsLock(int key, const QString& text, bool shift);

    std::unique_ptr<Ui::frmLogOn> m_ui;
    clsCurrentUser& m_user;
    HospitalServers m_servers; ///< as they stand in cmbServer; empty until the dialog is seen
    QTimer* m_listTimer;
    QTimer* m_waitTimer;
    QString m_waitingCode;
};

} // namespace session
