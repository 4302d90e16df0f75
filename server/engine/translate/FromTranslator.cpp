#include "server/engine/translate/FromTranslator.h"

#include "server/engine/values/Ascii.h"

namespace engine {
namespace {

constexpr int deepestView = 32;
constexpr int mostWork = 4000;

} // namespace

void FromTranslator::countWork(SourcePosition at) {
    if (++m_work > mostWork)
        throw nestedTooDeeply(at);
}

std::string FromTranslator::from(const std::vector<std::unique_ptr<TableRef>>& tables, TableScope& scope) {
    std::string sql;
    for (const auto& table : tables)
        sql += (sql.empty() ? " FROM " : ", ") + tableText(*table, scope);
    return sql;
}

std::string FromTranslator::tableText(const TableRef& table, TableScope& scope) {
    countWork(table.position);
    if (table.left)
        return joinText(table, scope);
    if (table.derived)
        return derivedText(table, scope);
    const std::string& database = databaseOf(table.name);
    const std::string& alias = table.alias.empty() ? table.name.name : table.alias;
    if (const Table* found = m_catalogue.table(database, table.name.name)) {
        std::vector<ScopeColumn> columns;
        columns.reserve(found->columns.size());
        for (const TableColumn& column : found->columns)
            columns.push_back({column.name, column.type, isText(column.type)});
        addTable(scope, alias, std::move(columns), table.position);
        return quotedName(found->fileName()) + " AS " + quotedName(alias);
    }
    const std::shared_ptr<Module> view = m_catalogue.module(database, table.name.name);
    if (!view || view->definition->kind != ModuleKind::View)
        throw invalidObject(table.name.text(), table.name.position);
    Subquery inner = viewQuery(*view, table.position);
    addTable(scope, alias, std::move(inner.columns), table.position);
    return "(" + inner.sql + ") AS " + quotedName(alias);
}

std::string FromTranslator::derivedText(const TableRef& table, TableScope& scope) {
    // a derived table sees what stands around the query, not its neighbours
    TableScope* const present = m_scope;
    m_scope = present ? present->outer : nullptr;
    Subquery inner = subquery(*table.derived);
    m_scope = present;
    for (std::size_t i = 0; i < inner.columns.size(); ++i) {
        if (i < table.derivedColumns.size())
            throw notSupported("(" + table.derivedColumns[i] + ")", table.position);
        if (inner.columns[i].name.empty())
            throw ScriptError(8155,
                              QStringLiteral("No column name was specified for column %1 of '%2'.")
                                  .arg(i + 1)
                                  .arg(toQString(table.alias)),
                              "42000", table.position);
    }
    addTable(scope, table.alias, inner.columns, table.position);
    return "(" + inner.sql + ") AS " + quotedName(table.alias);
}

ExpressionTranslator::Subquery FromTranslator::viewQuery(const Module& view, SourcePosition at) {
    if (m_viewDepth >= deepestView)
        throw nestedTooDeeply(at);
    ++m_viewDepth;
    TableScope* const scope = m_scope;
    const std::string database = m_database;
    m_scope = nullptr;
    m_database = view.database;
    Subquery inner = subquery(*view.definition->view);
    m_database = database;
    m_scope = scope;
    --m_viewDepth;
    const std::vector<std::string>& names = view.definition->viewColumns;
    if (!names.empty() && names.size() != inner.columns.size())
        throw ScriptError(8158,
                          QStringLiteral("'%1' has more columns than were specified in the column list.")
                              .arg(toQString(view.name)),
                          "42000", at);
    for (std::size_t i = 0; i < inner.columns.size(); ++i) {
        if (!names.empty())
            throw notSupported("(" + names[i] + ")", at);
        if (inner.columns[i].name.empty())
            throw ScriptError(
                4511,
                QStringLiteral("Create View or Function failed because no column name was specified for "
                               "column %1.")
                    .arg(i + 1),
                "42000", at);
    }
    return inner;
}

std::string FromTranslator::joinText(const TableRef& table, TableScope& scope) {
    static constexpr const char* words[] = {" JOIN ", " LEFT JOIN ", " RIGHT JOIN ", " FULL JOIN ",
                                            " CROSS JOIN "};
    std::string sql = tableText(*table.left, scope);
    std::string right = tableText(*table.right, scope);
    if (table.right->left)
        right = "(" + right + ")";
    sql += words[int(table.join)] + right;
    if (table.on)
        sql += " ON " + condition(*table.on);
    return sql;
}

void FromTranslator::addTable(TableScope& scope, std::string alias, std::vector<ScopeColumn> columns,
                              SourcePosition at) {
    for (const ScopeTable& table : scope.tables) {
        if (sameWord(table.alias, alias))
            throw ScriptError(
                1011,
                QStringLiteral("The correlation name '%1' is specified multiple times in a FROM clause.")
                    .arg(toQString(alias)),
                "42000", at);
    }
    scope.tables.push_back({std::move(alias), std::move(columns)});
}

} // namespace engine
