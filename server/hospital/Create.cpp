#include "server/hospital/Create.h"

#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/hospital/Kit.h"
#include "server/hospital/OwnFile.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace hospital {

namespace {

constexpr int shareOfKit = 60; // percent of the work where the file is filled as well

/// The section's own first: sessions begin there.
QStringList databasesOfFile() {
    QStringList names = kitDatabases();
    names.move(names.indexOf(QStringLiteral("NUCLEAR")), 0);
    return names;
}

void fillNewFile(const QString& unfinished, const Fill& fill, const Progress& progress) {
    createOwnFile(unfinished);
    engine::Options options;
    options.newDatabases = databasesOfFile();
    const auto provider = engine::EmbeddedProvider::open(unfinished, options);
    provider->begin();
    installKit(*provider, [&](int percent, const QString& stage) {
        if (progress)
            progress(fill ? percent * shareOfKit / 100 : percent, stage);
    });
    if (fill)
        fill(*provider, progress);
    provider->commit();
}

/// Made under another name and renamed when it is whole, so that a half-made file is never taken for a
/// hospital.
void makeFile(const QString& file, const Fill& fill, const Progress& progress) {
    if (isThere(file))
        throw base::RunTimeError(58, QStringLiteral("File already exists: ") + file);
    makeOwnFolder(QFileInfo(file).absolutePath());
    const MakingLock lock(file, [&] {
        if (progress)
            progress(0, QStringLiteral("Another program makes it"));
    });
    if (!isThere(file)) {
        const QString unfinished = file + QStringLiteral(".new");
        removeWithJournals(unfinished);
        try {
            fillNewFile(unfinished, fill, progress);
            moveIntoPlace(unfinished, file);
        } catch (...) {
            removeWithJournals(unfinished);
            throw;
        }
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

bool isThere(const QString& file) {
    const FileState state = stateOf(file);
    return state != FileState::Missing && state != FileState::Unfinished;
}

void createEmptyHospital(const QString& file, const Progress& progress) {
    makeFile(file, {}, progress);
}

void createFilledHospital(const QString& file, const Fill& fill, const Progress& progress) {
    makeFile(file, fill, progress);
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

} // namespace hospital
