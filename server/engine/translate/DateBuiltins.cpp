#include "server/engine/translate/Builtins.h"

#include "server/engine/values/Ascii.h"

/// The system functions on moments.
namespace engine::builtins {
namespace {

/// The word of a part of a date: "day", "dd", "yyyy". It is no column.
std::string datePart(const Expr& expr) {
    static constexpr struct {
        std::string_view word;
        const char* part;
    } parts[] = {{"YEAR", "year"},       {"YY", "year"},
                 {"YYYY", "year"},       {"QUARTER", "quarter"},
                 {"QQ", "quarter"},      {"Q", "quarter"},
                 {"MONTH", "month"},     {"MM", "month"},
                 {"M", "month"},         {"DAYOFYEAR", "dayofyear"},
                 {"DY", "dayofyear"},    {"Y", "dayofyear"},
                 {"DAY", "day"},         {"DD", "day"},
                 {"D", "day"},           {"WEEK", "week"},
                 {"WK", "week"},         {"WW", "week"},
                 {"WEEKDAY", "weekday"}, {"DW", "weekday"},
                 {"W", "weekday"},       {"HOUR", "hour"},
                 {"HH", "hour"},         {"MINUTE", "minute"},
                 {"MI", "minute"},       {"N", "minute"},
                 {"SECOND", "second"},   {"SS", "second"},
                 {"S", "second"},        {"MILLISECOND", "millisecond"},
                 {"MS", "millisecond"}};
    const Expr& word = argument(expr, 0);
    for (const auto& part : parts) {
        if (word.kind == ExprKind::Column && word.qualifier.empty() && sameWord(word.text, part.word))
            return quotedText(part.part);
    }
    throw ScriptError(155,
                      QStringLiteral("'%1' is not a recognized %2 option.")
                          .arg(toQString(word.text), toQString(expr.text).toLower()),
                      "42000", word.position);
}

} // namespace

Term dateAdd(ExpressionTranslator& translator, const Expr& expr) {
    const std::string part = datePart(expr);
    translator.translation().mayFailHalfway = true;
    return {"ts_dateadd(" + part + ", " + as(translator, expr, 1, intType) + ", " +
                as(translator, expr, 2, momentType) + ")",
            momentType, false, allConstant(expr, 1), true};
}

Term dateDiff(ExpressionTranslator& translator, const Expr& expr) {
    const std::string part = datePart(expr);
    return {"ts_datediff(" + part + ", " + as(translator, expr, 1, momentType) + ", " +
                as(translator, expr, 2, momentType) + ")",
            intType, false, allConstant(expr, 1), true};
}

Term datePartOf(ExpressionTranslator& translator, const Expr& expr) {
    const std::string part = datePart(expr);
    return {"ts_datepart(" + part + ", " + as(translator, expr, 1, momentType) + ")", intType, false,
            allConstant(expr, 1), true};
}

Term dateName(ExpressionTranslator& translator, const Expr& expr) {
    const std::string part = datePart(expr);
    return {"ts_datename(" + part + ", " + as(translator, expr, 1, momentType) + ")", varcharType, false,
            allConstant(expr, 1), true};
}

Term partOfDate(ExpressionTranslator& translator, const Expr& expr, const char* part) {
    const Term moment = translator.value(argument(expr, 0));
    return {"ts_datepart('" + std::string(part) + "', " + translator.converted(moment, momentType) + ")",
            intType, false, moment.constant, true};
}

Term isDate(ExpressionTranslator& translator, const Expr& expr) {
    const Term term = translator.value(argument(expr, 0));
    if (classOf(term.type) == TypeClass::Moment)
        return {"(" + term.sql + " IS NOT NULL)", intType, false, term.constant, true};
    return {"coalesce(ts_isdate(" + translator.converted(term, varcharType) + "), 0)", intType, false,
            term.constant, true};
}

} // namespace engine::builtins
