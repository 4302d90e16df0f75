#include "server/engine/translate/Builtins.h"

#include "server/engine/values/Ascii.h"

#include <algorithm>
#include <iterator>
#include <limits>

/// The system functions: what they take, what they give, how SQLite is told.
namespace engine {

using namespace builtins;

namespace {

/// name(text, ...) with the first argument's type and length.
Term textFunction(ExpressionTranslator& translator, const Expr& expr, const char* name,
                  bool keepsLength = true) {
    Term term = translator.textTerm(argument(expr, 0));
    term.sql = std::string(name) + "(" + term.sql + ")";
    term.collated = false;
    if (!keepsLength)
        term.type.length = -1;
    return term;
}

Term numberOfText(ExpressionTranslator& translator, const Expr& expr, const char* name) {
    const Term text = translator.textTerm(argument(expr, 0));
    return {std::string(name) + "(" + text.sql + ")", intType, false, text.constant, true};
}

/// name(text, number, ...)
Term textWithNumbers(ExpressionTranslator& translator, const Expr& expr, const char* name) {
    Term term = translator.textTerm(argument(expr, 0));
    term.sql = std::string(name) + "(" + term.sql;
    for (std::size_t i = 1; i < expr.children.size(); ++i)
        term.sql += ", " + as(translator, expr, i, intType);
    term.sql += ")";
    term.collated = false;
    term.constant = allConstant(expr);
    return term;
}

/// name(text, text, ...)
Term textOfTexts(ExpressionTranslator& translator, const Expr& expr, const char* name, const SqlType& type) {
    Term term{std::string(name) + "(", type, false, allConstant(expr), true};
    for (std::size_t i = 0; i < expr.children.size(); ++i)
        term.sql += (i > 0 ? ", " : "") + translator.textTerm(argument(expr, i)).sql;
    term.sql += ")";
    return term;
}

/// name(number), keeping the number's type.
Term numberFunction(ExpressionTranslator& translator, const Expr& expr, const char* name) {
    Term term = translator.value(argument(expr, 0));
    if (!isNumber(term.type))
        term = {translator.converted(term, floatType), floatType, false, term.constant};
    term.sql = std::string(name) + "(" + term.sql + ")";
    return term;
}

Term floatFunction(ExpressionTranslator& translator, const Expr& expr, const char* name) {
    Term term{std::string(name) + "(", floatType, false, allConstant(expr), true};
    for (std::size_t i = 0; i < expr.children.size(); ++i)
        term.sql += (i > 0 ? ", " : "") + as(translator, expr, i, floatType);
    term.sql += ")";
    return term;
}

Term session(ExpressionTranslator& translator, SessionValue which, const SqlType& type) {
    return translator.sessionValue(which, type);
}

Term coalesce(ExpressionTranslator& translator, const Expr& expr) {
    std::vector<Term> terms;
    SqlType type;
    Term result;
    for (const ExprPtr& child : expr.children) {
        terms.push_back(translator.value(*child));
        type = commonType(type, terms.back().type);
        result.constant = result.constant && terms.back().constant;
    }
    for (const Term& term : terms)
        result.sql += (result.sql.empty() ? "coalesce(" : ", ") + translator.converted(term, type);
    result.sql += ")";
    result.type = type;
    return result;
}

Term isNull(ExpressionTranslator& translator, const Expr& expr) {
    const Term first = translator.value(argument(expr, 0));
    const Term second = translator.value(argument(expr, 1));
    const SqlType type = classOf(first.type) == TypeClass::Null ? second.type : first.type;
    std::string other = translator.cast(second, type).sql;
    return {"coalesce(" + first.sql + ", " + other + ")", type, false, first.constant && second.constant,
            first.exact && second.exact};
}

Term nullIf(ExpressionTranslator& translator, const Expr& expr) {
    const Term first = translator.value(argument(expr, 0));
    const Term second = translator.value(argument(expr, 1));
    const bool constant = first.constant && second.constant;
    if (classOf(first.type) == classOf(second.type))
        return {"nullif(" + translator.keyed(first) + ", " + second.sql + ")", first.type, false, constant,
                first.exact};
    return {"CASE WHEN " + translator.compared(first, "=", second) + " THEN NULL ELSE " + first.sql + " END",
            first.type, false, constant, first.exact};
}

Term iif(ExpressionTranslator& translator, const Expr& expr) {
    const std::string test = translator.condition(argument(expr, 0));
    const Term first = translator.value(argument(expr, 1));
    const Term second = translator.value(argument(expr, 2));
    const SqlType type = commonType(first.type, second.type);
    return {"iif(" + test + ", " + translator.converted(first, type) + ", " +
                translator.converted(second, type) + ")",
            type, false, false};
}

Term concat(ExpressionTranslator& translator, const Expr& expr) {
    Term term{"(", varcharType, false, allConstant(expr), true};
    for (std::size_t i = 0; i < expr.children.size(); ++i)
        term.sql +=
            (i > 0 ? " || " : "") + ("coalesce(" + translator.textTerm(argument(expr, i)).sql + ", '')");
    term.sql += ")";
    return term;
}

// --- sums over rows

std::string distinctWord(const Expr& expr) {
    return expr.distinct ? "DISTINCT " : "";
}

Term count(ExpressionTranslator& translator, const Expr& expr) {
    if (argument(expr, 0).kind == ExprKind::Star)
        return {"count(*)", intType, false, false, true};
    return {"count(" + distinctWord(expr) + translator.keyed(translator.value(argument(expr, 0))) + ")",
            intType, false, false, true};
}

Term sumOf(ExpressionTranslator& translator, const Expr& expr, const char* name) {
    Term term = translator.value(argument(expr, 0));
    if (!isNumber(term.type))
        throw ScriptError(8117,
                          QStringLiteral("Operand data type %1 is invalid for %2 operator.")
                              .arg(QLatin1StringView(typeWord(term.type.kind)), QLatin1StringView(name)),
                          "42000", expr.position);
    if (term.type.kind < TypeKind::Int)
        term.type = intType;
    term.sql = std::string(name) + "(" + distinctWord(expr) + term.sql + ")";
    if (classOf(term.type) == TypeClass::Integer && std::string_view(name) == "avg")
        term.sql = "CAST(" + term.sql + " AS INTEGER)";
    term.constant = false;
    term.exact = classOf(term.type) == TypeClass::Integer;
    return term;
}

Term extreme(ExpressionTranslator& translator, const Expr& expr, const char* name) {
    Term term = translator.value(argument(expr, 0));
    term.sql = std::string(name) + "(" + translator.keyed(term) + ")";
    term.collated = false;
    term.constant = false;
    return term;
}

// --- texts

Term substring(ExpressionTranslator& translator, const Expr& expr) {
    return textWithNumbers(translator, expr, "ts_substring");
}

Term charIndex(ExpressionTranslator& translator, const Expr& expr) {
    Term term{"ts_charindex(", intType, false, allConstant(expr), true};
    term.sql +=
        translator.textTerm(argument(expr, 0)).sql + ", " + translator.textTerm(argument(expr, 1)).sql;
    term.sql += expr.children.size() > 2 ? ", " + as(translator, expr, 2, intType) + ")" : ", 1)";
    return term;
}

Term replicate(ExpressionTranslator& translator, const Expr& expr) {
    Term term = textWithNumbers(translator, expr, "ts_replicate");
    term.type.length = -1;
    return term;
}

Term space(ExpressionTranslator& translator, const Expr& expr) {
    return {"ts_replicate(' ', " + as(translator, expr, 0, intType) + ")", varcharType, false,
            allConstant(expr), true};
}

Term stuff(ExpressionTranslator& translator, const Expr& expr) {
    return {"ts_stuff(" + translator.textTerm(argument(expr, 0)).sql + ", " +
                as(translator, expr, 1, intType) + ", " + as(translator, expr, 2, intType) + ", " +
                translator.textTerm(argument(expr, 3)).sql + ")",
            varcharType, false, allConstant(expr), true};
}

Term str(ExpressionTranslator& translator, const Expr& expr) {
    const std::string length = expr.children.size() > 1 ? as(translator, expr, 1, intType) : "10";
    const std::string places = expr.children.size() > 2 ? as(translator, expr, 2, intType) : "0";
    return {"ts_str(" + as(translator, expr, 0, floatType) + ", " + length + ", " + places + ")", varcharType,
            false, allConstant(expr), true};
}

// --- numbers

Term roundOf(ExpressionTranslator& translator, const Expr& expr) {
    Term term = translator.value(argument(expr, 0));
    if (!isNumber(term.type))
        term = {translator.converted(term, floatType), floatType, false, term.constant};
    const std::string truncates = expr.children.size() > 2 ? as(translator, expr, 2, intType) : "0";
    term.sql = "ts_round(" + term.sql + ", " + as(translator, expr, 1, intType) + ", " + truncates + ")";
    term.constant = allConstant(expr);
    return term;
}

Term isNumeric(ExpressionTranslator& translator, const Expr& expr) {
    const Term term = translator.value(argument(expr, 0));
    if (isText(term.type))
        return {"coalesce(ts_isnumeric(" + term.sql + "), 0)", intType, false, term.constant, true};
    return {"(" + term.sql + " IS NOT NULL)", intType, false, term.constant, true};
}

// --- the catalogue

Term objectId(ExpressionTranslator& translator, const Expr& expr) {
    const std::string kind = expr.children.size() > 1 ? translator.textTerm(argument(expr, 1)).sql : "''";
    return {"ts_objectid(" + translator.textTerm(argument(expr, 0)).sql + ", " + kind + ", " +
                quotedText(translator.database()) + ")",
            intType, false, false, true};
}

Term columnLength(ExpressionTranslator& translator, const Expr& expr) {
    return {"ts_collength(" + translator.textTerm(argument(expr, 0)).sql + ", " +
                translator.textTerm(argument(expr, 1)).sql + ", " + quotedText(translator.database()) + ")",
            intType, false, false, true};
}

Term databaseId(ExpressionTranslator& translator, const Expr& expr) {
    const std::string name = expr.children.empty() ? quotedText(translator.database())
                                                   : translator.textTerm(argument(expr, 0)).sql;
    return {"ts_databaseid(" + name + ")", intType, false, false, true};
}

struct BuiltinEntry {
    std::string_view name;
    int fewest;
    int most;
    Term (*translate)(ExpressionTranslator&, const Expr&);
};

using T = ExpressionTranslator;

constexpr int any = std::numeric_limits<int>::max();

constexpr BuiltinEntry entries[] = {
    {"ABS", 1, 1, [](T& t, const Expr& e) { return numberFunction(t, e, "abs"); }},
    {"APP_NAME", 0, 0, [](T& t, const Expr&) { return session(t, SessionValue::ProgramName, varcharType); }},
    {"ASCII", 1, 1, [](T& t, const Expr& e) { return numberOfText(t, e, "unicode"); }},
    {"AVG", 1, 1, [](T& t, const Expr& e) { return sumOf(t, e, "avg"); }},
    {"CEILING", 1, 1, [](T& t, const Expr& e) { return numberFunction(t, e, "ts_ceiling"); }},
    {"CHAR", 1, 1,
     [](T& t, const Expr& e) {
         return Term{"char(" + as(t, e, 0, intType) + ")", varcharType, false, false, true};
     }},
    {"CHARINDEX", 2, 3, charIndex},
    {"COALESCE", 2, any, coalesce},
    {"COL_LENGTH", 2, 2, columnLength},
    {"CONCAT", 2, any, concat},
    {"COUNT", 1, 1, count},
    {"COUNT_BIG", 1, 1, count},
    {"DATALENGTH", 1, 1, [](T& t, const Expr& e) { return numberOfText(t, e, "length"); }},
    {"DATEADD", 3, 3, dateAdd},
    {"DATEDIFF", 3, 3, dateDiff},
    {"DATENAME", 2, 2, dateName},
    {"DATEPART", 2, 2, datePartOf},
    {"DAY", 1, 1, [](T& t, const Expr& e) { return partOfDate(t, e, "day"); }},
    {"DB_ID", 0, 1, databaseId},
    {"DB_NAME", 0, 0, [](T& t, const Expr&) { return session(t, SessionValue::DatabaseName, varcharType); }},
    {"FLOOR", 1, 1, [](T& t, const Expr& e) { return numberFunction(t, e, "ts_floor"); }},
    {"GETDATE", 0, 0, [](T& t, const Expr&) { return session(t, SessionValue::Now, momentType); }},
    {"HOST_NAME", 0, 0, [](T& t, const Expr&) { return session(t, SessionValue::HostName, varcharType); }},
    {"IIF", 3, 3, iif},
    {"ISDATE", 1, 1, isDate},
    {"ISNULL", 2, 2, isNull},
    {"ISNUMERIC", 1, 1, isNumeric},
    {"LEFT", 2, 2, [](T& t, const Expr& e) { return textWithNumbers(t, e, "ts_left"); }},
    {"LEN", 1, 1, [](T& t, const Expr& e) { return numberOfText(t, e, "ts_len"); }},
    {"LOWER", 1, 1, [](T& t, const Expr& e) { return textFunction(t, e, "ts_lower"); }},
    {"LTRIM", 1, 1, [](T& t, const Expr& e) { return textFunction(t, e, "ltrim"); }},
    {"MAX", 1, 1, [](T& t, const Expr& e) { return extreme(t, e, "max"); }},
    {"MIN", 1, 1, [](T& t, const Expr& e) { return extreme(t, e, "min"); }},
    {"MONTH", 1, 1, [](T& t, const Expr& e) { return partOfDate(t, e, "month"); }},
    {"NULLIF", 2, 2, nullIf},
    {"OBJECT_ID", 1, 2, objectId},
    {"POWER", 2, 2, [](T& t, const Expr& e) { return floatFunction(t, e, "ts_power"); }},
    {"REPLACE", 3, 3, [](T& t, const Expr& e) { return textOfTexts(t, e, "ts_replace", varcharType); }},
    {"REPLICATE", 2, 2, replicate},
    {"REVERSE", 1, 1, [](T& t, const Expr& e) { return textFunction(t, e, "ts_reverse"); }},
    {"RIGHT", 2, 2, [](T& t, const Expr& e) { return textWithNumbers(t, e, "ts_right"); }},
    {"ROUND", 2, 3, roundOf},
    {"RTRIM", 1, 1, [](T& t, const Expr& e) { return textFunction(t, e, "rtrim"); }},
    {"SCOPE_IDENTITY", 0, 0,
     [](T& t, const Expr&) { return session(t, SessionValue::ScopeIdentity, {TypeKind::Decimal}); }},
    {"SIGN", 1, 1, [](T& t, const Expr& e) { return numberFunction(t, e, "sign"); }},
    {"SPACE", 1, 1, space},
    {"SQRT", 1, 1, [](T& t, const Expr& e) { return floatFunction(t, e, "ts_sqrt"); }},
    {"STR", 1, 3, str},
    {"STUFF", 4, 4, stuff},
    {"SUBSTRING", 3, 3, substring},
    {"SUM", 1, 1, [](T& t, const Expr& e) { return sumOf(t, e, "sum"); }},
    {"SUSER_SNAME", 0, 0, [](T& t, const Expr&) { return session(t, SessionValue::LoginName, varcharType); }},
    {"SYSDATETIME", 0, 0, [](T& t, const Expr&) { return session(t, SessionValue::Now, momentType); }},
    {"UPPER", 1, 1, [](T& t, const Expr& e) { return textFunction(t, e, "ts_upper"); }},
    {"YEAR", 1, 1, [](T& t, const Expr& e) { return partOfDate(t, e, "year"); }},
};

} // namespace

Term builtins::call(ExpressionTranslator& translator, const Expr& expr) {
    const auto entry = std::find_if(std::begin(entries), std::end(entries), [&](const BuiltinEntry& known) {
        return sameWord(known.name, expr.text);
    });
    if (entry == std::end(entries))
        throw unknownFunction(expr.text, expr.position);
    const int count = int(expr.children.size());
    if (count < entry->fewest || count > entry->most)
        throw wrongArgumentCount(upperText(expr.text), count < entry->fewest ? entry->fewest : entry->most,
                                 expr.position);
    const bool countsRows = entry->name == "COUNT" || entry->name == "COUNT_BIG";
    if (!countsRows && count > 0 && expr.children.front()->kind == ExprKind::Star)
        throw syntaxError("*", expr.children.front()->position);
    return entry->translate(translator, expr);
}

} // namespace engine
