#pragma once

#include "platform/base/Value.h"

#include <QString>

namespace session {

/// The server's clock; kept in gServerDate too.
base::DateTime GetServerDate();
/// True when the item was requested before and the user wants to go on; False with no earlier request or on
/// Cancel.
bool CheckExamRequested(const QString& admissionNumber, const QString& itemCode, const QString& requestType);
/// True when the request was processed today and the user does not want to repeat it; else False.
bool CheckExamPosted(const QString& admissionNumber, const QString& itemCode, const QString& requestType);
/// One stock movement, through gDispense.
void AppendStockCard(const QString& stockClass, const QString& hospitalNumber, const QString& admissionNumber,
                     const QString& itemCode, const QString& chargeSlip, double quantity, double amount,
                     const QString& room, const QString& stockDepartment, const QString& extra);
/// Trimmed, then upper-cased.
QString TrimUpper(const QString& text);
/// "" for blanks, the trimmed text of a number, any other value as text, untrimmed. Null gives "".
QString CleanVariant(const base::Value& value);

} // namespace session
