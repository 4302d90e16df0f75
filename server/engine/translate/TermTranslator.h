#pragma once

#include "server/engine/catalogue/Module.h"
#include "server/engine/translate/Term.h"

#include <string>

namespace engine {

/// What the types make of terms: conversions, comparisons, places for variables. Collects the translation's
/// slots.
class TermTranslator {
  public:
    virtual ~TermTranslator() = default;

    /// The term as a value of the type, as a comparison converts it.
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
    Translation& translation() { return m_translation; }

  protected:
    std::string placeholder(int slot);

    Translation m_translation;

  private:
    std::string textToOther(const Term& term, const SqlType& type);
    std::string otherToText(const Term& term, const SqlType& type, const std::string& style);
};

} // namespace engine
