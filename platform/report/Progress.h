#pragma once

#include <QtGlobal>

#include <functional>

namespace report {

/// How far something long has come.
struct Progress {
    qint64 rows = 0; ///< read so far
    int pages = 0;   ///< laid out, or written
    int ofPages = 0; ///< how many there will be; 0 as long as nobody knows
};

/// Called now and then while something long runs; false gives it up. May raise.
using ProgressCall = std::function<bool(const Progress&)>;

} // namespace report
