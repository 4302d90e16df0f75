#include "server/hospital/Backup.h"

#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/hospital/Create.h"
#include "tests/support/core/Raised.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using hospital::Existing;

class Backup : public testing::Test {
  protected:
    Backup() { hospital::createEmptyHospital(m_file); }

    static void setTitle(engine::EmbeddedProvider& provider, const char* title) {
        provider.execute(
            QStringLiteral("UPDATE PATIENT_DATA..tbHospitalInfo SET Title = '%1'").arg(QLatin1String(title)));
    }
    static QString title(engine::EmbeddedProvider& provider) {
        return *provider.execute(QStringLiteral("SELECT Title FROM PATIENT_DATA..tbHospitalInfo"))
                    .rows.at(0, 0)
                    .asText();
    }
    static int errorOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const base::RunTimeError& error) {
            return error.number();
        }
        return 0;
    }

    static QString contents(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
    }
    static void write(const QString& name, const QByteArray& bytes) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QStringList besides() const {
        QStringList names = QDir(m_folder.path()).entryList(QDir::Files);
        names.removeAll(QStringLiteral("hospital.scintra"));
        names.removeAll(QStringLiteral("copy.scintra"));
        names.removeAll(QStringLiteral("copy.scintra.sha256"));
        return names;
    }
    QString titleIn(const QString& file) { return title(*engine::EmbeddedProvider::open(file, {})); }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("hospital.scintra"));
    QString m_copy = m_folder.filePath(QStringLiteral("copy.scintra"));
};

TEST_F(Backup, IsOfOneMomentWhileAWorkstationWorks) {
    const auto desk = engine::EmbeddedProvider::open(m_file, {});
    setTitle(*desk, "COMMITTED");
    desk->begin();
    setTitle(*desk, "UNDER WAY");
    hospital::backupHospital(m_file, m_copy, Existing::Refuse);
    desk->commit();
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(m_copy, {})), QStringLiteral("COMMITTED"));
    EXPECT_EQ(title(*desk), QStringLiteral("UNDER WAY"));
    hospital::backupHospital(m_file, m_copy, Existing::Replace);
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(m_copy, {})), QStringLiteral("UNDER WAY"));
}

TEST_F(Backup, RestoringIsSeenByAnOpenWorkstation) {
    const auto desk = engine::EmbeddedProvider::open(m_file, {});
    setTitle(*desk, "THEN");
    hospital::backupHospital(m_file, m_copy, Existing::Refuse);
    setTitle(*desk, "LATER");
    hospital::restoreHospital(m_copy, m_file, Existing::Replace);
    EXPECT_EQ(title(*desk), QStringLiteral("THEN"));
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(m_file, {})), QStringLiteral("THEN"));
}

TEST_F(Backup, RestoresToWhereNothingIs) {
    hospital::backupHospital(m_file, m_copy, Existing::Refuse);
    const QString fresh = m_folder.filePath(QStringLiteral("new/place.scintra"));
    hospital::restoreHospital(m_copy, fresh, Existing::Refuse);
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(fresh, {})), QString());
}

TEST_F(Backup, RefusesWhatIsNoHospital) {
    EXPECT_EQ(errorOf([&] {
                  hospital::backupHospital(m_folder.filePath(QStringLiteral("none")), m_copy,
                                           Existing::Refuse);
              }),
              53);
    QFile other(m_folder.filePath(QStringLiteral("letter.txt")));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("Dear Sir, this is no hospital.");
    other.close();
    EXPECT_EQ(errorOf([&] { hospital::restoreHospital(other.fileName(), m_file, Existing::Replace); }), 321);
    EXPECT_FALSE(QFile::exists(m_copy));
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(m_file, {})), QString());
}

TEST_F(Backup, AJournalThatWasLeftBehindDoesNotBecomeTheCopys) {
    const auto desk = engine::EmbeddedProvider::open(m_file, {});
    setTitle(*desk, "GOOD");
    const QString other = m_folder.filePath(QStringLiteral("other.scintra"));
    hospital::createEmptyHospital(other);
    {
        const auto wal = engine::EmbeddedProvider::open(other, {});
        setTitle(*wal, "OF ANOTHER");
        ASSERT_TRUE(QFile::copy(other + QStringLiteral("-wal"), m_copy + QStringLiteral("-wal")));
    }
    hospital::backupHospital(m_file, m_copy, Existing::Refuse);
    EXPECT_FALSE(QFile::exists(m_copy + QStringLiteral("-wal")));
    EXPECT_EQ(titleIn(m_copy), QStringLiteral("GOOD"));
    EXPECT_TRUE(engine::EmbeddedProvider::open(m_copy, {})->check().isEmpty());
}

