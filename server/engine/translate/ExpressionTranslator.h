#pragma once

#include "server/engine/catalogue/Catalogue.h"
#include "server/engine/translate/TermTranslator.h"

#include <string>
#include <vector>

namespace engine {

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
struct TableScope {
    std::vector<ScopeTable> tables;
    TableScope* outer = nullptr;
};

/// Turns values and conditions into SQLite's words: names, types, case and dates.
class ExpressionTranslator : public TermTranslator {
  public:
    ExpressionTranslator(Catalogue& catalogue, std::string database, const std::vector<Variable>& variables);

    /// Raises 102 for a condition, 207, 209, 4104, 195, 174, ...
    Term value(const Expr& expr);
    /// Raises 4145 for a value.
    std::string condition(const Expr& expr);
    Term textTerm(const Expr& expr);
    const std::string& database() const { return m_database; }

  protected:
    struct Subquery {
        std::string sql;
        std::vector<ScopeColumn> columns;
    };
    virtual Subquery subquery(const Select& select) = 0;
    const std::string& databaseOf(const ObjectName& name);

    Catalogue& m_catalogue;
    std::string m_database;
    const std::vector<Variable>& m_variables;
    TableScope* m_scope = nullptr;

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
    Term tryCast(const Expr& expr);
    Term scalarSubquery(const Expr& expr);
    std::string in(const Expr& expr);
    std::string like(const Expr& expr);
    std::string between(const Expr& expr);
};

} // namespace engine
