#include "server/engine/run/Interpreter.h"

#include "server/engine/catalogue/Definitions.h"
#include "server/engine/errors/ErrorMap.h"
#include "server/engine/file/SqliteRow.h"
#include "server/engine/parser/LiteralValue.h"
#include "server/engine/parser/ObjectText.h"
#include "server/engine/run/Binding.h"
#include "server/engine/run/CallArguments.h"
#include "server/engine/run/PlainTest.h"
#include "server/engine/values/Ascii.h"
#include "server/engine/values/Convert.h"

#include <algorithm>

namespace engine {
namespace {

constexpr int deepestCall = 32;

/// Takes the module's idle variables, set to Null, and gives them back at the end.
class Slots {
  public:
    explicit Slots(Module& module) : m_module(module), m_slots(std::move(module.idleSlots)) {
        module.idleSlots.clear();
        m_slots.resize(module.script().variables.size());
        for (Cell& slot : m_slots)
            slot.setNull();
    }
    ~Slots() { m_module.idleSlots = std::move(m_slots); }
    Slots(const Slots&) = delete;
    Slots& operator=(const Slots&) = delete;
    std::vector<Cell>& cells() { return m_slots; }

  private:
    Module& m_module;
    std::vector<Cell> m_slots;
};

/// Counts the calls that stand inside each other.
class CallLevel {
  public:
    explicit CallLevel(int& depth) : m_depth(depth) {
        if (depth >= deepestCall)
            throw serverError(
                217, QStringLiteral("Maximum stored procedure, function, trigger, or view nesting level "
                                    "exceeded (limit 32)."));
        ++depth;
    }
    ~CallLevel() { --m_depth; }
    CallLevel(const CallLevel&) = delete;
    CallLevel& operator=(const CallLevel&) = delete;

  private:
    int& m_depth;
};

} // namespace

/// A statement's query for one run: the module's own, or one made for this run when a caller is still in it.
class Interpreter::QueryUse {
  public:
    QueryUse(Interpreter& interpreter, const Stmt& statement, Run& run) {
        auto& kept = run.module.queries[std::size_t(statement.id)];
        if (!kept)
            kept = interpreter.m_maker.make(statement, run.module);
        m_query = kept.get();
        if (kept->busy) {
            m_own = interpreter.m_maker.make(statement, run.module);
            m_query = m_own.get();
        }
        m_query->busy = true;
        bindValues(*m_query, run.slots, interpreter.m_session);
    }
    ~QueryUse() {
        sqlite3_reset(m_query->statement.get());
        m_query->busy = false;
    }
    QueryUse(const QueryUse&) = delete;
    QueryUse& operator=(const QueryUse&) = delete;
    Query& operator*() const { return *m_query; }
    const Query* operator->() const { return m_query; }
    sqlite3_stmt* statement() const { return m_query->statement.get(); }

  private:
    Query* m_query;
    std::unique_ptr<Query> m_own;
};

/// Rows go to the sink as long as this lives; SQLite asks it now and then whether to go on.
class Interpreter::SinkUse {
  public:
    SinkUse(Interpreter& interpreter, ado::RowSink* sink) : m_interpreter(interpreter) {
        m_interpreter.m_sink = sink;
        constexpr int instructions = 20'000;
        if (sink)
            sqlite3_progress_handler(handle(), instructions, isFull, sink);
    }
    ~SinkUse() {
        if (m_interpreter.m_sink)
            sqlite3_progress_handler(handle(), 0, nullptr, nullptr);
        m_interpreter.m_sink = nullptr;
    }
    SinkUse(const SinkUse&) = delete;
    SinkUse& operator=(const SinkUse&) = delete;

  private:
    static int isFull(void* sink) { return static_cast<ado::RowSink*>(sink)->isWanted() ? 0 : 1; }
    sqlite3* handle() const { return m_interpreter.m_file.handle(); }

