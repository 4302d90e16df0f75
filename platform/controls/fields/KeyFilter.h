#pragma once

#include <QFlags>
#include <QString>

class QLineEdit;
class QPlainTextEdit;

namespace controls {

enum class KeyRule {
    UpperCase = 1, ///< letters come out upper-cased
    BackQuote = 2, ///< ' becomes ` (the statements' texts are quoted with ')
    Number = 4,    ///< only 1234567890.+- get through
    Digits = 8,    ///< only 0 to 9
    Rate = 16,     ///< no ', comma or slash, and nothing behind the digits (codes of 58 and more)
    Fraction = 32  ///< only 0 to 9, the point and the slash
};
Q_DECLARE_FLAGS(KeyRules, KeyRule)
Q_DECLARE_OPERATORS_FOR_FLAGS(KeyRules)

/// What the rules make of typed or pasted text.
QString filtered(const QString& text, KeyRules rules);
/// Applies the rules to everything a user types, pastes or drops; a text of which the server would lose
/// something is refused whole, with a sentence at the field. Texts set by code stay as they are.
void setKeyRules(QLineEdit* field, KeyRules rules);
void setKeyRules(QPlainTextEdit* field, KeyRules rules);

} // namespace controls
