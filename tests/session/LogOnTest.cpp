#include "platform/base/Error.h"
#include "platform/base/TestDoors.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/hospital/Create.h"
#include "server/hospital/Kit.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/logon/PasswordCheck.h"
#include "session/logon/clsCurrentUser.h"
#include "session/logon/frmLogOn.h"
#include "session/rights/frmPassword.h"
#include "tests/session/Drive.h"
#include "tests/support/screens/ScriptedSession.h"

#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QTemporaryDir>

using namespace session;
using tests::childOf;

namespace {

const auto morning = *base::makeDateTime({2026, 11, 21}, {8, 30});

base::DateTime secondsLater(int seconds) {
    return {morning.ms + seconds * 1000LL};
}

TEST(PasswordTries, WaitsThirtySecondsAfterTheFifthAndDoubles) {
    forgetPasswordTries();
    const QString code = QStringLiteral("1001");
    const base::FixedClock clock(morning);
    for (int i = 1; i < PasswordTries::freeTries; ++i) {
        PasswordTries::wrong(code);
        EXPECT_EQ(PasswordTries::secondsToWait(code), 0) << i;
    }
    PasswordTries::wrong(code);
    EXPECT_EQ(PasswordTries::secondsToWait(code), 30);
    EXPECT_EQ(PasswordTries::secondsToWait(QStringLiteral(" 1001 ")), 30);
    EXPECT_EQ(PasswordTries::secondsToWait(QStringLiteral("1002")), 0);
    {
        const base::FixedClock later(secondsLater(29));
        EXPECT_EQ(PasswordTries::secondsToWait(code), 1);
    }
    {
        const base::FixedClock later(secondsLater(30));
        EXPECT_EQ(PasswordTries::secondsToWait(code), 0);
        PasswordTries::wrong(code);
        EXPECT_EQ(PasswordTries::secondsToWait(code), 60);
    }
    PasswordTries::right(code);
    EXPECT_EQ(PasswordTries::secondsToWait(code), 0);
    PasswordTries::wrong(code);
    EXPECT_EQ(PasswordTries::secondsToWait(code), 0);
    forgetPasswordTries();
}

TEST(PasswordTries, AClockThatIsSetBackProlongsNoWait) {
    forgetPasswordTries();
    const QString code = QStringLiteral("1001");
    {
        const base::FixedClock ahead(secondsLater(86400));
        for (int i = 0; i < 5; ++i)
            PasswordTries::wrong(code);
    }
    const base::FixedClock clock(morning);
    EXPECT_EQ(PasswordTries::secondsToWait(code), 30);
    const base::FixedClock later(secondsLater(30));
    EXPECT_EQ(PasswordTries::secondsToWait(code), 0) << "and no longer";
    forgetPasswordTries();
}

TEST(PasswordTries, WaitHasALongest) {
    EXPECT_EQ(PasswordTries::waitAfter(4), 0);
    EXPECT_EQ(PasswordTries::waitAfter(5), 30);
    EXPECT_EQ(PasswordTries::waitAfter(7), 120);
    EXPECT_EQ(PasswordTries::waitAfter(1000), PasswordTries::longestWaitSeconds);
}

TEST(PasswordMatches, AnEmptyHashLetsNobodyIn) {
    EXPECT_FALSE(passwordMatches({}, {}));
    EXPECT_FALSE(passwordMatches(QStringLiteral("secret"), QStringLiteral("secret")));
    EXPECT_FALSE(passwordMatches(QStringLiteral("$argon2id$v=19$broken"), QStringLiteral("secret")));
}

class LogOn : public testing::Test {
  protected:
    LogOn() {
        forgetPasswordTries();
        server->addEmployee(QStringLiteral("1001"), QStringLiteral("REYES, JOAN P."),
                            QStringLiteral("secret"));
        server->addEmployee(QStringLiteral("1900"), QStringLiteral("SALONGA, VIRGILIO T."),
                            QStringLiteral("files"), QStringLiteral("00"));
        server->addEmployee(QStringLiteral("1777"), QStringLiteral("GONE, LONG A."), QStringLiteral("past"),
                            QStringLiteral("5"), QStringLiteral("I"));
        setHospitalServers({server});
        user.setPasswordDeptCode(QStringLiteral("5"));
    }
    ~LogOn() override {
        setHospitalServers({});
        forgetPasswordTries();
    }

