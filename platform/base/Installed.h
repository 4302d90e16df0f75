#pragma once

#include <QString>

namespace base {

/// What travels with the program ("Reports", "merlin.acs"): beside it where it was built, else in its share
/// folder where it was installed; where it is in neither, the place beside the program.
QString sharedFile(const QString& name);

/// A program of ours that the program starts and nobody else ("scintra-voice"): beside it, else in its folder
/// of helpers; where it is in neither, the place beside the program.
QString helperProgram(const QString& name);

/// A library of ours that the program loads when it needs it ("scintra-print"), sought as a helper is.
QString ownModule(const QString& name);

} // namespace base
