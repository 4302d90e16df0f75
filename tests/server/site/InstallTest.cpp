#include "server/site/Install.h"
#include "platform/base/TestDoors.h"

#include "platform/ado/Batch.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/odbc/OdbcProvider.h"
#include "server/demo/Hospital.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/hospital/Kit.h"
#include "server/site/Blueprint.h"
#include "tests/support/core/Raised.h"
#include "tests/support/core/ScriptedProvider.h"
#include "tests/support/odbc/TestDriver.h"
#include "tests/support/tds/TdsServer.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

/// Lets a failed comparison show the text.
static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

using tests::raised;

/// A server over ODBC; an empty file stands behind it.
class Install : public testing::Test {
  protected:
    std::unique_ptr<ado::Provider> open() {
        return odbc::OdbcProvider::open(tests::LoopbackServer::connectionText());
    }
    QString value(ado::Provider& provider, const QString& text) {
        return base::textOf(ado::runBatch(provider, text).rows.at(0, 0));
    }
    QStringList wireWith(const QString& start) {
        QStringList found;
        for (const QString& text : server.wire) {
            if (text.trimmed().startsWith(start))
                found += text;
        }
        return found;
    }

    base::FixedClock clock{*base::makeDateTime({2026, 11, 21}, {8, 30})};
    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("site.scintra"));
    tests::LoopbackServer server{file};
};

TEST_F(Install, MakesTheWholeKitAndCanBeRunAgain) {
    const auto provider = open();
    int last = -1;
    site::install(*provider, [&](int percent, const QString&) {
        EXPECT_GE(percent, last);
        last = percent;
    });
    EXPECT_EQ(last, 100);
    EXPECT_EQ(site::verify(*provider), QStringList());
    EXPECT_EQ(engine::EmbeddedProvider::open(file, {})->check(), QStringList());
    EXPECT_EQ(value(*provider, QStringLiteral("SELECT COUNT(*) FROM NUCLEAR..tbNuclearUserSettings")), u"18");
    EXPECT_FALSE(wireWith(QStringLiteral("CREATE PROCEDURE sp_Nuclear_AddRequest")).isEmpty());
    EXPECT_TRUE(wireWith(QStringLiteral("CREATE OR ALTER")).isEmpty()) << "needs a service pack";

    ado::runBatch(*provider, QStringLiteral("UPDATE NUCLEAR..tbNucSlip SET ChargeSlip = 4711"));
    ado::runBatch(*provider, QStringLiteral("USE NUCLEAR"));
    ado::runBatch(*provider, QStringLiteral("DROP PROCEDURE sp_Nuclear_IncRefNum"));
    server.wire.clear();
    site::install(*provider, {});
    EXPECT_EQ(site::verify(*provider), QStringList());
    EXPECT_EQ(value(*provider, QStringLiteral("SELECT ChargeSlip FROM NUCLEAR..tbNucSlip")), u"4711");
    EXPECT_EQ(wireWith(QStringLiteral("CREATE PROCEDURE")).size(), 1) << "the one that was missing";
    EXPECT_FALSE(wireWith(QStringLiteral("ALTER PROCEDURE sp_Nuclear_AddRequest")).isEmpty());
}

