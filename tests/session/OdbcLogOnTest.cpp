#include "platform/base/Error.h"
#include "platform/controls/fields/KeptCharacters.h"
#include "session/logon/OdbcServer.h"
#include "tests/session/LogOnDialog.h"
#include "tests/support/hospital/Site.h"

#include <QComboBox>
#include <QLabel>

using namespace session;
using tests::childOf;
using tests::fakeDriver;
using tests::FakeError;
using tests::FakeStep;

namespace {

/// The log-on dialog on this computer's data sources; behind each stands the demo hospital.
class OdbcLogOn : public tests::LogOnDialog {
  protected:
    OdbcLogOn() {
        tests::setDataSources(QStringLiteral("[Ward]\nDriver=%1\n[Archive]\nDriver=%1\n"
                                             "[Broken]\nDriver=/no/such/driver.so\n")
                                  .arg(tests::testDriver()));
    }

    /// From now on a connection without that login is refused.
    void wantLogin(const QString& text) {
        fakeDriver().step = [text, inner = fakeDriver().step](int connection, FakeStep what) {
            if (what == FakeStep::Connect && !fakeDriver().connectionTexts.last().contains(text))
                return std::optional(FakeError{18456, QStringLiteral("28000"),
                                               QStringLiteral("[Test][SQL Server]Login failed for user."),
                                               false});
            return inner(connection, what);
        };
    }
    /// Every step of that kind fails so.
    static void fail(FakeStep step, const FakeError& error) {
        fakeDriver().step = [step, error, inner = fakeDriver().step](int connection, FakeStep what) {
            return what == step ? std::optional(error) : inner(connection, what);
        };
    }

