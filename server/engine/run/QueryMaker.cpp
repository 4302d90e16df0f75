#include "server/engine/run/QueryMaker.h"

#include "server/engine/translate/WriteTranslator.h"

namespace engine {

/// What SQLite holds of one of the hospital's functions: its name. Were the module owned here, the open file
/// would hold its own statements and could not be closed; and a function that is altered need not be
/// registered anew, which SQLite refuses while a statement runs.
class QueryMaker::FunctionCall {
  public:
    FunctionCall(QueryMaker& maker, std::string database, std::string name)
        : m_maker(maker), m_database(std::move(database)), m_name(std::move(name)) {}

    static void call(sqlite3_context* context, int count, sqlite3_value** values) {
        auto& self = *static_cast<FunctionCall*>(sqlite3_user_data(context));
        Cell result;
        try {
            self.m_maker.m_runFunction(*self.module(), count, values, result);
        } catch (const base::RunTimeError& error) {
            self.m_maker.m_host.error = error;
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
        const Catalogue& catalogue = m_maker.m_catalogue;
        std::shared_ptr<Module> found = m_generation == catalogue.generation() ? m_module.lock() : nullptr;
        if (found)
            return found;
        found = m_maker.m_catalogue.module(m_database, m_name);
        if (!found || found->definition->kind != ModuleKind::Function)
            throw invalidObject(m_database + ".dbo." + m_name, {});
        m_module = found;
        m_generation = catalogue.generation();
        return found;
    }

    QueryMaker& m_maker;
    std::string m_database;
    std::string m_name;
    std::weak_ptr<Module> m_module;
    int m_generation = -1;
};

QueryMaker::QueryMaker(SqliteFile& file, Catalogue& catalogue, FunctionHost& host, FunctionRunner runFunction)
    : m_file(file), m_catalogue(catalogue), m_host(host), m_runFunction(std::move(runFunction)) {}

Translation QueryMaker::translate(const Stmt& statement, const Module& module) {
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

std::unique_ptr<Query> QueryMaker::make(const Stmt& statement, const Module& module) {
    auto query = std::make_unique<Query>();
    query->translation = translate(statement, module);
    prepare(*query);
    if (statement.kind == StmtKind::Select && query->translation.targets.empty())
        describe(*query);
    return query;
}

void QueryMaker::prepare(Query& query) {
    for (const std::shared_ptr<Module>& function : query.translation.functions)
        registerFunction(*function);
    query.translation.functions.clear();
    query.statement = m_file.prepare(query.translation.sql);
}

void QueryMaker::registerFunction(const Module& function) {
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

void QueryMaker::describe(Query& query) {
    const auto& columns = query.translation.columns;
    std::vector<ado::Column> told;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        ado::Column column{toQString(columns[i].name), dataType(columns[i].type.kind), {}, {}};
        const char* table = sqlite3_column_table_name(query.statement.get(), int(i));
        const char* origin = sqlite3_column_origin_name(query.statement.get(), int(i));
        if (table && origin) {
            column.baseTable =
                QString::fromUtf8(table).replace(QLatin1StringView("."), QLatin1StringView(".."));
            column.baseColumn = QString::fromUtf8(origin);
        }
        told.push_back(std::move(column));
    }
    query.columns = std::move(told);
}

void QueryMaker::tryView(const Module& view) {
    const std::vector<Variable> none;
    Query query;
    query.translation = WriteTranslator(m_catalogue, view.database, none).select(*view.definition->view);
    prepare(query);
}

} // namespace engine
