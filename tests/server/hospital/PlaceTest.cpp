#include "server/hospital/Backup.h"

#include "server/engine/EmbeddedProvider.h"
#include "server/engine/Trace.h"
#include "server/hospital/Create.h"
#include "server/hospital/Kit.h"
#include "tests/support/core/FullDisk.h"
#include "tests/support/core/OrdinaryUser.h"
#include "tests/support/core/Raised.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

// Where a hospital file lies, and what the place does to it.
namespace {

using hospital::Existing;

QString titleOf(engine::EmbeddedProvider& provider) {
    return *provider.execute(QStringLiteral("SELECT Title FROM PATIENT_DATA..tbHospitalInfo"))
                .rows.at(0, 0)
                .asText();
}
QString titleIn(const QString& file) {
    return titleOf(*engine::EmbeddedProvider::open(file, {}));
}
void setTitle(const QString& file, const QString& title) {
    engine::EmbeddedProvider::open(file, {})->execute(
        QStringLiteral("UPDATE PATIENT_DATA..tbHospitalInfo SET Title = '%1'").arg(title));
}
/// As a program of before left it.
void makeOlder(const QString& file) {
    engine::EmbeddedProvider::open(file, {})->setSetting(QStringLiteral("kitVersion"),
                                                         QStringLiteral("older"));
}
QByteArray bytesOf(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class NamedPlace : public testing::TestWithParam<const char*> {};

TEST_P(NamedPlace, IsNoDifferentFromAnother) {
    const QTemporaryDir folder;
    const QString place = folder.filePath(QString::fromUtf8(GetParam()));
    const QString file = place + u'/' + QString::fromUtf8(GetParam()) + QStringLiteral(".scintra");
    const QString copy = place + QStringLiteral("/copia de mañana.scintra");
    hospital::createEmptyHospital(file);
    {
        const auto provider = engine::EmbeddedProvider::open(file, {});
        provider->setTracing(true);
        provider->execute(QStringLiteral("UPDATE PATIENT_DATA..tbHospitalInfo SET Title = 'THEN'"));
        provider->setTracing(false);
        EXPECT_TRUE(bytesOf(engine::Trace::fileOf(file)).contains("Title = 'THEN'"));
    }
    hospital::backupHospital(file, copy, Existing::Refuse);
    setTitle(file, QStringLiteral("LATER"));
    hospital::restoreHospital(copy, file, Existing::Replace);
    EXPECT_EQ(titleIn(file), QStringLiteral("THEN"));
    EXPECT_EQ(engine::EmbeddedProvider::open(file, {})->check(), QStringList());
    QStringList names = QDir(place).entryList(QDir::Files);
    names.removeAll(QFileInfo(engine::Trace::fileOf(file)).fileName());
    EXPECT_EQ(names.size(), 3) << names.join(u' ').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Of, NamedPlace,
                         testing::Values("Señor Ñuñez", " Año  2026 ", "100% & #1?mode=ro", "d'hôpital \"B\"",
                                         "病院", "file:hospital"));

/// A folder of an ordinary user, and what that user gets to do there.
class BoundPlace : public testing::Test {
  protected:
    BoundPlace() {
        hospital::createEmptyHospital(m_file);
        setTitle(m_file, QStringLiteral("OURS"));
        giveToOrdinaryUser();
    }
    ~BoundPlace() override { mayWrite(m_folder.path(), true); }

    void giveToOrdinaryUser() {
        tests::giveToOrdinaryUser(m_folder.path());
        for (const QString& name : QDir(m_folder.path()).entryList(QDir::Files))
            tests::giveToOrdinaryUser(m_folder.filePath(name));
    }
    static void mayWrite(const QString& path, bool may) {
        const auto others = QFile::ReadOwner | QFile::ExeOwner;
        QFile::setPermissions(path, may ? others | QFile::WriteOwner : others);
    }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("hospital.scintra"));
    QString m_copy = m_folder.filePath(QStringLiteral("copy.scintra"));
};

TEST_F(BoundPlace, AFileThatCanOnlyBeReadIsReadAndNotWritten) {
    makeOlder(m_file);
    giveToOrdinaryUser();
    mayWrite(m_file, false);
    const QByteArray before = bytesOf(m_file);
    EXPECT_EQ(tests::asOrdinaryUser([&] { return titleIn(m_file); }), QStringLiteral("OURS"));
    const QString refusal =
        QStringLiteral("3906: Failed to update the hospital file because it is read-only.");
    EXPECT_EQ(tests::asOrdinaryUser([&] {
                  setTitle(m_file, QStringLiteral("THEIRS"));
                  return QString();
              }),
              refusal);
    const QString kept = tests::asOrdinaryUser([&] {
        hospital::ensureKit(*engine::EmbeddedProvider::open(m_file, {}));
        return QString();
    });
    EXPECT_TRUE(kept.startsWith(refusal.first(5)) && kept.endsWith(refusal.mid(6))) << kept.toStdString();
    EXPECT_EQ(bytesOf(m_file), before);
    EXPECT_EQ(tests::asOrdinaryUser([&] {
                  hospital::backupHospital(m_file, m_copy, Existing::Refuse);
                  return titleIn(m_copy);
              }),
              QStringLiteral("OURS"));
}

TEST_F(BoundPlace, AFileThatMayBeWrittenAgainIs) {
    mayWrite(m_file, false);
    EXPECT_EQ(tests::asOrdinaryUser([&] { return titleIn(m_file); }), QStringLiteral("OURS"));
    mayWrite(m_file, true);
    EXPECT_EQ(tests::asOrdinaryUser([&] {
                  setTitle(m_file, QStringLiteral("AGAIN"));
                  return titleIn(m_file);
              }),
              QStringLiteral("AGAIN"));
}

TEST_F(BoundPlace, AFolderThatCanOnlyBeReadIsNamed) {
    mayWrite(m_folder.path(), false);
    const QString opened = tests::asOrdinaryUser([&] { return titleIn(m_file); });
    EXPECT_TRUE(opened.startsWith(QStringLiteral("4060: Cannot open the hospital file")) &&
                opened.contains(QStringLiteral("read-only")))
        << opened.toStdString();
    const QString elsewhere = QDir::tempPath() + QStringLiteral("/scintra-place-test.scintra");
    const QString copied = tests::asOrdinaryUser([&] {
        hospital::backupHospital(m_file, elsewhere, Existing::Refuse);
        return QString();
    });
    EXPECT_EQ(copied,
              QStringLiteral("75: Path/File access error: %1 cannot be written").arg(m_folder.path()));
    EXPECT_FALSE(QFile::exists(elsewhere));
}

class FullPlace : public testing::Test {
  protected:
    QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files); }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("hospital.scintra"));
    QString m_copy = m_folder.filePath(QStringLiteral("copy.scintra"));
};
constexpr qint64 fewPages = 200'000;

