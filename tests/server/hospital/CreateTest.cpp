#include "server/hospital/Create.h"

#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/hospital/Kit.h"

#include "tests/support/core/Raised.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

class EmptyHospital : public testing::Test {
  protected:
    std::unique_ptr<engine::EmbeddedProvider> open() { return engine::EmbeddedProvider::open(m_file, {}); }
    static qint64 number(engine::EmbeddedProvider& provider, const char* text) {
        return *provider.execute(QString::fromLatin1(text)).rows.at(0, 0).asInteger();
    }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("sub/hospital.scintra"));
};

TEST_F(EmptyHospital, HasItsNumberRowsAndNoPatients) {
    hospital::createEmptyHospital(m_file);
    const auto provider = open();
    EXPECT_EQ(number(*provider, "SELECT COUNT(*) FROM NUCLEAR..tbNucSlip"), 1);
    EXPECT_EQ(number(*provider, "SELECT COUNT(*) FROM BILLING..tbAssessmentNum"), 1);
    EXPECT_EQ(number(*provider, "SELECT COUNT(*) FROM PATIENT_DATA..tbHospitalInfo"), 1);
    EXPECT_EQ(number(*provider, "SELECT COUNT(*) FROM PATIENT_DATA..tbMaster"), 0);
    EXPECT_EQ(number(*provider, "SELECT COUNT(*) FROM PASSWORD..tbPasswordMain"), 0);
}

TEST_F(EmptyHospital, HasTheKitsDatabasesAndBeginsInTheSections) {
    hospital::createEmptyHospital(m_file);
    const auto provider = open();
    EXPECT_EQ(provider->database(), QStringLiteral("NUCLEAR"));
    EXPECT_EQ(hospital::kitDatabases().size(), 10);
    for (const QString& name : hospital::kitDatabases())
        EXPECT_TRUE(provider->hasDatabase(name)) << name.toStdString();
}

TEST_F(EmptyHospital, OfAnOlderKitIsBroughtUpToDate) {
    hospital::createEmptyHospital(m_file);
    const auto provider = open();
    EXPECT_FALSE(hospital::ensureKit(*provider));
    provider->setSetting(QStringLiteral("kitVersion"), QStringLiteral("older"));
    provider->execute(QStringLiteral("UPDATE NUCLEAR..tbNucSlip SET ChargeSlip = 777"));
    EXPECT_TRUE(hospital::ensureKit(*provider));
    EXPECT_EQ(hospital::installedKitVersion(*provider), hospital::kitVersion());
    EXPECT_FALSE(provider->inTransaction());
    // Data stay as they are.
    EXPECT_EQ(number(*provider, "SELECT ChargeSlip FROM NUCLEAR..tbNucSlip"), 777);
    EXPECT_EQ(number(*provider, "SELECT COUNT(*) FROM NUCLEAR..tbNuclearUserSettings"), 18);
    provider->execute(QStringLiteral("NUCLEAR..sp_Nuclear_IncRefNum"));
    EXPECT_EQ(number(*provider, "SELECT ChargeSlip FROM NUCLEAR..tbNucSlip"), 778);
}

TEST_F(EmptyHospital, NumbersOfAKitWithoutTheLockingViewsAreKept) {
    hospital::createEmptyHospital(m_file);
    const auto provider = open();
    for (const char* text :
         {"USE NUCLEAR", "DROP VIEW tbNucSlip", "DROP TABLE tbNucSlipRow",
          "CREATE TABLE tbNucSlip (SlipID int NOT NULL, ChargeSlip int NOT NULL, RequestNum int NOT NULL, "
          "CONSTRAINT PK_NucSlip PRIMARY KEY (SlipID))",
          "INSERT INTO tbNucSlip VALUES (1, 5001, 6002)", "USE PATIENT_DATA", "DROP VIEW tbLastWalkInNum",
          "DROP TABLE tbLastWalkInNumRow",
          "CREATE TABLE tbLastWalkInNum (WalkInNumID int NOT NULL, lastopd varchar(20) NOT NULL, transnum "
          "int NOT "
          "NULL, CONSTRAINT PK_LastWalkInNum PRIMARY KEY (WalkInNumID))",
          "INSERT INTO tbLastWalkInNum VALUES (1, 'W1234', 1234)"})
        provider->execute(QString::fromLatin1(text));
    provider->setSetting(QStringLiteral("kitVersion"), QStringLiteral("older"));
    EXPECT_TRUE(hospital::ensureKit(*provider));
    provider->execute(QStringLiteral("NUCLEAR..sp_Nuclear_IncRequestNum"));
    EXPECT_EQ(number(*provider, "SELECT ChargeSlip FROM NUCLEAR..tbNucSlip"), 5001);
    EXPECT_EQ(number(*provider, "SELECT RequestNum FROM NUCLEAR..tbNucSlip"), 6003);
    EXPECT_EQ(number(*provider, "SELECT transnum FROM PATIENT_DATA..tbLastWalkInNum"), 1234);
}

