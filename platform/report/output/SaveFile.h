#pragma once

#include "platform/base/Error.h"

#include <QString>

#include <functional>

class QIODevice;

namespace report {

/// Error 75, "Path/File access error: <path>: <reason>".
base::RunTimeError fileError(const QString& path, const QString& reason);

/// Raises fileError() when the device takes less than all of it.
void writeAll(QIODevice& device, const QByteArray& block);

/// Writes a file that is there whole or not at all; what was there before stays until then. `write` tells
/// false when the writing was stopped: then there is no file and this is false, too. Raises fileError() with
/// the device's reason; what `write` raises leaves no file, either.
bool saveFile(const QString& path, const std::function<bool(QIODevice& file)>& write);

} // namespace report
