#pragma once

class QIODevice;

namespace report {

/// Whether a workbook's file has all of its parts, each to its end. The library that makes it keeps the parts
/// in files of its own first, and does not look whether all of them found room.
bool isWholeWorkbook(QIODevice& workbook);

} // namespace report