TEST_F(EmptyHospital, IsKeptOpenByNothingOnceItIsClosed) {
    hospital::createEmptyHospital(m_file);
    open()->execute(QStringLiteral("SELECT NUCLEAR.dbo.fnNuclear_Age('1980-01-01', GETDATE()) AS Age"));
    EXPECT_TRUE(open()->check().isEmpty());
    EXPECT_FALSE(QFileInfo::exists(m_file + QStringLiteral("-wal")));
}

TEST(Kit, CarriesEveryFileInItsOrder) {
    const auto& files = hospital::kitFiles();
    EXPECT_GT(files.size(), 100u);
    int rank = 0;
    for (const hospital::KitFile& file : files) {
        const int now = file.name.endsWith(QLatin1String("tables.sql"))     ? 0
                        : file.name.contains(QLatin1String("/functions/"))  ? 1
                        : file.name.contains(QLatin1String("/views/"))      ? 2
                        : file.name.contains(QLatin1String("/procedures/")) ? 3
                                                                            : 4;
        EXPECT_GE(now, rank) << file.name.toStdString();
        rank = now;
        EXPECT_FALSE(file.text.isEmpty());
    }
    EXPECT_EQ(hospital::kitVersion().size(), 40);
}

TEST_F(EmptyHospital, NeverAppearsWhenItsFillingFails) {
    const auto fill = [](engine::EmbeddedProvider&, const hospital::Progress&) {
        throw base::RunTimeError(61, QStringLiteral("Disk full"));
    };
    EXPECT_THROW(hospital::createFilledHospital(m_file, fill), base::RunTimeError);
    for (const char* tail : {"", ".new", ".new-wal", ".new-shm"})
        EXPECT_FALSE(QFileInfo::exists(m_file + QLatin1String(tail))) << tail;
}