    Interpreter& m_interpreter;
};

Interpreter::Interpreter(SqliteFile& file, Catalogue& catalogue, SessionState& session, FunctionHost& host)
    : m_file(file)
    , m_catalogue(catalogue)
    , m_session(session)
    , m_host(host)
    , m_maker(file, catalogue, host,
              [this](Module& function, int count, sqlite3_value** values, Cell& result) {
                  callFunction(function, count, values, result);
              })
    , m_savepoint(file.prepare("SAVEPOINT statement"))
    , m_release(file.prepare("RELEASE statement"))
    , m_rollbackTo(file.prepare("ROLLBACK TO statement")) {}

bool Interpreter::takeDefinitionRan() {
    const bool ran = m_definitionRan;
    m_definitionRan = false;
    return ran;
}

void Interpreter::runBatch(Module& module, const std::vector<const Cell*>& values, ado::Result& result,
                           ado::RowSink* sink) {
    Slots slots(module);
    for (std::size_t i = 0; i < values.size(); ++i)
        slots.cells()[i] = *values[i];
    m_depth = 0;
    const SinkUse use(*this, sink);
    m_host.error.reset();
    Run batch{module, slots.cells(), &result, false, nullptr};
    run(module.script().statements, batch);
}

Interpreter::Flow Interpreter::run(const std::vector<StmtPtr>& statements, Run& run) {
    for (const StmtPtr& statement : statements) {
        const Flow flow = runOne(*statement, run);
        if (flow != Flow::Next)
            return flow;
    }
    return Flow::Next;
}

Interpreter::Flow Interpreter::runOne(const Stmt& statement, Run& run) {
    switch (statement.kind) {
    case StmtKind::Block:
        return this->run(statement.body, run);
    case StmtKind::If:
        return this->run(test(statement, run) ? statement.body : statement.otherwise, run);
    case StmtKind::While:
        return runWhile(statement, run);
    case StmtKind::Break:
        return Flow::Break;
    case StmtKind::Continue:
        return Flow::Continue;
    case StmtKind::Return:
        runReturn(statement, run);
        return Flow::Return;
    case StmtKind::Set:
        runSet(statement, run);
        break;
    case StmtKind::Select:
        runSelect(statement, run);
        break;
    case StmtKind::Insert:
    case StmtKind::Update:
    case StmtKind::Delete:
        runWrite(statement, run);
        break;
    case StmtKind::Execute:
        runExecute(statement, run);
        break;
    case StmtKind::Option:
        if (statement.text == "NOCOUNT")
            run.noCount = statement.flag;
        break;
    case StmtKind::IdentityInsert: {
        const std::string& database =
            statement.name.database.empty() ? run.module.database : statement.name.database;
        m_session.identityInsert =
            statement.flag ? upperText(database + "." + statement.name.name) : std::string();
        break;
    }
    case StmtKind::Throw:
        runThrow(statement, run);
        break;
    case StmtKind::Print:
        break; // nobody listens to messages on this connection
    case StmtKind::Use:
        m_session.database = m_catalogue.database(statement.text);
        run.module.database = m_session.database;
        m_definitionRan = true;
        break;
    case StmtKind::CreateTable:
    case StmtKind::AddColumns:
    case StmtKind::CreateIndex:
    case StmtKind::CreateModule:
    case StmtKind::Drop:
        if (run.module.definition)
            throw notSupported("CREATE", statement.position);
        if (statement.kind == StmtKind::CreateModule && run.module.script().statements.size() != 1)
            throw ScriptError(
                111, QStringLiteral("'CREATE/ALTER PROCEDURE' must be the first statement in a query batch."),
                "42000", statement.position);
        m_definitionRan = true;
        Definitions(m_file, m_catalogue).run(statement, run.module.database, run.module.source);
        break;
    }
    return Flow::Next;
}

Interpreter::Flow Interpreter::runWhile(const Stmt& statement, Run& run) {
    while (test(statement, run)) {
        const Flow flow = this->run(statement.body, run);
        if (flow == Flow::Break)
            break;
        if (flow == Flow::Return)
            return flow;
    }
    return Flow::Next;
}

bool Interpreter::test(const Stmt& statement, Run& run) {
    if (const std::optional<bool> plain = plainTest(*statement.expr, run.module, run.slots, m_session))
        return *plain;
    const QueryUse query(*this, statement, run);
    return step(query.statement());
}

void Interpreter::runSet(const Stmt& statement, Run& run) {
    const SqlType& type = run.module.script().variables[std::size_t(statement.slot)].type;
    Cell& slot = run.slots[std::size_t(statement.slot)];
    if (isLiteral(*statement.expr)) {
        readLiteralAs(*statement.expr, type, false, slot);
        m_session.rowCount = 1; // a simple assignment counts as one row
        return;
    }
    const QueryUse query(*this, statement, run);
    step(query.statement());
    readColumn(query.statement(), 0, slot);
    cutToLength(slot, type);
    m_session.rowCount = 1; // a simple assignment counts as one row
}

void Interpreter::runReturn(const Stmt& statement, Run& run) {
    if (!run.returned || !statement.expr)
        return;
    const SqlType& type = run.module.definition->returns;
    if (isLiteral(*statement.expr)) {
        readLiteralAs(*statement.expr, type, false, *run.returned);
        return;
    }
    const QueryUse query(*this, statement, run);
    step(query.statement());
    readColumn(query.statement(), 0, *run.returned);
    cutToLength(*run.returned, type);
}

void Interpreter::runSelect(const Stmt& statement, Run& run) {
    const QueryUse query(*this, statement, run);
    if (!query->translation.targets.empty()) {
        assignRow(*query, run);
        return;
    }
    if (!run.result)
        throw ScriptError(
            444,
            QStringLiteral("Select statements included within a function cannot return data to a client."),
            "42000", statement.position);
    if (m_sink) {
        hand(*query);
        return;
    }
    ado::Rows& rows = run.result->rows;
    rows.columns = query->columns;
    rows.values.clear();
    fetch(*query, rows);
    m_session.rowCount = rows.count();
}

void Interpreter::assignRow(const Query& query, Run& run) {
    sqlite3_stmt* statement = query.statement.get();
    const std::vector<int>& targets = query.translation.targets;
    std::vector<Cell> row(targets.size());
    std::int64_t rows = 0;
    // The variables may be bound in this very statement: they are set when it is done.
    while (step(statement)) {
        ++rows;
        for (std::size_t i = 0; i < targets.size(); ++i)
            readColumn(statement, int(i), row[i]);
    }
    m_session.rowCount = rows;
    if (rows == 0)
        return;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        Cell& slot = run.slots[std::size_t(targets[i])];
        slot = std::move(row[i]);
        cutToLength(slot, run.module.script().variables[std::size_t(targets[i])].type);
    }
}

