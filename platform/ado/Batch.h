#pragma once

#include "platform/ado/Provider.h"

namespace ado {

/// Runs a text that nobody checked: a batch of the kit, a question about a server's own catalogue, what a
/// database administrator typed. Nothing that a user enters in a screen may be part of it; everything else is
/// a Statement. For server/ and tools/.
Result runBatch(Provider& provider, const QString& text);
/// Its rows one by one, as Connection::stream() hands them over.
Streamed runBatch(Provider& provider, const QString& text, RowSink& sink);

} // namespace ado
