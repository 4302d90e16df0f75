#include "session/Session.h"
#include "session/TestDoors.h"

#include "platform/ado/Batch.h"
#include "platform/base/Error.h"
#include "session/Screens.h"
#include "session/logon/clsCurrentUser.h"
#include "session/services/Services.h"
#include "tests/session/Drive.h"
#include "tests/support/screens/ScriptedSession.h"

using namespace session;
using tests::childOf;
using tests::ScriptedProvider;

namespace {

/// Main() on a scripted server, the log-on driven by keys.
class Start : public testing::Test {
  protected:
    Start() {
        server->addEmployee(QStringLiteral("1001"), QStringLiteral("REYES, JOAN P."),
                            QStringLiteral("secret"));
        server->addEmployee(QStringLiteral("1002"), QStringLiteral("BAUTISTA, MARICEL O."),
                            QStringLiteral("other"));
        setHospitalServers({server});
    }
    ~Start() override {
        forgetSession();
        setHospitalServers({});
    }

    void mainAs(const char* code, const char* password) {
        tests::whileModal([] { Main(); },
                          [&](controls::Screen& logOn) {
                              QTest::keyClicks(&childOf(logOn, "txtEmployeeCode"), QLatin1String(code));
                              QTest::keyClick(&childOf(logOn, "txtEmployeeCode"), Qt::Key_Return);
                              QTest::keyClicks(&childOf(logOn, "txtPassword"), QLatin1String(password));
                              QTest::keyClick(&childOf(logOn, "txtPassword"), Qt::Key_Return);
                          });
    }

