#include "server/engine/file/SqliteRow.h"

#include <algorithm>

namespace engine {
namespace {

std::string_view columnView(sqlite3_stmt* statement, int column) {
    const unsigned char* text = sqlite3_column_text(statement, column);
    return {reinterpret_cast<const char*>(text), std::size_t(sqlite3_column_bytes(statement, column))};
}

base::Value textValue(sqlite3_stmt* statement, int column, ado::DataType type) {
    const std::string_view text = columnView(statement, column);
    if (type == ado::DataType::DateTime) {
        if (const auto moment = base::fromIso(text.data(), qsizetype(text.size())))
            return base::Value(*moment);
    }
    // the conversion takes a mark of byte order at the front for none of the text's own, and a row is found
    // by its text
    const std::string_view mark = "\xEF\xBB\xBF";
    if (text.substr(0, mark.size()) == mark)
        return base::Value(QChar(0xFEFF) + QString::fromUtf8(text.data() + mark.size(),
                                                             qsizetype(text.size() - mark.size())));
    return base::Value(QString::fromUtf8(text.data(), qsizetype(text.size())));
}

base::Value columnValue(sqlite3_stmt* statement, int column, ado::DataType type) {
    const int stored = sqlite3_column_type(statement, column);
    if (stored == SQLITE_NULL)
        return {};
    switch (type) {
    case ado::DataType::Integer:
        return base::Value(qint64(sqlite3_column_int64(statement, column)));
    case ado::DataType::Double:
    case ado::DataType::Money:
        return base::Value(sqlite3_column_double(statement, column));
    case ado::DataType::Bit:
        return base::Value(sqlite3_column_int64(statement, column) != 0);
    default:
        return textValue(statement, column, type);
    }
}

} // namespace

void readColumn(sqlite3_stmt* statement, int column, Cell& cell) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        cell.setNull();
        break;
    case SQLITE_INTEGER:
        cell.setInteger(sqlite3_column_int64(statement, column));
        break;
    case SQLITE_FLOAT:
        cell.setReal(sqlite3_column_double(statement, column));
        break;
    default:
        cell.setText(columnView(statement, column));
    }
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
        cell.setText({reinterpret_cast<const char*>(sqlite3_value_text(value)),
                      std::size_t(sqlite3_value_bytes(value))});
    }
}

void appendRow(sqlite3_stmt* statement, ado::Rows& rows) {
    constexpr std::size_t firstRows = 16;
    const std::vector<ado::Column>& columns = rows.columns;
    const std::size_t wanted = rows.values.size() + columns.size();
    if (wanted > rows.values.capacity())
        rows.values.reserve(std::max(2 * rows.values.capacity(), firstRows * columns.size()));
    for (std::size_t i = 0; i < columns.size(); ++i)
        rows.values.push_back(columnValue(statement, int(i), columns[i].type));
}

void readRow(sqlite3_stmt* statement, const std::vector<ado::Column>& columns,
             std::vector<base::Value>& row) {
    row.resize(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i)
        row[i] = columnValue(statement, int(i), columns[i].type);
}

} // namespace engine
