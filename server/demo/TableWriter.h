#pragma once

#include "platform/base/DateTime.h"

#include <QString>

#include <initializer_list>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace demo {

/// Adds rows to one table of an open hospital file, straight and fast. Values are as the file keeps them:
/// moments as ISO text, bits as 0 and 1. Raises base::RunTimeError with the file's own words.
class TableWriter {
  public:
    /// `table` as "DATABASE..table".
    TableWriter(sqlite3* file, const char* table, std::initializer_list<const char*> columns);
    ~TableWriter();
    TableWriter(const TableWriter&) = delete;
    TableWriter& operator=(const TableWriter&) = delete;

    template <typename... Values>
    void row(const Values&... values) {
        int place = 0;
        (bind(++place, values), ...);
        store(place);
    }

  private:
    void bind(int place, const char* text);
    void bind(int place, const QString& text);
    void bind(int place, int number);
    void bind(int place, double number);
    void bind(int place, base::DateTime moment);
    void bind(int place, std::nullptr_t);
    template <typename T>
    void bind(int place, const std::optional<T>& value) {
        if (value)
            bind(place, *value);
        else
            bind(place, nullptr);
    }
    void store(int places);

    sqlite3* m_file;
    sqlite3_stmt* m_statement = nullptr;
    int m_columns;
};

/// Runs statements of the file's own language. Raises as above.
void runOnFile(sqlite3* file, const QString& text);

} // namespace demo
