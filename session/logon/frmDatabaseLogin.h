#pragma once

#include "platform/controls/screen/Screen.h"

#include <memory>

namespace session {

class HospitalServer;

namespace Ui {
class frmDatabaseLogin;
}

/// Asks for the database login of a server whose data source has none, and gives it to the server.
class frmDatabaseLogin : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmDatabaseLogin(HospitalServer& server, QWidget* parent = nullptr);
    ~frmDatabaseLogin() override;

    /// A login was given.
    bool Valid = false;

  protected:
    void Form_Load() override;

  private:
    void cmdOk_Click();

    std::unique_ptr<Ui::frmDatabaseLogin> m_ui;
    HospitalServer& m_server;
};

} // namespace session
