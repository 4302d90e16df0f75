#include "server/demo/Backup.h"

#include "platform/base/Error.h"
#include "server/demo/Hospital.h"
#include "server/engine/EmbeddedProvider.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class Backup : public testing::Test {
  protected:
    Backup() { demo::createEmptyHospital(m_file); }

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
    demo::backupHospital(m_file, m_copy);
    desk->commit();
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(m_copy, {})), QStringLiteral("COMMITTED"));
    EXPECT_EQ(title(*desk), QStringLiteral("UNDER WAY"));
    demo::backupHospital(m_file, m_copy);
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(m_copy, {})), QStringLiteral("UNDER WAY"));
}

TEST_F(Backup, RestoringIsSeenByAnOpenWorkstation) {
    const auto desk = engine::EmbeddedProvider::open(m_file, {});
    setTitle(*desk, "THEN");
    demo::backupHospital(m_file, m_copy);
    setTitle(*desk, "LATER");
    demo::restoreHospital(m_copy, m_file);
    EXPECT_EQ(title(*desk), QStringLiteral("THEN"));
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(m_file, {})), QStringLiteral("THEN"));
}

TEST_F(Backup, RestoresToWhereNothingIs) {
    demo::backupHospital(m_file, m_copy);
    const QString fresh = m_folder.filePath(QStringLiteral("new/place.scintra"));
    demo::restoreHospital(m_copy, fresh);
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(fresh, {})), QString());
}

TEST_F(Backup, RefusesWhatIsNoHospital) {
    EXPECT_EQ(errorOf([&] { demo::backupHospital(m_folder.filePath(QStringLiteral("none")), m_copy); }), 53);
    QFile other(m_folder.filePath(QStringLiteral("letter.txt")));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("Dear Sir, this is no hospital.");
    other.close();
    EXPECT_EQ(errorOf([&] { demo::restoreHospital(other.fileName(), m_file); }), 321);
    EXPECT_FALSE(QFile::exists(m_copy));
    EXPECT_EQ(title(*engine::EmbeddedProvider::open(m_file, {})), QString());
}

} // namespace
