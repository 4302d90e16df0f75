#include "platform/ado/Provider.h"

namespace ado {

Streamed Provider::stream(const QString& text, RowSink& sink) {
    Result result = execute(text);
    Streamed end{0, result.affected, false};
    const std::size_t columns = result.rows.columns.size();
    if (columns == 0)
        return end;
    sink.begin(result.rows.columns);
    std::vector<base::Value> row(columns);
    for (auto value = result.rows.values.begin(); value != result.rows.values.end();) {
        for (base::Value& cell : row)
            cell = std::move(*value++);
        ++end.rows;
        end.stopped = !sink.row(row);
        if (end.stopped)
            break;
    }
    return end;
}

} // namespace ado
