#pragma once

#include <cstdint>
#include <string>

namespace engine {

/// What one connection knows of itself.
struct SessionState {
    /// Names without a prefix belong to it.
    std::string database;
    std::string hostName;
    std::string programName;
    std::string loginName;
    int processId = 0;
    std::int64_t rowCount = 0;
    /// The identity value of the last INSERT; 0 before the first one.
    std::int64_t identity = 0;
    /// The table whose identity column may be given values: SET IDENTITY_INSERT.
    std::string identityInsert;
    /// Between begin() and commit() or rollback().
    bool inTransaction = false;
    /// An error has taken the whole of that transaction back. Until it is ended nothing runs: a text would be
    /// kept at once, and a save by half.
    bool rolledBack = false;
};

} // namespace engine
