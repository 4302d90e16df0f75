#define SQLITE_CORE // here the names are the library's own
#include "server/engine/file/Sqlite.h"

#include "platform/base/Error.h"
#include "platform/base/LateLibrary.h"

namespace engine {

namespace {

const sqlite3_api_routines* routines = nullptr;

int takeRoutines(sqlite3*, char**, const sqlite3_api_routines* given) {
    routines = given;
    return SQLITE_OK;
}

/// What is needed until the table is there.
struct Library {
#ifdef SCINTRA_SQLITE_LINKED // it is a part of the program
#define SCINTRA_SQLITE(function) decltype(&::function) function = &::function;
#else
    base::LateLibrary file{base::errors::fileNotFound, QStringLiteral("Hospital files"),
                           QStringLiteral("sqlite3"), 0};
#define SCINTRA_SQLITE(function)                                                                             \
    decltype(&::function) function = [this] {                                                                \
        decltype(&::function) found = nullptr;                                                               \
        file.resolve(#function, found);                                                                      \
        return found;                                                                                        \
    }();
#endif
    SCINTRA_SQLITE(sqlite3_config)
    SCINTRA_SQLITE(sqlite3_auto_extension)
    SCINTRA_SQLITE(sqlite3_cancel_auto_extension)
    SCINTRA_SQLITE(sqlite3_open)
    SCINTRA_SQLITE(sqlite3_close)
#undef SCINTRA_SQLITE
};

} // namespace

const sqlite3_api_routines* loadSqlite() {
    const Library library;
    // SQLite counts its memory under a lock, for numbers that nobody asks for. Only its first use can be
    // told.
    library.sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    const auto take = reinterpret_cast<void (*)()>(takeRoutines);
    library.sqlite3_auto_extension(take);
    sqlite3* none = nullptr;
    library.sqlite3_open(":memory:", &none);
    library.sqlite3_close(none);
    library.sqlite3_cancel_auto_extension(take);
    if (!routines)
        throw base::RunTimeError(base::errors::fileNotFound,
                                 QStringLiteral("Hospital files need SQLite's functions."));
    return routines;
}

} // namespace engine
