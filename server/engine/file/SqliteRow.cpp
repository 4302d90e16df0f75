#include "server/engine/file/SqliteRow.h"

#include <algorithm>

namespace engine {
namespace {

std::string_view textOf(sqlite3_value* value) {
    const unsigned char* text = sqlite3_value_text(value);
    return {reinterpret_cast<const char*>(text), std::size_t(sqlite3_value_bytes(value))};
}

/// Most texts are short, and of letters that need no converting.
QString shownText(std::string_view text) {
    if (text.empty())
        return QStringLiteral("");
    QString shown(qsizetype(text.size()), Qt::Uninitialized);
    QChar* to = shown.data();
    for (const char letter : text) {
        if (static_cast<unsigned char>(letter) >= 128)
            return QString::fromUtf8(text.data(), qsizetype(text.size()));
        *to++ = QLatin1Char(letter);
    }
    return shown;
}

base::Value textValue(std::string_view text, ado::DataType type) {
    if (type == ado::DataType::DateTime) {
        if (const auto moment = base::fromIso(text.data(), qsizetype(text.size())))
            return base::Value(*moment);
    }
    // the conversion takes a mark of byte order at the front for none of the text's own, and a row is found
    // by its text
    const std::string_view mark = "\xEF\xBB\xBF";
    if (text.substr(0, mark.size()) == mark)
        return base::Value(QChar(0xFEFF) + shownText(text.substr(mark.size())));
    return base::Value(shownText(text));
}

/// Of the connection's own thread: asked for through the value, a column is looked up once and locks nothing.
base::Value columnValue(sqlite3_stmt* statement, int column, ado::DataType type) {
    sqlite3_value* value = sqlite3_column_value(statement, column);
    if (sqlite3_value_type(value) == SQLITE_NULL)
        return {};
    switch (type) {
    case ado::DataType::Integer:
        return base::Value(qint64(sqlite3_value_int64(value)));
    case ado::DataType::Double:
    case ado::DataType::Money:
        return base::Value(sqlite3_value_double(value));
    case ado::DataType::Bit:
        return base::Value(sqlite3_value_int64(value) != 0);
    default:
        return textValue(textOf(value), type);
    }
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
