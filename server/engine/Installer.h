#pragma once

#include "platform/base/Error.h"

#include <QString>

#include <vector>

namespace engine {

class EmbeddedProvider;

struct ScriptBatch {
    QString text;
    int firstLine; ///< of the script, from 1
};

/// The batches of a script, parted by lines that hold GO alone; those of blanks are left out.
std::vector<ScriptBatch> scriptBatches(const QString& source);
/// The error with "fileName (batch at line 12): " before its words.
base::RunTimeError located(const base::RunTimeError& error, const ScriptBatch& batch,
                           const QString& fileName);

/// Runs a script as a DBA's tool does: batches parted by lines that hold GO alone, USE among them. Errors are
/// those of the batch, with "fileName (line 12, column 5): " before their words. The provider's database is
/// afterwards what it was before.
void installScript(EmbeddedProvider& provider, const QString& source, const QString& fileName);

} // namespace engine
