#include "platform/ado/Literal.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "server/demo/Hospital.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/site/Blueprint.h"
#include "server/site/Install.h"

#include <QTemporaryDir>

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

/// The rows of one table of the made-up hospital, in the place of those that the kit left.
void copyTable(ado::Provider& from, ado::Provider& to, const engine::Table& table) {
    const QString name = QString::fromStdString(table.database + ".." + table.name);
    const bool numbered = std::any_of(table.columns.begin(), table.columns.end(),
                                      [](const engine::TableColumn& column) { return column.identity; });
    const ado::Rows rows = from.execute(QStringLiteral("SELECT * FROM ") + name).rows;
    to.execute(QStringLiteral("DELETE FROM ") + name);
    for (qsizetype first = 0; first < rows.count(); first += rowsAtOnce) {
        QStringList values;
        for (qsizetype row = first; row < std::min(first + rowsAtOnce, rows.count()); ++row)
            values += rowText(rows, row);
        QString text = QStringLiteral("INSERT INTO %1 (%2) VALUES ").arg(name, columnList(rows)) +
                       values.join(QStringLiteral(",\n"));
        if (numbered)
            text = QStringLiteral("SET IDENTITY_INSERT %1 ON %2 SET IDENTITY_INSERT %1 OFF").arg(name, text);
        to.execute(text);
    }
}

} // namespace

void installDemo(ado::Provider& server, const demo::Progress& progress) {
    const ado::Result patients =
        server.execute(QStringLiteral("SELECT COUNT(*) FROM PATIENT_DATA..tbMaster"));
    if (patients.rows.count() != 1 || base::CDbl(base::textOf(patients.rows.at(0, 0))) > 0)
        throw base::RunTimeError(58,
                                 QStringLiteral("There are patients already: the made-up hospital is only "
                                                "put into databases that were just made."));
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("demo.scintra"));
    demo::createHospital(file);
    const auto source = engine::EmbeddedProvider::open(file, {});
    const std::vector<engine::Table> tables = tablesOf(file);
    server.begin();
    try {
        int done = 0;
        for (const engine::Table& table : tables) {
            if (progress)
                progress(done++ * 100 / int(tables.size()),
                         QStringLiteral("Filling ") + QString::fromStdString(table.fileName()));
            copyTable(*source, server, table);
        }
        server.commit();
    } catch (...) {
        if (server.inTransaction())
            server.rollback();
        throw;
    }
    if (progress)
        progress(100, QStringLiteral("Done"));
}

} // namespace site