    std::shared_ptr<tests::ScriptedServer> server = std::make_shared<tests::ScriptedServer>();
    tests::RecordedScreens screens;
};

TEST(InitDepartment, KnowsOnlyNumberFive) {
    gDeptCode = gSectionCode = gDeptLetter = QStringLiteral("?");
    gIsNuclearDept = false;
    InitDepartment(QStringLiteral("4"));
    EXPECT_EQ(gDeptCode, u"?");
    EXPECT_EQ(gSectionCode, u"?");
    EXPECT_EQ(gDeptLetter, u"?");
    EXPECT_FALSE(gIsNuclearDept);
    InitDepartment(QStringLiteral("5"));
    EXPECT_EQ(gDeptCode, u"NU");
    EXPECT_EQ(gSectionCode, u"NU");
    EXPECT_EQ(gDeptLetter, u"J");
    EXPECT_TRUE(gIsNuclearDept);
}

TEST_F(Start, ReadsTheHeadingWiresTheServicesAndShowsTheMenu) {
    mainAs("1001", "secret");
    EXPECT_EQ(screens.mainMenus, 1);
    EXPECT_EQ(gEmployeeCode, u"1001");
    EXPECT_EQ(gUser->employeename(), u"REYES, JOAN P.");
    EXPECT_EQ(gUser->PasswordDeptCode(), u"5");
    EXPECT_EQ(gServerPassword, gUser->serverpassword());
    EXPECT_FALSE(gServerPassword.isEmpty());
    EXPECT_EQ(gHospitalName, u"Kerova General Hospital");
    EXPECT_EQ(gHospitalAddress, u"1 Main Street");
    EXPECT_EQ(gHospitalTitle, u"Hospital");
    EXPECT_EQ(gHospitalTin, u"123-456");
    EXPECT_EQ(gCodeFindDummy, u"");
    EXPECT_EQ(gConnection, &gUser->sqlconnection());
    EXPECT_EQ(gConnection->DefaultDatabase(), u"NUCLEAR");
    EXPECT_EQ(gConnection->CursorLocation(), ado::Connection::adUseClient);
    EXPECT_EQ(gAdmission, &gPatient->admission());
    EXPECT_EQ(gPatientMaster, &gPatient->patientMaster());
    EXPECT_EQ(gCodeFind->CompanyName, gHospitalName);
    EXPECT_EQ(gCodeFind->MTS_Server, u"");
    EXPECT_TRUE(gCodeFind->SearchMode);
    EXPECT_EQ(gDeptFind->Hospital, gHospitalName);
    EXPECT_EQ(gDeptFind->RevenueID, u"NU");
}

TEST_F(Start, SendsItsStatementsInOrder) {
    mainAs("1001", "secret");
    const QStringList texts = server->texts;
    ASSERT_EQ(texts.size(), 4);
    EXPECT_TRUE(texts[0].endsWith(QStringLiteral("FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '1001'")));
    EXPECT_EQ(texts[1], u"Select * from PATIENT_DATA..tbHospitalInfo");
    EXPECT_EQ(texts[2], u"SELECT TOP 1 ItemID FROM INVENTORY..tbInvMaster");
    EXPECT_EQ(texts[3], u"SELECT TOP 1 ItemID FROM INVENTORY..tbInvStock");
    for (const QString& text : texts)
        EXPECT_FALSE(text.contains(QStringLiteral("secret")));
}

TEST_F(Start, GivenUpEndsWithNothingShown) {
    tests::Boxes none;
    tests::whileModal([] { Main(); },
                      [](controls::Screen& logOn) { QTest::keyClick(&logOn, Qt::Key_Escape); });
    EXPECT_EQ(screens.mainMenus, 0);
    EXPECT_FALSE(gUser->Connected());
    EXPECT_EQ(gConnection, nullptr);
    EXPECT_TRUE(server->texts.isEmpty());
}

TEST_F(Start, AnotherUserReplacesEverything) {
    mainAs("1001", "secret");
    const clsCurrentUser* formerUser = gUser.get();
    const QString formerPassword = gServerPassword;
    ado::Connection* former = gConnection;
    LogOff();
    EXPECT_EQ(former->State(), ado::Connection::adStateClosed);
    LogOff(); // a connection that is closed stays so, without an error
    (void)formerUser;
    mainAs("1002", "other");
    EXPECT_EQ(screens.mainMenus, 2);
    EXPECT_EQ(gUser->employeecode(), u"1002");
    EXPECT_EQ(gEmployeeCode, u"1002");
    EXPECT_NE(gServerPassword, formerPassword);
    EXPECT_EQ(gServerPassword, gUser->serverpassword());
    EXPECT_EQ(gConnection, &gUser->sqlconnection());
    EXPECT_EQ(gConnection->State(), ado::Connection::adStateOpen);
}

TEST_F(Start, AnotherUserWhoGivesUpLeavesNothingOfTheFormerOne) {
    mainAs("1001", "secret");
    LogOff();
    tests::whileModal([] { Main(); },
                      [](controls::Screen& logOn) { QTest::keyClick(&logOn, Qt::Key_Escape); });
    EXPECT_EQ(screens.mainMenus, 1);
    EXPECT_EQ(gEmployeeCode, u"");
    EXPECT_EQ(gServerPassword, u"");
    EXPECT_EQ(gUser->employeecode(), u"");
    EXPECT_EQ(gConnection, nullptr);
    EXPECT_EQ(gAdmission, nullptr);
}

TEST_F(Start, SuppliesListThatFailsIsSaid) {
    server->fail(QStringLiteral("SELECT TOP 1 ItemID FROM INVENTORY..tbInvMaster"));
    tests::Boxes boxes({controls::vbOK});
    mainAs("1001", "secret");
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].prompt, u"Cannot load supplies list.");
    EXPECT_EQ(boxes.shown[0].style, controls::vbCritical);
    EXPECT_EQ(screens.mainMenus, 0);
}

TEST_F(Start, SuppliesInformationThatFailsIsSaid) {
    server->fail(QStringLiteral("SELECT TOP 1 ItemID FROM INVENTORY..tbInvStock"));
    tests::Boxes boxes({controls::vbOK});
    mainAs("1001", "secret");
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].prompt, u"Cannot load supplies information.");
    EXPECT_EQ(boxes.shown[0].style, controls::vbCritical);
    EXPECT_EQ(screens.mainMenus, 0);
}

