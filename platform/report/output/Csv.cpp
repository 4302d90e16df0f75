#include "platform/report/output/Csv.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/report/output/SaveFile.h"

#include <QBuffer>

namespace report {
namespace {

constexpr qsizetype largestBlock = 256 * 1024;

QString quoted(QString text) {
    const bool plain = std::none_of(
        text.begin(), text.end(), [](QChar c) { return c == u',' || c == u'"' || c == u'\n' || c == u'\r'; });
    if (plain)
        return text;
    return u'"' + text.replace(u'"', QLatin1String("\"\"")) + u'"';
}

/// Two decimals, and what a longer one has.
QString amountOf(double amount) {
    return base::Format(amount, QStringLiteral("0.00##"));
}

QString cellOf(const base::Value& value, CellLook look) {
    if (value.asDateTime())
        return base::Format(value, look == CellLook::Day ? QStringLiteral("yyyy-mm-dd")
                                                         : QStringLiteral("yyyy-mm-dd hh:nn:ss"));
    if (look == CellLook::Amount && (value.asDouble() || value.asInteger()))
        return amountOf(base::CDbl(value));
    QString text = base::textOf(value);
    const bool looksLikeFormula = !text.isEmpty() && QStringLiteral("=+-@\t").contains(text[0]);
    if (value.asText() && looksLikeFormula && !base::IsNumeric(value))
        text.prepend(u'\'');
    return quoted(text);
}

/// False when it was stopped.
bool writeCsv(const RowSource& rows, QIODevice& device, const ProgressCall& progress) {
    QByteArray block("\xEF\xBB\xBF");
    QStringList cells;
    const auto addLine = [&] {
        block += cells.join(u',').toUtf8() + "\r\n";
        cells.clear();
    };
    for (const auto& column : rows.columns())
        cells << quoted(column.name);
    addLine();
    const qsizetype count = rows.count();
    const qsizetype columns = qsizetype(rows.columns().size());
    for (qsizetype row = 0; row < count; ++row) {
        for (qsizetype column = 0; column < columns; ++column)
            cells << cellOf(rows.at(row, column), rows.look(column));
        addLine();
        if (block.size() < largestBlock)
            continue;
        writeAll(device, block);
        if (progress && !progress({row + 1, 0, 0}))
            return false;
        block.clear();
    }
    writeAll(device, block);
    return true;
}

} // namespace

QByteArray csvOf(const RowSource& rows) {
    QBuffer csv;
    csv.open(QIODevice::WriteOnly);
    writeCsv(rows, csv, {});
    return csv.data();
}

bool exportCsv(const RowSource& rows, const QString& path, const ProgressCall& progress) {
    return saveFile(path, [&](QIODevice& file) { return writeCsv(rows, file, progress); });
}

} // namespace report
