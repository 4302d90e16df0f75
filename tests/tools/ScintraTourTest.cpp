#ifdef SCINTRA_WIDGETS
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// A folder that the tour is to use, and what lies there before.
class TourFolder : public testing::Test {
  protected:
    void put(const char* name) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("kept");
    }
    QString path(const char* name) const { return QDir(m_folder.path()).filePath(QLatin1StringView(name)); }
    bool isKept(const char* name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) && file.readAll() == "kept";
    }
    void start() {
        m_tour.start(QStringLiteral(SCINTRA_BINARY_DIR "/bin/scintra-tour"), {m_folder.path()});
        ASSERT_TRUE(m_tour.waitForStarted());
    }
    void TearDown() override {
        m_tour.kill();
        m_tour.waitForFinished();
    }

    QTemporaryDir m_folder;
    QProcess m_tour;
};

TEST_F(TourFolder, AHospitalThatNoTourLeftIsKept) {
    put("hospital.scintra");
    start();
    ASSERT_TRUE(m_tour.waitForFinished());
    EXPECT_EQ(m_tour.exitCode(), 1);
    EXPECT_TRUE(m_tour.readAllStandardError().contains("holds what no tour has left there"));
    EXPECT_TRUE(isKept("hospital.scintra"));
}

TEST_F(TourFolder, PicturesThatNoTourLeftAreKept) {
    put("01-holiday.png");
    start();
    ASSERT_TRUE(m_tour.waitForFinished());
    EXPECT_EQ(m_tour.exitCode(), 1);
    EXPECT_TRUE(isKept("01-holiday.png"));
}

TEST_F(TourFolder, AnEarlierToursIsTakenForTheNext) {
    put("hospital.scintra");
    put("01-log-on.png");
    put("letter.txt");
    start();
    constexpr int most = 30'000; // ms
    for (const QDeadlineTimer deadline(most); isKept("hospital.scintra") && !deadline.hasExpired();)
        ASSERT_FALSE(m_tour.waitForFinished(100)) << m_tour.readAllStandardError().toStdString();
    EXPECT_FALSE(isKept("01-log-on.png"));
    EXPECT_TRUE(isKept("letter.txt"));
}

} // namespace
#endif
