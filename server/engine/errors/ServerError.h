#pragma once

#include "platform/base/Error.h"

#include <string>
#include <string_view>

namespace engine {

/// Where a token stands in its text, both from 1.
struct SourcePosition {
    int line = 1;
    int column = 1;
};

/// An error with the place in the text that caused it.
class ScriptError : public base::RunTimeError {
  public:
    ScriptError(int number, const QString& words, const char* sqlState, SourcePosition position)
        : RunTimeError(number, words, QString::fromLatin1(sqlState), {}), m_position(position) {}
    SourcePosition position() const { return m_position; }
    /// The error again, with the text it belongs to.
    ScriptError of(const QString& text) const { return ScriptError(*this, text); }

  private:
    ScriptError(const ScriptError& error, const QString& text)
        : RunTimeError(error.number(), error.description(), error.sqlState(), text)
        , m_position(error.m_position) {}

    SourcePosition m_position;
};

/// The number of every error that says "not supported".
inline constexpr int notSupportedNumber = 40000;

inline QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

base::RunTimeError serverError(int number, const QString& words, const char* sqlState = "42000");

/// 102, or 156 when `token` is a reserved word.
ScriptError syntaxError(std::string_view token, SourcePosition position);
ScriptError unclosedQuote(std::string_view text, SourcePosition position);
/// "'MERGE' is not supported (line 3, column 5)."
ScriptError notSupported(std::string_view what, SourcePosition position);
ScriptError nestedTooDeeply(SourcePosition position);
ScriptError invalidObject(std::string_view name, SourcePosition position);
ScriptError invalidColumn(std::string_view name, SourcePosition position);
ScriptError ambiguousColumn(std::string_view name, SourcePosition position);
ScriptError unboundIdentifier(std::string_view name, SourcePosition position);
ScriptError undeclaredVariable(std::string_view name, SourcePosition position);
ScriptError unknownFunction(std::string_view name, SourcePosition position);
ScriptError wrongArgumentCount(std::string_view name, int count, SourcePosition position);

base::RunTimeError missingProcedure(std::string_view name);
base::RunTimeError missingArgument(std::string_view procedure, std::string_view parameter);
base::RunTimeError unknownArgument(std::string_view procedure, std::string_view parameter);
base::RunTimeError tooManyArguments(std::string_view procedure);
base::RunTimeError missingDatabase(std::string_view name);
base::RunTimeError truncated(std::string_view table, std::string_view column, std::string_view value);

} // namespace engine