void Interpreter::runWrite(const Stmt& statement, Run& run) {
    if (!run.result)
        throw ScriptError(443, QStringLiteral("Invalid use of a side-effecting operator within a function."),
                          "42000", statement.position);
    const QueryUse query(*this, statement, run);
    const Translation& translation = query->translation;
    if (!translation.givenIdentity.empty() &&
        upperText(translation.givenIdentity) != m_session.identityInsert)
        throw serverError(
            544,
            QStringLiteral("Cannot insert explicit value for identity column in table '%1' when "
                           "IDENTITY_INSERT is set to OFF.")
                .arg(toQString(readObjectText(translation.givenIdentity, {}).name)),
            "23000");
    if (!m_session.inTransaction || !translation.mayFailHalfway) {
        stepWrite(*query, run);
        return;
    }
    // A function that fails does not undo the rows before it by itself, as a broken key does.
    const auto command = [&](const SqliteStatement& sql) {
        const StatementReset reset(sql.get());
        step(sql.get());
    };
    command(m_savepoint);
    try {
        stepWrite(*query, run);
    } catch (...) {
        sqlite3_reset(query.statement());
        if (sqlite3_get_autocommit(m_file.handle()) == 0) { // else the savepoint went with the transaction
            command(m_rollbackTo);
            command(m_release);
        }
        throw;
    }
    command(m_release);
}

void Interpreter::stepWrite(const Query& query, Run& run) {
    step(query.statement.get());
    m_session.rowCount = sqlite3_changes64(m_file.handle());
    if (query.translation.insertsIdentity && m_session.rowCount > 0)
        m_session.identity = sqlite3_last_insert_rowid(m_file.handle());
    if (!run.noCount)
        run.result->affected = m_session.rowCount;
}

std::shared_ptr<Module> Interpreter::procedure(const ObjectName& name, const Module& caller) {
    const std::string& database =
        name.database.empty() ? caller.database : m_catalogue.database(name.database);
    std::shared_ptr<Module> module = m_catalogue.module(database, name.name);
    if (!module || module->definition->kind != ModuleKind::Procedure)
        throw missingProcedure(name.text());
    return module;
}

std::shared_ptr<Module> Interpreter::calledBy(const Stmt& statement, Module& caller) {
    caller.called.resize(caller.queries.size());
    std::weak_ptr<Module>& known = caller.called[std::size_t(statement.id)];
    std::shared_ptr<Module> module = known.lock();
    if (!module)
        known = module = procedure(statement.call->name, caller);
    return module;
}