TEST_F(Backup, RefusesTheFileItselfByWhateverName) {
    const auto desk = engine::EmbeddedProvider::open(m_file, {});
    setTitle(*desk, "MINE");
    const QString link = m_folder.filePath(QStringLiteral("link.scintra"));
    ASSERT_TRUE(QFile::link(m_file, link));
    for (const QString& name : {m_file, link, m_folder.filePath(QStringLiteral("./hospital.scintra"))}) {
        EXPECT_EQ(errorOf([&] { hospital::backupHospital(m_file, name, Existing::Replace); }), 5);
        EXPECT_EQ(errorOf([&] { hospital::restoreHospital(name, m_file, Existing::Replace); }), 5);
    }
    EXPECT_EQ(title(*desk), QStringLiteral("MINE"));
    EXPECT_TRUE(desk->check().isEmpty());
}

TEST_F(Backup, RefusesAFileThatIsThereUnlessItIsTold) {
    write(m_copy, "a letter");
    EXPECT_EQ(errorOf([&] { hospital::backupHospital(m_file, m_copy, Existing::Refuse); }), 58);
    EXPECT_EQ(contents(m_copy), QStringLiteral("a letter"));
    hospital::backupHospital(m_file, m_copy, Existing::Replace);
    EXPECT_EQ(titleIn(m_copy), QString());
    EXPECT_EQ(errorOf([&] { hospital::restoreHospital(m_copy, m_file, Existing::Refuse); }), 58);
    EXPECT_EQ(besides(), QStringList());
}

TEST_F(Backup, DoesNotReplaceAHospitalThatAWorkstationHasOpen) {
    hospital::createEmptyHospital(m_copy);
    const auto desk = engine::EmbeddedProvider::open(m_copy, {});
    setTitle(*desk, "AT WORK");
    EXPECT_EQ(errorOf([&] { hospital::backupHospital(m_file, m_copy, Existing::Replace); }), 70);
    EXPECT_EQ(title(*desk), QStringLiteral("AT WORK"));
}

TEST_F(Backup, ADamagedCopyNeverReplacesAGoodHospital) {
    {
        const auto desk = engine::EmbeddedProvider::open(m_file, {});
        hospital::backupHospital(m_file, m_copy, Existing::Refuse);
        ASSERT_TRUE(QFile::remove(m_copy + QStringLiteral(".sha256"))); // it would tell first
        setTitle(*desk, "GOOD");
    }
    QFile copy(m_copy);
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    const QByteArray whole = copy.readAll();
    copy.close();
    constexpr int pieces = 20;
    constexpr qsizetype page = 4096;
    for (int i = 0; i < pieces; ++i) {
        QByteArray damaged = whole;
        const qsizetype at = whole.size() / page * i / pieces * page;
        if (i % 2)
            damaged.truncate(at + page / 2);
        else
            damaged.replace(at, page, QByteArray(page, 'x'));
        write(m_copy, damaged);
        const base::RunTimeError error =
            tests::raised([&] { hospital::restoreHospital(m_copy, m_file, Existing::Replace); });
        EXPECT_EQ(error.number(), 321) << "page " << at / page;
        EXPECT_TRUE(error.description().contains(m_copy))
            << "it is found before a desk can read it: " << error.description().toStdString();
        EXPECT_EQ(titleIn(m_file), QStringLiteral("GOOD"));
        EXPECT_EQ(besides(), QStringList());
    }
}

TEST_F(Backup, WhatWasCutOffIsNotInTheWay) {
    const QString cutOff = QStringLiteral("half a copy");
    write(m_copy + QStringLiteral(".new"), cutOff.toLatin1());
    hospital::backupHospital(m_file, m_copy, Existing::Refuse);
    EXPECT_EQ(titleIn(m_copy), QString());
    write(m_file + QStringLiteral(".new"), cutOff.toLatin1());
    hospital::restoreHospital(m_copy, m_file, Existing::Replace);
    EXPECT_EQ(titleIn(m_file), QString());
    EXPECT_EQ(besides(), QStringList());
}

TEST_F(Backup, OfADamagedHospitalNoCopyIsMade) {
    hospital::backupHospital(m_file, m_copy, Existing::Refuse);
    const QByteArray former = contents(m_copy).toLatin1();
    QFile file(m_file);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    constexpr qint64 page = 4096;
    file.seek(file.size() / page / 2 * page);
    file.write(QByteArray(page, 'x'));
    file.close();
    EXPECT_EQ(errorOf([&] { hospital::backupHospital(m_file, m_copy, Existing::Replace); }), 321);
    EXPECT_EQ(contents(m_copy).toLatin1(), former);
}

