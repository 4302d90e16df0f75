#include "bench/HospitalFile.h"

#include "bench/Measure.h"
#include "platform/base/Error.h"
#include "server/demo/Hospital.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace bench {

namespace {

void removeWithLog(const QString& file) {
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(file + QString::fromLatin1(suffix));
}

} // namespace

QString hospitalFile(const QString& folder, int patients) {
    QDir().mkpath(folder);
    const QString file = QStringLiteral("%1/hospital-%2.scintra").arg(folder).arg(patients);
    if (QFileInfo::exists(file))
        return file;
    Report::note(QStringLiteral("  making %1").arg(QFileInfo(file).fileName()));
    const QString part = file + QStringLiteral(".part");
    removeWithLog(part);
    demo::createHospital(part);
    if (patients > 0)
        demo::generatePatients(part, patients);
    if (!QFile::rename(part, file))
        throw base::RunTimeError(75, QStringLiteral("%1 cannot be written.").arg(file));
    return file;
}

QString copyOf(const QString& file, const QString& name) {
    const QString copy = QFileInfo(file).absolutePath() + u'/' + name;
    removeWithLog(copy);
    if (!QFile::copy(file, copy))
        throw base::RunTimeError(75, QStringLiteral("%1 cannot be written.").arg(copy));
    return copy;
}

} // namespace bench
