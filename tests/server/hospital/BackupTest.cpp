#include "server/hospital/Backup.h"

#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/hospital/Create.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

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

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("hospital.scintra"));
    QString m_copy = m_folder.filePath(QStringLiteral("copy.scintra"));
};

TEST_F(Backup, IsOfOneMomentWhileAWorkstationWorks) {
    const auto desk = engine::EmbeddedProvider::open(m_file, {});
    setTitle(*desk, "COMMITTED");
    desk->begin();
    setTitle(*desk, "UNDER WAY");
    hospital::backupHospital(m_file, m_copy);
    desk->commit();
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(m_copy, {})), QStringLiteral("COMMITTED"));
    EXPECT_EQ(title(*desk), QStringLiteral("UNDER WAY"));
    hospital::backupHospital(m_file, m_copy);
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(m_copy, {})), QStringLiteral("UNDER WAY"));
}

TEST_F(Backup, RestoringIsSeenByAnOpenWorkstation) {
    const auto desk = engine::EmbeddedProvider::open(m_file, {});
    setTitle(*desk, "THEN");
    hospital::backupHospital(m_file, m_copy);
    setTitle(*desk, "LATER");
    hospital::restoreHospital(m_copy, m_file);
    EXPECT_EQ(title(*desk), QStringLiteral("THEN"));
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(m_file, {})), QStringLiteral("THEN"));
}

TEST_F(Backup, RestoresToWhereNothingIs) {
    hospital::backupHospital(m_file, m_copy);
    const QString fresh = m_folder.filePath(QStringLiteral("new/place.scintra"));
    hospital::restoreHospital(m_copy, fresh);
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(fresh, {})), QString());
}

TEST_F(Backup, RefusesWhatIsNoHospital) {
    EXPECT_EQ(errorOf([&] { hospital::backupHospital(m_folder.filePath(QStringLiteral("none")), m_copy); }),
              53);
    QFile other(m_folder.filePath(QStringLiteral("letter.txt")));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("Dear Sir, this is no hospital.");
    other.close();
    EXPECT_EQ(errorOf([&] { hospital::restoreHospital(other.fileName(), m_file); }), 321);
    EXPECT_FALSE(QFile::exists(m_copy));
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(m_file, {})), QString());
}

} // namespace
