#pragma once

namespace base {

/// The first line of every program: whatever the desk's language says, the C library writes and reads numbers
/// with a point, and "i" and "I" are one letter. The toolkit takes the desk's language over when the
/// application is made; this is put back at its end. Libraries depend on it: workbooks and ODBC drivers print
/// numbers, and the driver manager compares its keywords, by the C library.
void ignoreDesksLanguage();

} // namespace base
