#pragma once

#include <QString>

namespace bench {

/// User 1001 on the hospital in that file, as a log-on leaves the program. Raises what the log-on raises.
void logOnTo(const QString& file);

} // namespace bench
