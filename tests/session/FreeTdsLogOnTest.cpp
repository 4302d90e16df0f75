// The log-on dialog on data sources of the real FreeTDS driver.
#include "tests/session/LogOnDialog.h"
#include "tests/support/tds/TdsServer.h"

namespace {

/// The driver manager remembers what it has read of a data source: every one here has a name of its own.
QString freshName() {
    static int count = 0;
    return QStringLiteral("Tds%1").arg(++count);
}

class FreeTdsLogOn : public tests::LogOnDialog {
  protected:
    /// Makes the one data source: the server's, with lines more; its name.
    static QString source(const tests::TdsServer& server, const QString& more = {}) {
        const QString name = freshName();
        tests::setDataSources(server.dataSource(name) + more);
        return name;
    }
    /// What the dialog says of the data source; it is left without a log-on.
    QString said(const QString& name) {
        QString words;
        show([&](controls::Screen& logOn) {
            choose(logOn, name.toLatin1().constData());
            type(logOn);
            words = message(logOn);
            QTest::keyClick(&logOn, Qt::Key_Escape);
        });
        EXPECT_FALSE(user.Connected());
        return words;
    }

    tests::TdsServer server{{.file = tests::demoHospital()}};
};

TEST_F(FreeTdsLogOn, LogsOnWithTheLoginOfTheDataSource) {
    const QString name = source(server);
    show([&](controls::Screen& logOn) {
        choose(logOn, name.toLatin1().constData());
        type(logOn);
    });
    ASSERT_TRUE(user.Connected());
    EXPECT_EQ(user.employeename(), u"REYES, JOAN P.");
    EXPECT_EQ(user.ServerName(), name);
    EXPECT_EQ(base::textOf(user.sqlconnection().Execute(ado::sql("SELECT APP_NAME()")).rows().at(0, 0)),
              u"Visual Scintra");
    EXPECT_TRUE(server.takeWire().contains(QStringLiteral("USE [NUCLEAR]")));
}

TEST_F(FreeTdsLogOn, AsksForTheLoginThatTheDataSourceLacks) {
    const tests::TdsServer guarded({.file = tests::demoHospital(),
                                    .user = QStringLiteral("scintra"),
                                    .password = QStringLiteral("se;cret")});
    const QString name = freshName();
    tests::setDataSources(guarded.dataSource(name).section(QStringLiteral("UID="), 0, 0));
    show([&](controls::Screen& logOn) {
        choose(logOn, name.toLatin1().constData());
        tests::whileModal([&] { type(logOn); },
                          [](controls::Screen& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        EXPECT_EQ(message(logOn), name + QStringLiteral(" wants a database login."));
        tests::whileModal([&] { type(logOn); },
                          [](controls::Screen& dialog) { typeLogin(dialog, "scintra", "guess"); });
        EXPECT_EQ(message(logOn), name + QStringLiteral(" refused the database login of scintra."));
        tests::whileModal([&] { type(logOn); },
                          [](controls::Screen& dialog) { typeLogin(dialog, "scintra", "se;cret"); });
    });
    EXPECT_TRUE(user.Connected());
}

TEST_F(FreeTdsLogOn, SaysThatTheServerIsDown) {
    const QString name = source(tests::TdsServer({.file = tests::demoHospital()}));
    EXPECT_EQ(said(name),
              name + QStringLiteral(" cannot be reached. Is the server running, and this computer on the "
                                    "network? (Unable to connect: Adaptive Server is unavailable or does "
                                    "not exist)"));
}

TEST_F(FreeTdsLogOn, SaysThatTheDatabaseIsMissing) {
    const QString name = source(server, QStringLiteral("Database=NOWHERE\n"));
    EXPECT_EQ(said(name),
              name + QStringLiteral(" has no hospital databases, or not all of them. They are made with "
                                    "\"scintra-server install --dsn\". (Cannot open database \"NOWHERE\" "
                                    "requested by the login. The login failed.)"));
}

TEST_F(FreeTdsLogOn, SaysThatTheServerDoesNotEncrypt) {
    const QString name = source(server, QStringLiteral("Encryption=require\n"));
    EXPECT_EQ(said(name),
              name + QStringLiteral(" answers, but it and the data source do not agree on encryption or on "
                                    "the version of the protocol. (Adaptive Server connection failed)"));
}

TEST_F(FreeTdsLogOn, SaysThatTheLineWasCut) {
    const QString name = source(server);
    server.strike(2, tests::Fault::Cut);
    EXPECT_EQ(said(name),
              name + QStringLiteral(" cannot be reached. Is the server running, and this computer on the "
                                    "network? (Unexpected EOF from the server)"));
}

} // namespace
