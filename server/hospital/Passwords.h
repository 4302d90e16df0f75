#pragma once

#include <QString>

namespace hospital {

/// Argon2id text with its own salt, as PASSWORD..tbPasswordMain keeps it; about a tenth of a second. Raises 7
/// (out of memory) when the machine cannot.
QString passwordHash(const QString& password);

} // namespace hospital
