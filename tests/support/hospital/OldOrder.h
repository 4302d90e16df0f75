#pragma once

#include "server/engine/values/Collation.h"

#include <QString>

#include <sqlite3.h>

#include <gtest/gtest.h>

namespace tests {

/// Leaves a file as files were before: in SQLite's own order, in which only A to Z have case.
inline void takeOrderAway(const QString& path) {
    for (const char* text : {"PRAGMA writable_schema = ON; UPDATE sqlite_master SET sql = replace(sql, "
                             "'COLLATE SCINTRA', 'COLLATE "
                             "NOCASE'); DELETE FROM \"scintra.settings\" WHERE name = 'collation'; PRAGMA "
                             "writable_schema = RESET; "
                             "PRAGMA schema_version = 1000",
                             "REINDEX"}) {
        sqlite3* file = nullptr;
        sqlite3_open(path.toUtf8().constData(), &file);
        engine::registerCollation(file);
        EXPECT_EQ(sqlite3_exec(file, text, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(file);
        sqlite3_close(file);
    }
}

} // namespace tests
