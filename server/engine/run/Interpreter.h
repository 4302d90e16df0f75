#pragma once

#include "server/engine/catalogue/Catalogue.h"
#include "server/engine/file/SqliteRow.h"
#include "server/engine/run/QueryMaker.h"
#include "server/engine/run/SessionState.h"

namespace engine {

/// Runs batches, procedures and functions: control flow here, every statement by SQLite. A statement is
/// translated and prepared when it first runs, and kept with its module.
class Interpreter {
  public:
    Interpreter(SqliteFile& file, Catalogue& catalogue, SessionState& session, FunctionHost& host);

    /// Runs a batch; `values` stand in its first variables. Raises base::RunTimeError.
    /// With a sink the rows go there, each as soon as it is stepped; the result then keeps none. Raises
    /// SinkIsFull when the sink wants no more.
    void runBatch(Module& module, const std::vector<const Cell*>& values, ado::Result& result,
                  ado::RowSink* sink = nullptr);
    struct SinkIsFull {};
    /// Translates and prepares every statement. Raises at the first that fails.
    void prepareAll(Module& module);
    /// A USE or a definition ran since the last call.
    bool takeDefinitionRan();

  private:
    enum class Flow { Next, Break, Continue, Return };
    struct Run {
        Module& module;
        std::vector<Cell>& slots;
        ado::Result* result;
        bool noCount;
        Cell* returned;
    };

    Flow run(const std::vector<StmtPtr>& statements, Run& run);
    Flow runOne(const Stmt& statement, Run& run);
    Flow runWhile(const Stmt& statement, Run& run);
    void runSet(const Stmt& statement, Run& run);
    void runSelect(const Stmt& statement, Run& run);
    void assignRow(const Query& query, Run& run);
    void runWrite(const Stmt& statement, Run& run);
    void stepWrite(const Query& query, Run& run);
    void runExecute(const Stmt& statement, Run& run);
    void runThrow(const Stmt& statement, Run& run);
    void runReturn(const Stmt& statement, Run& run);
    bool test(const Stmt& statement, Run& run);
    void callFunction(Module& function, int count, sqlite3_value** values, Cell& result);

    class QueryUse;
    class SinkUse;
    bool step(sqlite3_stmt* statement);
    void fetch(Query& query, ado::Rows& rows);
    void hand(const Query& query);
    std::shared_ptr<Module> procedure(const ObjectName& name, const Module& caller);
    std::shared_ptr<Module> calledBy(const Stmt& statement, Module& caller);
    void prepareAll(const std::vector<StmtPtr>& statements, Module& module);

    SqliteFile& m_file;
    Catalogue& m_catalogue;
    SessionState& m_session;
    FunctionHost& m_host;
    QueryMaker m_maker;
    SqliteStatement m_savepoint;
    SqliteStatement m_release;
    SqliteStatement m_rollbackTo;
    SharedTexts m_texts;
    /// Where the batch's rows go; null: into its result.
    ado::RowSink* m_sink = nullptr;
    int m_depth = 0;
    bool m_definitionRan = false;
};

} // namespace engine
