#include "tests/server/engine/Hospital.h"
#include "tests/support/core/Databases.h"
#include "tests/support/core/FullDisk.h"

#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <sqlite3.h>

#include <atomic>
#include <set>
#include <thread>

namespace {

using tests::Hospital;

constexpr const char* numbers = R"(
CREATE TABLE tbNucSlip (SlipID int NOT NULL PRIMARY KEY, ChargeSlip int NOT NULL)
INSERT INTO tbNucSlip VALUES (1, 0)
CREATE TABLE tbDrawn (Number int NOT NULL, Host varchar(20) NOT NULL)
GO
CREATE PROCEDURE sp_Nuclear_IncRefNum AS SET NOCOUNT ON UPDATE tbNucSlip SET ChargeSlip = ChargeSlip + 1
GO
CREATE PROCEDURE sp_Draw AS
SET NOCOUNT ON
DECLARE @n int
SELECT @n = ChargeSlip FROM tbNucSlip
UPDATE tbNucSlip SET ChargeSlip = @n + 1
INSERT INTO tbDrawn VALUES (@n, HOST_NAME())
SELECT @n AS Number
)";

/// Runs a workstation's work on threads of their own, each with a provider of its own.
template <typename Work>
void onWorkstations(Hospital& hospital, int count, Work work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&hospital, i, work] {
            const auto provider = hospital.open(QStringLiteral("WARD%1").arg(i));
            work(*provider);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

TEST(Sharing, noNumberIsDrawnTwiceInTransactions) {
    Hospital hospital;
    hospital.install(QString::fromLatin1(numbers));
    constexpr int workstations = 4;
    constexpr int rounds = 40;
    std::atomic<int> failures{0};
    onWorkstations(hospital, workstations, [&failures](engine::EmbeddedProvider& provider) {
        for (int i = 0; i < rounds; ++i) {
            try {
                provider.begin();
                const ado::Result read = provider.execute(QStringLiteral("SELECT chargeslip FROM tbNucSlip"));
                provider.execute(QStringLiteral("sp_Nuclear_IncRefNum"));
                provider.execute(QStringLiteral("INSERT INTO tbDrawn VALUES (%1, HOST_NAME())")
                                     .arg(*read.rows.at(0, 0).asInteger()));
                provider.commit();
            } catch (const base::RunTimeError&) {
                ++failures;
            }
        }
    });
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(
        hospital.rows(
            "SELECT COUNT(*), COUNT(DISTINCT Number), MAX(Number) + 1, COUNT(DISTINCT Host) FROM tbDrawn"),
        QStringLiteral("%1|%1|%1|%2").arg(workstations * rounds).arg(workstations));
}

TEST(Sharing, noNumberIsDrawnTwiceByAProcedureAlone) {
    Hospital hospital;
    hospital.install(QString::fromLatin1(numbers));
    constexpr int workstations = 3;
    constexpr int rounds = 40;
    std::atomic<int> failures{0};
    onWorkstations(hospital, workstations, [&failures](engine::EmbeddedProvider& provider) {
        for (int i = 0; i < rounds; ++i) {
            try {
                provider.execute(QStringLiteral("sp_Draw"));
            } catch (const base::RunTimeError&) {
                ++failures;
            }
        }
    });
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(hospital.rows("SELECT COUNT(*), COUNT(DISTINCT Number) FROM tbDrawn"),
              QStringLiteral("%1|%1").arg(workstations * rounds));
}

TEST(Sharing, aSecondWriterWaitsAndAReaderDoesNot) {
    Hospital hospital;
    hospital.install(QString::fromLatin1(numbers));
    const auto other = hospital.open(QStringLiteral("WARD2"), 30);
    hospital.provider().begin();
    hospital.run("sp_Nuclear_IncRefNum");
    EXPECT_EQ(
        Hospital::shown(other->execute(QStringLiteral("SELECT ChargeSlip FROM tbNucSlip")).rows.at(0, 0)),
        "0");
    try {
        other->begin();
        FAIL() << "took the lock that another has";
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 1222);
        EXPECT_EQ(error.description(), "Lock request time out period exceeded.");
        EXPECT_EQ(error.sqlState(), "40001");
    }
    EXPECT_FALSE(other->inTransaction());
    EXPECT_THROW(other->execute(QStringLiteral("sp_Nuclear_IncRefNum")), base::RunTimeError);
    hospital.provider().commit();
    EXPECT_EQ(
        Hospital::shown(other->execute(QStringLiteral("SELECT ChargeSlip FROM tbNucSlip")).rows.at(0, 0)),
        "1");
    other->begin();
    other->rollback();
}

