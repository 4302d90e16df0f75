#pragma once

#include <QString>
#include <QStringList>

namespace tests {

/// Every source and header below `folder` of the source tree ("" for all), by its path there:
/// "lookup/frmSearch.h". What a build made is left out.
QStringList sourcesIn(const QString& folder = {});
/// Those of the program and its tools: all but what tests and measures them.
QStringList productSources();
/// Lines of a file by its path in the source tree; fails the test when it cannot be read.
QStringList linesOf(const QString& source);

} // namespace tests
