#include "platform/ado/Batch.h"

namespace ado {

Result runBatch(Provider& provider, const QString& text) {
    return provider.execute(text);
}

Streamed runBatch(Provider& provider, const QString& text, RowSink& sink) {
    return provider.stream(text, sink);
}

} // namespace ado
