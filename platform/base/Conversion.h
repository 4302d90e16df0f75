#pragma once

#include "platform/base/Value.h"

#include <QString>

namespace base {

/// Number at the start of a text: blanks are skipped, anything behind the number is ignored, no number is 0.
double Val(const QString& text);

/// The value as number. Raises 13 when it is none ("" included), 94 on Null.
double CDbl(const Value& value);
/// Whole number, halves to the even one. Raises 6 beyond 32 bits, 13, 94.
int CLng(const Value& value);
/// Date from a date, a serial number or a text such as "11/21/2026 8:30 PM". Raises 6 beyond
/// the calendar, 13, 94.
DateTime CDate(const Value& value);
/// Raises 94 on Null.
QString CStr(const Value& value);
/// Number with 15 digits and a leading blank where the sign would be.
QString Str(double number);
/// The field's value joined to "": Null gives "".
QString textOf(const Value& value);

bool IsNumeric(const Value& value);
bool IsDate(const Value& value);

/// Blanks (and nothing else) off both ends.
QString Trim(const QString& text);
QString LTrim(const QString& text);
QString RTrim(const QString& text);

/// Each ' as `: the statements' texts are quoted with '. So are the apostrophes that a server's code page may
/// fold to a ' (U+02BC, U+2019, U+FF07).
QString BackQuoted(QString text);

} // namespace base