void Interpreter::runExecute(const Stmt& statement, Run& run) {
    if (!run.result)
        throw ScriptError(
            557,
            QStringLiteral("Only functions and some extended stored procedures can be executed from within "
                           "a function."),
            "42000", statement.position);
    const CallLevel level(m_depth);
    const std::shared_ptr<Module> called = calledBy(statement, run.module);
    Slots slots(*called);
    CallArguments(run.module, run.slots, m_session).pass(*statement.call, *called, slots.cells());
    Run inner{*called, slots.cells(), run.result, run.noCount, nullptr};
    this->run(called->script().statements, inner);
}

void Interpreter::runThrow(const Stmt& statement, Run& run) {
    const QueryUse query(*this, statement, run);
    step(query.statement());
    Cell number;
    Cell words;
    Cell severity;
    readColumn(query.statement(), 0, number);
    readColumn(query.statement(), 1, words);
    readColumn(query.statement(), statement.flag ? 1 : 2, severity);
    constexpr int lowestNumber = 50000;
    if (statement.flag) {
        // RAISERROR(message, severity, state): up to 10 it is a remark only
        constexpr std::int64_t lowestError = 11;
        if (severity.kind() == Cell::Kind::Integer && severity.integer() < lowestError)
            return;
        const bool isNumber = number.kind() == Cell::Kind::Integer;
        throw serverError(isNumber ? int(number.integer()) : lowestNumber, toQString(number.text()));
    }
    if (number.kind() != Cell::Kind::Integer || number.integer() < lowestNumber ||
        number.integer() > 2147483647)
        throw serverError(
            35100,
            QStringLiteral("Error number %1 in the THROW statement is outside the valid range. Specify "
                           "an error number in the valid range of 50000 to 2147483647.")
                .arg(number.integer()));
    throw serverError(int(number.integer()), toQString(words.text()));
}

void Interpreter::callFunction(Module& function, int count, sqlite3_value** values, Cell& result) {
    const CallLevel level(m_depth);
    Slots slots(function);
    const auto& parameters = function.definition->parameters;
    if (std::size_t(count) != parameters.size()) // altered since the statement was prepared
        throw tooManyArguments("dbo." + function.name);
    for (int i = 0; i < count; ++i) {
        const auto slot = std::size_t(parameters[std::size_t(i)].slot);
        readValue(values[i], slots.cells()[slot]);
        cutToLength(slots.cells()[slot], function.script().variables[slot].type);
    }
    result.setNull();
    Run inner{function, slots.cells(), nullptr, true, &result};
    const std::int64_t rowCount = m_session.rowCount;
    run(function.script().statements, inner);
    m_session.rowCount = rowCount;
}

bool Interpreter::step(sqlite3_stmt* statement) {
    const int code = sqlite3_step(statement);
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE)
        return false;
    if (m_host.error && (code & 0xFF) == SQLITE_ERROR) {
        const std::optional<base::RunTimeError> error = std::exchange(m_host.error, std::nullopt);
        throw base::RunTimeError(*error);
    }
    throw errorOfSqlite(m_file.handle(), code);
}

/// With room for as many rows as the last time: a list that is searched anew is about as long again.
void Interpreter::fetch(Query& query, ado::Rows& rows) {
    constexpr std::size_t mostRoom = 10'000;
    sqlite3_stmt* statement = query.statement.get();
    rows.values.reserve(std::min(query.fetched, mostRoom));
    while (step(statement))
        appendRow(statement, rows, m_texts);
    query.fetched = rows.values.size();
}

/// Each row as soon as it is stepped.
void Interpreter::hand(const Query& query) {
    sqlite3_stmt* statement = query.statement.get();
    m_sink->begin(query.columns);
    m_session.rowCount = 0;
    std::int64_t rows = 0;
    std::vector<base::Value> row;
    while (step(statement)) {
        readRow(statement, query.columns, row, m_texts);
        ++rows;
        if (!m_sink->row(row))
            throw SinkIsFull();
    }
    m_session.rowCount = rows;
}

void Interpreter::prepareAll(Module& module) {
    if (module.definition && module.definition->kind == ModuleKind::View) {
        m_maker.tryView(module);
        return;
    }
    prepareAll(module.script().statements, module);
}

void Interpreter::prepareAll(const std::vector<StmtPtr>& statements, Module& module) {
    for (const StmtPtr& statement : statements) {
        if (statement->kind == StmtKind::Execute)
            procedure(statement->call->name, module);
        if (statement->expr || statement->query || statement->write || statement->kind == StmtKind::Throw)
            module.queries[std::size_t(statement->id)] = m_maker.make(*statement, module);
        prepareAll(statement->body, module);
        prepareAll(statement->otherwise, module);
    }
}

} // namespace engine
