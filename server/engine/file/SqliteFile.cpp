#include "server/engine/file/SqliteFile.h"

#include "server/engine/errors/ErrorMap.h"
#include "server/engine/errors/ServerError.h"
#include "server/engine/values/Collation.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <thread>

namespace engine {
namespace {

constexpr const char* ownTables = R"(
CREATE TABLE IF NOT EXISTS "scintra.settings" (name TEXT PRIMARY KEY COLLATE NOCASE, value TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS "scintra.databases" (name TEXT PRIMARY KEY COLLATE NOCASE);
CREATE TABLE IF NOT EXISTS "scintra.modules" (
    databaseName TEXT NOT NULL COLLATE NOCASE, name TEXT NOT NULL COLLATE NOCASE, kind TEXT NOT NULL,
    source TEXT NOT NULL, PRIMARY KEY (databaseName, name)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS "scintra.columns" (
    databaseName TEXT NOT NULL COLLATE NOCASE, tableName TEXT NOT NULL COLLATE NOCASE, ordinal INTEGER NOT NULL,
    name TEXT NOT NULL COLLATE NOCASE, type TEXT NOT NULL, length INTEGER NOT NULL, scale INTEGER NOT NULL,
    nullable INTEGER NOT NULL, identity INTEGER NOT NULL, keyOrdinal INTEGER NOT NULL, keyName TEXT NOT NULL,
    defaultSource TEXT NOT NULL, PRIMARY KEY (databaseName, tableName, ordinal)) WITHOUT ROWID;
)";

constexpr const char* rememberOrder =
    "INSERT OR REPLACE INTO \"scintra.settings\" (name, value) VALUES ('collation', '1')";

[[noreturn]] void failOpening(const std::string& path, const char* reason) {
    throw serverError(4060,
                      QStringLiteral("Cannot open the hospital file '%1'. %2")
                          .arg(toQString(path), QString::fromUtf8(reason)),
                      "08001");
}

/// A file that was opened when it could only be read has left a journal that can only be read. Nobody looks
/// for that behind the file's own permissions.
void mendJournal(const std::string& path) {
    const QString file = toQString(path);
    for (const char* tail : {"-wal", "-shm"}) {
        const QFileInfo journal(file + QLatin1String(tail));
        if (journal.exists() && !journal.isWritable() && QFileInfo(file).isWritable())
            QFile::setPermissions(journal.filePath(), QFile::permissions(file));
    }
}

/// SQLite counts its memory under a lock, for numbers that nobody asks for. Only its first use can be told.
void leaveMemoryUncounted() {
    static const int told = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    (void)told;
}

} // namespace

/// Waits in small steps, so that a save of another workstation (a few milliseconds) costs hardly more than
/// itself. The lock goes to whoever asks first when it is free, which is the one that had it as a rule; so
/// those ask most often that have waited long. The clock tells when it was long enough: a sleep takes longer
/// than it was asked for.
int LockWait::wait(void* self, int calls) {
    using namespace std::chrono_literals;
    auto& lock = *static_cast<LockWait*>(self);
    const auto now = std::chrono::steady_clock::now();
    if (calls == 0) {
        lock.m_began = now;
        lock.m_seconds = 0;
    }
    const auto waited = now - lock.m_began;
    const auto left = lock.m_limit - waited;
    if (left <= left.zero())
        return 0;
    const auto seconds = int(std::chrono::duration_cast<std::chrono::seconds>(waited).count());
    if (seconds > lock.m_seconds && lock.m_told)
        lock.m_told(seconds);
    lock.m_seconds = seconds;
    const std::chrono::steady_clock::duration step = waited < 40ms    ? 1ms
                                                     : waited < 200ms ? 5ms
                                                     : waited < 500ms ? 1ms
                                                                      : 250us;
    std::this_thread::sleep_for(std::min(step, left));
    return 1;
}

/// SQLite's own way writes the log's pages into the file behind each commit of more than a thousand pages,
/// and begins the log anew once all of it is written and nobody reads there. Where desks save without a pause
/// the next one has written again by then: each save pays for a checkpoint, and the log grows on and on.
/// So only about one commit of a thousand pages writes them, and when the log has become long, one does it
/// with the lock in its hand. It waits for that lock, and for who reads, no longer than a desk bears.
int SqliteFile::keepLogShort(void* self, sqlite3* handle, const char* database, int pages) {
    constexpr int often = 1000;
    constexpr int most = 8 * often;
    constexpr int ofACommit = 32;
    auto& file = *static_cast<SqliteFile*>(self);
    const int added =
        pages - std::exchange(file.m_logSeen, pages); // by the others, too; less when it began anew
    if (pages < often || (pages % often >= ofACommit && added < often))
        return SQLITE_OK;
    if (pages >= most)
        sqlite3_busy_handler(handle, LockWait::wait, &file.m_logWait);
    sqlite3_wal_checkpoint_v2(handle, database,
                              pages < most ? SQLITE_CHECKPOINT_PASSIVE : SQLITE_CHECKPOINT_RESTART, nullptr,
                              nullptr);
    sqlite3_busy_handler(handle, LockWait::wait, &file.m_lockWait);
    return SQLITE_OK; // a log that stays long is no fault of the commit
}

SqliteFile::SqliteFile(const std::string& path, const std::vector<std::string>& newDatabases,
                       LockWait lockWait)
    : m_lockWait(std::move(lockWait)) {
    leaveMemoryUncounted();
    mendJournal(path);
    sqlite3* handle = nullptr;
    const int create = newDatabases.empty() ? 0 : SQLITE_OPEN_CREATE;
    const int code =
        sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | create, nullptr);
    m_handle.reset(handle);
    if (code != SQLITE_OK)
        failOpening(path, handle ? sqlite3_errmsg(handle) : sqlite3_errstr(code));
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_busy_handler(handle, LockWait::wait, &m_lockWait);
    sqlite3_wal_hook(handle, keepLogShort, this);
    registerCollation(handle);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    try {
        prepareFile(newDatabases);
    } catch (const base::RunTimeError& error) {
        failOpening(path, error.description().toUtf8().constData());
    }
}

void SqliteFile::prepareFile(const std::vector<std::string>& newDatabases) {
    execute("PRAGMA foreign_keys = OFF; PRAGMA synchronous = FULL; PRAGMA cache_size = -65536; PRAGMA "
            "temp_store = MEMORY;"
            "PRAGMA trusted_schema = ON");
    const SqliteStatement known = prepare("SELECT 1 FROM sqlite_master WHERE name = 'scintra.columns'");
    const bool isHospital = step(known.get());
    sqlite3_reset(known.get());
    if (isHospital) {
        bringIntoOrder();
        return;
    }
    const SqliteStatement any = prepare("SELECT 1 FROM sqlite_master");
    const bool isForeign = step(any.get());
    sqlite3_reset(any.get());
    if (newDatabases.empty() || isForeign)
        throw serverError(4060, QStringLiteral("It is no hospital file."));
    execute("PRAGMA journal_mode = WAL");
    execute("BEGIN IMMEDIATE");
    execute(ownTables);
    // two that make the file at once both come here
    for (const std::string& name : newDatabases)
        execute(
            ("INSERT OR IGNORE INTO \"scintra.databases\" (name) VALUES (" + quotedText(name) + ")").c_str());
    execute(rememberOrder);
    execute("COMMIT");
}

bool SqliteFile::readOrder() {
    const SqliteStatement order =
        prepare("SELECT 1 FROM \"scintra.settings\" WHERE name = 'collation' AND value = '1'");
    m_isInOrder = step(order.get());
    return m_isInOrder;
}

/// Once a file: the columns' order is a word in their definitions, which only the schema itself can change. A
/// program from before this order does not know the word and leaves such a file alone.
void SqliteFile::bringIntoOrder() {
    if (readOrder())
        return;
    try {
        execute("BEGIN IMMEDIATE");
        if (!readOrder()) { // else another has done it meanwhile
            const SqliteStatement version = prepare("PRAGMA schema_version");
            step(version.get());
            const std::string next = std::to_string(sqlite3_column_int(version.get(), 0) + 1);
            sqlite3_reset(version.get());
            execute("PRAGMA writable_schema = ON");
            execute(
                "UPDATE sqlite_master SET sql = replace(sql, 'TEXT COLLATE NOCASE', 'TEXT COLLATE SCINTRA') "
                "WHERE type = 'table' AND name NOT LIKE 'scintra.%'");
            execute(("PRAGMA schema_version = " + next).c_str());
            execute("PRAGMA writable_schema = RESET");
            execute("REINDEX SCINTRA");
            execute(rememberOrder);
        }
        execute("COMMIT");
        m_isInOrder = true;
    } catch (const base::RunTimeError&) {
        sqlite3_exec(handle(), "ROLLBACK; PRAGMA writable_schema = RESET", nullptr, nullptr, nullptr);
    }
}

void SqliteFile::execute(const char* sql) {
    const int code = sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        fail(code);
}

const char* boundaryText(SqliteFile::Boundary boundary) {
    constexpr const char* texts[] = {"BEGIN", "BEGIN IMMEDIATE", "COMMIT", "ROLLBACK"};
    return texts[std::size_t(boundary)];
}

int SqliteFile::attempt(Boundary boundary) {
    SqliteStatement& kept = m_boundaries[std::size_t(boundary)];
    if (!kept) {
        sqlite3_stmt* statement = nullptr;
        const int code = sqlite3_prepare_v3(handle(), boundaryText(boundary), -1, SQLITE_PREPARE_PERSISTENT,
                                            &statement, nullptr);
        if (code != SQLITE_OK)
            return code;
        kept.reset(statement);
    }
    sqlite3_step(kept.get());
    return sqlite3_reset(kept.get());
}

void SqliteFile::cross(Boundary boundary) {
    if (const int code = attempt(boundary); code != SQLITE_OK)
        fail(code);
}

SqliteStatement SqliteFile::prepare(std::string_view sql) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(handle(), sql.data(), int(sql.size()), SQLITE_PREPARE_PERSISTENT,
                                        &statement, nullptr);
    if (code != SQLITE_OK)
        fail(code);
    return SqliteStatement(statement);
}

bool SqliteFile::step(sqlite3_stmt* statement) {
    const int code = sqlite3_step(statement);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        fail(code);
    return false;
}

void SqliteFile::fail(int code) {
    throw errorOfSqlite(handle(), code);
}

std::string quotedName(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name) {
        if (c == '"')
            quoted += c;
        quoted += c;
    }
    return quoted + '"';
}

std::string quotedText(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text) {
        if (c == '\'')
            quoted += c;
        quoted += c;
    }
    return quoted + '\'';
}

std::string columnText(sqlite3_stmt* statement, int column) {
    const unsigned char* text = sqlite3_column_text(statement, column);
    return text ? std::string(reinterpret_cast<const char*>(text),
                              std::size_t(sqlite3_column_bytes(statement, column)))
                : std::string();
}

void bindText(sqlite3_stmt* statement, int index, std::string_view text) {
    sqlite3_bind_text(statement, index, text.empty() ? "" : text.data(), int(text.size()), SQLITE_TRANSIENT);
}

} // namespace engine
