#include "platform/report/Csv.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/report/ReportError.h"

#include <QSaveFile>

namespace report {
namespace {

QString quoted(QString text) {
    const bool plain = std::none_of(
        text.begin(), text.end(), [](QChar c) { return c == u',' || c == u'"' || c == u'\n' || c == u'\r'; });
    if (plain)
        return text;
    return u'"' + text.replace(u'"', QLatin1String("\"\"")) + u'"';
}

QString cellOf(const base::Value& value) {
    if (value.asDateTime())
        return base::Format(value, QStringLiteral("yyyy-mm-dd hh:nn:ss"));
    QString text = base::textOf(value);
    const bool looksLikeFormula = !text.isEmpty() && QStringLiteral("=+-@\t").contains(text[0]);
    if (value.asText() && looksLikeFormula && !base::IsNumeric(value))
        text.prepend(u'\'');
    return quoted(text);
}

} // namespace

QByteArray csvOf(const ado::Rows& rows) {
    QByteArray csv("\xEF\xBB\xBF");
    QStringList cells;
    for (const auto& column : rows.columns)
        cells << quoted(column.name);
    csv += cells.join(u',').toUtf8() + "\r\n";
    for (qsizetype row = 0; row < rows.count(); ++row) {
        cells.clear();
        for (std::size_t column = 0; column < rows.columns.size(); ++column)
            cells << cellOf(rows.at(row, qsizetype(column)));
        csv += cells.join(u',').toUtf8() + "\r\n";
    }
    return csv;
}

void exportCsv(const ado::Rows& rows, const QString& path) {
    QSaveFile file(path);
    const QByteArray csv = csvOf(rows);
    if (!file.open(QIODevice::WriteOnly) || file.write(csv) != csv.size() || !file.commit())
        throw base::RunTimeError(
            errorFile, QStringLiteral("Path/File access error: %1: %2").arg(path, file.errorString()));
}

} // namespace report
