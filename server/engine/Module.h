#pragma once

#include "server/engine/Ast.h"
#include "server/engine/Cell.h"
#include "server/engine/HospitalFile.h"

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
    std::string identityTable;
};

/// A translated and prepared statement.
struct Query {
    Translation translation;
    SqliteStatement statement;
    std::vector<ado::Column> columns;
    /// It is being stepped; whoever comes again prepares one of its own.
    bool busy = false;
};

/// Something that runs: a procedure, a function, or the batch of a client. Views are kept here as well.
struct Module {
    /// Names without a prefix belong to this database.
    std::string database;
    std::string name;
    std::string source;
    /// Null for a batch.
    std::unique_ptr<ModuleDefinition> definition;
    /// The statements of a batch; a procedure has them in its definition.
    Script batch;

    /// By the statement's id; made when the statement first runs.
    std::vector<std::unique_ptr<Query>> queries;
    /// The variables of the last run, kept for their memory.
    std::vector<Cell> idleSlots;
    /// Whether it writes: -1 as long as nobody asked.
    int writes = -1;
    bool holdsSecret = false;

    const Script& script() const { return definition ? definition->body : batch; }
};

/// The name under which SQLite knows a function, in quotes.
inline std::string functionName(const Module& module) {
    return quotedName("fn " + module.database + "." + module.name);
}

} // namespace engine
