#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Outcome {
    int code;
    QString out;
    QString err;
};

class ScintraServer : public testing::Test {
  protected:
    static Outcome run(const QStringList& words, const QByteArray& input = {}) {
        QProcess process;
        process.start(QStringLiteral(SCINTRA_BINARY_DIR "/bin/scintra-server"), words);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(60'000)) << process.errorString().toStdString();
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
    Outcome sql(const QString& text) { return run({QStringLiteral("sql"), m_file, text}); }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("hospital.scintra"));
    QString m_copy = m_folder.filePath(QStringLiteral("copy.scintra"));
};

TEST_F(ScintraServer, HelpsAndRefusesWrongWords) {
    const Outcome help = run({QStringLiteral("--help")});
    EXPECT_EQ(help.code, 0);
    for (const char* command : {"demo", "init", "generate", "trace", "check", "backup", "restore", "sql",
                                "install", "verify", "neighbours"})
        EXPECT_TRUE(help.out.contains(QLatin1String(command))) << command;
    EXPECT_EQ(run({}).code, 2);
    EXPECT_EQ(run({QStringLiteral("dmeo")}).code, 2);
    EXPECT_EQ(run({QStringLiteral("backup"), m_file}).code, 2);
    EXPECT_EQ(run({QStringLiteral("generate"), m_file, QStringLiteral("--patients")}).code, 2);
    EXPECT_EQ(
        run({QStringLiteral("generate"), m_file, QStringLiteral("--patients"), QStringLiteral("many")}).code,
        2);
    EXPECT_EQ(run({QStringLiteral("check"), m_file, QStringLiteral("--colour"), QStringLiteral("red")}).code,
              2);
    EXPECT_TRUE(run({QStringLiteral("dmeo")}).err.contains(QLatin1String("dmeo")));
}

TEST_F(ScintraServer, NeighboursPlayOnTheMadeUpHospitalAlone) {
    ASSERT_EQ(run({"demo", m_file}).code, 0);
    const auto once = [&](const char* kind) { return run({"neighbours", "--file", m_file, "--once", kind}); };
    const auto number = [&](const char* query) {
        return sql(QLatin1String(query)).out.section(u'\n', 1, 1).toInt();
    };
    const struct {
        const char* kind;
        const char* counted;
    } deeds[] = {{"ward", "SELECT COUNT(*) FROM STATION..tbNurseCommunicationFile WHERE RecordStatus = 'N'"},
                 {"payment",
                  "SELECT COUNT(DISTINCT ORNumber) FROM BILLING..tbCashAssessment WHERE RecordStatus = '1'"},
                 {"prepaid", "SELECT COUNT(*) FROM NUCLEAR..tbNucPrepaid WHERE PrintStatus = ''"},
                 {"discharge", "SELECT COUNT(*) FROM STATION..tbDischargeNotice"}};
    for (const auto& deed : deeds) {
        const int before = number(deed.counted);
        const Outcome told = once(deed.kind);
        EXPECT_EQ(told.code, 0) << told.err.toStdString();
        const int more = number(deed.counted) - before;
        EXPECT_GE(more, 1) << told.out.toStdString();
        EXPECT_LE(more, 2) << told.out.toStdString();
    }
    EXPECT_EQ(
        number("SELECT COUNT(*) FROM BILLING..tbCashAssessment A WHERE A.RecordStatus = '1' AND NOT EXISTS "
               "(SELECT 1 FROM BILLING..tbCashReceipt R WHERE R.ORNumber = A.ORNumber)"),
        0);
    EXPECT_EQ(once("party").code, 3);
    EXPECT_EQ(run({"neighbours", "--file", m_file, "--every", "0"}).code, 2);
    const int waiting = number(deeds[0].counted);
    sql("UPDATE PATIENT_DATA..tbMaster SET LastName = 'SMYTHE' WHERE HospNum = '104078'");
    EXPECT_EQ(once("ward").code, 3);
    sql("UPDATE PATIENT_DATA..tbMaster SET LastName = 'AGUILAR' WHERE HospNum = '104078'");
    sql("UPDATE PATIENT_DATA..tbHospitalInfo SET Company = 'ST. ELSEWHERE'");
    EXPECT_EQ(once("ward").code, 3);
    EXPECT_EQ(number(deeds[0].counted), waiting) << "before a row is touched";
}

TEST_F(ScintraServer, TellsFilesFromDataSources) {
    EXPECT_EQ(run({QStringLiteral("install")}).code, 2);
    EXPECT_TRUE(run({QStringLiteral("verify")}).err.contains(QLatin1String("--dsn NAME")));
    EXPECT_EQ(run({QStringLiteral("check"), QStringLiteral("--dsn"), QStringLiteral("Nowhere")}).code, 2);
    EXPECT_EQ(run({QStringLiteral("sql"), QStringLiteral("--dsn"), QStringLiteral("Nowhere")}).code, 2);
    for (const char* command : {"install", "verify"}) {
        const Outcome nowhere =
            run({QLatin1String(command), QStringLiteral("--dsn"), QStringLiteral("Nowhere")});
        EXPECT_EQ(nowhere.code, 3);
        EXPECT_TRUE(nowhere.err.contains(QLatin1String("Data source name not found")))
            << nowhere.err.toStdString();
    }
}

TEST_F(ScintraServer, SaysWhatFailed) {
    const Outcome missing = run({QStringLiteral("check"), m_file});
    EXPECT_EQ(missing.code, 3);
    EXPECT_TRUE(missing.err.contains(m_file));
    EXPECT_FALSE(QFile::exists(m_file));
    ASSERT_EQ(run({QStringLiteral("init"), m_file}).code, 0);
    EXPECT_EQ(run({QStringLiteral("init"), m_file}).code, 3);
    const Outcome wrong = sql(QStringLiteral("sp_NoSuchThing"));
    EXPECT_EQ(wrong.code, 3);
    EXPECT_TRUE(wrong.err.contains(QLatin1String("2812")));
}

TEST_F(ScintraServer, MakesFillsChecksAndCopiesAHospital) {
    const Outcome made = run({QStringLiteral("demo"), m_file});
    ASSERT_EQ(made.code, 0) << made.err.toStdString();
    EXPECT_TRUE(made.err.contains(QLatin1String("100 %")));
    EXPECT_EQ(run({QStringLiteral("check"), m_file}).code, 0);
    EXPECT_EQ(
        run({QStringLiteral("generate"), m_file, QStringLiteral("--patients"), QStringLiteral("200")}).code,
        0);
    EXPECT_EQ(sql(QStringLiteral("SELECT COUNT(*) AS n FROM PATIENT_DATA..tbMaster")).out,
              QStringLiteral("n\n470\n"));
    ASSERT_EQ(run({QStringLiteral("backup"), m_file, m_copy}).code, 0);
    EXPECT_EQ(sql(QStringLiteral("DELETE FROM PATIENT_DATA..tbMaster")).err,
              QStringLiteral("470 rows written\n"));
    EXPECT_EQ(run({QStringLiteral("restore"), m_copy, m_file}).code, 3);
    EXPECT_EQ(run({QStringLiteral("backup"), m_file, m_copy}).code, 3);
    ASSERT_EQ(run({QStringLiteral("restore"), m_copy, m_file, QStringLiteral("--force")}).code, 0);
    EXPECT_EQ(sql(QStringLiteral("SELECT COUNT(*) AS n FROM PATIENT_DATA..tbMaster")).out,
              QStringLiteral("n\n470\n"));
    EXPECT_EQ(run({QStringLiteral("update"), m_file}).out, QStringLiteral("It was up to date.\n"));
}

TEST_F(ScintraServer, CheckFindsAProcedureThatDoesNotFit) {
    ASSERT_EQ(run({QStringLiteral("init"), m_file}).code, 0);
    ASSERT_EQ(sql(QStringLiteral("CREATE PROCEDURE sp_Astray AS SELECT NoColumn FROM tbNucSlip")).code, 0);
    const Outcome check = run({QStringLiteral("check"), m_file});
    EXPECT_EQ(check.code, 1);
    EXPECT_TRUE(check.out.contains(QLatin1String("sp_Astray")));
}

TEST_F(ScintraServer, TracesStatementsWithoutPasswords) {
    ASSERT_EQ(run({QStringLiteral("init"), m_file}).code, 0);
    ASSERT_EQ(run({QStringLiteral("trace"), QStringLiteral("on"), m_file}).code, 0);
    sql(QStringLiteral("SELECT chargeslip FROM tbNucSlip"));
    ASSERT_EQ(run({QStringLiteral("password"), m_file, QStringLiteral("1"), QStringLiteral("--name"),
                   QStringLiteral("REYES, JOAN")},
                  "geheim\n")
                  .code,
              0);
    const QString diary = run({QStringLiteral("trace"), QStringLiteral("show"), m_file}).out;
    EXPECT_TRUE(diary.contains(QLatin1String("SELECT chargeslip FROM tbNucSlip")));
    EXPECT_FALSE(diary.contains(QLatin1String("argon2id")));
    EXPECT_FALSE(diary.contains(QLatin1String("geheim")));
    ASSERT_EQ(run({QStringLiteral("trace"), QStringLiteral("off"), m_file}).code, 0);
    sql(QStringLiteral("SELECT requestnum FROM tbNucSlip"));
    EXPECT_FALSE(run({QStringLiteral("trace"), QStringLiteral("show"), m_file})
                     .out.contains(QLatin1String("requestnum")));
    EXPECT_EQ(run({QStringLiteral("trace"), QStringLiteral("loud"), m_file}).code, 3);
}

TEST_F(ScintraServer, AddsAUserAndChangesAPassword) {
    ASSERT_EQ(run({QStringLiteral("init"), m_file}).code, 0);
    const QStringList change{QStringLiteral("password"), m_file, QStringLiteral("1001")};
    EXPECT_EQ(run(change, "secret\n").code, 3);
    EXPECT_EQ(
        run(change + QStringList{QStringLiteral("--name"), QStringLiteral("REYES, JOAN P.")}, "secret\n")
            .code,
        0);
    const QString hash =
        QStringLiteral("SELECT PasswordHash FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '1001'");
    const QString first = sql(hash).out;
    EXPECT_TRUE(first.contains(QLatin1String("$argon2id$")));
    EXPECT_EQ(run(change, "other\n").code, 0);
    EXPECT_NE(sql(hash).out, first);
    EXPECT_EQ(run(change, "\n").code, 3);
    EXPECT_EQ(run({QStringLiteral("password"), m_file, QStringLiteral("1'--")}, "x\n").code, 3);
    EXPECT_EQ(sql(QStringLiteral("SELECT LastName, FirstName FROM PASSWORD..tbPasswordMain")).out,
              QStringLiteral("LastName\tFirstName\nREYES\tJOAN P.\n"));
}

TEST_F(ScintraServer, AsksForTheCommonPasswordOfTheGuardedScreens) {
    const QString common = QStringLiteral("SELECT OPDPassword FROM PATIENT_DATA..tbHospitalInfo");
    const Outcome made = run({QStringLiteral("init"), m_file}, "Gate1\n");
    EXPECT_EQ(made.code, 0);
    EXPECT_TRUE(made.err.contains(QLatin1String("Common password")));
    EXPECT_EQ(sql(common).out, QStringLiteral("OPDPassword\nGate1\n"));
    const Outcome none = run({QStringLiteral("init"), m_copy});
    EXPECT_EQ(none.code, 0);
    EXPECT_TRUE(none.err.contains(QLatin1String("stay shut"))) << none.err.toStdString();
}

} // namespace
