#pragma once

#include "platform/base/Error.h"
#include "server/engine/file/Sqlite.h"

#include <optional>
#include <string_view>

namespace engine {

class Catalogue;

/// What the functions inside SQLite share with the provider that runs them.
struct FunctionHost {
    Catalogue* catalogue = nullptr;
    /// Whether the file's indexes know letters beyond A to Z (SqliteFile::isInOrder).
    bool latinOrder = true;
    /// The error that a function raised; SQLite itself only carries its text.
    std::optional<base::RunTimeError> error;
};

/// Makes every ts_ function known to the connection. The host must outlive it. Raises base::RunTimeError.
void registerFunctions(sqlite3* handle, FunctionHost& host);
void registerTextFunctions(sqlite3* handle, FunctionHost& host);
void registerDateFunctions(sqlite3* handle, FunctionHost& host);
void registerNumberFunctions(sqlite3* handle, FunctionHost& host);
void registerCatalogueFunctions(sqlite3* handle, FunctionHost& host);

using FunctionBody = void (*)(sqlite3_context*, sqlite3_value**);

/// Registers a function that gives Null when an argument is Null; what its body raises becomes the
/// statement's error.
template <FunctionBody Body>
void registerFunction(sqlite3* handle, FunctionHost& host, const char* name, int arguments,
                      bool deterministic = true) {
    const auto call = [](sqlite3_context* context, int count, sqlite3_value** values) {
        for (int i = 0; i < count; ++i) {
            if (sqlite3_value_type(values[i]) == SQLITE_NULL)
                return;
        }
        try {
            Body(context, values);
        } catch (const base::RunTimeError& error) {
            static_cast<FunctionHost*>(sqlite3_user_data(context))->error = error;
            sqlite3_result_error(context, error.what(), -1);
        } catch (const std::exception& error) {
            sqlite3_result_error(context, error.what(), -1);
        }
    };
    const int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | (deterministic ? SQLITE_DETERMINISTIC : 0);
    sqlite3_create_function_v2(handle, name, arguments, flags, &host, call, nullptr, nullptr, nullptr);
}

/// Of a value that is not Null. Asked for as a text, one that has no NUL behind it (a bound one) would be
/// copied first.
inline std::string_view valueText(sqlite3_value* value) {
    const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
    return {bytes, std::size_t(sqlite3_value_bytes(value))};
}

inline void resultText(sqlite3_context* context, std::string_view text) {
    sqlite3_result_text(context, text.empty() ? "" : text.data(), int(text.size()), SQLITE_TRANSIENT);
}

} // namespace engine
