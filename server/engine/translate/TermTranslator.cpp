#include "server/engine/translate/TermTranslator.h"

#include "server/engine/values/Ascii.h"
#include "server/engine/values/Collation.h"

#include <algorithm>

namespace engine {
namespace {

std::string integerText(int value) {
    return std::to_string(value);
}

/// A literal that every kind of whole number can hold.
bool isSmall(const Term& term) {
    return term.sql.size() <= 2 && std::all_of(term.sql.begin(), term.sql.end(), isDigit);
}

} // namespace

std::string TermTranslator::placeholder(int slot) {
    auto& slots = m_translation.slots;
    auto found = std::find(slots.begin(), slots.end(), slot);
    if (found == slots.end())
        found = slots.insert(slots.end(), slot);
    return "?" + std::to_string(found - slots.begin() + 1);
}

Term TermTranslator::sessionValue(SessionValue which, SqlType type) {
    return {placeholder(int(which)), type, false, true, true};
}

std::string TermTranslator::compared(const Term& left, const std::string& sign, const Term& right) {
    const SqlType type = commonType(left.type, right.type);
    std::string first = left.sql;
    std::string second = right.sql;
    if (classOf(left.type) != classOf(type) && !(isNumber(left.type) && isNumber(type)))
        first = converted(left, type);
    if (classOf(right.type) != classOf(type) && !(isNumber(right.type) && isNumber(type)))
        second = converted(right, type);
    if (isText(type) && !left.collated && !right.collated)
        first += textOrder;
    return "(" + first + " " + sign + " " + second + ")";
}

std::string TermTranslator::keyed(const Term& term) const {
    return isText(term.type) && !term.collated ? term.sql + textOrder : term.sql;
}

std::string TermTranslator::textToOther(const Term& term, const SqlType& type) {
    m_translation.mayFailHalfway = true;
    const std::string kind = integerText(int(type.kind));
    return "ts_convert(" + term.sql + ", " + kind + ", " + integerText(type.scale) + ", 0)";
}

std::string TermTranslator::otherToText(const Term& term, const SqlType& type, const std::string& style) {
    if (classOf(term.type) == TypeClass::Integer && type.length < 0)
        return "CAST(" + term.sql + " AS TEXT)";
    m_translation.mayFailHalfway = true;
    return "ts_totext(" + term.sql + ", " + integerText(int(term.type.kind)) + ", " +
           integerText(term.type.scale) + ", " + integerText(type.length) + ", " + style + ")";
}

std::string TermTranslator::converted(const Term& term, const SqlType& type) {
    const TypeClass from = classOf(term.type);
    const TypeClass to = classOf(type);
    if (from == TypeClass::Null || to == TypeClass::Null)
        return term.sql;
    if (to == TypeClass::Text)
        return from == TypeClass::Text ? term.sql : otherToText(term, {type.kind}, "0");
    if (from == TypeClass::Text)
        return textToOther(term, type);
    if (type.kind == TypeKind::Bit)
        return term.type.kind == TypeKind::Bit ? term.sql : "(" + term.sql + " <> 0)";
    if (from == TypeClass::Integer && to == TypeClass::Real)
        return std::all_of(term.sql.begin(), term.sql.end(), isDigit) ? term.sql + ".0"
                                                                      : "CAST(" + term.sql + " AS REAL)";
    if (from == TypeClass::Real && to == TypeClass::Integer)
        return term.type.kind == TypeKind::Money ? "CAST(round(" + term.sql + ") AS INTEGER)"
                                                 : "CAST(" + term.sql + " AS INTEGER)";
    if (from == to && type.kind != TypeKind::Date)
        return term.sql;
    if (from == to && term.type.kind == TypeKind::Date)
        return term.sql;
    return "ts_moment(" + term.sql + ", " + integerText(int(term.type.kind)) + ", " +
           integerText(int(type.kind)) + ")";
}

std::string TermTranslator::assigned(const Term& term, const SqlType& type) {
    const std::string sql = converted(term, type);
    const TypeClass from = classOf(term.type);
    if (from == TypeClass::Integer && classOf(type) == TypeClass::Integer && type.kind != TypeKind::Bit &&
        term.type.kind > type.kind && !isSmall(term)) {
        m_translation.mayFailHalfway = true;
        return "ts_whole(" + sql + ", " + integerText(int(type.kind)) + ")";
    }
    const bool fits = term.exact && term.type.kind == type.kind && term.type.scale <= type.scale;
    if (from == TypeClass::Real && type.kind == TypeKind::Money && !fits)
        return "ts_round(" + sql + ", 4, 0)";
    if (from == TypeClass::Real && type.kind == TypeKind::Decimal && !fits)
        return "ts_round(" + sql + ", " + integerText(type.scale) + ", 0)";
    return sql;
}

Term TermTranslator::cast(const Term& term, const SqlType& type, const std::string& style) {
    const TypeClass from = classOf(term.type);
    Term result{term.sql, type, false, term.constant, true};
    if (from == TypeClass::Null)
        return result;
    if (isText(type)) {
        if (from != TypeClass::Text)
            result.sql = otherToText(term, type, style);
        else if (type.length >= 0 && (term.type.length < 0 || term.type.length > type.length))
            result.sql = "substr(" + term.sql + ", 1, " + integerText(type.length) + ")";
        else
            result.collated = term.collated;
        return result;
    }
    if (from == TypeClass::Text) {
        m_translation.mayFailHalfway = true;
        result.sql = "ts_convert(" + term.sql + ", " + integerText(int(type.kind)) + ", " +
                     integerText(type.scale) + ", " + style + ")";
    } else {
        result.sql = assigned(term, type);
    }
    return result;
}

} // namespace engine
