#include "server/engine/errors/ServerError.h"

#include "server/engine/parser/Keywords.h"
#include "server/engine/values/Ascii.h"

namespace engine {
namespace {

QString filled(const char* pattern, std::string_view value) {
    return QString::fromLatin1(pattern).arg(toQString(value));
}

} // namespace

base::RunTimeError serverError(int number, const QString& words, const char* sqlState) {
    return base::RunTimeError(number, words, QString::fromLatin1(sqlState), {});
}

ScriptError syntaxError(std::string_view token, SourcePosition position) {
    if (isReserved(token))
        return ScriptError(156, filled("Incorrect syntax near the keyword '%1'.", token), "42000", position);
    return ScriptError(102, filled("Incorrect syntax near '%1'.", token), "42000", position);
}

ScriptError unclosedQuote(std::string_view text, SourcePosition position) {
    return ScriptError(105, filled("Unclosed quotation mark after the character string '%1'.", text), "42000",
                       position);
}

ScriptError notSupported(std::string_view what, SourcePosition position) {
    return ScriptError(notSupportedNumber,
                       QStringLiteral("'%1' is not supported (line %2, column %3).")
                           .arg(toQString(what))
                           .arg(position.line)
                           .arg(position.column),
                       "42000", position);
}

ScriptError nestedTooDeeply(SourcePosition position) {
    return ScriptError(
        191,
        QStringLiteral("Some part of your SQL statement is nested too deeply. Rewrite the query or "
                       "break it up into smaller queries."),
        "42000", position);
}

ScriptError invalidObject(std::string_view name, SourcePosition position) {
    return ScriptError(208, filled("Invalid object name '%1'.", name), "42S02", position);
}

ScriptError invalidColumn(std::string_view name, SourcePosition position) {
    return ScriptError(207, filled("Invalid column name '%1'.", name), "42S22", position);
}

ScriptError ambiguousColumn(std::string_view name, SourcePosition position) {
    return ScriptError(209, filled("Ambiguous column name '%1'.", name), "42000", position);
}

ScriptError unboundIdentifier(std::string_view name, SourcePosition position) {
    return ScriptError(4104, filled("The multi-part identifier \"%1\" could not be bound.", name), "42000",
                       position);
}

ScriptError undeclaredVariable(std::string_view name, SourcePosition position) {
    return ScriptError(137, filled("Must declare the scalar variable \"%1\".", name), "42000", position);
}

ScriptError unknownFunction(std::string_view name, SourcePosition position) {
    return ScriptError(195, filled("'%1' is not a recognized built-in function name.", name), "42000",
                       position);
}

ScriptError wrongArgumentCount(std::string_view name, int count, SourcePosition position) {
    return ScriptError(174, filled("The %1 function requires %2 argument(s).", name).arg(count), "42000",
                       position);
}

base::RunTimeError missingProcedure(std::string_view name) {
    return serverError(2812, filled("Could not find stored procedure '%1'.", name));
}

base::RunTimeError missingArgument(std::string_view procedure, std::string_view parameter) {
    return serverError(
        201, QStringLiteral("Procedure or function '%1' expects parameter '%2', which was not supplied.")
                 .arg(toQString(procedure), toQString(parameter)));
}

base::RunTimeError unknownArgument(std::string_view procedure, std::string_view parameter) {
    return serverError(8145, QStringLiteral("%1 is not a parameter for procedure %2.")
                                 .arg(toQString(parameter), toQString(procedure)));
}

base::RunTimeError tooManyArguments(std::string_view procedure) {
    return serverError(8144, filled("Procedure or function %1 has too many arguments specified.", procedure));
}

base::RunTimeError missingDatabase(std::string_view name) {
    return serverError(
        911, filled("Database '%1' does not exist. Make sure that the name is entered correctly.", name));
}

base::RunTimeError truncated(std::string_view table, std::string_view column, std::string_view value) {
    return serverError(2628,
                       QStringLiteral("String or binary data would be truncated in table '%1', column '%2'. "
                                      "Truncated value: '%3'.")
                           .arg(toQString(table), toQString(column), toQString(value)),
                       "22001");
}

} // namespace engine
