#pragma once

#include <QString>

namespace tests {

/// The demo hospital of November 21, 2026, 08:30. Made once for all test programs of a build folder, and
/// again when the kit or the engine has changed. Nobody writes to it.
QString originalHospital();
/// A copy of it, in a folder that goes when the program ends.
QString demoHospital();
/// The copy goes at once.
void forgetHospital(const QString& file);

} // namespace tests
