#include "server/engine/parser/Keywords.h"

#include "server/engine/values/Ascii.h"

#include <algorithm>
#include <array>

namespace engine {
namespace {

// Both lists are sorted, for binary search.
constexpr std::string_view reserved[] = {
    "ADD",      "ALL",       "ALTER",    "AND",         "ANY",       "AS",         "ASC",        "BACKUP",
    "BEGIN",    "BETWEEN",   "BREAK",    "BULK",        "BY",        "CASCADE",    "CASE",       "CHECK",
    "CLOSE",    "CLUSTERED", "COALESCE", "COLLATE",     "COLUMN",    "COMMIT",     "CONSTRAINT", "CONTINUE",
    "CONVERT",  "CREATE",    "CROSS",    "CURSOR",      "DATABASE",  "DEALLOCATE", "DECLARE",    "DEFAULT",
    "DELETE",   "DESC",      "DISTINCT", "DROP",        "ELSE",      "END",        "ESCAPE",     "EXCEPT",
    "EXEC",     "EXECUTE",   "EXISTS",   "FETCH",       "FOR",       "FOREIGN",    "FROM",       "FULL",
    "FUNCTION", "GOTO",      "GRANT",    "GROUP",       "HAVING",    "IDENTITY",   "IF",         "IN",
    "INDEX",    "INNER",     "INSERT",   "INTERSECT",   "INTO",      "IS",         "JOIN",       "KEY",
    "LEFT",     "LIKE",      "MERGE",    "NOT",         "NULL",      "NULLIF",     "OF",         "OFF",
    "ON",       "OPEN",      "OPTION",   "OR",          "ORDER",     "OUTER",      "OVER",       "PERCENT",
    "PIVOT",    "PRIMARY",   "PRINT",    "PROC",        "PROCEDURE", "RAISERROR",  "REFERENCES", "RETURN",
    "REVOKE",   "RIGHT",     "ROLLBACK", "SELECT",      "SET",       "SOME",       "TABLE",      "THEN",
    "TO",       "TOP",       "TRAN",     "TRANSACTION", "TRIGGER",   "TRUNCATE",   "UNION",      "UNIQUE",
    "UPDATE",   "USE",       "VALUES",   "VIEW",        "WAITFOR",   "WHEN",       "WHERE",      "WHILE",
    "WITH",
};

constexpr std::string_view starters[] = {
    "ALTER",     "BACKUP",     "BEGIN",   "BREAK",  "BULK",     "CLOSE", "COMMIT", "CONTINUE",
    "CREATE",    "DEALLOCATE", "DECLARE", "DELETE", "DENY",     "DROP",  "EXEC",   "EXECUTE",
    "FETCH",     "GOTO",       "GRANT",   "IF",     "INSERT",   "MERGE", "OPEN",   "PRINT",
    "RAISERROR", "RESTORE",    "RETURN",  "REVOKE", "ROLLBACK", "SAVE",  "SELECT", "SET",
    "THROW",     "TRUNCATE",   "UPDATE",  "USE",    "WAITFOR",  "WHILE", "WITH",
};

static_assert(std::is_sorted(std::begin(reserved), std::end(reserved)));
static_assert(std::is_sorted(std::begin(starters), std::end(starters)));

constexpr std::size_t longestWord = 11;

template <std::size_t Count>
bool holds(const std::string_view (&words)[Count], std::string_view word) {
    if (word.size() > longestWord)
        return false;
    std::array<char, longestWord> upper;
    std::transform(word.begin(), word.end(), upper.begin(), upperOf);
    return std::binary_search(std::begin(words), std::end(words),
                              std::string_view(upper.data(), word.size()));
}

} // namespace

bool isReserved(std::string_view word) {
    return holds(reserved, word);
}

bool beginsStatement(std::string_view word) {
    return holds(starters, word);
}

} // namespace engine
