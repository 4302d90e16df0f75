#include "server/engine/translate/WriteTranslator.h"

#include "server/engine/parser/Parser.h"
#include "server/engine/values/Ascii.h"

#include <algorithm>

namespace engine {
namespace {

/// The table of FROM that goes by the name.
const TableRef* tableCalled(const TableRef& table, std::string_view name) {
    if (table.left) {
        const TableRef* found = tableCalled(*table.left, name);
        return found ? found : tableCalled(*table.right, name);
    }
    const std::string& called = table.alias.empty() ? table.name.name : table.alias;
    return !table.derived && sameWord(called, name) ? &table : nullptr;
}

} // namespace

WriteTranslator::Target WriteTranslator::namedTarget(const ObjectName& name) {
    const std::string& database = databaseOf(name);
    if (const Table* table = m_catalogue.table(database, name.name))
        return {table, name.name, nullptr, database};
    const std::shared_ptr<Module> view = m_catalogue.module(database, name.name);
    if (!view || view->definition->kind != ModuleKind::View)
        throw invalidObject(name.text(), name.position);
    const Select& select = *view->definition->view;
    const SelectCore& core = select.cores.front();
    const bool oneTable = select.cores.size() == 1 && core.from.size() == 1 && !core.from.front()->left &&
                          !core.from.front()->derived && !core.distinct && !core.top &&
                          core.groupBy.empty() &&
                          std::all_of(core.items.begin(), core.items.end(), [](const SelectItem& item) {
                              return item.star || (item.expr->kind == ExprKind::Column && item.alias.empty());
                          });
    if (!oneTable)
        throw ScriptError(
            4405,
            QStringLiteral("View or function '%1' is not updatable because the modification affects "
                           "multiple base tables.")
                .arg(toQString(name.name)),
            "42000", name.position);
    const TableRef& base = *core.from.front();
    const std::string& baseDatabase =
        base.name.database.empty() ? view->database : m_catalogue.database(base.name.database);
    const Table* table = m_catalogue.table(baseDatabase, base.name.name);
    if (!table)
        throw invalidObject(base.name.text(), name.position);
    return {table, base.alias.empty() ? base.name.name : base.alias, core.where.get(), view->database};
}

WriteTranslator::Target WriteTranslator::target(const Write& write) {
    for (const auto& table : write.from) {
        const TableRef* found =
            write.target.database.empty() ? tableCalled(*table, write.target.name) : nullptr;
        if (!found)
            continue;
        Target target = namedTarget(found->name);
        if (target.condition)
            throw notSupported(found->name.text(), write.target.position);
        target.alias = write.target.name;
        return target;
    }
    Target target = namedTarget(write.target);
    if (!write.from.empty())
        throw notSupported("FROM", write.target.position);
    return target;
}

std::string WriteTranslator::defaultValue(const TableColumn& column) {
    if (column.defaultSource.empty())
        return "NULL";
    const ExprPtr expr = Parser::value(column.defaultSource);
    return assigned(value(*expr), column.type);
}

std::string WriteTranslator::stored(const Term& term, const TableColumn& column, const Table& table) {
    const SqlType& type = column.type;
    if (!isText(type))
        return assigned(term, type);
    const std::string sql = converted(term, type);
    const bool mayBeLonger = isText(term.type) ? term.type.length < 0 || term.type.length > type.length
                                               : type.length < 40; // longer than any number or moment
    if (type.length < 0 || !mayBeLonger || classOf(term.type) == TypeClass::Null)
        return sql;
    m_translation.mayFailHalfway = true;
    return "ts_fit(" + sql + ", " + std::to_string(type.length) + ", " +
           quotedText(table.database + ".dbo." + table.name) + ", " + quotedText(column.name) + ")";
}

std::string WriteTranslator::insertedValue(const Expr* expr, const TableColumn& column, const Table& table) {
    return expr ? stored(value(*expr), column, table) : defaultValue(column);
}

std::vector<int> WriteTranslator::insertColumns(const Write& write, const Table& table) {
    std::vector<int> columns;
    if (write.columns.empty()) {
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            if (!table.columns[i].identity)
                columns.push_back(int(i));
        }
        return columns;
    }
    for (std::size_t i = 0; i < write.columns.size(); ++i) {
        const int column = table.find(write.columns[i]);
        if (column < 0)
            throw invalidColumn(write.columns[i], write.columnPositions[i]);
        if (std::find(columns.begin(), columns.end(), column) != columns.end())
            throw ScriptError(
                264,
                QStringLiteral("The column name '%1' is specified more than once in the SET clause or "
                               "column list of an INSERT.")
                    .arg(toQString(write.columns[i])),
                "42000", write.columnPositions[i]);
        if (table.columns[std::size_t(column)].identity)
            m_translation.givenIdentity = table.fileName();
        columns.push_back(column);
    }
    return columns;
}

