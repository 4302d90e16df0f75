#pragma once

#include "server/engine/catalogue/Catalogue.h"
#include "server/engine/functions/FunctionHost.h"

#include <functional>
#include <set>

namespace engine {

/// Makes a statement ready to run: translates it, registers the functions that it calls, prepares it and
/// tells the columns of its rows.
class QueryMaker {
  public:
    /// Runs one of the hospital's functions for SQLite. Raises base::RunTimeError.
    using FunctionRunner =
        std::function<void(Module& function, int count, sqlite3_value** values, Cell& result)>;

    QueryMaker(SqliteFile& file, Catalogue& catalogue, FunctionHost& host, FunctionRunner runFunction);
    /// Raises what the statement is wrong in.
    std::unique_ptr<Query> make(const Stmt& statement, const Module& module);
    /// Translates and prepares what a view selects, and forgets it. Raises as above.
    void tryView(const Module& view);

  private:
    class FunctionCall;

    Translation translate(const Stmt& statement, const Module& module);
    void prepare(Query& query);
    void describe(Query& query);
    void registerFunction(const Module& function);

    SqliteFile& m_file;
    Catalogue& m_catalogue;
    FunctionHost& m_host;
    FunctionRunner m_runFunction;
    /// "fn DATABASE.name/arguments"
    std::set<std::string> m_registered;
};

} // namespace engine
