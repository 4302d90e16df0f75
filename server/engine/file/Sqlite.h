#pragma once

// SQLite's functions by their own names, out of a library that is loaded with the first of them: a desk on
// the hospital's server needs none of it, and to bind it takes part of every start. They come as SQLite hands
// them to its extensions, whose header gives each name a place in a table.
#include <sqlite3ext.h>

namespace engine {

/// Raises 53 when the library is not installed.
const sqlite3_api_routines* loadSqlite();

inline const sqlite3_api_routines* sqlite() {
    static const sqlite3_api_routines* const loaded = loadSqlite();
    return loaded;
}

} // namespace engine

#define sqlite3_api engine::sqlite()
