#pragma once

#include "platform/base/Value.h"
#include "platform/report/Report.h"

#include <QString>

#include <memory>
#include <vector>

namespace session {

/// The report open at present; null when there is none.
extern std::unique_ptr<report::Report> gReport;
/// The dates last chosen. gReportFrom is "CANCEL" when a date dialog was cancelled.
extern QString gReportFrom;
extern QString gReportTo;
extern QString gReportOption;
extern QString gReportOptionTitle;

/// "<program folder>\Reports\<file>": the path as the screens give it to PrepareReport.
QString reportPath(const QString& file);
/// Opens the report, sets its heading, logs its tables on to `database` and feeds its parameter fields in
/// their stored order. Fields beyond the values prompt when the report runs; values beyond the fields are
/// ignored. Raises the engine's error when the file is missing or unreadable or the log-on fails.
void PrepareReport(const QString& path, const QString& database, const std::vector<base::Value>& parameters);
/// Prints at once (direct print) and releases gReport, or shows the viewer modally.
void ShowReport(bool showGroupTree, const QString& title, bool directPrint);

} // namespace session
