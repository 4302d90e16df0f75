#pragma once

#include "server/hospital/Progress.h"

#include <QString>

namespace demo {

/// Makes a new file with the made-up "Kerova General Hospital" in it, its dates counted from base::now(). The
/// same moment gives the same hospital, but for the salts of the passwords. The file appears only once it is
/// whole. Raises 58 when it is there already, 75 when it cannot be written.
void createHospital(const QString& file, const hospital::Progress& progress = {});

/// Adds `count` patients, each with a stay, to a file that is there. Committed in pieces, so it can be
/// stopped.
void generatePatients(const QString& file, int count, const hospital::Progress& progress = {});

} // namespace demo
