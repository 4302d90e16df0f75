#pragma once

#include "platform/report/Progress.h"
#include "platform/report/rows/RowSource.h"

#include <QByteArray>

namespace report {

/// Rows as comma separated text: UTF-8 with its mark, so that spreadsheets read accents, a line of column
/// names, CR LF. Moments are "yyyy-mm-dd hh:mm:ss", days of a column of days "yyyy-mm-dd", amounts "1200.50";
/// Null is an empty cell. A text that a spreadsheet would
/// take for a formula gets an apostrophe in front.
QByteArray csvOf(const RowSource& rows);

/// Writes them to a file that is there whole or not at all; raises 75 with the reason. False when
/// `progress` gave it up.
bool exportCsv(const RowSource& rows, const QString& path, const ProgressCall& progress = {});

} // namespace report
