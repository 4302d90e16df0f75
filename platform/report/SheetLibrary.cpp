#include "platform/report/SheetLibrary.h"

#include "platform/base/Error.h"
#include "platform/report/ReportError.h"

#include <QLibrary>

namespace report {
namespace {

template <typename Function>
void resolve(QLibrary& library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(library.resolve(name));
    if (!function)
        throw base::RunTimeError(errorFile, QStringLiteral("Workbooks need a newer %1 (%2 is missing).")
                                                .arg(library.fileName(), QLatin1StringView(name)));
}

} // namespace

SheetLibrary::SheetLibrary(const QString& name, int version) {
    QLibrary library(name, version);
    if (!library.load())
        throw base::RunTimeError(errorFile,
                                 QStringLiteral("Workbooks need lib%1, which is not installed.").arg(name));
#define SCINTRA_RESOLVE(function) resolve(library, #function, function);
    SCINTRA_SHEET_FUNCTIONS(SCINTRA_RESOLVE)
#undef SCINTRA_RESOLVE
}

const SheetLibrary& sheets() {
    static const SheetLibrary library(QStringLiteral("xlsxwriter"), QByteArray(LXW_SOVERSION).toInt());
    return library;
}

} // namespace report
