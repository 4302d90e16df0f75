#include "tests/support/screens/LoggedOn.h"

#include "platform/base/Conversion.h"
#include "server/demo/Hospital.h"
#include "session/OdbcServer.h"
#include "session/Session.h"
#include "session/clsCurrentUser.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>

#include <stdexcept>

namespace tests {
namespace {

/// Made by the first test program that asks for it since the programs were built.
QString originalHospital() {
    const QString file = QCoreApplication::applicationDirPath() + QStringLiteral("/demo.scintra");
    QLockFile lock(file + QStringLiteral(".lock"));
    if (!lock.lock())
        throw std::runtime_error("the demo hospital is locked by another program");
    const QFileInfo made(file);
    const QFileInfo program(QCoreApplication::applicationFilePath());
    if (!made.exists() || made.lastModified() < program.lastModified()) {
        QFile::remove(file);
        const base::FixedClock clock(demoMoment());
        demo::createHospital(file);
    }
    return file;
}

} // namespace

base::DateTime demoMoment() {
    return *base::makeDateTime({2026, 11, 21}, {8, 30});
}

QString demoHospital() {
    static const QString original = originalHospital();
    static QTemporaryDir folder;
    static int count = 0;
    const QString copy = folder.filePath(QStringLiteral("hospital%1.scintra").arg(++count));
    if (!QFile::copy(original, copy))
        throw std::runtime_error("the demo hospital cannot be copied");
    return copy;
}

Way usualWay() {
    return qEnvironmentVariableIsSet("SCINTRA_TEST_OVER_ODBC") ? Way::Odbc : Way::File;
}

std::shared_ptr<session::HospitalServer> LoggedOn::hospital(Way way) {
    session::setHospitalFile(file);
    if (way == Way::File)
        return session::fileServer(file);
    if (way == Way::Site)
        return session::odbcServer(qEnvironmentVariable("SCINTRA_TEST_DSN"));
    loopback = std::make_unique<LoopbackServer>(file);
    setDataSources(QStringLiteral("[Test]\nDriver=%1\n").arg(testDriver()));
    return session::odbcServer(QStringLiteral("Test"));
}

LoggedOn::LoggedOn(Way way) {
    const auto server = hospital(way);
    auto user = std::make_unique<session::clsCurrentUser>();
    user->setPasswordDeptCode(QStringLiteral("5"));
    if (user->logOnTo(server, QStringLiteral("1001"), QStringLiteral("kerova")) != session::LogOnResult::Good)
        throw std::runtime_error("1001 cannot log on");
    if (!session::wireSession(std::move(user)))
        throw std::runtime_error("a service failed");
    recorder = std::make_unique<StatementRecorder>(*session::gConnection);
}

LoggedOn::~LoggedOn() {
    recorder.reset();
    session::forgetSession();
    session::setHospitalFile({});
    for (const char* end : {"", "-wal", "-shm"})
        QFile::remove(file + QString::fromLatin1(end));
}

QStringList LoggedOn::takeTexts() {
    return std::exchange(recorder->texts, {});
}

} // namespace tests
