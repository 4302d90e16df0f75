#include "server/site/TableRows.h"

#include "platform/ado/Batch.h"
#include "platform/ado/Quoting.h"

#include <algorithm>

namespace site {
namespace {

constexpr qsizetype rowsAtOnce = 200; // a server takes up to a thousand

QString columnList(const ado::Rows& rows) {
    QStringList names;
    for (const ado::Column& column : rows.columns)
        names += ado::bracketed(column.name);
    return names.join(QStringLiteral(", "));
}

QString rowText(const ado::Rows& rows, qsizetype row) {
    QStringList values;
    for (qsizetype column = 0; column < qsizetype(rows.columns.size()); ++column)
        values += ado::literal(rows.at(row, column));
    return u'(' + values.join(QStringLiteral(", ")) + u')';
}

} // namespace

QStringList tableRows(ado::Provider& from, const engine::Table& table) {
    const QString name = QString::fromStdString(table.database + ".." + table.name);
    const bool numbered = std::any_of(table.columns.begin(), table.columns.end(),
                                      [](const engine::TableColumn& column) { return column.identity; });
    const ado::Rows rows = ado::runBatch(from, QStringLiteral("SELECT * FROM ") + name).rows;
    QStringList texts{QStringLiteral("DELETE FROM ") + name};
    for (qsizetype first = 0; first < rows.count(); first += rowsAtOnce) {
        QStringList values;
        for (qsizetype row = first; row < std::min(first + rowsAtOnce, rows.count()); ++row)
            values += rowText(rows, row);
        QString text = QStringLiteral("INSERT INTO %1 (%2) VALUES ").arg(name, columnList(rows)) +
                       values.join(QStringLiteral(",\n"));
        if (numbered)
            text = QStringLiteral("SET IDENTITY_INSERT %1 ON ").arg(name) + text +
                   QStringLiteral(" SET IDENTITY_INSERT %1 OFF").arg(name);
        texts += text;
    }
    return texts;
}

} // namespace site
