#pragma once

#include "server/hospital/Progress.h"

#include <QString>

namespace hospital {

/// What becomes of a file that stands where a copy is to go.
enum class Existing { Refuse, Replace };

/// Copies a hospital file while others work on it; the copy is of one moment. It is made under another name,
/// read in full and then moved into place, with its fingerprint beside it ("<to>.sha256"); only its owner can
/// read it. Raises 53 when `from` is not there, 321 when it is no hospital file or damaged, 58 when `to` is
/// there and not to be replaced, 70 when `to` is a hospital that a workstation has open, 5 when it is `from`
/// itself, 75 when it cannot be written. After any of these `to` is what it was.
void backupHospital(const QString& from, const QString& to, Existing existing, const Progress& progress = {});

/// Puts the copy `from` in the place of `to`, in one step for whoever has `to` open. The copy is held
/// against its fingerprint, where one lies beside it, and read in full before, `to` is kept beside as
/// "<to>.before" until what took its place was opened. Raises as above, and 70 when a workstation holds `to`
/// locked.
void restoreHospital(const QString& from, const QString& to, Existing existing,
                     const Progress& progress = {});

} // namespace hospital