TEST_F(EmptyHospital, IsMadeOnceByWhoeverStartsFirst) {
    constexpr int rounds = 4;
    constexpr int starts = 4;
    for (int round = 0; round < rounds; ++round) {
        const QString file = m_folder.filePath(QStringLiteral("round%1/hospital.scintra").arg(round));
        std::atomic<int> fillings{0};
        std::atomic<int> failures{0};
        std::vector<std::thread> threads;
        for (int i = 0; i < starts; ++i) {
            threads.emplace_back([&] {
                try {
                    hospital::createFilledHospital(
                        file, [&](engine::EmbeddedProvider&, const hospital::Progress&) { ++fillings; });
                } catch (const base::RunTimeError& error) {
                    failures += error.number() != 58; // it was there when this one began
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(failures, 0);
        EXPECT_EQ(fillings, 1);
        EXPECT_TRUE(engine::EmbeddedProvider::open(file, {})->check().isEmpty());
        EXPECT_EQ(QDir(QFileInfo(file).path()).entryList(QDir::Files),
                  QStringList{QStringLiteral("hospital.scintra")});
    }
}

TEST_F(EmptyHospital, IsMadeAnewWhereItsMakingWasCutOff) {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(m_file).path()));
    {
        engine::Options options;
        options.newDatabases = hospital::kitDatabases();
        engine::EmbeddedProvider::open(m_file, options);
    }
    EXPECT_FALSE(hospital::isThere(m_file));
    hospital::createEmptyHospital(m_file);
    EXPECT_TRUE(hospital::isThere(m_file));
    EXPECT_TRUE(open()->check().isEmpty());
    QFile nothing(m_folder.filePath(QStringLiteral("nothing")));
    ASSERT_TRUE(nothing.open(QIODevice::WriteOnly));
    nothing.close();
    EXPECT_FALSE(hospital::isThere(nothing.fileName()));
    hospital::createEmptyHospital(nothing.fileName());
    EXPECT_TRUE(hospital::isThere(nothing.fileName()));
}

TEST_F(EmptyHospital, WhatACutOffMakingLeftIsNeitherTakenNorInTheWay) {
    const QString left = m_file + QStringLiteral(".new");
    hospital::createEmptyHospital(left);
    engine::EmbeddedProvider::open(left, {})->execute(
        QStringLiteral("UPDATE PATIENT_DATA..tbHospitalInfo SET Title = 'CUT OFF'"));
    hospital::createEmptyHospital(m_file);
    EXPECT_FALSE(QFile::exists(left));
    EXPECT_EQ(number(*open(), "SELECT COUNT(*) FROM PATIENT_DATA..tbHospitalInfo WHERE Title = 'CUT OFF'"),
              0);
}

TEST_F(EmptyHospital, NeverTakesThePlaceOfAnotherFile) {
    QFile letter(m_folder.filePath(QStringLiteral("letter")));
    ASSERT_TRUE(letter.open(QIODevice::WriteOnly));
    letter.write("Dear Sir");
    letter.close();
    EXPECT_TRUE(hospital::isThere(letter.fileName()));
    EXPECT_EQ(tests::raised([&] { hospital::createEmptyHospital(letter.fileName()); }).number(), 58);
    EXPECT_EQ(letter.size(), 8);
}

TEST_F(EmptyHospital, IsReadableByItsOwnerOnlyWithItsJournalsAndItsFolder) {
    hospital::createEmptyHospital(m_file);
    const auto provider = open();
    provider->setSetting(QStringLiteral("any"), QStringLiteral("thing"));
    const auto own = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    for (const char* tail : {"", "-wal", "-shm"})
        EXPECT_EQ(QFile::permissions(m_file + QLatin1String(tail)), own) << tail;
    EXPECT_EQ(QFile::permissions(QFileInfo(m_file).path()), own | QFile::ExeOwner | QFile::ExeUser);
}

TEST(Kit, HasANumberForEachOfItsStates) {
    EXPECT_EQ(hospital::kitNumber, 5);
    EXPECT_EQ(hospital::kitVersion().toStdString(), "49969b4b4e6fd4d5ceeba87ab2bd99427f9a58ea")
        << "The kit has changed: raise kitNumber once a release, and put the new fingerprint here.";
}

TEST_F(EmptyHospital, OfANewerKitIsNotTakenBack) {
    hospital::createEmptyHospital(m_file);
    const auto provider = open();
    EXPECT_EQ(hospital::installedKitNumber(*provider), hospital::kitNumber);
    provider->setSetting(QStringLiteral("kitNumber"), QString::number(hospital::kitNumber + 1));
    provider->setSetting(QStringLiteral("kitVersion"), QStringLiteral("newer"));
    const base::RunTimeError error = tests::raised([&] { hospital::ensureKit(*provider); });
    EXPECT_EQ(error.number(), 4060);
    for (const int number : {hospital::kitNumber, hospital::kitNumber + 1})
        EXPECT_TRUE(error.description().contains(QStringLiteral("kit %1").arg(number)));
    EXPECT_EQ(hospital::installedKitVersion(*provider), QStringLiteral("newer"));
}

TEST_F(EmptyHospital, OfAKitThatIsTooOldIsToldByItsColumns) {
    hospital::createEmptyHospital(m_file);
    const auto provider = open();
    for (const char* text : {"USE BILLING", "DROP TABLE tbDeposit",
                             "CREATE TABLE tbDeposit (DepositID varchar(9) NOT NULL)", "USE NUCLEAR"})
        provider->execute(QString::fromLatin1(text));
    provider->setSetting(QStringLiteral("kitVersion"), QStringLiteral("older"));
    const base::RunTimeError error = tests::raised([&] { hospital::ensureKit(*provider); });
    EXPECT_EQ(error.number(), 207);
    EXPECT_TRUE(error.description().contains(QStringLiteral("BILLING..tbDeposit.")))
        << error.description().toStdString();
    EXPECT_FALSE(provider->inTransaction());
    EXPECT_EQ(hospital::installedKitVersion(*provider), QStringLiteral("older"));
}

TEST_F(EmptyHospital, ItsNumbersNeverBeginAnewWhereRequestsExist) {
    hospital::createEmptyHospital(m_file);
    const auto provider = open();
    provider->execute(QStringLiteral(
        "INSERT INTO NUCLEAR..tbNucMaster (RequestNum, ItemID, TransDate) VALUES ('5', 'A', GETDATE())"));
    provider->execute(QStringLiteral("DELETE FROM NUCLEAR..tbNucSlipRow"));
    provider->execute(QStringLiteral("DELETE FROM BILLING..tbAssessmentNumRow"));
    provider->setSetting(QStringLiteral("kitVersion"), QStringLiteral("older"));
    EXPECT_TRUE(hospital::ensureKit(*provider));
    EXPECT_EQ(number(*provider, "SELECT COUNT(*) FROM NUCLEAR..tbNucSlipRow"), 0);
    EXPECT_EQ(number(*provider, "SELECT COUNT(*) FROM BILLING..tbAssessmentNumRow"), 1);
}

} // namespace
