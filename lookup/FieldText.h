#pragma once

#include "platform/ado/Recordset.h"

#include <QString>

namespace lookup {

/// The field of the current row without blanks at its ends; Null gives "".
QString fieldText(ado::Recordset& rows, const char* column);
/// A bit, or a text that says one ("True", "1"); Null gives false.
bool fieldFlag(ado::Recordset& rows, const char* column);

} // namespace lookup
