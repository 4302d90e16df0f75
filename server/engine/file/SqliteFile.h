#pragma once

#include <sqlite3.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace engine {

struct StatementCloser {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using SqliteStatement = std::unique_ptr<sqlite3_stmt, StatementCloser>;

/// Leaves a statement ready for its next use, also when an error flies past.
class StatementReset {
  public:
    explicit StatementReset(sqlite3_stmt* statement) : m_statement(statement) {}
    ~StatementReset() { sqlite3_reset(m_statement); }
    StatementReset(const StatementReset&) = delete;
    StatementReset& operator=(const StatementReset&) = delete;

  private:
    sqlite3_stmt* m_statement;
};

/// How long a statement waits for the lock of another workstation.
class LockWait {
  public:
    LockWait(int milliseconds, std::function<void(int seconds)> told = {})
        : m_limit(milliseconds), m_told(std::move(told)) {}
    /// SQLite's busy handler; `self` is the LockWait.
    static int wait(void* self, int calls);

  private:
    std::chrono::milliseconds m_limit;
    std::function<void(int seconds)> m_told;
    int m_seconds = 0; ///< told last
    std::chrono::steady_clock::time_point m_began;
};

/// The open SQLite file. Every member raises base::RunTimeError in the server's words.
class SqliteFile {
  public:
    /// `path` in UTF-8. A file that is missing is made, with `newDatabases`. Raises 4060 when the file cannot
    /// be opened, is no hospital file, or is not there and no databases are given for it.
    SqliteFile(const std::string& path, const std::vector<std::string>& newDatabases, LockWait lockWait);
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;

    sqlite3* handle() const { return m_handle.get(); }
    /// False for a file from before the order of texts (Collation.h) that could not be brought into it: rows
    /// of it have the same key but for accents' case or blanks at the end. It goes on in its old order, A to
    /// Z alone.
    bool isInOrder() const { return m_isInOrder; }
    void execute(const char* sql);
    enum class Boundary { Begin, BeginWriting, Commit, Rollback };
    /// Begins or ends a transaction; raises nothing. SQLite's own code: SQLITE_OK when it is done.
    int attempt(Boundary boundary);
    /// The same; raises what SQLite says of it.
    void cross(Boundary boundary);
    SqliteStatement prepare(std::string_view sql);
    /// One step; true for a row.
    bool step(sqlite3_stmt* statement);
    /// Turns what SQLite last said into the server's error.
    [[noreturn]] void fail(int code);

  private:
    struct Closer {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };
    /// SQLite's hook behind a commit; `self` is the SqliteFile.
    static int keepLogShort(void* self, sqlite3* handle, const char* database, int pages);
    void prepareFile(const std::vector<std::string>& newDatabases);
    bool readOrder();
    void bringIntoOrder();

    bool m_isInOrder = true;
    LockWait m_lockWait; ///< the handle knows its address
    LockWait m_logWait{200};
    int m_logSeen = 0; ///< pages of the log behind the last commit
    std::unique_ptr<sqlite3, Closer> m_handle;
    SqliteStatement m_boundaries[4]; ///< prepared when first crossed
};

/// "BEGIN IMMEDIATE"
const char* boundaryText(SqliteFile::Boundary boundary);
/// A name as SQLite takes it: in double quotes.
std::string quotedName(std::string_view name);
/// A text as SQLite takes it: in single quotes.
std::string quotedText(std::string_view text);
std::string columnText(sqlite3_stmt* statement, int column);
void bindText(sqlite3_stmt* statement, int index, std::string_view text);

} // namespace engine
