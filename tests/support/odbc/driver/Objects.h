#pragma once

#include "tests/support/odbc/driver/FakeDriver.h"

#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <map>

namespace fakeodbc {

using tests::FakeAnswer;
using tests::FakeDriver;
using tests::FakeError;
using tests::FakeStep;

/// The one script of the driver.
FakeDriver& script();

/// What stands behind a handle.
struct Object {
    std::vector<FakeError> diagnostics;
    SQLRETURN fail(const FakeError& error) {
        diagnostics = {error};
        return SQL_ERROR;
    }
    SQLRETURN good() {
        diagnostics.clear();
        return SQL_SUCCESS;
    }
};

struct Connection : Object {
    int number = 0;
    bool autocommit = true;
    bool dead = false;
};

struct Binding {
    SQLSMALLINT target = 0;
    char* data = nullptr;
    SQLLEN width = 0;
    SQLLEN* lengths = nullptr;
};

struct Statement : Object {
    Connection* connection = nullptr;
    std::vector<ado::Result> results;
    std::optional<FakeError> error;
    std::size_t current = 0;
    /// First row of the present block; -1 before the first fetch.
    qsizetype row = -1;
    qsizetype blockRow = 0;
    SQLULEN block = 1;
    SQLULEN* fetched = nullptr;
    SQLUSMALLINT* status = nullptr;
    std::map<int, Binding> bindings;
    std::map<int, qsizetype> given; ///< units of a column's text that were read already

    const ado::Result* result() const { return current < results.size() ? &results[current] : nullptr; }
    void drop() {
        results.clear();
        error.reset();
        current = 0;
        rewind();
    }
    void rewind() {
        row = -1;
        blockRow = 0;
        given.clear();
    }
};

inline Connection* connectionOf(SQLHDBC handle) {
    return static_cast<Connection*>(handle);
}
inline Statement* statementOf(SQLHSTMT handle) {
    return static_cast<Statement*>(handle);
}

} // namespace fakeodbc
