#pragma once

#include "platform/ado/StatementScanner.h"
#include "platform/base/Conversion.h"

#include <QString>
#include <QStringList>

#include <array>
#include <initializer_list>
#include <type_traits>
#include <vector>

namespace ado {

/// A value for a place-holder of a statement that stands in a definition file.
struct DefinedValue {
    QString placeholder; ///< as it stands in the text: "{?From}"
    QString value;
};

/// Where a value goes in a pattern.
struct PatternHole {
    int at; ///< of its "{}"
    bool inLiteral;
};

/// A pattern as the compiler has read it.
struct PatternShape {
    const char* text;
    qsizetype length;
    const PatternHole* holes;
    qsizetype count;
    bool isPlain; ///< each value stands in a literal or in code, nothing is left open, no backslash
};

/// The text of one statement, checked. Only sql(), QueryTemplate, definedStatement() and the write-back make
/// one, so a text that was joined by hand cannot be sent.
class Statement {
  public:
    const QString& text() const { return m_text; }

  private:
    explicit Statement(QString text) : m_text(std::move(text)) {}
    QString m_text;

    friend Statement joinStatement(const PatternShape& pattern, const QString* values);
    friend Statement joinStatement(const char* pattern, const QString* values, qsizetype count);
    friend Statement definedStatement(const QString& text, const std::vector<DefinedValue>& values);
    friend class QueryTemplate;
    friend class WriteBack;
};

/// A literal with one `{}` for each of `Count` values; the count is checked when it is compiled.
template <std::size_t Count>
class StatementPattern {
  public:
    template <std::size_t N>
    consteval StatementPattern(const char (&text)[N]) : m_text(text), m_length(N - 1) {
        StatementScanner scanner;
        std::size_t found = 0;
        for (std::size_t i = 0; i + 1 < N;) {
            const bool inLiteral = scanner.place() == StatementScanner::Place::Literal;
            if (text[i] == '{' && text[i + 1] == '}') {
                m_isPlain = m_isPlain && (inLiteral || scanner.place() == StatementScanner::Place::Code);
                if (found < Count)
                    m_holes[found] = {int(i), inLiteral};
                ++found;
                i += 2;
            } else {
                m_isPlain = m_isPlain && text[i] != '\\';
                i += std::size_t(scanner.pass(char16_t(text[i]), char16_t(text[i + 1])));
            }
        }
        m_isPlain = m_isPlain && scanner.place() == StatementScanner::Place::Code;
        if (found != Count)
            throw "the statement needs as many values as it has {}";
    }
    constexpr const char* text() const { return m_text; }
    /// Lives as long as the pattern.
    constexpr PatternShape shape() const {
        return {m_text, m_length, m_holes.data(), qsizetype(Count), m_isPlain};
    }

  private:
    const char* m_text;
    qsizetype m_length;
    std::array<PatternHole, Count> m_holes{};
    bool m_isPlain = true;
};

/// Puts the values in place of each `{}` and reads the result back. Raises 102 ("Incorrect syntax near ...")
/// when a value would leave its literal, or is no number where it stands outside quotes.
Statement joinStatement(const char* pattern, const QString* values, qsizetype count);
/// The same, with what the compiler has read of the pattern: values that hold nothing that a scanner looks at
/// are put in place as they are.
Statement joinStatement(const PatternShape& pattern, const QString* values);

inline QString statementValue(const QString& text) {
    return text;
}
inline QString statementValue(const char* latin1) {
    return QString::fromLatin1(latin1);
}
inline QString statementValue(double number) {
    return base::textOf(base::Value(number));
}
inline QString statementValue(int number) {
    return QString::number(number);
}
inline QString statementValue(qint64 number) {
    return QString::number(number);
}

/// sql("sp_Nuclear_GetResult '{}'", hospitalCode)
template <typename... Values>
Statement sql(std::type_identity_t<StatementPattern<sizeof...(Values)>> pattern, const Values&... values) {
    if constexpr (sizeof...(Values) == 0) {
        return joinStatement(pattern.shape(), nullptr);
    } else {
        const QString texts[] = {statementValue(values)...};
        return joinStatement(pattern.shape(), texts);
    }
}

/// A statement with named place-holders ("spNuclear_SearchRevenue '0','##'") that one screen gives another.
class QueryTemplate {
  public:
    /// An empty template: isEmpty().
    constexpr QueryTemplate() : m_text("") {}
    template <std::size_t N>
    consteval QueryTemplate(const char (&text)[N]) : m_text(text) {}

    struct Replacement {
        const char* placeholder;
        QString value;
    };
    bool isEmpty() const { return *m_text == 0; }
    const char* text() const { return m_text; }
    /// Replaces each place-holder, under the same check as sql().
    Statement with(std::initializer_list<Replacement> replacements) const;

  private:
    const char* m_text;
};

/// A statement out of a definition file that belongs to the program (a report's query): replaces each
/// place-holder, under the same check as sql(). The text itself must not come from a user.
Statement definedStatement(const QString& text, const std::vector<DefinedValue>& values);

} // namespace ado
