#pragma once

#include <QString>

#include <exception>

namespace base {

/// Numbers of the run-time errors that do not come from a server.
namespace errors {
inline constexpr int invalidProcedureCall = 5;
inline constexpr int overflow = 6;
inline constexpr int subscriptOutOfRange = 9;
inline constexpr int divisionByZero = 11;
inline constexpr int typeMismatch = 13;
inline constexpr int fileNotFound = 53;
inline constexpr int fileExists = 58;
inline constexpr int objectNotSet = 91;
inline constexpr int invalidUseOfNull = 94;
inline constexpr int formAlreadyDisplayed = 400;
inline constexpr int noCurrentRecord = 3021;
inline constexpr int objectClosed = 3704;
inline constexpr int objectOpen = 3705;
inline constexpr int itemNotFound = 3265;
inline constexpr int connectionInvalid = 3709;
inline constexpr int rowNotUpdatable = 3251;
} // namespace errors

/// What stops a routine: a number that users of such a system know, and a sentence.
/// Server errors carry the server's own number and words, the SQLSTATE and the text of the statement.
class RunTimeError : public std::exception {
  public:
    explicit RunTimeError(int number, QString description = {});
    RunTimeError(int number, QString description, QString sqlState, QString statement);

    int number() const { return m_number; }
    const QString& description() const { return m_description; }
    /// Empty when the error is none of a server's.
    const QString& sqlState() const { return m_sqlState; }
    /// The statement that failed; empty when there was none.
    const QString& statement() const { return m_statement; }
    const char* what() const noexcept override { return m_what.constData(); }

    /// The error again, with the statement it belongs to. An error that names one already keeps it.
    RunTimeError withStatement(const QString& statement) const;

  private:
    int m_number;
    QString m_description;
    QString m_sqlState;
    QString m_statement;
    QByteArray m_what;
};

/// The fixed sentence of an error number ("Type mismatch"), or "Application-defined or object-defined error".
QString errorText(int number);

} // namespace base