TEST_F(FullPlace, NoHalfHospitalIsMade) {
    {
        const tests::FullDisk full(fewPages);
        EXPECT_NE(tests::raised([&] { hospital::createEmptyHospital(m_file); }).number(), 0);
    }
    EXPECT_EQ(files(), QStringList());
    hospital::createEmptyHospital(m_file);
    EXPECT_EQ(files(), QStringList{QStringLiteral("hospital.scintra")});
}

TEST_F(FullPlace, AHospitalThatCannotBeBroughtUpStaysWhatItWas) {
    hospital::createEmptyHospital(m_file);
    setTitle(m_file, QStringLiteral("OURS"));
    makeOlder(m_file);
    {
        const auto provider = engine::EmbeddedProvider::open(m_file, {});
        const tests::FullDisk full(fewPages);
        EXPECT_NE(tests::raised([&] { hospital::ensureKit(*provider); }).number(), 0);
        EXPECT_FALSE(provider->inTransaction());
    }
    const auto provider = engine::EmbeddedProvider::open(m_file, {});
    EXPECT_EQ(hospital::installedKitVersion(*provider), QStringLiteral("older"));
    EXPECT_EQ(titleOf(*provider), QStringLiteral("OURS"));
    EXPECT_EQ(provider->check(), QStringList());
    EXPECT_TRUE(hospital::ensureKit(*provider));
}

