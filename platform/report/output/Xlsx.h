#pragma once

#include "platform/report/Progress.h"
#include "platform/report/output/SheetHeading.h"
#include "platform/report/rows/RowSource.h"

namespace report {

/// Rows of one sheet, heading included; what is beyond goes on on further sheets.
inline constexpr qint64 mostSheetRows = 1048576;

/// Writes the rows as a workbook: heading, a fixed line of column names with a filter, then the rows, each
/// cell of its own kind. A text stays a text whatever it says; integers of more than 15 digits, moments
/// before 1900 and numbers that are none become texts, Null an empty cell. Walks the rows once and holds none
/// of them. The file is there whole or not at all; raises 75 with the reason. False when `progress`
/// gave it up.
bool exportXlsx(const RowSource& rows, const SheetHeading& heading, const QString& path,
                const ProgressCall& progress = {});

} // namespace report
