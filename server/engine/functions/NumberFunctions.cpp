#include "server/engine/functions/FunctionHost.h"

#include "server/engine/catalogue/Catalogue.h"
#include "server/engine/errors/ServerError.h"
#include "server/engine/file/SqliteRow.h"
#include "server/engine/parser/ObjectText.h"
#include "server/engine/values/Ascii.h"
#include "server/engine/values/Convert.h"
#include "server/engine/values/NumberText.h"

#include <cmath>

/// The functions on numbers, the conversions between types, and the questions to the catalogue.
namespace engine {
namespace {

Cell cellOf(sqlite3_value* value) {
    Cell cell;
    readValue(value, cell);
    return cell;
}

void resultCell(sqlite3_context* context, const Cell& cell) {
    switch (cell.kind()) {
    case Cell::Kind::Null:
        return;
    case Cell::Kind::Integer:
        sqlite3_result_int64(context, cell.integer());
        return;
    case Cell::Kind::Real:
        sqlite3_result_double(context, cell.real());
        return;
    case Cell::Kind::Text:
        resultText(context, cell.text());
        return;
    }
}

/// text, type, scale, style
void convertText(sqlite3_context* context, sqlite3_value** values) {
    Cell cell = cellOf(values[0]);
    const SqlType type{TypeKind(sqlite3_value_int(values[1])), -1, sqlite3_value_int(values[2])};
    convert(cell, {TypeKind::Varchar}, type, ConversionPlace::Statement, sqlite3_value_int(values[3]));
    resultCell(context, cell);
}

/// text, type, scale; Null for a text that is none of that type
void tryConvertText(sqlite3_context* context, sqlite3_value** values) {
    Cell cell = cellOf(values[0]);
    try {
        convert(cell, {TypeKind::Varchar},
                {TypeKind(sqlite3_value_int(values[1])), -1, sqlite3_value_int(values[2])},
                ConversionPlace::Statement);
        resultCell(context, cell);
    } catch (const base::RunTimeError&) {
        sqlite3_result_null(context);
    }
}

/// value, its type, its scale, length of the text, style
void toText(sqlite3_context* context, sqlite3_value** values) {
    Cell cell = cellOf(values[0]);
    const SqlType from{TypeKind(sqlite3_value_int(values[1])), -1, sqlite3_value_int(values[2])};
    const SqlType to{TypeKind::Varchar, sqlite3_value_int(values[3])};
    const bool isNumber = cell.kind() != Cell::Kind::Text;
    convert(cell, from, {TypeKind::Varchar}, ConversionPlace::Statement, sqlite3_value_int(values[4]));
    if (isNumber && to.length >= 0 && cell.text().size() > std::size_t(to.length)) {
        if (classOf(from) != TypeClass::Integer)
            throw serverError(8115,
                              QStringLiteral("Arithmetic overflow error converting %1 to data type varchar.")
                                  .arg(QLatin1StringView(typeWord(from.kind))),
                              "22003");
        cell.setText("*"); // as the server shows a whole number that does not fit
    }
    cutToLength(cell, to);
    resultCell(context, cell);
}

/// whole number, the kind that must hold it
void wholeNumber(sqlite3_context* context, sqlite3_value** values) {
    Cell cell = cellOf(values[0]);
    convert(cell, {TypeKind::BigInt}, {TypeKind(sqlite3_value_int(values[1]))}, ConversionPlace::Statement);
    resultCell(context, cell);
}

/// value, its type, the wanted type: where one of them is a moment
void convertMoment(sqlite3_context* context, sqlite3_value** values) {
    Cell cell = cellOf(values[0]);
    const SqlType from{TypeKind(sqlite3_value_int(values[1]))};
    const SqlType to{TypeKind(sqlite3_value_int(values[2]))};
    convert(cell, from, to, ConversionPlace::Statement);
    resultCell(context, cell);
}

/// text, longest, table, column
void fit(sqlite3_context* context, sqlite3_value** values) {
    const std::string_view text = valueText(values[0]);
    const auto longest = std::size_t(sqlite3_value_int(values[1]));
    if (text.size() > longest) {
        const std::size_t kept = bytesOf(text, longest);
        // blanks at the end are cut without a word
        if (text.find_first_not_of(' ', kept) != std::string_view::npos)
            throw truncated(valueText(values[2]), valueText(values[3]), text.substr(0, kept));
        resultText(context, text.substr(0, kept));
        return;
    }
    sqlite3_result_value(context, values[0]);
}

/// number, places, 1 to cut instead of rounding
void roundNumber(sqlite3_context* context, sqlite3_value** values) {
    const int places = int(std::clamp<std::int64_t>(sqlite3_value_int64(values[1]), -18, 18));
    if (sqlite3_value_type(values[0]) == SQLITE_INTEGER) {
        if (places >= 0)
            sqlite3_result_value(context, values[0]);
        else
            sqlite3_result_int64(context,
                                 std::int64_t(roundedTo(double(sqlite3_value_int64(values[0])), places)));
        return;
    }
    const double number = sqlite3_value_double(values[0]);
    if (sqlite3_value_int64(values[2]) == 0) {
        sqlite3_result_double(context, roundedTo(number, places));
        return;
    }
    const double scale = std::pow(10.0, places);
    sqlite3_result_double(context, std::trunc(number * scale * (1 + 4e-16)) / scale);
}

void divisor(sqlite3_context* context, sqlite3_value** values) {
    if (sqlite3_value_double(values[0]) == 0)
        throw serverError(8134, QStringLiteral("Divide by zero error encountered."), "22012");
    sqlite3_result_value(context, values[0]);
}

template <double (*Function)(double)>
void onReal(sqlite3_context* context, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_INTEGER)
        sqlite3_result_value(context, values[0]);
    else
        sqlite3_result_double(context, Function(sqlite3_value_double(values[0])));
}

double realFloor(double number) {
    return std::floor(number);
}
double realCeiling(double number) {
    return std::ceil(number);
}

void power(sqlite3_context* context, sqlite3_value** values) {
    const double result = std::pow(sqlite3_value_double(values[0]), sqlite3_value_double(values[1]));
    if (!std::isfinite(result))
        throw serverError(3623, QStringLiteral("An invalid floating point operation occurred."), "22000");
    sqlite3_result_double(context, result);
}

void squareRoot(sqlite3_context* context, sqlite3_value** values) {
    const double number = sqlite3_value_double(values[0]);
    if (number < 0)
        throw serverError(3623, QStringLiteral("An invalid floating point operation occurred."), "22000");
    sqlite3_result_double(context, std::sqrt(number));
}

void isNumeric(sqlite3_context* context, sqlite3_value** values) {
    const std::string_view text = valueText(values[0]);
    double number = 0;
    const bool empty = text.find_first_not_of(' ') == std::string_view::npos;
    sqlite3_result_int(context, !empty && (readMoney(text, number) == NumberReading::Good ||
                                           readFloat(text, number) == NumberReading::Good));
}

Catalogue& catalogueOf(sqlite3_context* context) {
    return *static_cast<FunctionHost*>(sqlite3_user_data(context))->catalogue;
}

/// A number that is the same for the same name: what OBJECT_ID gives serves for tests only.
std::int64_t nameNumber(std::string_view name) {
    std::uint32_t number = 2166136261U;
    for (const char c : name)
        number = (number ^ static_cast<unsigned char>(upperOf(c))) * 16777619U;
    return std::int64_t(number & 0x7FFFFFFF) + 1;
}

/// name, kind ("U", "P", "V", "FN" or ""), database
void objectId(sqlite3_context* context, sqlite3_value** values) {
    Catalogue& catalogue = catalogueOf(context);
    const ObjectText object = readObjectText(valueText(values[0]), valueText(values[2]));
    const std::string kind = upperText(valueText(values[1]));
    if (!catalogue.hasDatabase(object.database))
        return;
    bool found = (kind.empty() || kind == "U") && catalogue.table(object.database, object.name);
    if (!found && kind != "U") {
        const auto module = catalogue.module(object.database, object.name);
        static constexpr std::string_view kinds[] = {"P", "FN", "V"};
        found = module && (kind.empty() || kind == kinds[int(module->definition->kind)]);
    }
    if (found)
        sqlite3_result_int64(context, nameNumber(object.database + "." + object.name));
}

/// table, column, database: the column's length in bytes, for "is it there?"
void columnLength(sqlite3_context* context, sqlite3_value** values) {
    Catalogue& catalogue = catalogueOf(context);
    const ObjectText object = readObjectText(valueText(values[0]), valueText(values[2]));
    const Table* table =
        catalogue.hasDatabase(object.database) ? catalogue.table(object.database, object.name) : nullptr;
    const int column = table ? table->find(valueText(values[1])) : -1;
    if (column >= 0)
        sqlite3_result_int(context, isText(table->columns[std::size_t(column)].type)
                                        ? table->columns[std::size_t(column)].type.length
                                        : 8);
}

void databaseId(sqlite3_context* context, sqlite3_value** values) {
    if (catalogueOf(context).hasDatabase(valueText(values[0])))
        sqlite3_result_int64(context, nameNumber(valueText(values[0])));
}

} // namespace

