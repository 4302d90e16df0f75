#pragma once

#include "server/engine/translate/ExpressionTranslator.h"

#include <string>
#include <vector>

namespace engine {

/// SQLite shows any row's value for a column that is not grouped; the server turns such a query down, and so
/// does this.
class GroupCheck {
  public:
    /// `scope`: the tables of the query; it must outlive the check.
    GroupCheck(ExpressionTranslator& translator, const TableScope& scope)
        : m_translator(translator), m_scope(scope) {}

    /// The query has GROUP BY, or a sum over its rows among these values. Only then is anything checked.
    void lookAt(const Expr& expr) { m_grouped = m_grouped || holdsAggregate(expr); }
    /// A value of GROUP BY, in SQLite's words.
    void addKey(std::string sql);

    enum class Clause { SelectList, Having, OrderBy };
    /// Raises 8120, 8121 or 8127.
    void check(const Expr& expr, Clause clause);
    /// The columns of a *.
    void checkStar(const SelectItem& item);

  private:
    static bool holdsAggregate(const Expr& expr);
    bool isKey(const std::string& sql) const;
    [[noreturn]] void fail(const std::string& table, const std::string& column, Clause clause,
                           SourcePosition at) const;

    ExpressionTranslator& m_translator;
    const TableScope& m_scope;
    bool m_grouped = false;
    std::vector<std::string> m_keys;
};

} // namespace engine
