#pragma once

#include "tests/long/Attack.h"

namespace attacks {

/// Workstations in processes of their own that save, register and break off at once, on one hospital: no
/// number is shared, none is lost, and nobody waits longer than a lock is waited for.
void workstations(Course& course);
/// Sixteen with a thousand saves each (or as many as there are to be rounds), on the embedded file and over
/// TDS.
void allWorkstations(Course& course);
/// FILE SAVES: those sixteen, on the file, or on the server that SCINTRA_TEST_DSN names where it is empty.
int workstationsPart(const QStringList& words);
/// First starts at once on one fresh folder: all of them end well, on one whole hospital.
void starts(Course& course);
/// FILE: what the log-on does at its first start.
int startsPart(const QStringList& words);

} // namespace attacks
