#include "bench/HospitalFile.h"
#include "bench/Measure.h"
#include "bench/Measures.h"
#include "bench/RawStatement.h"

#include "platform/ado/Connection.h"
#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"

#include <array>

namespace bench {

namespace {

constexpr int listed = 200;

const char* const rawQuery = R"(
SELECT P.HospNum, P.IdNum, M.LastName || ', ' || M.FirstName || ' ' || M.MiddleName, P.BillingDate,
    CASE WHEN P.BillingDate IS NULL THEN 'Open' WHEN P.LateCharges = 1 THEN 'Late Charges' ELSE 'Closed' END,
    CASE WHEN D.OkeyNU = 1 THEN 'Not Okey' ELSE 'Okey' END, P.DcrDate
FROM "PATIENT_DATA.tbMaster" M
INNER JOIN "PATIENT_DATA.tbPatient" P ON P.HospNum = M.HospNum
LEFT JOIN "PATIENT_DATA.tbPatient2" D ON D.IdNum = P.IdNum
WHERE M.LastName >= ?1 AND M.LastName < ?2
ORDER BY M.LastName, M.FirstName, M.MiddleName, P.AdmDate DESC
LIMIT 200)";

/// Starts of last names that many patients share, so that every search fills the list. A quote cannot be
/// searched.
std::vector<std::string> commonStarts(sqlite3* handle) {
    RawStatement names(
        handle,
        "SELECT substr(M.LastName, 1, 3) FROM \"PATIENT_DATA.tbMaster\" M "
        "INNER JOIN \"PATIENT_DATA.tbPatient\" P ON P.HospNum = M.HospNum "
        "WHERE M.LastName NOT LIKE '%''%' GROUP BY 1 HAVING COUNT(*) >= 1000 ORDER BY COUNT(*) LIMIT 40");
    std::vector<std::string> starts;
    while (names.step())
        starts.push_back(names.text(0));
    if (starts.empty())
        throw base::RunTimeError(3021, QStringLiteral("No last name in the file is common enough."));
    return starts;
}

using RawRow = std::array<std::string, 7>;

std::vector<RawRow> fetchRaw(RawStatement& query, const std::string& start) {
    const std::string end = start + "\xff"; // behind every longer name
    query.bind(1, start);
    query.bind(2, end);
    std::vector<RawRow> rows;
    while (query.step()) {
        RawRow& row = rows.emplace_back();
        for (int column = 0; column < int(row.size()); ++column)
            row[std::size_t(column)] = query.text(column);
    }
    query.reset();
    return rows;
}

ado::Recordset fetchOurs(ado::Connection& connection, const std::string& start) {
    ado::Recordset rows;
    rows.Open(ado::sql("sp_Nuclear_getpatientbylastname 'I','{}'", QString::fromStdString(start)),
              connection);
    return rows;
}

void requireSame(ado::Recordset rows, const std::vector<RawRow>& raw) {
    bool same = rows.RecordCount() == listed && raw.size() == listed;
    for (std::size_t row = 0; same && row < raw.size(); ++row, rows.MoveNext())
        same = rows.Fields(1).text().toStdString() == raw[row][1];
    if (!same)
        throw base::RunTimeError(5, QStringLiteral("Both sides must list the same 200 patients."));
}

} // namespace

bool findPatients(const QString& folder) {
    const QString file = hospitalFile(folder, 1'000'000);
    auto floorProvider = engine::EmbeddedProvider::open(file, {});
    RawStatement query(floorProvider->handle(), rawQuery);
    ado::Connection connection;
    connection.Open(engine::EmbeddedProvider::open(file, {}), QStringLiteral("bench-find"));
    connection.setDefaultDatabase(QStringLiteral("NUCLEAR"));

    const std::vector<std::string> starts = commonStarts(floorProvider->handle());
    for (const std::string& start : starts)
        requireSame(fetchOurs(connection, start), fetchRaw(query, start));
    const auto startOf = [&](int round) -> const std::string& {
        return starts[std::size_t(round) % starts.size()];
    };
    const auto ours = [&](int round) { return timed([&] { fetchOurs(connection, startOf(round)); }); };
    const auto floor = [&](int round) { return timed([&] { fetchRaw(query, startOf(round)); }); };
    return Report::line(QStringLiteral("find 200 of 1,000,000 patients by name"),
                        interleave(201, 20, ours, floor), 1.5);
}

} // namespace bench
