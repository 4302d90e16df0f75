#include "server/engine/file/SqliteRow.h"

#include <algorithm>

namespace engine {
namespace {

std::string_view textOf(sqlite3_value* value) {
    const unsigned char* text = sqlite3_value_text(value);
    return {reinterpret_cast<const char*>(text), std::size_t(sqlite3_value_bytes(value))};
}

void addText(std::string_view text, ado::DataType type, SharedTexts& texts,
             std::vector<base::Value>& values) {
    if (type == ado::DataType::DateTime) {
        if (const auto moment = base::fromIso(text.data(), qsizetype(text.size()))) {
            values.emplace_back(*moment);
            return;
        }
    }
    values.emplace_back(texts.shown(text));
}

/// Of the connection's own thread: asked for through the value, a column is looked up once and locks nothing.
void addColumn(sqlite3_value* value, ado::DataType type, SharedTexts& texts,
               std::vector<base::Value>& values) {
    if (sqlite3_value_type(value) == SQLITE_NULL) {
        values.emplace_back();
        return;
    }
    switch (type) {
    case ado::DataType::Integer:
        values.emplace_back(qint64(sqlite3_value_int64(value)));
        break;
    case ado::DataType::Double:
    case ado::DataType::Money:
        values.emplace_back(sqlite3_value_double(value));
        break;
    case ado::DataType::Bit:
        values.emplace_back(sqlite3_value_int64(value) != 0);
        break;
    default:
        addText(textOf(value), type, texts, values);
    }
}

void addColumns(sqlite3_stmt* statement, const std::vector<ado::Column>& columns, SharedTexts& texts,
                std::vector<base::Value>& values) {
    for (std::size_t i = 0; i < columns.size(); ++i)
        addColumn(sqlite3_column_value(statement, int(i)), columns[i].type, texts, values);
}

} // namespace

void readColumn(sqlite3_stmt* statement, int column, Cell& cell) {
    readValue(sqlite3_column_value(statement, column), cell);
}

void readValue(sqlite3_value* value, Cell& cell) {
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        cell.setNull();
        break;
    case SQLITE_INTEGER:
        cell.setInteger(sqlite3_value_int64(value));
        break;
    case SQLITE_FLOAT:
        cell.setReal(sqlite3_value_double(value));
        break;
    default:
        cell.setText(textOf(value));
    }
}

void appendRow(sqlite3_stmt* statement, ado::Rows& rows, SharedTexts& texts) {
    constexpr std::size_t firstRows = 16;
    const std::vector<ado::Column>& columns = rows.columns;
    const std::size_t wanted = rows.values.size() + columns.size();
    if (wanted > rows.values.capacity())
        rows.values.reserve(std::max(2 * rows.values.capacity(), firstRows * columns.size()));
    addColumns(statement, columns, texts, rows.values);
}

void readRow(sqlite3_stmt* statement, const std::vector<ado::Column>& columns, std::vector<base::Value>& row,
             SharedTexts& texts) {
    row.clear();
    addColumns(statement, columns, texts, row);
}

} // namespace engine
