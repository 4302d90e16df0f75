// The tool on a data source of the real FreeTDS driver, behind which tds-hospital serves a file.
#include "server/demo/Hospital.h"
#include "server/engine/EmbeddedProvider.h"
#include "tests/support/tds/TdsServer.h"

#include <QDate>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class TdsHospital : public testing::Test {
  protected:
    TdsHospital() {
        m_server.start(QStringLiteral(SCINTRA_BINARY_DIR "/tests/tds-hospital"),
                       {"--file", m_folder.filePath(QStringLiteral("tds.scintra")), "--ahead", "400",
                        "--user", "scintra", "--password", "good"});
        if (!m_server.waitForStarted() || !m_server.waitForReadyRead(30'000))
            return;
        const QByteArray line = m_server.readLine().trimmed();
        EXPECT_TRUE(line.startsWith("listening on ")) << line.constData();
        QFile ini(m_folder.filePath(QStringLiteral("odbc.ini")));
        EXPECT_TRUE(ini.open(QIODevice::WriteOnly));
        ini.write("[Ward]\nDriver=" + tests::freeTdsDriver().toUtf8() +
                  "\nServer=127.0.0.1\nPort=" + line.mid(13) + "\nTDS_Version=7.4\nClientCharset=UTF-8\n");
    }
    ~TdsHospital() override {
        m_server.terminate();
        EXPECT_TRUE(m_server.waitForFinished(30'000));
    }

    struct Outcome {
        int code;
        QString said;
    };
    Outcome run(const QStringList& words, const QByteArray& password = "good\n") {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("ODBCINI"), m_folder.filePath(QStringLiteral("odbc.ini")));
        environment.insert(QStringLiteral("ODBCSYSINI"), m_folder.path());
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral(SCINTRA_BINARY_DIR "/bin/scintra-server"),
                      words + QStringList{"--dsn", "Ward", "--login", "scintra"});
        process.write(password);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(60'000)) << process.errorString().toStdString();
        return {process.exitCode(), QString::fromUtf8(process.readAll())};
    }

    QTemporaryDir m_folder;
    QProcess m_server;
};

TEST_F(TdsHospital, TakesTheKitAndTheMadeUpHospital) {
    const Outcome installed = run({"install", "--demo"});
    EXPECT_EQ(installed.code, 0) << installed.said.toStdString();
    const Outcome verified = run({"verify"});
    EXPECT_EQ(verified.code, 0);
    EXPECT_TRUE(verified.said.contains(QStringLiteral("All is well."))) << verified.said.toStdString();
    const Outcome dropped = run({"sql", "DROP PROCEDURE sp_Nuclear_IncRefNum"});
    EXPECT_EQ(dropped.code, 0) << dropped.said.toStdString();
    const Outcome missing = run({"verify"});
    EXPECT_EQ(missing.code, 1);
    EXPECT_TRUE(missing.said.contains(QStringLiteral("sp_Nuclear_IncRefNum: is missing")));
}

TEST_F(TdsHospital, RefusesAnotherLoginAndRunsAhead) {
    const Outcome refused = run({"verify"}, "guess\n");
    EXPECT_EQ(refused.code, 3);
    EXPECT_TRUE(refused.said.contains(QStringLiteral("Login failed for user 'scintra'.")))
        << refused.said.toStdString();
    const QDate today = QDate::currentDate();
    const Outcome year = run({"sql", "SELECT YEAR(GETDATE())"});
    EXPECT_TRUE(year.said.contains(QString::number(today.addDays(400).year()))) << year.said.toStdString();
    EXPECT_FALSE(year.said.contains(QString::number(today.year())));
}

/// Tests write and delete as they like: not in a hospital that somebody works in, nor in one that somebody
/// has begun to set up and that has no patients yet.
TEST(TestsOnAServer, RefuseAnybodysHospitalButTheMadeUpOne) {
    for (const bool hasPatients : {true, false}) {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("other.scintra"));
        demo::createHospital(file);
        const auto run = [&](const QString& text) {
            return engine::EmbeddedProvider::open(file, {})->execute(text).rows;
        };
        run(QStringLiteral("UPDATE PATIENT_DATA..tbHospitalInfo SET Company = 'St. Lucia''s Hospital'"));
        run(QStringLiteral("UPDATE BUILD_FILE..tbcoNucExam SET NucExam = 'KEPT'"));
        if (!hasPatients)
            run(QStringLiteral("DELETE FROM PATIENT_DATA..tbMaster"));
        QProcess tests;
        tests.setProcessChannelMode(QProcess::MergedChannels);
        tests.start(QStringLiteral(SCINTRA_BINARY_DIR "/tests/tds-hospital"),
                    {"--file", file, "--", QStringLiteral(SCINTRA_BINARY_DIR "/tests/test_server_sql"),
                     "--gtest_filter=Posting.NumbersAreReadThenAdvanced"});
        ASSERT_TRUE(tests.waitForFinished(60'000));
        EXPECT_EQ(tests.exitCode(), 1);
        const QString said = QString::fromUtf8(tests.readAll());
        EXPECT_TRUE(said.contains(QStringLiteral("names the server of \"St. Lucia's Hospital\": the tests "
                                                 "would delete its rows.")))
            << said.toStdString();
        EXPECT_EQ(*run(QStringLiteral("SELECT COUNT(*) FROM BUILD_FILE..tbcoNucExam WHERE NucExam <> 'KEPT'"))
                       .at(0, 0)
                       .asInteger(),
                  0);
    }
}

} // namespace
