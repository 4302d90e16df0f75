#include "server/hospital/Create.h"

#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/engine/file/Sqlite.h"
#include "server/hospital/Kit.h"
#include "server/hospital/OwnFile.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <exception>

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

/// Every column, as "NUCLEAR..tbNucSlipRow.SlipID".
QStringList columnsOf(engine::EmbeddedProvider& provider) {
    QStringList columns;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(provider.handle(),
                       "SELECT databaseName || '..' || tableName || '.' || name FROM \"scintra.columns\" "
                       "ORDER BY databaseName, tableName, ordinal",
                       -1, &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW)
        columns += QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    sqlite3_finalize(statement);
    return columns;
}

/// Columns that the kit's procedures count on and its files do not add.
QStringList missingColumns(engine::EmbeddedProvider& provider) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("kit.scintra"));
    createEmptyHospital(file);
    const QStringList there = columnsOf(provider);
    QStringList missing;
    for (const QString& column : columnsOf(*engine::EmbeddedProvider::open(file, {}))) {
        if (!there.contains(column, Qt::CaseInsensitive))
            missing += column;
    }
    return missing;
}

/// Procedures over a table that lacks a column would only fail when somebody needs them.
void bringUp(engine::EmbeddedProvider& provider) {
    std::exception_ptr failure;
    try {
        installKit(provider, {});
    } catch (const base::RunTimeError&) {
        failure = std::current_exception(); // may come from a missing column as well
    }
    const QStringList missing = missingColumns(provider);
    if (!missing.isEmpty())
        throw base::RunTimeError(
            207, QStringLiteral("The kit of %1 is too old to be brought up to date. Missing: %2.")
                     .arg(provider.file(), missing.join(QStringLiteral(", "))));
    if (failure)
        std::rethrow_exception(failure);
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
    const int number = installedKitNumber(provider);
    if (number > kitNumber)
        throw base::RunTimeError(
            4060,
            QStringLiteral("%1 was brought up to kit %2 by a newer program; this program has kit %3. Please "
                           "start the newer one.")
                .arg(provider.file())
                .arg(number)
                .arg(kitNumber));
    if (installedKitVersion(provider) == kitVersion())
        return false;
    provider.begin();
    try {
        bringUp(provider);
        provider.commit();
    } catch (...) {
        if (provider.inTransaction())
            provider.rollback();
        throw;
    }
    return true;
}

} // namespace hospital
