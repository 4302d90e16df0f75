#include "server/hospital/Backup.h"

#include "platform/base/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

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
    return file;
}

File openHospital(const QString& name) {
    if (!QFileInfo::exists(name))
        throw base::RunTimeError(53, QStringLiteral("File not found: ") + name);
    File file = openFile(name, SQLITE_OPEN_READWRITE);
    if (sqlite3_exec(file.get(), "SELECT value FROM \"scintra.settings\"", nullptr, nullptr, nullptr) !=
        SQLITE_OK)
        throw base::RunTimeError(321, QStringLiteral("Not a hospital file: ") + name);
    return file;
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

} // namespace

void backupHospital(const QString& from, const QString& to, const Progress& progress) {
    const File source = openHospital(from);
    // An open read keeps the moment, so that writers do not make the copy begin anew.
    if (sqlite3_exec(source.get(), "BEGIN; SELECT COUNT(*) FROM sqlite_master", nullptr, nullptr, nullptr) !=
        SQLITE_OK)
        throw base::RunTimeError(75, QString::fromUtf8(sqlite3_errmsg(source.get())));
    const QString unfinished = to + QStringLiteral(".new");
    QFile::remove(unfinished);
    try {
        const File target = openFile(unfinished, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        copyPages(source.get(), target.get(), pagesAtOnce, progress);
    } catch (...) {
        QFile::remove(unfinished);
        throw;
    }
    QFile::remove(to);
    if (!QFile::rename(unfinished, to)) {
        QFile::remove(unfinished);
        throw base::RunTimeError(75, QStringLiteral("Path/File access error: ") + to);
    }
}

void restoreHospital(const QString& from, const QString& to, const Progress& progress) {
    const File source = openHospital(from);
    if (!QDir().mkpath(QFileInfo(to).absolutePath()))
        throw base::RunTimeError(75, QStringLiteral("Path/File access error: ") + to);
    const File target = openFile(to, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    copyPages(source.get(), target.get(), -1, progress);
}

} // namespace hospital
