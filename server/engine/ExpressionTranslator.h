#pragma once

#include "server/engine/Catalogue.h"

#include <string>
#include <vector>

namespace engine {

/// An expression in SQLite's words.
struct Term {
    std::string sql;
    SqlType type;
    /// SQLite knows by itself that case does not count: a column.
    bool collated = false;
    /// The same for every row.
    bool constant = true;
    /// Holds exactly what a column or variable of its type can hold: no rounding is due.
    bool exact = false;
    /// In parentheses around a row of '|' (joined texts), '+' (sums), '*' (products), '&'.
    char chain = '\0';
};

struct ScopeColumn {
    std::string name;
    SqlType type;
    bool collated = false;
};

struct ScopeTable {
    std::string alias;
    std::vector<ScopeColumn> columns;
};

/// The tables whose columns a name may mean; the inner ones hide the outer ones.
struct Scope {
    std::vector<ScopeTable> tables;
    Scope* outer = nullptr;
};

/// Turns values and conditions into SQLite's words: names, types, case and dates.
class ExpressionTranslator {
  public:
    ExpressionTranslator(Catalogue& catalogue, std::string database, const std::vector<Variable>& variables);
    virtual ~ExpressionTranslator() = default;

    /// Raises 102 for a condition, 207, 209, 4104, 195, 174, ...
    Term value(const Expr& expr);
    /// Raises 4145 for a value.
    std::string condition(const Expr& expr);
    /// The term as a value of the type, as an assignment or a comparison converts it.
    std::string converted(const Term& term, const SqlType& type);
    /// The term as a column or variable of the type takes it: rounded to its places, a whole number in its
    /// range.
    std::string assigned(const Term& term, const SqlType& type);
    /// CAST and CONVERT; `style` in SQLite's words.
    Term cast(const Term& term, const SqlType& type, const std::string& style = "0");
    /// Texts compare without case.
    std::string compared(const Term& left, const std::string& sign, const Term& right);
    /// The text of a term for grouping, ordering and distinct rows.
    std::string keyed(const Term& term) const;
    Term sessionValue(SessionValue which, SqlType type);
    Term textTerm(const Expr& expr);
    const std::string& database() const { return m_database; }
    Translation& translation() { return m_translation; }

  protected:
    struct Subquery {
        std::string sql;
        std::vector<ScopeColumn> columns;
    };
    virtual Subquery subquery(const Select& select) = 0;
    std::string placeholder(int slot);
    const std::string& databaseOf(const ObjectName& name);

    Catalogue& m_catalogue;
    std::string m_database;
    const std::vector<Variable>& m_variables;
    Scope* m_scope = nullptr;
    Translation m_translation;

  private:
    std::string chain(const Expr& expr, ExprKind kind);
    static std::string opened(const Term& term, char strength);
    Term column(const Expr& expr);
    Term global(const Expr& expr);
    Term arithmetic(const Expr& expr);
    Term sum(const Term& left, const Term& right, const std::string& sign);
    Term translatedValue(const Expr& expr);
    Term caseValue(const Expr& expr);
    std::string caseOperand(const Expr& expr, std::vector<std::string>& values);
    Term function(const Expr& expr);
    Term ownFunction(const Expr& expr);
    /// A system function; its translation stands in Builtins.cpp. Raises 174 and 195.
    Term builtinCall(const Expr& expr);
    Term scalarSubquery(const Expr& expr);
    std::string in(const Expr& expr);
    std::string like(const Expr& expr);
    std::string between(const Expr& expr);
    std::string textToOther(const Term& term, const SqlType& type);
    std::string otherToText(const Term& term, const SqlType& type, const std::string& style);
};

} // namespace engine
