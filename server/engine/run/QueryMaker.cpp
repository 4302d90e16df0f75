#include "server/engine/run/Interpreter.h"

#include "server/engine/errors/ErrorMap.h"
#include "server/engine/file/SqliteRow.h"
#include "server/engine/translate/WriteTranslator.h"
#include "server/engine/values/DateText.h"

#include "platform/base/DateTime.h"

/// The part of the interpreter that makes, binds and steps SQLite's statements.
namespace engine {

/// What SQLite holds of one of the hospital's functions: its name. Were the module owned here, the open file
/// would hold its own statements and could not be closed; and a function that is altered need not be
/// registered anew, which SQLite refuses while a statement runs.
class FunctionCall {
  public:
    FunctionCall(Interpreter& interpreter, std::string database, std::string name)
        : m_interpreter(interpreter), m_database(std::move(database)), m_name(std::move(name)) {}

    static void call(sqlite3_context* context, int count, sqlite3_value** values) {
        auto& self = *static_cast<FunctionCall*>(sqlite3_user_data(context));
        Cell result;
        try {
            self.m_interpreter.callFunction(*self.module(), count, values, result);
        } catch (const base::RunTimeError& error) {
            self.m_interpreter.m_host.error = error;
            sqlite3_result_error(context, error.what(), -1);
            return;
        }
        switch (result.kind()) {
        case Cell::Kind::Null:
            break;
        case Cell::Kind::Integer:
            sqlite3_result_int64(context, result.integer());
            break;
        case Cell::Kind::Real:
            sqlite3_result_double(context, result.real());
            break;
        case Cell::Kind::Text:
            resultText(context, result.text());
            break;
        }
    }
    static void destroy(void* self) { delete static_cast<FunctionCall*>(self); }

  private:
    std::shared_ptr<Module> module() {
        const Catalogue& catalogue = m_interpreter.m_catalogue;
        std::shared_ptr<Module> found = m_generation == catalogue.generation() ? m_module.lock() : nullptr;
        if (found)
            return found;
        found = m_interpreter.m_catalogue.module(m_database, m_name);
        if (!found || found->definition->kind != ModuleKind::Function)
            throw invalidObject(m_database + ".dbo." + m_name, {});
        m_module = found;
        m_generation = catalogue.generation();
        return found;
    }

    Interpreter& m_interpreter;
    std::string m_database;
    std::string m_name;
    std::weak_ptr<Module> m_module;
    int m_generation = -1;
};

Translation Interpreter::translate(const Stmt& statement, const Module& module) {
    WriteTranslator translator(m_catalogue, module.database, module.script().variables);
    switch (statement.kind) {
    case StmtKind::Select:
        return translator.select(*statement.query);
    case StmtKind::Insert:
        return translator.insert(*statement.write);
    case StmtKind::Update:
        return translator.update(*statement.write);
    case StmtKind::Delete:
        return translator.remove(*statement.write);
    case StmtKind::Set:
        return translator.single(*statement.expr,
                                 &module.script().variables[std::size_t(statement.slot)].type);
    case StmtKind::Return:
        return translator.single(*statement.expr,
                                 module.definition && module.definition->kind == ModuleKind::Function
                                     ? &module.definition->returns
                                     : nullptr);
    case StmtKind::Throw:
        return translator.row(statement.children);
    case StmtKind::Print:
        return translator.single(*statement.expr);
    default:
        return translator.test(*statement.expr);
    }
}

std::unique_ptr<Query> Interpreter::makeQuery(const Stmt& statement, const Module& module) {
    auto query = std::make_unique<Query>();
    query->translation = translate(statement, module);
    prepare(*query);
    if (statement.kind == StmtKind::Select && query->translation.targets.empty())
        describe(*query);
    return query;
}

void Interpreter::prepare(Query& query) {
    for (const std::shared_ptr<Module>& function : query.translation.functions)
        registerFunction(*function);
    query.translation.functions.clear();
    query.statement = m_file.prepare(query.translation.sql);
}

void Interpreter::registerFunction(const Module& function) {
    const std::string name = "fn " + function.database + "." + function.name;
    const auto count = int(function.definition->parameters.size());
    if (!m_registered.insert(name + "/" + std::to_string(count)).second)
        return;
    const int code = sqlite3_create_function_v2(m_file.handle(), name.c_str(), count, SQLITE_UTF8,
                                                new FunctionCall(*this, function.database, function.name),
                                                FunctionCall::call, nullptr, nullptr, FunctionCall::destroy);
    if (code != SQLITE_OK)
        m_file.fail(code);
}

void Interpreter::describe(Query& query) {
    const auto& columns = query.translation.columns;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        ado::Column column{toQString(columns[i].name), dataType(columns[i].type.kind), {}, {}};
        const char* table = sqlite3_column_table_name(query.statement.get(), int(i));
        const char* origin = sqlite3_column_origin_name(query.statement.get(), int(i));
        if (table && origin) {
            column.baseTable =
                QString::fromUtf8(table).replace(QLatin1StringView("."), QLatin1StringView(".."));
            column.baseColumn = QString::fromUtf8(origin);
        }
        query.columns.push_back(std::move(column));
    }
}

