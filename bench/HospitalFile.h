#pragma once

#include <QString>

namespace bench {

/// A demo hospital with `patients` more patients, made once and kept in `folder`. Tells that it makes one.
QString hospitalFile(const QString& folder, int patients);
/// A copy of a hospital file under another name in the same folder; replaces an older copy.
QString copyOf(const QString& file, const QString& name);

} // namespace bench