TEST_F(Backup, ACopyWhoseRowsSaySomethingElseIsNotRestored) {
    {
        const auto provider = engine::EmbeddedProvider::open(m_file, {});
        setTitle(*provider, "Nuclear Medicine A");
    }
    hospital::backupHospital(m_file, m_copy, Existing::Refuse);
    QFile copy(m_copy);
    ASSERT_TRUE(copy.open(QIODevice::ReadWrite));
    const qint64 at = copy.readAll().indexOf("Nuclear Medicine A");
    ASSERT_GT(at, 0);
    copy.seek(at);
    copy.write("Muclear");
    copy.close();
    EXPECT_EQ(errorOf([&] { hospital::restoreHospital(m_copy, m_file, Existing::Replace); }), 321);
    EXPECT_EQ(titleIn(m_file), QStringLiteral("Nuclear Medicine A"));
    EXPECT_EQ(besides(), QStringList());
    ASSERT_TRUE(QFile::remove(m_copy + QStringLiteral(".sha256")));
    hospital::restoreHospital(m_copy, m_file, Existing::Replace);
    EXPECT_EQ(titleIn(m_file), QStringLiteral("Muclear Medicine A")) << "no page of it is damaged";
}

TEST_F(Backup, WithoutRoomForItsFingerprintTheFormerCopyStays) {
    hospital::backupHospital(m_file, m_copy, Existing::Refuse);
    {
        const auto provider = engine::EmbeddedProvider::open(m_file, {});
        setTitle(*provider, "LATER");
    }
    const QString fingerprint = contents(m_copy + QStringLiteral(".sha256"));
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("copy.scintra.new.sha256")));
    EXPECT_EQ(errorOf([&] { hospital::backupHospital(m_file, m_copy, Existing::Replace); }), 75);
    EXPECT_NE(titleIn(m_copy), QStringLiteral("LATER"));
    EXPECT_EQ(contents(m_copy + QStringLiteral(".sha256")), fingerprint);
    EXPECT_EQ(besides(), QStringList());
}

TEST_F(Backup, EachBackupHasAFingerprintOfItsOwn) {
    for (const char* title : {"One", "Two"}) {
        {
            const auto provider = engine::EmbeddedProvider::open(m_file, {});
            setTitle(*provider, title);
        }
        hospital::backupHospital(m_file, m_copy, Existing::Replace);
        hospital::restoreHospital(m_copy, m_file, Existing::Replace);
        EXPECT_EQ(titleIn(m_file), QLatin1String(title));
    }
    EXPECT_TRUE(contents(m_copy + QStringLiteral(".sha256")).endsWith(QStringLiteral("  copy.scintra\n")));
}

TEST_F(Backup, RestoresOverAHospitalThatIsDamaged) {
    {
        const auto desk = engine::EmbeddedProvider::open(m_file, {});
        setTitle(*desk, "THEN");
    }
    hospital::backupHospital(m_file, m_copy, Existing::Refuse);
    write(m_file, "no hospital any more");
    write(m_file + QStringLiteral("-wal"), "nor a journal");
    hospital::restoreHospital(m_copy, m_file, Existing::Replace);
    EXPECT_EQ(titleIn(m_file), QStringLiteral("THEN"));
    EXPECT_EQ(besides(), QStringList());
}

TEST_F(Backup, CopiesAreReadableByTheirOwnerOnly) {
    const auto own = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    EXPECT_EQ(QFile::permissions(m_file), own);
    hospital::backupHospital(m_file, m_copy, Existing::Refuse);
    EXPECT_EQ(QFile::permissions(m_copy), own);
    QFile::setPermissions(m_copy, own | QFile::ReadOther);
    QFile::setPermissions(m_file, own | QFile::ReadOther);
    hospital::restoreHospital(m_copy, m_file, Existing::Replace);
    EXPECT_EQ(QFile::permissions(m_file), own);
    const QString fresh = m_folder.filePath(QStringLiteral("new/place.scintra"));
    hospital::restoreHospital(m_copy, fresh, Existing::Refuse);
    EXPECT_EQ(QFile::permissions(fresh), own);
    EXPECT_EQ(QFile::permissions(m_folder.filePath(QStringLiteral("new"))),
              own | QFile::ExeOwner | QFile::ExeUser);
}

} // namespace
