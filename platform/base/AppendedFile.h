#pragma once

#include <QByteArray>
#include <QString>

namespace base {

/// Puts bytes at the end of a file that several programs write to at once, in one piece that none cuts into.
/// A file that is made by it, or that others could read, is the owner's alone. Nothing where it cannot be
/// written.
void appendToOwn(const QString& file, const QByteArray& bytes);

} // namespace base