TEST(Sharing, aWaitEndsWhenItsTimeIsOver) {
    Hospital hospital;
    hospital.install(QString::fromLatin1(numbers));
    constexpr int allowed = 1500;
    std::vector<int> told;
    const auto other =
        hospital.open(QStringLiteral("WARD2"), allowed, [&told](int seconds) { told.push_back(seconds); });
    hospital.provider().begin();
    QElapsedTimer timer;
    timer.start();
    EXPECT_THROW(other->begin(), base::RunTimeError);
    EXPECT_GE(timer.elapsed(), allowed);
    EXPECT_LT(timer.elapsed(), allowed * 5 / 4) << "sleeps were counted, which take longer than they say";
    EXPECT_EQ(told, std::vector<int>{1});
}

/// Four that save without a pause: the log is written into the file meanwhile, and begun anew.
TEST(Sharing, theLogStaysShortWhileAllSave) {
    Hospital hospital;
    hospital.install(QStringLiteral("CREATE TABLE tbFilm (Film varchar(max) NOT NULL)"));
    constexpr int saves = 120;
    onWorkstations(hospital, 4, [](engine::EmbeddedProvider& provider) {
        const QString film(100'000, u'x');
        for (int i = 0; i < saves; ++i)
            provider.execute(QStringLiteral("INSERT INTO tbFilm VALUES ('%1')").arg(film));
    });
    EXPECT_EQ(hospital.expression(QStringLiteral("(SELECT COUNT(*) FROM tbFilm)")), QStringLiteral("480"));
    EXPECT_LT(QFileInfo(hospital.file() + QStringLiteral("-wal")).size(), 40'000'000)
        << "of 48 million that were written";
}

TEST(Transaction, isRolledBackWhole) {
    Hospital hospital;
    hospital.install(QString::fromLatin1(numbers));
    hospital.provider().begin();
    EXPECT_EQ(hospital.expression("@@TRANCOUNT"), "1");
    hospital.run("sp_Draw");
    hospital.provider().rollback();
    EXPECT_EQ(hospital.rows("SELECT ChargeSlip, (SELECT COUNT(*) FROM tbDrawn) FROM tbNucSlip"), "0|0");
}

TEST(Transaction, goesWithTheProvider) {
    Hospital hospital;
    hospital.install(QString::fromLatin1(numbers));
    auto other = hospital.open(QStringLiteral("WARD2"));
    other->begin();
    other->execute(QStringLiteral("sp_Draw"));
    other.reset();
    EXPECT_EQ(hospital.rows("SELECT ChargeSlip FROM tbNucSlip"), "0");
    hospital.run("sp_Draw");
}

int numberOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const base::RunTimeError& error) {
        return error.number();
    }
    return 0;
}

TEST(Transaction, hasOneBeginAndOneEnd) {
    Hospital hospital;
    engine::EmbeddedProvider& provider = hospital.provider();
    EXPECT_EQ(numberOf([&] { provider.commit(); }), 3902);
    EXPECT_EQ(numberOf([&] { provider.rollback(); }), 3903);
    provider.begin();
    EXPECT_EQ(numberOf([&] { provider.begin(); }), -2147168237);
    EXPECT_TRUE(provider.inTransaction());
    provider.commit();
    EXPECT_FALSE(provider.inTransaction());
}

