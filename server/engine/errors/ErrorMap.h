#pragma once

#include "platform/base/Error.h"
#include "server/engine/file/Sqlite.h"

namespace engine {

/// What SQLite last said on the connection, in the server's number, words and SQLSTATE.
base::RunTimeError errorOfSqlite(sqlite3* handle, int code);

} // namespace engine
