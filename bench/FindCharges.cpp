#include "bench/HospitalFile.h"
#include "bench/Measure.h"
#include "bench/Measures.h"
#include "bench/PatientSearches.h"
#include "bench/RawStatement.h"

#include "platform/ado/Connection.h"
#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"
#include "session/Session.h"

#include <QFile>

namespace bench {

namespace {

constexpr int patientCount = 1'000'000;

/// The hospital of a million patients, each with three requests and their lines in the wards' log book. One
/// in ten waits for its result.
QString fileWithRequests(const QString& folder) {
    const QString name = QStringLiteral("requests-%1.scintra").arg(3 * patientCount);
    const QString ready = folder + u'/' + name;
    if (QFile::exists(ready))
        return ready;
    const QString part = copyOf(hospitalFile(folder, patientCount), name + QStringLiteral(".part"));
    {
        const auto provider = engine::EmbeddedProvider::open(part, {});
        const std::string lines = "FROM \"PATIENT_DATA.tbPatient\" P CROSS JOIN (SELECT 0 AS L UNION ALL "
                                  "SELECT 1 UNION ALL SELECT 2) S";
        RawStatement(provider->handle(), "INSERT INTO \"NUCLEAR.tbNucMaster\" (RequestNum, HospNum, IdNum, "
                                         "ItemID, RevenueID, PatientType, "
                                         "RefNum, NurseRequestNum, Quantity, Amount, RequestDocCode, UserID, "
                                         "TransDate, RequestStatus) SELECT "
                                         "'9' || P.IdNum || S.L, P.HospNum, P.IdNum, '1001', 'NU', 'I', 'C9' "
                                         "|| P.IdNum || 'J', '9' || P.IdNum "
                                         "|| S.L, 1, 5200, '204', '1001', P.AdmDate, CASE WHEN (P.rowid + "
                                         "S.L) % 10 = 0 THEN '' ELSE 'W' END " +
                                             lines)
            .run();
        RawStatement(
            provider->handle(),
            "INSERT INTO \"STATION.tbNurseLogBook\" (HospNum, IdNum, RequestNum, PatientType, RevenueID, "
            "ItemID, "
            "Description, Quantity, Amount, RequestDate, UserID, RecordStatus, ReferenceNum, ProcessBy) "
            "SELECT "
            "P.HospNum, P.IdNum, '9' || P.IdNum || S.L, 'I', 'NU', '1001', 'BONE SCAN', 1, 5200, P.AdmDate, "
            "'1001', 'X', 'C9' || P.IdNum || 'J', '1001' " +
                lines)
            .run();
    }
    if (!QFile::rename(part, ready))
        throw base::RunTimeError(75, QStringLiteral("%1 cannot be written.").arg(ready));
    return ready;
}

int fetch(RawStatement& query, const std::string& text) {
    const std::string end = text + "\xff"; // behind every longer name
    query.bind(1, text);
    if (sqlite3_bind_parameter_count(query.get()) > 1)
        query.bind(2, end);
    const int columns = sqlite3_column_count(query.get());
    int rows = 0;
    std::vector<std::string> row(static_cast<std::size_t>(columns));
    for (; query.step(); ++rows) {
        for (int column = 0; column < columns; ++column)
            row[std::size_t(column)] = query.text(column);
    }
    query.reset();
    return rows;
}

struct Search {
    const char* name;
    Typed typed;
    ado::QueryTemplate ours; ///< "#" is the text
    const char* raw;
};

const Search searches[] = {
    {"requests to cancel, by last name", Typed::Name, "sp_Nuclear_GetCancelRequest_new'#',1",
     "SELECT M.LastName, M.FirstName, M.MiddleName, P.RoomID, E.NucExam, N.TransDate, N.RequestNum, "
     "N.UserID, N.HospNum, "
     "N.IdNum, N.RefNum, N.RevenueID, N.NurseRequestNum, N.ItemID, N.RequestNum FROM "
     "\"PATIENT_DATA.tbMaster\" M CROSS JOIN "
     "\"NUCLEAR.tbNucMaster\" N ON N.HospNum = M.HospNum LEFT JOIN \"PATIENT_DATA.tbPatient\" P ON P.IdNum = "
     "N.IdNum LEFT "
     "JOIN \"BUILD_FILE.tbcoNucExam\" E ON E.NucExamID = N.ItemID WHERE M.LastName >= ?1 AND M.LastName < ?2 "
     "AND "
     "+N.RequestStatus = '' AND N.ItemID <> '' ORDER BY M.LastName, M.FirstName, M.MiddleName, N.TransDate "
     "DESC, "
     "N.RequestNum DESC LIMIT 200"},
    {"charges of a patient", Typed::AdmissionNumber, "sp_Nuclear_ChargesbyPatient '#'",
     "SELECT L.ReferenceNum, L.RequestDate, L.ItemID, L.Description, L.Quantity, L.Amount, L.ProcessBy, "
     "(SELECT D.LastName "
     "|| ', ' || D.FirstName || ' ' || D.MiddleName FROM \"NUCLEAR.tbNucMaster\" N INNER JOIN "
     "\"BUILD_FILE.tbcoDoctor\" D "
     "ON D.DoctorID = N.RequestDocCode WHERE N.RefNum = L.ReferenceNum ORDER BY N.RequestNum LIMIT 1) FROM "
     "\"STATION.tbNurseLogBook\" L WHERE L.IdNum = ?1 AND L.ReferenceNum LIKE 'C%J' AND L.RecordStatus <> "
     "'R' AND L.ItemID "
     "<> '' ORDER BY L.RequestDate DESC, L.LogBookID"}};

bool measure(const Search& search, sqlite3* handle) {
    RawStatement query(handle, search.raw);
    const std::vector<std::string> texts = typedTexts(handle, search.typed);
    const auto ours = [&](const std::string& text) {
        return session::Read(search.ours.with({{"#", QString::fromStdString(text)}})).RecordCount();
    };
    for (const std::string& text : texts) {
        if (const int found = ours(text); found == 0 || found != fetch(query, text))
            throw base::RunTimeError(
                5, QStringLiteral("Both sides must find the same %1.").arg(QString::fromLatin1(search.name)));
    }
    const auto text = [&](int round) -> const std::string& {
        return texts[std::size_t(round) % texts.size()];
    };
    return Report::line(QStringLiteral("find ") + QString::fromLatin1(search.name),
                        interleave(
                            201, 20, [&](int round) { return timed([&] { ours(text(round)); }); },
                            [&](int round) { return timed([&] { fetch(query, text(round)); }); }),
                        1.5);
}

} // namespace

bool findCharges(const QString& folder) {
    const QString file = fileWithRequests(folder);
    const auto floorProvider = engine::EmbeddedProvider::open(file, {});
    ado::Connection connection;
    connection.Open(engine::EmbeddedProvider::open(file, {}), QStringLiteral("bench-charges"));
    connection.setDefaultDatabase(QStringLiteral("NUCLEAR"));
    session::gConnection = &connection;
    bool met = true;
    for (const Search& search : searches)
        met &= measure(search, floorProvider->handle());
    session::gConnection = nullptr;
    return met;
}

} // namespace bench