void registerNumberFunctions(sqlite3* handle, FunctionHost& host) {
    registerFunction<convertText>(handle, host, "ts_convert", 4);
    registerFunction<tryConvertText>(handle, host, "ts_tryconvert", 3);
    registerFunction<toText>(handle, host, "ts_totext", 5);
    registerFunction<convertMoment>(handle, host, "ts_moment", 3);
    registerFunction<wholeNumber>(handle, host, "ts_whole", 2);
    registerFunction<fit>(handle, host, "ts_fit", 4);
    registerFunction<roundNumber>(handle, host, "ts_round", 3);
    registerFunction<divisor>(handle, host, "ts_divisor", 1);
    registerFunction<onReal<realFloor>>(handle, host, "ts_floor", 1);
    registerFunction<onReal<realCeiling>>(handle, host, "ts_ceiling", 1);
    registerFunction<power>(handle, host, "ts_power", 2);
    registerFunction<squareRoot>(handle, host, "ts_sqrt", 1);
    registerFunction<isNumeric>(handle, host, "ts_isnumeric", 1);
}

void registerCatalogueFunctions(sqlite3* handle, FunctionHost& host) {
    registerFunction<objectId>(handle, host, "ts_objectid", 3, false);
    registerFunction<columnLength>(handle, host, "ts_collength", 3, false);
    registerFunction<databaseId>(handle, host, "ts_databaseid", 1, false);
}

void registerFunctions(sqlite3* handle, FunctionHost& host) {
    registerTextFunctions(handle, host);
    registerDateFunctions(handle, host);
    registerNumberFunctions(handle, host);
    registerCatalogueFunctions(handle, host);
}

} // namespace engine