    tests::TestHospital hospital{tests::Way::Odbc};
};

TEST_F(OdbcLogOn, OffersThisComputerAndEveryDataSource) {
    show([](controls::Screen& logOn) {
        const auto& servers = childOf<QComboBox>(logOn, "cmbServer");
        QStringList names;
        for (int i = 0; i < servers.count(); ++i)
            names += servers.itemText(i);
        names.removeOne(tests::site::name());
        EXPECT_EQ(names, (QStringList{"This computer", "Archive", "Broken", "Ward"}));
        EXPECT_EQ(servers.currentText(), u"This computer");
        QTest::keyClick(&logOn, Qt::Key_Escape);
    });
    tests::setDataSources(QStringLiteral("[KEROVA]\nDriver=Any\n[Archive]\nDriver=Any\n"));
    show([](controls::Screen& logOn) {
        EXPECT_EQ(childOf<QComboBox>(logOn, "cmbServer").currentText(), u"KEROVA");
        QTest::keyClick(&logOn, Qt::Key_Escape);
    });
}

TEST_F(OdbcLogOn, LogsOnToADataSourceAndOffersItFirstNextTime) {
    show([](controls::Screen& logOn) {
        choose(logOn, "Ward");
        type(logOn);
    });
    ASSERT_TRUE(user.Connected());
    EXPECT_EQ(user.employeename(), u"REYES, JOAN P.");
    EXPECT_EQ(user.ServerName(), u"Ward");
    EXPECT_EQ(user.sqlconnection().ConnectionString(), u"Provider=ODBC;DSN=Ward");
    ASSERT_EQ(fakeDriver().connectionTexts.size(), 1);
    EXPECT_TRUE(
        fakeDriver().connectionTexts[0].startsWith(QStringLiteral("DSN=Ward;APP=Visual Scintra;WSID=")));
    EXPECT_EQ(hospital.loopback()->wire.value(0), u"USE [NUCLEAR]");
    const auto report = user.openReportConnection(QStringLiteral("Ward"), QStringLiteral("NUCLEAR"),
                                                  QStringLiteral("sa"), user.serverpassword());
    EXPECT_EQ(fakeDriver().connectionTexts.size(), 2);
    for (const QString& text : hospital.loopback()->wire)
        EXPECT_FALSE(text.contains(QStringLiteral("kerova"))) << text.toStdString();
    show([](controls::Screen& logOn) {
        EXPECT_EQ(childOf<QComboBox>(logOn, "cmbServer").currentText(), u"Ward");
        choose(logOn, "This computer");
        QTest::keyClick(&logOn, Qt::Key_Escape);
    });
}

TEST_F(OdbcLogOn, AsksWhichCharactersTheServerKeeps) {
    const auto logOnHere = [] {
        clsCurrentUser next;
        EXPECT_EQ(next.logOnTo(odbcServer(QStringLiteral("Ward")), QStringLiteral("1001"),
                               QStringLiteral("kerova")),
                  LogOnResult::Good);
    };
    const QString probe = QString::fromUtf8("\u2265\u03B1\u4E2D\u0152\u00D1");
    const auto lost = [&probe] {
        return controls::lostCharactersSentence(probe).section(u' ', 6).section(u':', 0, 0);
    };
    logOnHere();
    EXPECT_EQ(lost(), QString());
    // what a code page makes of the characters that it does not have
    const auto keepOnly = [inner = fakeDriver().answer](char16_t last) {
        fakeDriver().answer = [inner, last](int connection, const QString& text) {
            QString arrived = text;
            if (text.contains(QStringLiteral("AS varchar(20)")))
                for (QChar& c : arrived)
                    c = c.unicode() > last && c.unicode() != 0x20AC && c.unicode() != 0x0152 ? QChar(u'?')
                                                                                             : c;
            return inner(connection, arrived);
        };
    };
    keepOnly(0xFF);
    logOnHere();
    EXPECT_EQ(lost(), QString::fromUtf8("\u2265 \u03B1 \u4E2D"));
    keepOnly(0x7F);
    logOnHere();
    EXPECT_EQ(lost(), QString::fromUtf8("\u2265 \u03B1 \u4E2D \u0152 \u00D1"));
    clsCurrentUser own;
    EXPECT_TRUE(own.logOn(hospital.file(), QStringLiteral("1001"), QStringLiteral("kerova")));
    EXPECT_EQ(lost(), QString()) << "the file keeps all of them";
}

TEST_F(OdbcLogOn, AsksForTheDatabaseLoginOnce) {
    wantLogin(QStringLiteral("UID=scintra;PWD={se;cret};"));
    show([](controls::Screen& logOn) {
        choose(logOn, "Ward");
        tests::whileModal([&] { type(logOn); },
                          [](controls::Screen& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        EXPECT_EQ(message(logOn), u"Ward wants a database login.");
        tests::whileModal([&] { type(logOn); },
                          [](controls::Screen& dialog) { typeLogin(dialog, "scintra", "guess"); });
        EXPECT_EQ(message(logOn), u"Ward refused the database login of scintra.");
        tests::whileModal([&] { type(logOn); },
                          [](controls::Screen& dialog) { typeLogin(dialog, "scintra", "se;cret"); });
    });
    EXPECT_TRUE(user.Connected());
    clsCurrentUser next;
    EXPECT_EQ(
        next.logOnTo(odbcServer(QStringLiteral("Ward")), QStringLiteral("1001"), QStringLiteral("kerova")),
        LogOnResult::Good)
        << "kept for the next user of the same desk";
}

TEST_F(OdbcLogOn, SaysWhatIsWrongWithTheServerAndStays) {
    const auto said = [this](const char* source) {
        QString words;
        show([&](controls::Screen& logOn) {
            choose(logOn, source);
            type(logOn);
            words = message(logOn);
            EXPECT_TRUE(childOf(logOn, "cmdLogOn").isEnabled());
            QTest::keyClick(&logOn, Qt::Key_Escape);
        });
        EXPECT_FALSE(user.Connected());
        return words;
    };
    const auto inner = fakeDriver().step;
    fail(FakeStep::Connect, {0, QStringLiteral("08001"), QStringLiteral("[Test]No route to host"), false});
    EXPECT_EQ(said("Archive"), u"Archive cannot be reached. Is the server running, and this computer on the "
                               u"network? (No route to host)");
    fakeDriver().step = inner;
    fail(FakeStep::Connect, {4060, QStringLiteral("42000"), QStringLiteral("[Test]Cannot open."), false});
    EXPECT_EQ(said("Archive"),
              u"Archive has no hospital databases, or not all of them. They are made with \"scintra-server "
              u"install --dsn\". (Cannot open.)");
    fakeDriver().step = inner;
    EXPECT_TRUE(said("Broken").startsWith(
        QStringLiteral("The data source Broken does not work on this computer. (")));
    hospital.loopback()->strike(1, tests::Fault::TimeOut);
    EXPECT_TRUE(said("Archive").startsWith(QStringLiteral("Archive cannot be reached.")));
    hospital.loopback()->strike(2, tests::Fault::Cut);
    EXPECT_TRUE(said("Archive").startsWith(QStringLiteral("Archive cannot be reached.")));
}

TEST_F(OdbcLogOn, SaysWhenTheHospitalIsNotComplete) {
    const auto ward = odbcServer(QStringLiteral("Ward"));
    const auto sentence = [&](int number) {
        return ward->sentence(
            base::RunTimeError(number, QStringLiteral("Words."), QStringLiteral("42000"), {}));
    };
    EXPECT_TRUE(sentence(208).startsWith(QStringLiteral("The hospital databases of Ward are not complete.")));
    EXPECT_TRUE(sentence(229).startsWith(QStringLiteral("The database login has no right")));
    EXPECT_TRUE(sentence(911).startsWith(QStringLiteral("Ward has no hospital databases")));
    EXPECT_EQ(sentence(50000), u"Words.");
    EXPECT_TRUE(ward->refusedLogin(base::RunTimeError(18470, {}, QStringLiteral("42000"), {})));
    EXPECT_FALSE(ward->refusedLogin(base::RunTimeError(4060, {}, QStringLiteral("28000"), {})));
}

} // namespace
