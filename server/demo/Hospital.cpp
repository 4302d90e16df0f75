#include "server/demo/Hospital.h"

#include "platform/base/Error.h"
#include "server/demo/Kit.h"
#include "server/demo/World.h"
#include "server/engine/EmbeddedProvider.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace demo {

namespace {

constexpr std::uint64_t demoSeed = 1978;

void writeDemo(engine::EmbeddedProvider& provider, const Progress& progress) {
    World world{provider.handle(), base::now(), Chance(demoSeed), {}, {}, {}};
    const auto tell = [&](int percent, const char* stage) {
        if (progress)
            progress(percent, QString::fromLatin1(stage));
    };
    tell(60, "Users");
    writeUsers(world);
    tell(80, "Files");
    writeCatalogue(world);
    tell(84, "Patients");
    writePatients(world);
    tell(90, "Requests");
    writeRequests(world);
    tell(96, "Wards and cashier");
    writeWards(world);
    writeCashier(world);
    writeReaderPayments(world);
}

/// Made under another name and renamed when it is whole, so that a half-made file is never taken for a
/// hospital.
void makeFile(const QString& file, bool withDemo, const Progress& progress) {
    if (QFileInfo::exists(file))
        throw base::RunTimeError(58, QStringLiteral("File already exists: ") + file);
    if (!QDir().mkpath(QFileInfo(file).absolutePath()))
        throw base::RunTimeError(75, QStringLiteral("Path/File access error: ") + file);
    const QString unfinished = file + QStringLiteral(".new");
    const auto removeUnfinished = [&] {
        for (const char* tail : {"", "-wal", "-shm"})
            QFile::remove(unfinished + QLatin1String(tail));
    };
    removeUnfinished();
    try {
        engine::Options options;
        options.createIfMissing = true;
        const auto provider = engine::EmbeddedProvider::open(unfinished, options);
        provider->begin();
        installKit(*provider, [&](int percent, const QString& stage) {
            if (progress)
                progress(withDemo ? percent * 6 / 10 : percent, stage);
        });
        if (withDemo)
            writeDemo(*provider, progress);
        provider->commit();
    } catch (...) {
        removeUnfinished();
        throw;
    }
    if (!QFile::rename(unfinished, file)) {
        removeUnfinished();
        throw base::RunTimeError(75, QStringLiteral("Path/File access error: ") + file);
    }
    if (progress)
        progress(100, QStringLiteral("Done"));
}

} // namespace

QString defaultHospitalFile() {
    // The program's own data folder, also for a tool that goes by another name.
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/Kerova/Visual Scintra/hospital.scintra");
}

void createEmptyHospital(const QString& file, const Progress& progress) {
    makeFile(file, false, progress);
}

void createHospital(const QString& file, const Progress& progress) {
    makeFile(file, true, progress);
}

bool ensureKit(engine::EmbeddedProvider& provider) {
    if (installedKitVersion(provider) == kitVersion())
        return false;
    provider.begin();
    try {
        installKit(provider, {});
        provider.commit();
    } catch (...) {
        provider.rollback();
        throw;
    }
    return true;
}

} // namespace demo
