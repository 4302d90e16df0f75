#include "platform/base/Error.h"

#include <array>

namespace base {
namespace {

struct ErrorText {
    int number;
    const char* text;
};

constexpr std::array errorTexts{
    ErrorText{errors::invalidProcedureCall, "Invalid procedure call or argument"},
    ErrorText{errors::overflow, "Overflow"},
    ErrorText{errors::subscriptOutOfRange, "Subscript out of range"},
    ErrorText{errors::divisionByZero, "Division by zero"},
    ErrorText{errors::typeMismatch, "Type mismatch"},
    ErrorText{errors::fileNotFound, "File not found"},
    ErrorText{errors::objectNotSet, "Object variable or With block variable not set"},
    ErrorText{errors::invalidUseOfNull, "Invalid use of Null"},
    ErrorText{errors::formAlreadyDisplayed, "Form already displayed; can't show modally"},
    ErrorText{
        errors::noCurrentRecord,
        "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires "
        "a current record."},
    ErrorText{
        errors::rowNotUpdatable,
        "Current Recordset does not support updating. This may be a limitation of the provider, or of the "
        "selected locktype."},
    ErrorText{errors::itemNotFound,
              "Item cannot be found in the collection corresponding to the requested name or ordinal."},
    ErrorText{errors::objectClosed, "Operation is not allowed when the object is closed."},
    ErrorText{errors::objectOpen, "Operation is not allowed when the object is open."},
    ErrorText{
        errors::connectionInvalid,
        "The connection cannot be used to perform this operation. It is either closed or invalid in this "
        "context."},
};

} // namespace

QString errorText(int number) {
    for (const ErrorText& entry : errorTexts) {
        if (entry.number == number)
            return QString::fromLatin1(entry.text);
    }
    return QStringLiteral("Application-defined or object-defined error");
}

RunTimeError::RunTimeError(int number, QString description)
    : RunTimeError(number, std::move(description), {}, {}) {}

RunTimeError::RunTimeError(int number, QString description, QString sqlState, QString statement)
    : m_number(number)
    , m_description(description.isEmpty() ? errorText(number) : std::move(description))
    , m_sqlState(std::move(sqlState))
    , m_statement(std::move(statement))
    , m_what(QStringLiteral("%1: %2").arg(m_number).arg(m_description).toUtf8()) {}

RunTimeError RunTimeError::withStatement(const QString& text) const {
    if (!m_statement.isEmpty())
        return *this;
    return RunTimeError(m_number, m_description, m_sqlState, text);
}

} // namespace base
