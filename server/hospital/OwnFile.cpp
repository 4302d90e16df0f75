#include "server/hospital/OwnFile.h"

#include "platform/base/Error.h"
#include "server/engine/file/Sqlite.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <memory>

namespace hospital {

namespace {

constexpr QFileDevice::Permissions ownFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr QFileDevice::Permissions ownFolder = ownFile | QFileDevice::ExeOwner;

[[noreturn]] void failed(const QString& file) {
    throw base::RunTimeError(75, QStringLiteral("Path/File access error: ") + file);
}

std::filesystem::path pathOf(const QString& file) {
    return std::filesystem::path(file.toStdU16String());
}

void removeJournals(const QString& file) {
    for (const char* tail : {"-wal", "-shm", "-journal"})
        QFile::remove(file + QLatin1String(tail));
}

/// The number that the text gives; -1 when it is none of this file's, -2 when the file is locked.
int answer(sqlite3* file, const char* text) {
    sqlite3_stmt* statement = nullptr;
    int code = sqlite3_prepare_v2(file, text, -1, &statement, nullptr);
    int result = -1;
    if (code == SQLITE_OK)
        code = sqlite3_step(statement);
    if (code == SQLITE_ROW)
        result = sqlite3_column_int(statement, 0);
    sqlite3_finalize(statement);
    return code == SQLITE_BUSY || code == SQLITE_LOCKED ? -2 : result;
}

} // namespace

FileState stateOf(const QString& file) {
    if (!QFileInfo::exists(file))
        return FileState::Missing;
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(file.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> handle(opened, sqlite3_close);
    if (code != SQLITE_OK)
        return FileState::Foreign;
    sqlite3_busy_timeout(opened, 1000);
    switch (answer(opened, "SELECT COUNT(*) FROM sqlite_master")) {
    case 0:
        return FileState::Unfinished;
    case -1:
        return FileState::Foreign;
    case -2: // whoever holds it knows what it is
        return FileState::Hospital;
    default:
        break;
    }
    // Kit and rows come in one transaction: a file without tables of a hospital is without anything.
    const int columns = answer(opened, "SELECT COUNT(*) FROM \"scintra.columns\"");
    if (columns == -1)
        return FileState::Foreign;
    return columns == 0 ? FileState::Unfinished : FileState::Hospital;
}

void makeOwnFolder(const QString& folder) {
    const QFileInfo info(folder);
    if (info.isDir())
        return;
    const QString above = info.absolutePath();
    if (above == info.absoluteFilePath())
        failed(folder);
    makeOwnFolder(above);
    // another program may make it at the same moment
    if (!QDir().mkdir(folder, ownFolder) && !QFileInfo(folder).isDir())
        failed(folder);
}

void createOwnFile(const QString& file) {
    QFile made(file);
    if (!made.open(QIODevice::WriteOnly | QIODevice::NewOnly, ownFile))
        failed(file);
}

bool isSameFile(const QString& one, const QString& other) {
    std::error_code ignored;
    return std::filesystem::equivalent(pathOf(one), pathOf(other), ignored);
}

void removeWithJournals(const QString& file) {
    QFile::remove(file);
    removeJournals(file);
}

void moveIntoPlace(const QString& from, const QString& to) {
    removeJournals(from);
    removeJournals(to);
    std::error_code error;
    std::filesystem::rename(pathOf(from), pathOf(to), error);
    if (error)
        failed(to);
}

MakingLock::MakingLock(const QString& file, const std::function<void()>& waiting)
    : m_lock(file + QStringLiteral(".making")) {
    constexpr int longestMaking = 60'000;
    constexpr int step = 50;
    // A lock of a program that is gone is taken over at once; this is for one that was cut off before it had
    // written who it is.
    m_lock.setStaleLockTime(longestMaking);
    while (!m_lock.tryLock(step)) {
        if (m_lock.error() != QLockFile::LockFailedError)
            failed(file);
        if (waiting)
            waiting();
    }
}

} // namespace hospital
