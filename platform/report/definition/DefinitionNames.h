#pragma once

#include "platform/report/definition/ReportDefinition.h"

namespace report {

/// Every name of a definition, so that an expression may use what is told further down.
struct DefinitionNames {
    Names report;
    std::vector<Names> subReports; ///< in the file's order
};

/// Reads them in a pass of its own, which meets every fault of the XML itself, and names given twice, first.
/// Raises 20515 with file, line and column.
DefinitionNames namesOf(const QByteArray& xml, const QString& file);

/// Raises 20515.
[[noreturn]] void failAt(const QString& file, qint64 line, qint64 column, const QString& reason);

} // namespace report
