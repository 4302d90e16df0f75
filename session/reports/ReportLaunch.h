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

/// Where the program lies: the folder that has Reports beside the program, else the installed share folder.
QString programFolder();
/// "<program folder>\Reports\<file>": the path as the screens give it to PrepareReport.
QString reportPath(const QString& file);
/// Opens the report, sets its heading, logs its tables on to `database` and feeds its parameter fields in
/// their stored order. Fields beyond the values prompt when the report runs; values beyond the fields are
/// ignored. Raises the engine's error when the file is missing or unreadable or the log-on fails.
void PrepareReport(const QString& path, const QString& database, const std::vector<base::Value>& parameters);
/// A saved result by its report: behind it gReport waits, ShowResult() shows it. Raises as PrepareReport.
void PrepareResult(const QString& file, const QString& IdNum, const QString& RequestNum);
void ShowResult();
/// Opens the report into gReport, printed by the session's user, and no more: it has no heading, its tables
/// no log-on (SetReportTableLogOn), its fields no values. Raises the engine's error when the file is missing
/// or unreadable.
void OpenReport(const QString& path);
/// Opens a sub-report of gReport by name: its tables move to the user's database, under the fixed log-on.
/// Raises 91 without an open report, the engine's error for an unknown name.
void PrepareSubReport(const QString& name, const std::vector<base::Value>& parameters);
/// Moves one table to `database` and logs it on with the user's own login: the one way without the fixed
/// log-on. Raises the engine's error when the log-on fails.
void SetReportTableLogOn(report::TableLogOn& table, const QString& database);
/// Prints at once (direct print) and releases gReport, or shows the viewer modally.
/// A machine without a printer gets the viewer; fields without a value are asked for first, and nothing is
/// shown when that is given up. Raises 91 without an open report.
void ShowReport(bool showGroupTree, const QString& title, bool directPrint);

} // namespace session