TEST(Transaction, takesDefinitionsBackAsWell) {
    Hospital hospital;
    hospital.provider().begin();
    hospital.run("CREATE TABLE tbGone (Id int NOT NULL PRIMARY KEY)");
    hospital.run("CREATE PROCEDURE sp_Gone AS SELECT 1");
    hospital.run("sp_Gone");
    hospital.run("INSERT INTO tbGone VALUES (1)");
    hospital.provider().rollback();
    EXPECT_EQ(hospital.error("SELECT * FROM tbGone"), "208: Invalid object name 'tbGone'.");
    EXPECT_EQ(hospital.error("sp_Gone"), "2812: Could not find stored procedure 'sp_Gone'.");
}

TEST(Transaction, aDiskThatIsFullAtTheCommitLeavesNoneOpen) {
    Hospital hospital;
    hospital.install(QString::fromLatin1(numbers));
    engine::EmbeddedProvider& provider = hospital.provider();
    provider.begin();
    hospital.run("sp_Draw");
    {
        const tests::FullDisk full(QFile(hospital.file() + QStringLiteral("-wal")).size());
        EXPECT_EQ(numberOf([&] { provider.commit(); }), 823);
    }
    EXPECT_FALSE(provider.inTransaction());
    EXPECT_EQ(numberOf([&] { provider.rollback(); }), 3903);
    EXPECT_EQ(hospital.rows("SELECT ChargeSlip FROM tbNucSlip"), "0");
    EXPECT_EQ(hospital.expression("@@TRANCOUNT"), "0");
    provider.begin();
    hospital.run("sp_Draw");
    provider.commit();
    EXPECT_EQ(hospital.rows("SELECT ChargeSlip FROM tbNucSlip"), "1");
}

TEST(Transaction, thatAFullDiskTookBackKeepsNothingThatComesAfter) {
    Hospital hospital;
    hospital.install(QString::fromLatin1(numbers));
    engine::EmbeddedProvider& provider = hospital.provider();
    const auto fill = [&] {
        sqlite3_exec(provider.handle(), "PRAGMA max_page_count = 1", nullptr, nullptr, nullptr);
        int number = 0;
        for (int i = 0; i < 4000 && number == 0; ++i)
            number = numberOf([&] { hospital.run("INSERT INTO tbDrawn VALUES (1, 'ANY')"); });
        sqlite3_exec(provider.handle(), "PRAGMA max_page_count = 1000000", nullptr, nullptr, nullptr);
        return number;
    };
    const auto later = [&] { return numberOf([&] { hospital.run("sp_Nuclear_IncRefNum"); }); };
    provider.begin();
    EXPECT_EQ(fill(), 1105);
    EXPECT_TRUE(provider.inTransaction());
    EXPECT_EQ(later(), -2147168242);
    provider.rollback();
    EXPECT_EQ(hospital.rows("SELECT ChargeSlip, (SELECT COUNT(*) FROM tbDrawn) FROM tbNucSlip"), "0|0");
    provider.begin();
    EXPECT_EQ(fill(), 1105);
    EXPECT_EQ(later(), -2147168242);
    EXPECT_EQ(numberOf([&] { provider.commit(); }), -2147168242);
    EXPECT_FALSE(provider.inTransaction());
    EXPECT_EQ(later(), 0);
    EXPECT_EQ(hospital.rows("SELECT ChargeSlip, (SELECT COUNT(*) FROM tbDrawn) FROM tbNucSlip"), "1|0");
}

TEST(Sharing, definitionsOfAnotherAreSeenWithinASecond) {
    Hospital hospital;
    hospital.install(QStringLiteral("CREATE PROCEDURE sp_Which AS SELECT 'old'"));
    const auto other = hospital.open(QStringLiteral("WARD2"));
    const auto which = [&] {
        return Hospital::shown(other->execute(QStringLiteral("sp_Which")).rows.at(0, 0));
    };
    EXPECT_EQ(which(), "old");
    hospital.install(QStringLiteral("ALTER PROCEDURE sp_Which AS SELECT 'new'"));
    QElapsedTimer timer;
    timer.start();
    constexpr qint64 longest = 2000;
    while (which() != "new" && timer.elapsed() < longest) {
    }
    EXPECT_EQ(which(), "new");
}

