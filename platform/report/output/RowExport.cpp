#include "platform/report/output/RowExport.h"

#include "platform/report/output/Csv.h"
#include "platform/report/output/SaveFile.h"
#include "platform/report/output/Xlsx.h"

namespace report {

FileKind fileKindOf(const QString& path) {
    const QString suffix = path.section(u'.', -1).toLower();
    if (suffix == QLatin1StringView("pdf"))
        return FileKind::Pdf;
    if (suffix == QLatin1StringView("csv"))
        return FileKind::Csv;
    return suffix == QLatin1StringView("xlsx") ? FileKind::Xlsx : FileKind::Unknown;
}

bool exportRows(const RowSource& rows, const SheetHeading& heading, const QString& path,
                const ProgressCall& progress) {
    switch (fileKindOf(path)) {
    case FileKind::Csv:
        return exportCsv(rows, path, progress);
    case FileKind::Xlsx:
        return exportXlsx(rows, heading, path, progress);
    default:
        throw fileError(path, QStringLiteral("rows are written as .csv or .xlsx"));
    }
}

} // namespace report
