#pragma once

#include "server/engine/values/SqlType.h"

#include <memory>
#include <string>
#include <vector>

namespace engine {

struct Module;

/// Values that a statement takes from the session instead of from a variable.
enum class SessionValue {
    Now = -1,
    RowCount = -2,
    ProcessId = -3,
    HostName = -4,
    ScopeIdentity = -5,
    DatabaseName = -6,
    ProgramName = -7,
    LoginName = -8,
    TransactionCount = -9
};

struct OutputColumn {
    std::string name;
    SqlType type;
};

/// A statement in SQLite's words.
struct Translation {
    std::string sql;
    /// What ?1, ?2, ... are: a variable's slot, or a SessionValue.
    std::vector<int> slots;
    std::vector<OutputColumn> columns;
    /// SELECT @a = ...: the variable of each column.
    std::vector<int> targets;
    /// Functions of the hospital that it calls, until it is prepared.
    std::vector<std::shared_ptr<Module>> functions;
    /// It may fail after it has written rows.
    bool mayFailHalfway = false;
    bool insertsIdentity = false;
    /// INSERT: the table, when the statement itself gives a value for the identity column.
    std::string givenIdentity;
};

} // namespace engine