TEST(Opening, namesWhatIsWrong) {
    engine::Options options;
    QTemporaryDir directory;
    const QString missing = directory.filePath(QStringLiteral("missing"));
    EXPECT_EQ(numberOf([&] { engine::EmbeddedProvider::open(missing, options); }), 4060);
    EXPECT_FALSE(QFile::exists(missing));
    const QString foreign = directory.filePath(QStringLiteral("foreign"));
    QFile file(foreign);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("This is a letter, no hospital. It is long enough for a header of a file.");
    file.close();
    EXPECT_EQ(numberOf([&] { engine::EmbeddedProvider::open(foreign, options); }), 4060);
    sqlite3* other = nullptr;
    const QByteArray otherPath = directory.filePath(QStringLiteral("other")).toUtf8();
    sqlite3_open(otherPath.constData(), &other);
    sqlite3_exec(other, "CREATE TABLE t (a)", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    options.newDatabases = tests::databases();
    EXPECT_EQ(numberOf([&] { engine::EmbeddedProvider::open(QString::fromUtf8(otherPath), options); }), 4060);
}

TEST(Opening, theFileIsSafeAgainstALossOfPower) {
    Hospital hospital;
    sqlite3* handle = hospital.provider().handle();
    const auto pragma = [&](const char* sql) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(handle, sql, -1, &statement, nullptr);
        sqlite3_step(statement);
        const QString value =
            QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
        sqlite3_finalize(statement);
        return value;
    };
    EXPECT_EQ(pragma("PRAGMA journal_mode"), "wal");
    EXPECT_EQ(pragma("PRAGMA synchronous"), "2");
    EXPECT_EQ(pragma("PRAGMA foreign_keys"), "0");
}

TEST(Database, isChosenByName) {
    Hospital hospital;
    EXPECT_EQ(hospital.provider().database(), "NUCLEAR");
    hospital.provider().useDatabase(QStringLiteral("Patient_Data"));
    EXPECT_EQ(hospital.provider().database(), "PATIENT_DATA");
    hospital.run("USE billing");
    EXPECT_EQ(hospital.provider().database(), "BILLING");
    EXPECT_EQ(numberOf([&] { hospital.provider().useDatabase(QStringLiteral("NOWHERE")); }), 911);
    EXPECT_EQ(hospital.error("USE NOWHERE"),
              "911: Database 'NOWHERE' does not exist. Make sure that the name is entered correctly.");
    EXPECT_EQ(hospital.provider().database(), "BILLING");
    for (const char* name : {"NUCLEAR", "PATIENT_DATA", "BUILD_FILE", "BILLING", "STATION", "PASSWORD",
                             "INVENTORY", "RADIOLOGY", "LABORATORY", "CARDIO"})
        EXPECT_TRUE(hospital.provider().hasDatabase(QString::fromLatin1(name))) << name;
}

TEST(Database, isOneOfThoseThatTheFileWasMadeWith) {
    const QTemporaryDir directory;
    const QString file = directory.filePath(QStringLiteral("stores"));
    engine::Options options;
    options.newDatabases = QStringList{"STORES", "ARCHIVE"};
    EXPECT_EQ(engine::EmbeddedProvider::open(file, options)->database(), "STORES");
    options.newDatabases = QStringList{"OTHER"}; // the file is there
    const auto again = engine::EmbeddedProvider::open(file, options);
    EXPECT_EQ(again->database(), "STORES");
    EXPECT_TRUE(again->hasDatabase("archive"));
    EXPECT_FALSE(again->hasDatabase("OTHER"));
    EXPECT_FALSE(again->hasDatabase("NUCLEAR"));
}

TEST(Settings, areKeptInTheFile) {
    Hospital hospital;
    EXPECT_EQ(hospital.provider().setting("kit.version"), "");
    hospital.provider().setSetting("kit.version", "1.0");
    hospital.provider().setSetting("kit.version", "1.1");
    EXPECT_EQ(hospital.open()->setting("kit.version"), "1.1");
}

} // namespace
