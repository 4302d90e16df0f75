#pragma once

#include "server/hospital/Progress.h"

#include <QString>

#include <functional>

namespace engine {
class EmbeddedProvider;
}

namespace hospital {

/// Where the program keeps the hospital of this computer, unless it is told otherwise.
QString defaultHospitalFile();

/// False as well for a file whose making was cut off: it is made anew. True for a file that is no hospital,
/// which nobody may write over.
bool isThere(const QString& file);

/// Makes a new file with the tables and procedures and nothing in them but what no hospital can do without
/// (the number rows, revenue codes, rights). Only its owner can read it, and the folders that are made for
/// it. Of several programs that make it at once one does, the others wait and find it made. Raises 58 when
/// the file is there already, 75 when it cannot be written.
void createEmptyHospital(const QString& file, const Progress& progress = {});

/// Puts rows into a hospital that was just made; inside one transaction with its making.
using Fill = std::function<void(engine::EmbeddedProvider& provider, const Progress& progress)>;

/// The same, filled. The file appears only once it is whole; it never does when `fill` raises. The kit has
/// the first 60 of the progress, `fill` tells of the rest.
void createFilledHospital(const QString& file, const Fill& fill, const Progress& progress = {});

/// Brings tables and procedures of an open file up to the program's own; quick when they are. True when it
/// had to. Raises 4060 when the file was given a newer kit by another program, 207 with the names of the
/// columns that its tables lack when they are too old; the file is then what it was.
bool ensureKit(engine::EmbeddedProvider& provider);

} // namespace hospital
