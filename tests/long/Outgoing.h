#pragma once

#include <QString>
#include <QStringList>

namespace attacks {

/// A text as a server's scanner takes it apart, read without the program's own help.
struct Outgoing {
    QString code;         ///< what stands outside of literals, each literal as ''
    QStringList literals; ///< what stands in them, doubled quotes as one
    bool whole = false;   ///< ends outside of every literal, bracket and comment

    static Outgoing of(const QString& text);
};

/// The word that every hostile value begins with.
inline const QString marker = QStringLiteral("ZQXJ");

/// What is wrong with a text that went out while `value` stood in a field: more than one statement, the value
/// outside of a literal, or in one but changed before its end. "" when nothing is.
QString wrongIn(const QString& text, const QString& value);

} // namespace attacks