Translation WriteTranslator::insert(const Write& write) {
    const Target goal = namedTarget(write.target);
    const Table& table = *goal.table;
    const std::vector<int> columns = write.defaultValues ? std::vector<int>() : insertColumns(write, table);
    std::vector<int> defaulted; // the hospital file does not fill these in by itself
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const TableColumn& column = table.columns[i];
        if (!column.defaultSource.empty() && !column.defaultInFile &&
            std::find(columns.begin(), columns.end(), int(i)) == columns.end())
            defaulted.push_back(int(i));
        m_translation.insertsIdentity = m_translation.insertsIdentity || column.identity;
    }
    std::string names;
    for (const int column : columns)
        names += (names.empty() ? "" : ", ") + quotedName(table.columns[std::size_t(column)].name);
    for (const int column : defaulted)
        names += (names.empty() ? "" : ", ") + quotedName(table.columns[std::size_t(column)].name);
    m_translation.sql = "INSERT INTO " + quotedName(table.fileName());
    if (names.empty())
        m_translation.sql += " DEFAULT VALUES";
    else
        m_translation.sql += " (" + names + ") " + insertSource(write, table, columns, defaulted);
    return std::move(m_translation);
}

std::string WriteTranslator::insertSource(const Write& write, const Table& table,
                                          const std::vector<int>& columns,
                                          const std::vector<int>& defaulted) {
    const auto wrongCount = [&](std::size_t values) {
        const bool fewer = values < columns.size();
        const int number = write.columns.empty() ? 213 : fewer ? 109 : 110;
        return ScriptError(
            number,
            number == 213 ? QStringLiteral("Column name or number of supplied values does not match "
                                           "table definition.")
            : fewer       ? QStringLiteral("There are more columns in the INSERT statement than values "
                                                 "specified in the VALUES clause. The number of values in the VALUES "
                                                 "clause must match the number of columns specified in the INSERT "
                                                 "statement.")
                          : QStringLiteral("There are fewer columns in the INSERT statement than values "
                                                 "specified in the VALUES clause. The number of values in the VALUES "
                                                 "clause must match the number of columns specified in the INSERT "
                                                 "statement."),
            "42000", write.target.position);
    };
    std::string tail;
    for (const int column : defaulted)
        tail += ", " + defaultValue(table.columns[std::size_t(column)]);
    if (write.defaultValues)
        return "VALUES (" + tail.substr(2) + ")";
    std::string sql;
    if (write.source) {
        const Subquery source = wholeQuery(*write.source, false);
        if (source.columns.size() != columns.size())
            throw wrongCount(source.columns.size());
        // columns of the inner query go by their place, whatever their names are
        std::string list;
        std::string names;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const std::string name = "\"c" + std::to_string(i + 1) + "\"";
            const Term term{name, source.columns[i].type};
            list += (i > 0 ? ", " : "") + stored(term, table.columns[std::size_t(columns[i])], table);
            names += (i > 0 ? ", " : "") + name;
        }
        return "WITH \"source\" (" + names + ") AS (" + source.sql + ") SELECT " + list + tail +
               " FROM \"source\"";
    }
    for (const auto& row : write.rows) {
        if (row.size() != columns.size())
            throw wrongCount(row.size());
        sql += sql.empty() ? "VALUES (" : ", (";
        for (std::size_t i = 0; i < row.size(); ++i)
            sql += (i > 0 ? ", " : "") +
                   insertedValue(row[i].get(), table.columns[std::size_t(columns[i])], table);
        sql += tail + ")";
    }
    return sql;
}

