#pragma once

#include <QString>

#include <sqlite3.h>

#include <stdexcept>
#include <string>

namespace bench {

/// A prepared statement with nothing around it: the floor.
class RawStatement {
  public:
    RawStatement(sqlite3* handle, const std::string& text) : m_handle(handle) {
        if (sqlite3_prepare_v2(handle, text.c_str(), -1, &m_statement, nullptr) != SQLITE_OK)
            throw std::runtime_error(text + ": " + sqlite3_errmsg(handle));
    }
    ~RawStatement() { sqlite3_finalize(m_statement); }
    RawStatement(const RawStatement&) = delete;
    RawStatement& operator=(const RawStatement&) = delete;

    /// The text must live until the statement has run.
    void bind(int index, const std::string& text) {
        sqlite3_bind_text(m_statement, index, text.data(), int(text.size()), SQLITE_STATIC);
    }
    void bind(int index, double number) { sqlite3_bind_double(m_statement, index, number); }
    void bind(int index, sqlite3_int64 number) { sqlite3_bind_int64(m_statement, index, number); }
    /// True while there are rows.
    bool step() {
        const int result = sqlite3_step(m_statement);
        if (result != SQLITE_ROW && result != SQLITE_DONE)
            throw std::runtime_error(sqlite3_errmsg(m_handle));
        return result == SQLITE_ROW;
    }
    void reset() { sqlite3_reset(m_statement); }
    void run() {
        step();
        reset();
    }
    sqlite3_stmt* get() const { return m_statement; }
    std::string text(int column) const {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
        return bytes ? std::string(bytes, std::size_t(sqlite3_column_bytes(m_statement, column)))
                     : std::string();
    }

  private:
    sqlite3* m_handle;
    sqlite3_stmt* m_statement = nullptr;
};

} // namespace bench
