#pragma once

#include "platform/report/Report.h"

namespace bench {

/// A line of the measured report: eight columns, in fifty groups.
struct ReportRow {
    QString station, patient, exam, doctor;
    qint64 number = 0;
    base::DateTime at;
    qint64 quantity = 0;
    double amount = 0;
};

/// Row `index` of `count`.
ReportRow reportRow(qint64 index, qint64 count);

/// The report over so many rows, from a server that makes them on the way and holds none.
std::unique_ptr<report::Report> reportOf(qint64 count);

} // namespace bench