TEST_F(Install, PutsTheMadeUpHospitalInWholeAndOnce) {
    const auto provider = open();
    site::install(*provider, {});
    server.strike(40, tests::Fault::Error);
    EXPECT_EQ(raised([&] { site::installDemo(*provider, {}); }).number(), 50000);
    server.strike(0, tests::Fault::Error);
    EXPECT_EQ(value(*provider, QStringLiteral("SELECT COUNT(*) FROM BUILD_FILE..tbcoRoom")), u"0")
        << "nothing half done";
    site::installDemo(*provider, {});
    const QString embedded = folder.filePath(QStringLiteral("embedded.scintra"));
    demo::createHospital(embedded);
    const auto other = engine::EmbeddedProvider::open(embedded, {});
    for (const engine::Table& table : site::tablesOf(embedded)) {
        const QString count = QStringLiteral("SELECT COUNT(*) FROM ") +
                              QString::fromStdString(table.database + ".." + table.name);
        EXPECT_EQ(value(*provider, count), value(*other, count)) << table.fileName();
    }
    const QString names = QStringLiteral("SELECT LastName, FirstName, BirthDate FROM PATIENT_DATA..tbMaster "
                                         "ORDER BY HospNum");
    EXPECT_EQ(ado::runBatch(*provider, names).rows.values, other->execute(names).rows.values);
    EXPECT_EQ(raised([&] { site::installDemo(*provider, {}); }).number(), 58);
}

TEST_F(Install, TellsWhatDiffers) {
    const auto provider = open();
    site::install(*provider, {});
    for (const char* text :
         {"USE NUCLEAR", "DROP PROCEDURE sp_Nuclear_IncRefNum",
          "ALTER PROCEDURE sp_Nuclear_IncRequestNum AS SET NOCOUNT ON", "USE CARDIO", "USE BILLING",
          "DROP TABLE tbDeposit", "CREATE TABLE tbDeposit (DepositID varchar(9) NOT NULL)"})
        ado::runBatch(*provider, QString::fromLatin1(text));
    const QStringList differences = site::verify(*provider);
    EXPECT_TRUE(differences.contains(QStringLiteral("NUCLEAR..sp_Nuclear_IncRefNum: is missing")));
    EXPECT_TRUE(differences.contains(QStringLiteral("NUCLEAR..sp_Nuclear_IncRequestNum: is not the kit's")));
    const QStringList deposit = differences.filter(QStringLiteral("BILLING..tbDeposit"));
    EXPECT_FALSE(deposit.filter(QStringLiteral("is missing")).isEmpty());
    EXPECT_FALSE(deposit.filter(QStringLiteral("the primary key is (), not (")).isEmpty());
    EXPECT_EQ(differences.size(), 2 + deposit.size()) << differences.join(u'\n').toStdString();
}

TEST_F(Install, TellsSettingsAndNumberRowsThatAreWrong) {
    const auto provider = open();
    site::install(*provider, {});
    const auto settings = engine::EmbeddedProvider::open(file, {});
    settings->setSetting(QStringLiteral("BILLING collation"), QStringLiteral("Latin1_General_BIN"));
    settings->setSetting(QStringLiteral("STATION snapshot"), QStringLiteral("0"));
    ado::runBatch(*provider, QStringLiteral("DELETE FROM NUCLEAR..tbNucSlipRow"));
    const QStringList wrong{
        QStringLiteral("BILLING: the collation Latin1_General_BIN tells upper from lower case"),
        QStringLiteral("STATION: READ_COMMITTED_SNAPSHOT is off"),
        QStringLiteral("NUCLEAR..tbNucSlipRow: 0 rows, not the one that the next numbers are drawn from")};
    EXPECT_EQ(site::verify(*provider), wrong);
}

TEST_F(Install, NamesTheFileAndTheLineOfAnError) {
    const auto provider = open();
    server.strike(30, tests::Fault::Error);
    const base::RunTimeError error = raised([&] { site::install(*provider, {}); });
    EXPECT_TRUE(error.description().contains(QStringLiteral("/tables.sql (batch at line ")))
        << error.description().toStdString();
    EXPECT_TRUE(error.description().endsWith(QStringLiteral("Injected failure.")));
}