void Interpreter::bind(const Query& query, const std::vector<Cell>& slots) {
    sqlite3_stmt* statement = query.statement.get();
    int index = 0;
    for (const int slot : query.translation.slots) {
        ++index;
        if (slot < 0) {
            bindSession(statement, index, SessionValue(slot));
            continue;
        }
        const Cell& cell = slots[std::size_t(slot)];
        switch (cell.kind()) {
        case Cell::Kind::Null:
            sqlite3_bind_null(statement, index);
            break;
        case Cell::Kind::Integer:
            sqlite3_bind_int64(statement, index, cell.integer());
            break;
        case Cell::Kind::Real:
            sqlite3_bind_double(statement, index, cell.real());
            break;
        case Cell::Kind::Text: // the variable outlives the run of the statement
            sqlite3_bind_text(statement, index, cell.text().data(), int(cell.text().size()), SQLITE_STATIC);
            break;
        }
    }
}

void Interpreter::bindSession(sqlite3_stmt* statement, int index, SessionValue value) {
    switch (value) {
    case SessionValue::Now:
        bindText(statement, index, isoText(base::now()));
        break;
    case SessionValue::RowCount:
        sqlite3_bind_int64(statement, index, m_session.rowCount);
        break;
    case SessionValue::ProcessId:
        sqlite3_bind_int(statement, index, m_session.processId);
        break;
    case SessionValue::HostName:
        bindText(statement, index, m_session.hostName);
        break;
    case SessionValue::ScopeIdentity:
        if (m_session.identity == 0)
            sqlite3_bind_null(statement, index);
        else
            sqlite3_bind_int64(statement, index, m_session.identity);
        break;
    case SessionValue::DatabaseName:
        bindText(statement, index, m_session.database);
        break;
    case SessionValue::ProgramName:
        bindText(statement, index, m_session.programName);
        break;
    case SessionValue::LoginName:
        bindText(statement, index, m_session.loginName);
        break;
    case SessionValue::TransactionCount:
        sqlite3_bind_int(statement, index, m_session.inTransaction ? 1 : 0);
        break;
    }
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

void Interpreter::fetch(const Query& query, ado::Rows& rows) {
    sqlite3_stmt* statement = query.statement.get();
    while (step(statement))
        appendRow(statement, rows);
}

/// Each row as soon as it is stepped.
void Interpreter::hand(const Query& query) {
    sqlite3_stmt* statement = query.statement.get();
    m_sink->begin(query.columns);
    m_session.rowCount = 0;
    std::int64_t rows = 0;
    std::vector<base::Value> row;
    while (step(statement)) {
        readRow(statement, query.columns, row);
        ++rows;
        if (!m_sink->row(row))
            throw SinkIsFull();
    }
    m_session.rowCount = rows;
}

void Interpreter::prepareAll(Module& module) {
    if (module.definition && module.definition->kind == ModuleKind::View) {
        const std::vector<Variable> none;
        Query query;
        query.translation =
            WriteTranslator(m_catalogue, module.database, none).select(*module.definition->view);
        prepare(query);
        return;
    }
    prepareAll(module.script().statements, module);
}

void Interpreter::prepareAll(const std::vector<StmtPtr>& statements, Module& module) {
    for (const StmtPtr& statement : statements) {
        if (statement->kind == StmtKind::Execute)
            procedure(statement->call->name, module);
        if (statement->expr || statement->query || statement->write || statement->kind == StmtKind::Throw)
            module.queries[std::size_t(statement->id)] = makeQuery(*statement, module);
        prepareAll(statement->body, module);
        prepareAll(statement->otherwise, module);
    }
}

} // namespace engine