void WriteTranslator::addTarget(const Target& goal, TableScope& scope) {
    ScopeTable table{goal.alias, {}};
    for (const TableColumn& column : goal.table->columns)
        table.columns.push_back({column.name, column.type, isText(column.type)});
    scope.tables.push_back(std::move(table));
}

std::string WriteTranslator::conditions(const Write& write, const Target& goal) {
    std::string sql;
    if (goal.condition) {
        const std::string database = m_database;
        m_database = goal.database;
        sql = " WHERE " + condition(*goal.condition);
        m_database = database;
    }
    if (write.where)
        sql += (sql.empty() ? " WHERE " : " AND ") + condition(*write.where);
    return sql;
}

std::string WriteTranslator::assignmentList(const Write& write, const Table& table,
                                            std::vector<std::string>& values) {
    std::string list;
    for (const Assignment& assignment : write.assignments) {
        const int index = table.find(assignment.column);
        if (index < 0)
            throw invalidColumn(assignment.column, assignment.position);
        const TableColumn& column = table.columns[std::size_t(index)];
        if (column.identity)
            throw ScriptError(
                8102, QStringLiteral("Cannot update identity column '%1'.").arg(toQString(column.name)),
                "42000", assignment.position);
        const std::string text = insertedValue(assignment.value.get(), column, table);
        values.push_back(text);
        list += (list.empty() ? "" : ", ") + quotedName(column.name) + " = ";
        list += write.from.empty() ? text : "\"new\".\"v" + std::to_string(values.size()) + "\"";
    }
    return list;
}

Translation WriteTranslator::update(const Write& write) {
    const Target goal = target(write);
    TableScope scope;
    m_scope = &scope;
    std::vector<std::string> values;
    if (write.from.empty()) {
        addTarget(goal, scope);
        m_translation.sql = "UPDATE " + quotedName(goal.table->fileName()) + " AS " + quotedName(goal.alias) +
                            " SET " + assignmentList(write, *goal.table, values);
        m_translation.sql += conditions(write, goal);
    } else {
        const std::string tables = from(write.from, scope);
        const std::string list = assignmentList(write, *goal.table, values);
        std::string inner = "SELECT " + quotedName(goal.alias) + ".rowid AS \"row\"";
        for (std::size_t i = 0; i < values.size(); ++i)
            inner += ", " + values[i] + " AS \"v" + std::to_string(i + 1) + "\"";
        inner += tables + conditions(write, goal);
        m_translation.sql = "UPDATE " + quotedName(goal.table->fileName()) + " AS \"old\" SET " + list +
                            " FROM (" + inner + ") AS \"new\" WHERE \"old\".rowid = \"new\".\"row\"";
    }
    m_scope = nullptr;
    return std::move(m_translation);
}

Translation WriteTranslator::remove(const Write& write) {
    const Target goal = target(write);
    TableScope scope;
    m_scope = &scope;
    const std::string file = quotedName(goal.table->fileName());
    if (write.from.empty()) {
        addTarget(goal, scope);
        m_translation.sql = "DELETE FROM " + file + " AS " + quotedName(goal.alias) + conditions(write, goal);
    } else {
        const std::string tables = from(write.from, scope);
        m_translation.sql = "DELETE FROM " + file + " WHERE rowid IN (SELECT " + quotedName(goal.alias) +
                            ".rowid" + tables + conditions(write, goal) + ")";
    }
    m_scope = nullptr;
    return std::move(m_translation);
}

} // namespace engine
