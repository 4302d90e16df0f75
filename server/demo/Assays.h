#pragma once

#include <QString>

namespace demo {

/// What the exam found of an analyte, such as "4.5 uIU/mL"; "" where it does not measure that one. `analyte`
/// is the column of the result's table, `share` where between the usual limits the value lies, from 0 to 1.
QString assayed(const QString& examID, const char* analyte, double share);

} // namespace demo
