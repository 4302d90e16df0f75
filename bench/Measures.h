#pragma once

#include <QString>

namespace bench {

/// Each prints its lines; false when a goal is not met. `folder` keeps the files that are made once.
bool saveOrder(const QString& folder);
bool findPatients(const QString& folder);
bool statementText(const QString& folder);
bool bindGrid(const QString& folder);
bool odbcStatement(const QString& folder);
bool startUp(const QString& folder);
bool longReport(const QString& folder);
bool ledgerPage(const QString& folder);
bool menuKeys(const QString& folder);
bool pollsOfTheMenu(const QString& folder);
bool findCharges(const QString& folder);
bool openScreen(const QString& folder);
bool desks(const QString& folder);
/// One of those desks, in a process of its own: says "ready", waits for a line, saves for some seconds, and
/// says how often, and the milliseconds of the longest save.
int desk(const QString& file);

} // namespace bench
