#pragma once

#include "platform/report/Progress.h"
#include "platform/report/output/SheetHeading.h"
#include "platform/report/rows/RowSource.h"

namespace report {

enum class FileKind { Unknown, Pdf, Csv, Xlsx };

/// What the path's suffix asks for, in any case.
FileKind fileKindOf(const QString& path);

/// Writes rows as the suffix says, .csv or .xlsx. Raises 75; false when `progress` gave it up. See
/// exportCsv() and exportXlsx().
bool exportRows(const RowSource& rows, const SheetHeading& heading, const QString& path,
                const ProgressCall& progress = {});

} // namespace report
