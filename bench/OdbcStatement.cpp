#include "bench/Measure.h"
#include "bench/Measures.h"
#include "bench/RawOdbc.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/odbc/OdbcProvider.h"

#include <QFile>

namespace bench {

namespace {

constexpr int listed = 200;

void fill(odbc::OdbcProvider& provider) {
    provider.execute(
        QStringLiteral("CREATE TABLE tbRequest (Number int NOT NULL PRIMARY KEY, Name varchar(60), "
                       "Remarks varchar(100), Amount double, Made datetime, Done bit)"));
    provider.begin();
    for (int i = 1; i <= 5 * listed; ++i)
        provider.execute(
            QStringLiteral("INSERT INTO tbRequest VALUES (%1, 'DELA CRUZ, JUAN %1', 'PATIENT ON NPO', %2, "
                           "'2026-11-21 08:30:00', 1)")
                .arg(i)
                .arg(i * 12.5));
    provider.commit();
}

} // namespace

bool odbcStatement(const QString& folder) {
    const QString file = folder + QStringLiteral("/odbc.sqlite");
    QFile::remove(file);
    const QString connection =
        QStringLiteral("Driver=%1;Database=%2;").arg(QStringLiteral(SCINTRA_SQLITE_DRIVER), file);
    const auto provider = odbc::OdbcProvider::open(connection);
    fill(*provider);
    RawOdbc bare(connection);
    const auto compare = [&](const QString& name, const QString& text, int rows) {
        const std::u16string bareText = text.toStdU16String();
        const ado::Result ours = provider->execute(text);
        const std::vector<RawOdbc::Row> theirs = bare.fetch(bareText);
        if (ours.rows.count() != rows || theirs.size() != std::size_t(rows) ||
            base::textOf(ours.rows.at(rows - 1, 1)).toStdU16String() != theirs.back().name)
            throw base::RunTimeError(5, QStringLiteral("Both sides must read the same rows."));
        constexpr int repeats = 20; // one statement is too short for the clock
        const auto times = [](const auto& body) {
            return [&body](int) {
                return timed([&body] {
                           for (int i = 0; i < repeats; ++i)
                               body();
                       }) /
                       repeats;
            };
        };
        const auto one = [&] { provider->execute(text); };
        const auto other = [&] { bare.fetch(bareText); };
        return Report::line(name, interleave(201, 20, times(one), times(other)), 1.2);
    };
    bool met = compare(QStringLiteral("one row over ODBC"),
                       QStringLiteral("SELECT Number, Name, Remarks, Amount, Made, Done FROM tbRequest WHERE "
                                      "Number = 777"),
                       1);
    met &=
        compare(QStringLiteral("200 rows over ODBC"),
                QStringLiteral("SELECT Number, Name, Remarks, Amount, Made, Done FROM tbRequest WHERE Number "
                               "BETWEEN 401 AND 600"),
                listed);
    return met;
}

} // namespace bench
