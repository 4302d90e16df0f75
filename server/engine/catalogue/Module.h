#pragma once

#include "server/engine/file/SqliteFile.h"
#include "server/engine/parser/Ast.h"
#include "server/engine/translate/Translation.h"
#include "server/engine/values/Cell.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace engine {

/// A translated and prepared statement.
struct Query {
    Translation translation;
    SqliteStatement statement;
    ado::Columns columns;
    /// It is being stepped; whoever comes again prepares one of its own.
    bool busy = false;
    /// Values of the last rows that a client was given.
    std::size_t fetched = 0;
};

/// What a run does to the file, in rising order: one read, several reads, or writes.
enum class Plan { Single, Reads, Writes };

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
    /// The procedures that it calls, by the statement's id, as long as the catalogue keeps them.
    std::vector<std::weak_ptr<Module>> called;
    /// The variables of the last run, kept for their memory.
    std::vector<Cell> idleSlots;
    /// None as long as nobody asked.
    std::optional<Plan> plan;
    bool holdsSecret = false;

    const Script& script() const { return definition ? definition->body : batch; }
};

/// The name under which SQLite knows a function, in quotes.
inline std::string functionName(const Module& module) {
    return quotedName("fn " + module.database + "." + module.name);
}

} // namespace engine
