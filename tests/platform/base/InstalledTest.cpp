#include "platform/base/Installed.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace {

struct Place {
    QString (*find)(const QString& name);
    const char* folder; ///< as seen from the program
    const char* beginning = "";
    const char* ending = "";
};
#ifdef _WIN32
constexpr const char* ofAProgram = ".exe";
constexpr const char* beforeAModule = "";
constexpr const char* ofAModule = ".dll";
#else
constexpr const char* ofAProgram = "";
constexpr const char* beforeAModule = "lib";
constexpr const char* ofAModule = ".so";
#endif

class Installed : public testing::TestWithParam<Place> {
  protected:
    ~Installed() override {
        QFile::remove(m_beside);
        QFile::remove(m_there);
    }
    static void make(const QString& path) {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    const QString m_own = QCoreApplication::applicationDirPath();
    const QString m_file = QString(GetParam().beginning) + "travels-with-it" + GetParam().ending;
    const QString m_beside = m_own + u'/' + m_file;
    const QString m_there = QDir::cleanPath(m_own + GetParam().folder + u'/' + m_file);
};

TEST_P(Installed, LiesBesideTheProgramElseWhereItWasInstalled) {
    const auto find = [] { return GetParam().find(QStringLiteral("travels-with-it")); };
    EXPECT_EQ(find(), m_beside) << "where it should be";
    make(m_there);
    EXPECT_EQ(find(), m_there);
    make(m_beside);
    EXPECT_EQ(find(), m_beside);
}

INSTANTIATE_TEST_SUITE_P(
    Places, Installed,
    testing::Values(Place{base::sharedFile, "/../share/visual-scintra"},
                    Place{base::helperProgram, "/../libexec/visual-scintra", "", ofAProgram},
                    Place{base::ownModule, "/../libexec/visual-scintra", beforeAModule, ofAModule}));

} // namespace
