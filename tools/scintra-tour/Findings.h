#pragma once

#include <QString>
#include <QStringList>

namespace tour {

/// What a saved order left in the server's tables, read over a connection of its own.
struct Findings {
    QStringList lines;  ///< table, number of rows and the rows
    QStringList faults; ///< what is missing; empty when all is there
};

/// Expects the rows of one procedure, one fee and one supply under the slip `chargeSlip`.
Findings findOrder(const QString& hospitalFile, const QString& chargeSlip);
/// Expects three lines in the log book and one un-used item under the slip of a package.
Findings findPackage(const QString& hospitalFile, const QString& chargeSlip);

} // namespace tour