TEST_F(FullPlace, TheFormerCopyAndTheHospitalStay) {
    hospital::createEmptyHospital(m_file);
    setTitle(m_file, QStringLiteral("THEN"));
    hospital::backupHospital(m_file, m_copy, Existing::Refuse);
    setTitle(m_file, QStringLiteral("LATER"));
    const QByteArray copy = bytesOf(m_copy);
    {
        const tests::FullDisk full(fewPages);
        EXPECT_EQ(
            tests::raised([&] { hospital::backupHospital(m_file, m_copy, Existing::Replace); }).number(), 75);
        EXPECT_EQ(
            tests::raised([&] { hospital::restoreHospital(m_copy, m_file, Existing::Replace); }).number(),
            75);
    }
    EXPECT_EQ(bytesOf(m_copy), copy);
    EXPECT_EQ(titleIn(m_file), QStringLiteral("LATER"));
    EXPECT_EQ(files(), (QStringList{QStringLiteral("copy.scintra"), QStringLiteral("copy.scintra.sha256"),
                                    QStringLiteral("hospital.scintra")}));
}

/// Eight desks save a request and its bill under one number, each in one transaction.
TEST(BackupUnderWork, EachCopyIsOfOneMomentOfEightDesks) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("hospital.scintra"));
    hospital::createEmptyHospital(file);
    constexpr int desks = 8;
    std::atomic<bool> isOver = false;
    std::atomic<int> faults = 0;
    const auto save = [&](engine::EmbeddedProvider& provider) {
        provider.begin();
        const QString number =
            QString::number(*provider.execute(QStringLiteral("SELECT RequestNum FROM NUCLEAR..tbNucSlip"))
                                 .rows.at(0, 0)
                                 .asInteger());
        provider.execute(QStringLiteral("NUCLEAR..sp_Nuclear_IncRequestNum"));
        provider.execute(QStringLiteral("NUCLEAR..sp_Nuclear_AddRequest '104001','26004001','%1', "
                                        "'1001','1250.5','204','I', 'C%1J','1001','%1','','2', '','NU'")
                             .arg(number));
        provider.execute(QStringLiteral("NUCLEAR..sp_addbill 'I','26004001','11/21/2026 08:30:00 AM','C%1J', "
                                        "'1001','1250.5','NU','1001','1','','', '104001'")
                             .arg(number));
        provider.commit();
    };
    std::vector<std::thread> threads;
    for (int desk = 0; desk < desks; ++desk) {
        threads.emplace_back([&] {
            try {
                const auto provider = engine::EmbeddedProvider::open(file, {});
                while (!isOver)
                    save(*provider);
            } catch (const base::RunTimeError&) {
                ++faults;
            }
        });
    }
    qint64 last = 0;
    for (int round = 0; round < 6; ++round) {
        const QString copy = folder.filePath(QStringLiteral("copy%1.scintra").arg(round));
        hospital::backupHospital(file, copy, Existing::Refuse);
        const auto provider = engine::EmbeddedProvider::open(copy, {});
        const auto number = [&](const char* text) {
            return *provider->execute(QString::fromLatin1(text)).rows.at(0, 0).asInteger();
        };
        const qint64 requests = number("SELECT COUNT(*) FROM NUCLEAR..tbNucMaster");
        EXPECT_EQ(number("SELECT COUNT(*) FROM BILLING..tbDailyBill"), requests);
        EXPECT_EQ(number("SELECT COUNT(DISTINCT RequestNum) FROM NUCLEAR..tbNucMaster"), requests);
        EXPECT_EQ(number("SELECT COUNT(*) FROM NUCLEAR..tbNucMaster WHERE CAST(RequestNum AS int) >= (SELECT "
                         "RequestNum FROM NUCLEAR..tbNucSlip)"),
                  0);
        EXPECT_GE(requests, last);
        EXPECT_EQ(provider->check(), QStringList());
        last = requests;
    }
    isOver = true;
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(faults, 0);
    EXPECT_GT(last, desks) << "the desks did save meanwhile";
}

} // namespace