/// Loses the connection behind the heading's statement: the next service cannot join it.
class LosesTheConnection : public tests::ScriptedServer {
  public:
    std::unique_ptr<ado::Provider> open(const QString& login) override {
        class Closer : public ado::Observer {
          public:
            void afterStatement(const ado::StatementEvent& event) override {
                if (event.text.startsWith(QStringLiteral("Select * from PATIENT_DATA")))
                    ado::Connection::byConnectionString(QStringLiteral("Server=SCRIPTED"))->Close();
            }
        };
        class Session : public tests::ScriptedProvider {
          public:
            explicit Session(std::unique_ptr<ado::Provider> inner) : m_inner(std::move(inner)) {}
            ado::Result execute(const QString& text) override {
                if (!m_watched)
                    ado::Connection::byConnectionString(QStringLiteral("Server=SCRIPTED"))
                        ->addObserver(&closer());
                m_watched = true;
                return ado::runBatch(*m_inner, text);
            }

          private:
            static Closer& closer() {
                static Closer instance;
                return instance;
            }
            std::unique_ptr<ado::Provider> m_inner;
            bool m_watched = false;
        };
        return std::make_unique<Session>(ScriptedServer::open(login));
    }
};

TEST_F(Start, PatientServiceThatFailsEndsSilently) {
    const auto losing = std::make_shared<LosesTheConnection>();
    losing->addEmployee(QStringLiteral("1001"), QStringLiteral("REYES, JOAN P."), QStringLiteral("secret"));
    setHospitalServers({losing});
    tests::Boxes none;
    mainAs("1001", "secret");
    EXPECT_TRUE(gUser->Connected());
    EXPECT_FALSE(gCodeFindDummy.isEmpty()) << "the service tells why";
    EXPECT_EQ(gConnection, nullptr);
    EXPECT_EQ(screens.mainMenus, 0);
}

TEST_F(Start, TheHeadingIsReadWithoutItsBlanksAndNullIsEmpty) {
    server->answer(
        QStringLiteral("Select * from PATIENT_DATA..tbHospitalInfo"),
        ScriptedProvider::rowsOf(QStringLiteral("Company,Address1,Title,TinNo"),
                                 {{" Kerova General Hospital   ", "1 Main Street  ", nullptr, "1 "}}));
    mainAs("1001", "secret");
    EXPECT_EQ(gHospitalName, u"Kerova General Hospital");
    EXPECT_EQ(gHospitalAddress, u"1 Main Street");
    EXPECT_EQ(gHospitalTitle, u"");
    EXPECT_EQ(gHospitalTin, u"1");
}

TEST_F(Start, NoHeadingRowIsARunTimeError) {
    server->answer(QStringLiteral("Select * from PATIENT_DATA..tbHospitalInfo"),
                   ScriptedProvider::rowsOf(QStringLiteral("Company,Address1,Title,TinNo")));
    int number = 0;
    tests::whileModal(
        [&] {
            try {
                Main();
            } catch (const base::RunTimeError& error) {
                number = error.number();
            }
        },
        [&](controls::Screen& logOn) {
            QTest::keyClicks(&childOf(logOn, "txtEmployeeCode"), QStringLiteral("1001"));
            QTest::keyClicks(&childOf(logOn, "txtPassword"), QStringLiteral("secret"));
            QTest::keyClick(&childOf(logOn, "txtPassword"), Qt::Key_Return);
        });
    EXPECT_EQ(number, base::errors::noCurrentRecord);
    EXPECT_EQ(screens.mainMenus, 0);
}

TEST(Screens, NoneInstalledIsARunTimeError) {
    setScreens(nullptr);
    EXPECT_THROW(session::screens(), base::RunTimeError);
}

TEST(SharedConnection, IsNotThereBeforeTheLogOn) {
    forgetSession();
    EXPECT_THROW(Read(ado::sql("select GETDATE() AS Tdate")), base::RunTimeError);
}

} // namespace
