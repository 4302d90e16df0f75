#include "tests/support/hospital/DemoFile.h"

#include "platform/base/DateTime.h"
#include "platform/base/TestDoors.h"
#include "server/demo/Hospital.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>

#include <stdexcept>

namespace tests {
namespace {

bool isNewer(const QFileInfo& file, const char* source) {
    return file.exists() && file.lastModified() > QFileInfo(QString::fromUtf8(source)).lastModified();
}

} // namespace

QString originalHospital() {
    const QString file = QStringLiteral(SCINTRA_TESTS_FOLDER "/demo.scintra");
    QLockFile lock(file + QStringLiteral(".lock"));
    if (!lock.lock())
        throw std::runtime_error("the demo hospital is locked by another program");
    const QFileInfo made(file);
    if (!isNewer(made, SCINTRA_KIT) || !isNewer(made, SCINTRA_DEMO) || !isNewer(made, SCINTRA_ENGINE)) {
        QFile::remove(file);
        const base::FixedClock clock(*base::makeDateTime({2026, 11, 21}, {8, 30}));
        demo::createHospital(file);
    }
    return file;
}

QString demoHospital() {
    static const QString original = originalHospital();
    static const QTemporaryDir folder;
    static int count = 0;
    QString copy = folder.filePath(QStringLiteral("hospital%1.scintra").arg(++count));
    if (!QFile::copy(original, copy))
        throw std::runtime_error("the demo hospital cannot be copied");
    return copy;
}

void forgetHospital(const QString& file) {
    for (const char* end : {"", "-wal", "-shm"})
        QFile::remove(file + QString::fromLatin1(end));
}

} // namespace tests