    void show(const std::function<void(controls::Screen&)>& driver) {
        tests::whileModal([this] { user.ShowMain(); }, driver);
    }
    static void type(controls::Screen& logOn, const char* code, const char* password) {
        auto& codeField = childOf<QLineEdit>(logOn, "txtEmployeeCode");
        codeField.clear();
        codeField.setFocus();
        QTest::keyClicks(&codeField, QLatin1String(code));
        QTest::keyClick(&codeField, Qt::Key_Return);
        auto& passwordField = childOf<QLineEdit>(logOn, "txtPassword");
        passwordField.clear();
        QTest::keyClicks(&passwordField, QLatin1String(password));
        QTest::keyClick(&passwordField, Qt::Key_Return);
    }
    static QString message(controls::Screen& logOn) { return childOf<QLabel>(logOn, "lblMessage").text(); }

    std::shared_ptr<tests::ScriptedServer> server = std::make_shared<tests::ScriptedServer>();
    clsCurrentUser user;
};

TEST_F(LogOn, EnterMovesFromTheCodeToThePasswordAndLogsOn) {
    show([](controls::Screen& logOn) {
        EXPECT_TRUE(childOf(logOn, "txtEmployeeCode").hasFocus());
        QTest::keyClick(&childOf(logOn, "txtEmployeeCode"), Qt::Key_Return);
        EXPECT_TRUE(childOf(logOn, "txtEmployeeCode").hasFocus()) << "an empty code stays";
        QTest::keyClicks(&childOf(logOn, "txtEmployeeCode"), QStringLiteral("1001"));
        QTest::keyClick(&childOf(logOn, "txtEmployeeCode"), Qt::Key_Return);
        EXPECT_TRUE(childOf(logOn, "txtPassword").hasFocus());
        EXPECT_EQ(childOf<QLineEdit>(logOn, "txtPassword").echoMode(), QLineEdit::Password);
        EXPECT_EQ(childOf<QComboBox>(logOn, "cmbServer").currentText(), u"Scripted");
        QTest::keyClicks(&childOf(logOn, "txtPassword"), QStringLiteral("secret"));
        QTest::keyClick(&childOf(logOn, "txtPassword"), Qt::Key_Return);
    });
    EXPECT_TRUE(user.Connected());
    EXPECT_EQ(user.employeecode(), u"1001");
    EXPECT_EQ(user.employeename(), u"REYES, JOAN P.");
    EXPECT_EQ(user.UserID(), u"1001");
    EXPECT_EQ(user.ServerName(), u"SCRIPTED");
    EXPECT_EQ(user.Database(), u"NUCLEAR");
    EXPECT_EQ(user.PasswordDeptCode(), u"5");
    EXPECT_EQ(user.sqlconnection().State(), ado::Connection::adStateOpen);
    EXPECT_EQ(server->logins, QStringList{QStringLiteral("1001")});
}

TEST_F(LogOn, ServersAreListedOnceTheDialogIsSeenOrWhenTheyAreNeeded) {
    frmLogOn unseen(user);
    unseen.load();
    const auto& servers = childOf<QComboBox>(unseen, "cmbServer");
    EXPECT_EQ(servers.count(), 0) << "asking for them must not hold up the first picture";
    type(unseen, "1001", "secret");
    EXPECT_TRUE(unseen.isUnloaded());
    EXPECT_EQ(servers.currentText(), u"Scripted");
    EXPECT_TRUE(user.Connected());
    show([](controls::Screen& logOn) {
        EXPECT_EQ(childOf<QComboBox>(logOn, "cmbServer").currentText(), u"Scripted");
        logOn.repaint();
        QCoreApplication::processEvents();
        EXPECT_EQ(childOf<QComboBox>(logOn, "cmbServer").count(), 1) << "listed once";
        QTest::keyClick(&logOn, Qt::Key_Escape);
    });
}

TEST_F(LogOn, OfTheMachinesDataSourcesATestSeesItsOwnAlone) {
    setHospitalServers({});
    QStringList names;
    for (const auto& there : hospitalServers())
        names += there->name();
    names.removeOne(qEnvironmentVariable("SCINTRA_TEST_DSN"));
    EXPECT_EQ(names, QStringList{QStringLiteral("This computer")});
}

TEST_F(LogOn, FileMaintenanceBringsItsOwnDepartment) {
    show([](controls::Screen& logOn) { type(logOn, "1900", "files"); });
    EXPECT_EQ(user.PasswordDeptCode(), u"00");
}

/// The count goes up in one statement, whatever other desks do meanwhile.
const QString addWrongTry = QStringLiteral("UPDATE PASSWORD..tbPasswordMain SET WrongTries = WrongTries + 1, "
                                           "LockedUntil = CASE WHEN WrongTries < 4 THEN "
                                           "NULL WHEN WrongTries > 10 THEN DATEADD(second, 3600, GETDATE()) "
                                           "ELSE DATEADD(second, 30 * POWER(2, WrongTries "
                                           "- 4), GETDATE()) END WHERE EmployeeID = '1001'");

TEST_F(LogOn, WrongPasswordAndUnknownCodeReadAlike) {
    show([](controls::Screen& logOn) {
        type(logOn, "1001", "guess");
        EXPECT_EQ(message(logOn), u"Employee code or password is wrong.");
        EXPECT_TRUE(childOf(logOn, "txtPassword").hasFocus());
        auto& password = childOf<QLineEdit>(logOn, "txtPassword");
        EXPECT_EQ(password.selectedText().size(), 5);
        password.deselect();
        QTest::keyClick(&childOf(logOn, "txtEmployeeCode"), Qt::Key_Return);
        EXPECT_EQ(password.selectedText().size(), 5);
        type(logOn, "4711", "guess");
        EXPECT_EQ(message(logOn), u"Employee code or password is wrong.");
        QTest::keyClick(&logOn, Qt::Key_Escape);
    });
    EXPECT_FALSE(user.Connected());
    EXPECT_EQ(user.sqlconnection().State(), ado::Connection::adStateClosed);
    for (const QString& text : server->texts)
        EXPECT_FALSE(text.contains(QStringLiteral("guess")));
}

TEST_F(LogOn, WrongTriesAreCountedOnTheServerAndClearedByARightOne) {
    show([this](controls::Screen& logOn) {
        type(logOn, "1001", "guess");
        EXPECT_EQ(server->texts.last(), addWrongTry);
        QTest::keyClick(&logOn, Qt::Key_Escape);
    });
    EXPECT_EQ(PasswordTries::secondsToWait(QStringLiteral("1001")), 0);
}

TEST_F(LogOn, FiveWrongTriesMakeTheCodeWait) {
    const base::FixedClock clock(morning);
    show([this](controls::Screen& logOn) {
        for (int i = 0; i < 5; ++i)
            type(logOn, "1001", "guess");
        EXPECT_EQ(message(logOn), u"Too many wrong tries. Please wait 30 seconds.");
        EXPECT_EQ(server->texts.last(), addWrongTry);
        const qsizetype sent = server->texts.size();
        type(logOn, "1001", "secret");
        EXPECT_EQ(server->texts.size(), sent) << "the right password is not even tried";
        EXPECT_EQ(message(logOn), u"Too many wrong tries. Please wait 30 seconds.");
        const base::FixedClock later(secondsLater(31));
        type(logOn, "1001", "secret");
    });
    EXPECT_TRUE(user.Connected());
}

TEST_F(LogOn, CodeThatTheServerHasLockedWaits) {
    server->answer(QStringLiteral("SELECT EmployeeID, Name, PasswordHash"),
                   tests::ScriptedProvider::rowsOf(
                       QStringLiteral("EmployeeID,Name,PasswordHash,DeptCode,Status,WrongTries,SecondsLeft"),
                       {{"1001", "REYES", "", "5", "A", 6, 45}}));
    show([](controls::Screen& logOn) {
        type(logOn, "1001", "secret");
        EXPECT_EQ(message(logOn), u"Too many wrong tries. Please wait 45 seconds.");
        QTest::keyClick(&logOn, Qt::Key_Escape);
    });
    EXPECT_FALSE(user.Connected());
}

TEST_F(LogOn, AServersClockThatRanAheadProlongsNoWait) {
    server->answer(QStringLiteral("SELECT EmployeeID, Name, PasswordHash"),
                   tests::ScriptedProvider::rowsOf(
                       QStringLiteral("EmployeeID,Name,PasswordHash,DeptCode,Status,WrongTries,SecondsLeft"),
                       {{"1001", "REYES", "", "5", "A", 5, 86400}}));
    show([this](controls::Screen& logOn) {
        type(logOn, "1001", "secret");
        EXPECT_EQ(message(logOn), u"Too many wrong tries. Please wait 30 seconds.");
        EXPECT_EQ(server->texts.last(),
                  u"UPDATE PASSWORD..tbPasswordMain SET LockedUntil = DATEADD(second, 30, "
                  u"GETDATE()) WHERE EmployeeID = '1001'");
        QTest::keyClick(&logOn, Qt::Key_Escape);
    });
}

TEST_F(LogOn, ClosedCodeIsToldOnlyBehindTheRightPassword) {
    show([](controls::Screen& logOn) {
        type(logOn, "1777", "guess");
        EXPECT_EQ(message(logOn), u"Employee code or password is wrong.");
        type(logOn, "1777", "past");
        EXPECT_EQ(message(logOn), u"This employee code has been closed.");
        QTest::keyClick(&logOn, Qt::Key_Escape);
    });
    EXPECT_FALSE(user.Connected());
}

TEST_F(LogOn, FirstStartSetsTheHospitalUp) {
    server->there = false;
    show([](controls::Screen& logOn) {
        EXPECT_FALSE(childOf(logOn, "prgSetUp").isVisible());
        type(logOn, "1001", "secret");
    });
    EXPECT_EQ(server->progressTold, (QList<int>{0, 50, 100}));
    EXPECT_TRUE(user.Connected());
}

TEST_F(LogOn, ServerErrorIsSaidInTheDialog) {
    server->fail(QStringLiteral("SELECT EmployeeID"));
    show([](controls::Screen& logOn) {
        type(logOn, "1001", "secret");
        EXPECT_EQ(message(logOn), u"Scripted failure.");
        EXPECT_TRUE(childOf(logOn, "cmdLogOn").isEnabled());
        QTest::keyClick(&logOn, Qt::Key_Escape);
    });
    EXPECT_FALSE(user.Connected());
}

TEST_F(LogOn, QuoteInTheCodeBecomesABackQuote) {
    show([](controls::Screen& logOn) {
        QTest::keyClicks(&childOf(logOn, "txtEmployeeCode"), QStringLiteral("o'x"));
        EXPECT_EQ(childOf<QLineEdit>(logOn, "txtEmployeeCode").text(), u"O`X");
        QTest::keyClick(&logOn, Qt::Key_Escape);
    });
}

TEST_F(LogOn, CapsLockIsNoticed) {
    show([](controls::Screen& logOn) {
        auto& password = childOf(logOn, "txtPassword");
        auto& hint = childOf<QLabel>(logOn, "lblCapsLock");
        QTest::keyClick(&password, 'A', Qt::ShiftModifier);
        EXPECT_EQ(hint.text(), u"");
        QTest::keyClick(&password, 'A', Qt::NoModifier);
        EXPECT_EQ(hint.text(), u"Caps Lock is on.");
        QTest::keyClick(&password, 'a', Qt::NoModifier);
        EXPECT_EQ(hint.text(), u"");
        QTest::keyClick(&password, 'a', Qt::ShiftModifier);
        EXPECT_EQ(hint.text(), u"Caps Lock is on.");
        QTest::keyClick(&password, Qt::Key_CapsLock);
        EXPECT_EQ(hint.text(), u"");
        QTest::keyClick(&logOn, Qt::Key_Escape);
    });
}

TEST_F(LogOn, OwnPasswordIsAskedOnce) {
    ASSERT_EQ(user.logOnTo(server, QStringLiteral("1001"), QStringLiteral("secret")), LogOnResult::Good);
    const auto ask = [&](const char* password) {
        bool right = false;
        tests::whileModal([&] { right = user.checkusersettings(); },
                          [&](controls::Screen& dialog) {
                              QTest::keyClicks(&childOf(dialog, "txtPassword"), QLatin1String(password));
                              QTest::keyClick(&childOf(dialog, "txtPassword"), Qt::Key_Return);
                          });
        return right;
    };
    EXPECT_FALSE(ask("guess"));
    EXPECT_TRUE(ask("secret"));
    bool right = true;
    tests::whileModal([&] { right = user.checkusersettings(); },
                      [](controls::Screen& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_FALSE(right);
}

TEST_F(LogOn, ReportLogOnsAreHeldAgainstTheServer) {
    ASSERT_EQ(user.logOnTo(server, QStringLiteral("1001"), QStringLiteral("secret")), LogOnResult::Good);
    const QString password = user.serverpassword();
    const auto errorOf = [&](const char* host, const char* database, const char* login,
                             const QString& secret) {
        try {
            user.openReportConnection(QLatin1String(host), QLatin1String(database), QLatin1String(login),
                                      secret);
        } catch (const base::RunTimeError& error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(errorOf("SCRIPTED", "NUCLEAR", "sa", password), 0);
    EXPECT_EQ(errorOf("SCRIPTED", "Nuclear", "1001", password), 0);
    EXPECT_EQ(errorOf("SCRIPTED", "NOWHERE", "sa", password), 4060);
    EXPECT_EQ(errorOf("SCRIPTED", "NUCLEAR", "sa", QStringLiteral("guess")), 18456);
    EXPECT_EQ(errorOf("SCRIPTED", "NUCLEAR", "1002", password), 18456);
    EXPECT_EQ(errorOf("ELSEWHERE", "NUCLEAR", "sa", password), 53);
    const auto connection = user.openReportConnection(QStringLiteral("SCRIPTED"), QStringLiteral("NUCLEAR"),
                                                      QStringLiteral("sa"), password);
    EXPECT_EQ(connection->DefaultDatabase(), u"NUCLEAR");
    EXPECT_EQ(ado::Connection::byConnectionString(user.sqlconnection().ConnectionString()),
              &user.sqlconnection());
}

TEST_F(LogOn, RightsOfTheHospitalsLogOnAreOnesOfTheDepartment) {
    ASSERT_EQ(user.logOnTo(server, QStringLiteral("1900"), QStringLiteral("files")), LogOnResult::Good);
    user.sqlconnection().setDefaultDatabase(QStringLiteral("NUCLEAR"));
    EXPECT_THROW(user.HAVE_RIGHTS(QStringLiteral("A")), base::RunTimeError) << "no answer was prepared";
    EXPECT_EQ(server->texts.last(),
              u"SELECT RightsID FROM PASSWORD..tbPasswordRights WHERE EmployeeID = '1900' AND "
              u"DeptCode = '00' AND RightsID = 'A'");
}

TEST(FirstStart, MakesTheHospitalFileAndLogsOn) {
    const base::FixedClock clock(morning);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("new/hospital.scintra"));
    setHospitalFile(file);
    {
        clsCurrentUser user;
        tests::whileModal([&] { user.ShowMain(); },
                          [](controls::Screen& logOn) { QTest::keyClick(&logOn, Qt::Key_Escape); });
        EXPECT_FALSE(QFile::exists(file)) << "looking at the log-on makes nothing";
        tests::whileModal([&] { user.ShowMain(); },
                          [](controls::Screen& logOn) {
                              EXPECT_EQ(childOf<QComboBox>(logOn, "cmbServer").currentText(),
                                        u"This computer");
                              QTest::keyClicks(&childOf(logOn, "txtEmployeeCode"), QStringLiteral("1001"));
                              QTest::keyClicks(&childOf(logOn, "txtPassword"), QStringLiteral("kerova"));
                              QTest::keyClick(&childOf(logOn, "txtPassword"), Qt::Key_Return);
                          });
        EXPECT_TRUE(user.Connected());
        EXPECT_EQ(user.employeename(), u"REYES, JOAN P.");
        EXPECT_TRUE(QFile::exists(file));
    }
    setHospitalFile({});
}

/// What the log-on says of a file that nobody can work on.
QString refusalOf(const QString& file) {
    setHospitalFile(file);
    clsCurrentUser user;
    QString told;
    tests::whileModal([&] { user.ShowMain(); },
                      [&](controls::Screen& logOn) {
                          QTest::keyClicks(&childOf(logOn, "txtEmployeeCode"), QStringLiteral("1001"));
                          QTest::keyClicks(&childOf(logOn, "txtPassword"), QStringLiteral("kerova"));
                          QTest::keyClick(&childOf(logOn, "txtPassword"), Qt::Key_Return);
                          told = childOf<QLabel>(logOn, "lblMessage").text();
                          QTest::keyClick(&logOn, Qt::Key_Escape);
                      });
    EXPECT_FALSE(user.Connected());
    setHospitalFile({});
    return told;
}

TEST(FirstStart, DamagedFileIsSaidInTheDialog) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("hospital.scintra"));
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("no hospital at all");
    damaged.close();
    EXPECT_FALSE(refusalOf(file).isEmpty());
}

TEST(FirstStart, FileOfANewerProgramIsRefusedWithASentence) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("hospital.scintra"));
    hospital::createEmptyHospital(file);
    engine::EmbeddedProvider::open(file, {})->setSetting(QStringLiteral("kitNumber"),
                                                         QString::number(hospital::kitNumber + 1));
    EXPECT_EQ(refusalOf(file),
              QStringLiteral("%1 was brought up to kit %2 by a newer program; this program has "
                             "kit %3. Please start the newer one.")
                  .arg(file)
                  .arg(hospital::kitNumber + 1)
                  .arg(hospital::kitNumber));
}

} // namespace
