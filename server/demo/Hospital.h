#pragma once

#include "server/demo/Progress.h"

#include <QString>

namespace engine {
class EmbeddedProvider;
}

namespace demo {

/// Where the program keeps the hospital of this computer, unless it is told otherwise.
QString defaultHospitalFile();

/// Makes a new file with the tables and procedures and nothing in them but what no hospital can do without
/// (the number rows, revenue codes, rights). Raises 58 when the file is there already, 75 when it cannot be
/// written.
void createEmptyHospital(const QString& file, const Progress& progress = {});

/// The same with the made-up "Kerova General Hospital" in it, its dates counted from base::now(). The same
/// moment gives the same hospital, but for the salts of the passwords. The file appears only once it is
/// whole.
void createHospital(const QString& file, const Progress& progress = {});

/// Brings tables and procedures of an open file up to the program's own; quick when they are. True when it
/// had to.
bool ensureKit(engine::EmbeddedProvider& provider);

/// Adds `count` patients, each with a stay, to a file that is there. Committed in pieces, so it can be
/// stopped.
void generatePatients(const QString& file, int count, const Progress& progress = {});

} // namespace demo
