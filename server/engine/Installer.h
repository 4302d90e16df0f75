#pragma once

#include <QString>

namespace engine {

class EmbeddedProvider;

/// Runs a script as a DBA's tool does: batches parted by lines that hold GO alone, USE among them. Errors are
/// those of the batch, with "fileName (line 12, column 5): " before their words. The provider's database is
/// afterwards what it was before.
void installScript(EmbeddedProvider& provider, const QString& source, const QString& fileName);

} // namespace engine
