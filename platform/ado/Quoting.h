#pragma once

#include "platform/base/Value.h"

#include <QString>

namespace ado {

/// A value as a server reads it in a text, whatever its language: quotes doubled, moments in ISO form, NULL.
QString literal(const base::Value& value);
/// A server takes a backslash at a line's end for the sign that a long literal goes on in the next line, and
/// drops both. Characters of the line break (LF or CRLF) behind the backslash at `at`; 0 when there is none.
qsizetype brokenLine(QStringView text, qsizetype at);
/// The text of a literal so written that each of its backslashes and line breaks is kept: of "\", "\", line
/// break, line break the server drops the two in the middle.
QString withLinesKept(QString text);
/// What a server reads in such a text.
QString withLinesJoined(QStringView text);
/// A name in brackets.
QString bracketed(const QString& name);
/// The same, behind what the text holds.
void addBracketed(QString& text, const QString& name);

} // namespace ado
