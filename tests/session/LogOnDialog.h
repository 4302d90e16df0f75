#pragma once

#include "platform/base/TestDoors.h"
#include "session/TestDoors.h"
#include "session/logon/HospitalServer.h"
#include "session/logon/PasswordCheck.h"
#include "session/logon/clsCurrentUser.h"
#include "tests/session/Drive.h"
#include "tests/support/odbc/TestDriver.h"
#include "tests/support/screens/LoggedOn.h"

#include <QComboBox>
#include <QLabel>

namespace tests {

/// The log-on dialog on the data sources of this process; nobody has logged on or failed to before.
class LogOnDialog : public testing::Test {
  protected:
    LogOnDialog() {
        session::forgetPasswordTries();
        session::setHospitalServers({});
        session::setLastServer({});
        user.setPasswordDeptCode(QStringLiteral("5"));
    }
    ~LogOnDialog() override {
        session::forgetPasswordTries();
        session::setLastServer({});
        setDataSources({});
    }

    /// The dialog, while the driver keys.
    void show(const std::function<void(controls::Screen&)>& driver) {
        whileModal([this] { user.ShowMain(); }, driver);
    }
    static void choose(controls::Screen& logOn, const char* server) {
        auto& servers = childOf<QComboBox>(logOn, "cmbServer");
        servers.setFocus();
        for (int i = 0; i < servers.count() && servers.currentText() != QLatin1String(server); ++i)
            QTest::keyClick(&servers, i == 0 ? Qt::Key_Home : Qt::Key_Down);
        ASSERT_EQ(servers.currentText(), QLatin1String(server));
    }
    static void type(controls::Screen& logOn) {
        auto& code = childOf<QLineEdit>(logOn, "txtEmployeeCode");
        code.clear();
        QTest::keyClicks(&code, QStringLiteral("1001"));
        auto& password = childOf<QLineEdit>(logOn, "txtPassword");
        password.clear();
        QTest::keyClicks(&password, QStringLiteral("kerova"));
        QTest::keyClick(&password, Qt::Key_Return);
    }
    static QString message(controls::Screen& logOn) { return childOf<QLabel>(logOn, "lblMessage").text(); }
    static void typeLogin(controls::Screen& dialog, const char* name, const char* password) {
        QTest::keyClicks(&childOf(dialog, "txtUser"), QLatin1String(name));
        QTest::keyClick(&childOf(dialog, "txtUser"), Qt::Key_Return);
        EXPECT_TRUE(childOf(dialog, "txtPassword").hasFocus());
        QTest::keyClicks(&childOf(dialog, "txtPassword"), QLatin1String(password));
        QTest::keyClick(&childOf(dialog, "txtPassword"), Qt::Key_Return);
    }

    base::FixedClock clock{demoMoment()};
    session::clsCurrentUser user;
};

} // namespace tests