TEST(InstallOverFreeTds, MakesTheKitAndTheMadeUpHospital) {
    const base::FixedClock clock(*base::makeDateTime({2026, 11, 21}, {8, 30}));
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("tds.scintra"));
    tests::TdsServer server({.file = file});
    const auto provider = odbc::OdbcProvider::open(server.connectionText());
    site::install(*provider, {});
    site::installDemo(*provider, {});
    EXPECT_EQ(site::verify(*provider), QStringList());
    const auto embedded = engine::EmbeddedProvider::open(file, {});
    EXPECT_EQ(embedded->check(), QStringList());
    const QString names = QStringLiteral("SELECT LastName, FirstName, BirthDate FROM PATIENT_DATA..tbMaster "
                                         "ORDER BY HospNum");
    const ado::Result patients = ado::runBatch(*provider, names);
    EXPECT_GT(patients.rows.count(), 250);
    EXPECT_EQ(patients.rows.values, embedded->execute(names).rows.values);
    ado::runBatch(*provider, QStringLiteral("USE NUCLEAR"));
    ado::runBatch(*provider, QStringLiteral("DROP PROCEDURE sp_Nuclear_IncRefNum"));
    EXPECT_EQ(site::verify(*provider),
              QStringList{QStringLiteral("NUCLEAR..sp_Nuclear_IncRefNum: is missing")});
}

TEST(InstallDatabases, KeepEveryCharacterWhereTheServerCan) {
    class Server : public tests::ScriptedProvider {
      public:
        bool knowsUtf8 = true;
        QStringList made;
        ado::Result execute(const QString& text) override {
            if (text.contains(QStringLiteral("fn_helpcollations()"))) {
                EXPECT_TRUE(text.contains(QStringLiteral("'Latin1_General_100_CI_AS_SC_UTF8'")));
                return rowsOf(
                    QStringLiteral("n"),
                    {{knowsUtf8 ? base::Value("Latin1_General_100_CI_AS_SC_UTF8") : base::Value()}});
            }
            if (text.startsWith(QStringLiteral("SELECT DB_ID(")))
                return rowsOf(QStringLiteral("n"), {{base::Value()}});
            if (!text.contains(QStringLiteral(" DATABASE ")))
                throw base::RunTimeError(50000, QStringLiteral("enough"));
            made += text;
            return {};
        }
    } server;
    EXPECT_THROW(site::install(server, {}), base::RunTimeError);
    EXPECT_EQ(server.made.filter(QStringLiteral(" COLLATE Latin1_General_100_CI_AS_SC_UTF8")).size(), 10);
    server.made.clear();
    server.knowsUtf8 = false;
    EXPECT_THROW(site::install(server, {}), base::RunTimeError);
    EXPECT_EQ(server.made.filter(QStringLiteral(" COLLATE SQL_Latin1_General_CP1_CI_AS")).size(), 10);
}

TEST(InstallDatabases, AreMadeWhereTheyAreMissing) {
    /// Knows NUCLEAR only, and stops at the kit's first file.
    class Server : public tests::ScriptedProvider {
      public:
        QStringList made;
        ado::Result execute(const QString& text) override {
            if (text.startsWith(QStringLiteral("SELECT DB_ID(")))
                return rowsOf(
                    QStringLiteral("n"),
                    {{text.contains(QStringLiteral("'NUCLEAR'")) ? base::Value(5) : base::Value()}});
            if (!text.contains(QStringLiteral(" DATABASE ")))
                throw base::RunTimeError(50000, QStringLiteral("enough"));
            made += text;
            return {};
        }
    } server;
    EXPECT_THROW(site::install(server, {}), base::RunTimeError);
    EXPECT_EQ(server.made.size(), 18);
    EXPECT_EQ(server.made.value(1),
              QStringLiteral("ALTER DATABASE [BILLING] SET READ_COMMITTED_SNAPSHOT ON"));
    EXPECT_EQ(server.made.value(0),
              QStringLiteral("CREATE DATABASE [BILLING] COLLATE SQL_Latin1_General_CP1_CI_AS"));
    EXPECT_TRUE(server.made.filter(QStringLiteral("NUCLEAR")).isEmpty());
    EXPECT_EQ(hospital::kitDatabases().size(), 10);
}

} // namespace
