#pragma once

#include "server/hospital/Progress.h"

#include <QString>

namespace hospital {

/// Copies a hospital file while others work on it; the copy is of one moment. `to` appears only once it is
/// whole and replaces a file of that name. Raises 53 when `from` is not there, 321 when it is no hospital
/// file, 75 when `to` cannot be written.
void backupHospital(const QString& from, const QString& to, const Progress& progress = {});

/// Puts the copy `from` in the place of `to`, in one step for whoever has `to` open. Raises as above, and 70
/// when a workstation holds `to` locked.
void restoreHospital(const QString& from, const QString& to, const Progress& progress = {});

} // namespace hospital
