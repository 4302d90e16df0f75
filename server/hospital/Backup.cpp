#include "server/hospital/Backup.h"

#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/engine/file/Sqlite.h"
#include "server/engine/values/Collation.h"
#include "server/hospital/OwnFile.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <memory>

namespace hospital {

namespace {

constexpr int pagesAtOnce = 4000;
constexpr int busyMs = 30'000;

struct CloseFile {
    void operator()(sqlite3* file) const { sqlite3_close(file); }
};
using File = std::unique_ptr<sqlite3, CloseFile>;

File openFile(const QString& name, int flags) {
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(name.toUtf8().constData(), &handle, flags, nullptr);
    File file(handle);
    if (result != SQLITE_OK)
        throw base::RunTimeError(75, QStringLiteral("Path/File access error: ") + name);
    sqlite3_busy_timeout(handle, busyMs);
    engine::registerCollation(handle);
    return file;
}

File openHospital(const QString& name) {
    if (!QFileInfo::exists(name))
        throw base::RunTimeError(base::errors::fileNotFound, QStringLiteral("File not found: ") + name);
    // its journal's index has to be made there
    const QString folder = QFileInfo(name).absolutePath();
    if (!QFileInfo(folder).isWritable())
        throw base::RunTimeError(75,
                                 QStringLiteral("Path/File access error: %1 cannot be written").arg(folder));
    if (stateOf(name) != FileState::Hospital)
        throw base::RunTimeError(321, QStringLiteral("Not a hospital file: ") + name);
    return openFile(name, SQLITE_OPEN_READWRITE);
}

QString fingerprintFile(const QString& copy) {
    return copy + QStringLiteral(".sha256");
}

QByteArray fingerprintOf(const QString& name) {
    QFile file(name);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        throw base::RunTimeError(75, QStringLiteral("Path/File access error: ") + name);
    return hash.result().toHex();
}

/// As sha256sum writes it, so that a copy can be looked at without this program. Beside `copy`, under the
/// name that it is to have.
void writeFingerprint(const QString& copy, const QString& name) {
    const QString target = fingerprintFile(copy);
    QFile::remove(target);
    createOwnFile(target);
    QFile file(target);
    const QByteArray line = fingerprintOf(copy) + "  " + QFileInfo(name).fileName().toUtf8() + '\n';
    if (!file.open(QIODevice::WriteOnly) || file.write(line) != line.size() || !file.flush())
        throw base::RunTimeError(75, QStringLiteral("Path/File access error: ") + target);
}

/// What no reading finds: a row that says something else than it did. A copy without a fingerprint passes.
void checkFingerprint(const QString& copy) {
    QFile file(fingerprintFile(copy));
    if (!file.open(QIODevice::ReadOnly) || file.readLine().split(' ').first() == fingerprintOf(copy))
        return;
    throw base::RunTimeError(
        321, QStringLiteral(
                 "The copy %1 is damaged, or was worked in: it is not what %2 tells of. Without that file it "
                 "is taken as it is.")
                 .arg(copy, file.fileName()));
}

/// In one step when `pages` is negative, so that the target changes at once.
void copyPages(sqlite3* from, sqlite3* to, int pages, const Progress& progress) {
    sqlite3_backup* backup = sqlite3_backup_init(to, "main", from, "main");
    if (!backup)
        throw base::RunTimeError(75, QString::fromUtf8(sqlite3_errmsg(to)));
    int result = SQLITE_OK;
    do {
        result = sqlite3_backup_step(backup, pages);
        const int total = sqlite3_backup_pagecount(backup);
        if (progress && total > 0)
            progress((total - sqlite3_backup_remaining(backup)) * 100 / total, QStringLiteral("Copying"));
        if (result == SQLITE_BUSY || result == SQLITE_LOCKED)
            break;
    } while (result == SQLITE_OK);
    sqlite3_backup_finish(backup);
    if (result == SQLITE_BUSY || result == SQLITE_LOCKED)
        throw base::RunTimeError(70,
                                 QStringLiteral("Permission denied: the file is locked by a workstation."));
    if (result != SQLITE_DONE)
        throw base::RunTimeError(75, QString::fromUtf8(sqlite3_errstr(result)));
}

/// Share of the work, of 100.
Progress part(const Progress& progress, int from, int to) {
    if (!progress)
        return {};
    return [progress, from, to](int percent, const QString& stage) {
        progress(from + percent * (to - from) / 100, stage);
    };
}

/// Reads every page and every index, then opens the file as a workstation does. Raises 321.
void readInFull(const QString& name, const QString& whatItIs) {
    QString fault;
    {
        const File file = openFile(name, SQLITE_OPEN_READWRITE);
        sqlite3_stmt* statement = nullptr;
        int code = sqlite3_prepare_v2(file.get(), "PRAGMA integrity_check(1)", -1, &statement, nullptr);
        if (code == SQLITE_OK)
            code = sqlite3_step(statement);
        if (code == SQLITE_ROW)
            fault = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
        else
            fault = QString::fromUtf8(sqlite3_errmsg(file.get()));
        sqlite3_finalize(statement);
    }
    if (fault == QLatin1StringView("ok")) {
        try {
            engine::EmbeddedProvider::open(name, {});
            return;
        } catch (const base::RunTimeError& error) {
            fault = error.description();
        }
    }
    throw base::RunTimeError(321, QStringLiteral("%1 is damaged: %2").arg(whatItIs, fault));
}

/// A copy of one moment, under another name, known to be whole.
void makeCopy(sqlite3* source, const QString& name, const QString& whatItIs, const Progress& progress) {
    // An open read keeps the moment, so that writers do not make the copy begin anew.
    if (sqlite3_exec(source, "BEGIN; SELECT COUNT(*) FROM sqlite_master", nullptr, nullptr, nullptr) !=
        SQLITE_OK)
        throw base::RunTimeError(75, QString::fromUtf8(sqlite3_errmsg(source)));
    removeWithJournals(name);
    createOwnFile(name);
    try {
        copyPages(source, openFile(name, SQLITE_OPEN_READWRITE).get(), pagesAtOnce, progress);
        readInFull(name, whatItIs);
    } catch (...) {
        removeWithJournals(name);
        throw;
    }
    sqlite3_exec(source, "ROLLBACK", nullptr, nullptr, nullptr);
}

void refuseTarget(const QString& from, const QString& to, Existing existing) {
    if (isSameFile(from, to) || isSameFile(from, to + QStringLiteral(".new")))
        throw base::RunTimeError(base::errors::invalidProcedureCall,
                                 QStringLiteral("That is one and the same file: ") + to);
    if (existing == Existing::Refuse && QFileInfo::exists(to))
        throw base::RunTimeError(
            base::errors::fileExists,
            QStringLiteral("File already exists: %1. With --force it is replaced.").arg(to));
}

/// Takes what stands in the journal into the file, which only works when nobody else has it open.
void settle(const QString& name) {
    const File file = openFile(name, SQLITE_OPEN_READWRITE);
    sqlite3_busy_timeout(file.get(), 0);
    const int code = sqlite3_exec(file.get(), "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
    if (code == SQLITE_BUSY || code == SQLITE_LOCKED)
        throw base::RunTimeError(70,
                                 QStringLiteral("Permission denied: a workstation has %1 open.").arg(name));
}

/// Where an old file is kept beside: a name that nobody has.
QString nameBeside(const QString& file) {
    QString name = file + QStringLiteral(".before");
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = QStringLiteral("%1.before-%2").arg(file).arg(number);
    return name;
}

/// Over a hospital, as one transaction of it: whoever has it open reads the copy from then on.
void restoreOver(const QString& copy, const QString& to, const Progress& progress) {
    const QString before = nameBeside(to);
    createOwnFile(before);
    const File target = openFile(to, SQLITE_OPEN_READWRITE);
    try {
        copyPages(target.get(), openFile(before, SQLITE_OPEN_READWRITE).get(), pagesAtOnce,
                  part(progress, 0, 40));
        copyPages(openFile(copy, SQLITE_OPEN_READWRITE).get(), target.get(), -1, part(progress, 40, 90));
    } catch (...) {
        removeWithJournals(before); // nothing was changed
        throw;
    }
    try {
        readInFull(to, to);
    } catch (...) {
        copyPages(openFile(before, SQLITE_OPEN_READWRITE).get(), target.get(), -1, {});
        removeWithJournals(before);
        throw;
    }
    removeWithJournals(before);
    removeWithJournals(copy);
}

/// Over a file that no hospital can be read from.
void restoreInstead(const QString& copy, const QString& to) {
    const bool there = QFileInfo::exists(to);
    const QString before = nameBeside(to);
    if (there)
        moveIntoPlace(to, before);
    try {
        moveIntoPlace(copy, to);
        readInFull(to, to);
    } catch (...) {
        if (there)
            moveIntoPlace(before, to);
        throw;
    }
    if (there)
        removeWithJournals(before);
}

/// The file behind a link, so that the link stays one.
QString targetOf(const QString& name) {
    const QString canonical = QFileInfo(name).canonicalFilePath();
    return canonical.isEmpty() ? name : canonical;
}

} // namespace

void backupHospital(const QString& from, const QString& named, Existing existing, const Progress& progress) {
    const QString to = targetOf(named);
    const File source = openHospital(from);
    refuseTarget(from, to, existing);
    makeOwnFolder(QFileInfo(to).absolutePath());
    const MakingLock lock(to, {});
    const QString unfinished = to + QStringLiteral(".new");
    makeCopy(source.get(), unfinished, from, part(progress, 0, 95));
    try {
        refuseTarget(from, to, existing); // made meanwhile
        if (stateOf(to) == FileState::Hospital)
            settle(to);
        // before anything is moved: what finds no room leaves the copy that was there, with its own
        writeFingerprint(unfinished, to);
        QFile::remove(fingerprintFile(to));
        moveIntoPlace(unfinished, to);
        moveIntoPlace(fingerprintFile(unfinished), fingerprintFile(to));
    } catch (...) {
        removeWithJournals(unfinished);
        QFile::remove(fingerprintFile(unfinished));
        throw;
    }
    if (progress)
        progress(100, QStringLiteral("Done"));
}

void restoreHospital(const QString& from, const QString& named, Existing existing, const Progress& progress) {
    const QString to = targetOf(named);
    checkFingerprint(from);
    const File source = openHospital(from);
    refuseTarget(from, to, existing);
    makeOwnFolder(QFileInfo(to).absolutePath());
    const MakingLock lock(to, {});
    const QString unfinished = to + QStringLiteral(".new");
    makeCopy(source.get(), unfinished, QStringLiteral("The copy ") + from, part(progress, 0, 50));
    try {
        refuseTarget(from, to, existing); // made meanwhile
        if (stateOf(to) == FileState::Hospital)
            restoreOver(unfinished, to, part(progress, 50, 95));
        else
            restoreInstead(unfinished, to);
        QFile::setPermissions(to, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    } catch (...) {
        removeWithJournals(unfinished);
        throw;
    }
    if (progress)
        progress(100, QStringLiteral("Done"));
}

} // namespace hospital
