#include "platform/report/output/SheetLibrary.h"

#include "platform/base/LateLibrary.h"
#include "platform/report/definition/ReportError.h"

namespace report {

SheetLibrary::SheetLibrary(const QString& name, int version) {
    base::LateLibrary library(errorFile, QStringLiteral("Workbooks"), name, version);
#define SCINTRA_RESOLVE(function) library.resolve(#function, function);
    SCINTRA_SHEET_FUNCTIONS(SCINTRA_RESOLVE)
#undef SCINTRA_RESOLVE
}

const SheetLibrary& sheets() {
    static const SheetLibrary library(QStringLiteral("xlsxwriter"), QByteArray(LXW_SOVERSION).toInt());
    return library;
}

} // namespace report
