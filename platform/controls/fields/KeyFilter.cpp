#include "platform/controls/fields/KeyFilter.h"

#include "platform/base/Conversion.h"
#include "platform/controls/fields/TextIntake.h"

namespace controls {

namespace {

bool passes(QChar c, KeyRules rules) {
    const bool digit = c >= QLatin1Char('0') && c <= QLatin1Char('9');
    if (rules.testFlag(KeyRule::Digits))
        return digit;
    if (rules.testFlag(KeyRule::Fraction))
        return digit || c == QLatin1Char('.') || c == QLatin1Char('/');
    if (rules.testFlag(KeyRule::Number))
        return digit || c == QLatin1Char('.') || c == QLatin1Char('+') || c == QLatin1Char('-');
    if (rules.testFlag(KeyRule::Rate))
        return c < QLatin1Char(':') && c != QLatin1Char('\'') && c != QLatin1Char(',') &&
               c != QLatin1Char('/');
    return true;
}

} // namespace

QString filtered(const QString& text, KeyRules rules) {
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        if (passes(c, rules))
            result += rules.testFlag(KeyRule::UpperCase) ? c.toUpper() : c;
    }
    return rules.testFlag(KeyRule::BackQuote) ? base::BackQuoted(std::move(result)) : result;
}

void setKeyRules(QLineEdit* field, KeyRules rules) {
    TextIntake::attach(field, rules);
}

void setKeyRules(QPlainTextEdit* field, KeyRules rules) {
    TextIntake::attach(field, rules);
}

} // namespace controls
