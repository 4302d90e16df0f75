#include "bench/HospitalFile.h"
#include "bench/LogOn.h"
#include "bench/Measure.h"
#include "bench/Measures.h"
#include "bench/RawStatement.h"

#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"
#include "session/Session.h"

#include <QFile>

namespace bench {

namespace {

constexpr int polls = 20; ///< a round

/// The made-up hospital with a million rows in each file of the wards and a hundred thousand notices and
/// prepaid requests, all but twenty of each done with.
QString fileOfYears(const QString& folder) {
    const QString ready = folder + QStringLiteral("/polls-1000000.scintra");
    if (QFile::exists(ready))
        return ready;
    const QString part = copyOf(hospitalFile(folder, 0), QStringLiteral("polls.scintra.part"));
    {
        const auto provider = engine::EmbeddedProvider::open(part, {});
        const std::string count = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ";
        const std::string million = count + "1000000) ";
        const std::string hundredThousand = count + "100000) ";
        const auto run = [&](const std::string& text) { RawStatement(provider->handle(), text).run(); };
        run("BEGIN");
        run(million +
            "INSERT INTO \"STATION.tbNurseCommunicationFile\" (HospNum, IdNum, RequestNum, PatientType, "
            "RevenueID, ItemID, RequestDate, RecordStatus) SELECT '1' || i, '2' || i, '9' || i, 'I', 'NU', "
            "'1001', '2025-01-02 08:00:00.000', CASE WHEN i % 50000 = 0 THEN 'N' ELSE 'X' END FROM n");
        run(million +
            "INSERT INTO \"STATION.tbNurseLogBook\" (HospNum, IdNum, RequestNum, PatientType, RevenueID, "
            "ItemID, Description, RequestDate, RecordStatus) SELECT '1' || i, '2' || i, '9' || i, 'I', 'NU', "
            "'1001', 'BONE SCAN', '2025-01-02 08:00:00.000', 'X' FROM n");
        run(hundredThousand + "INSERT INTO \"NUCLEAR.tbNucPrepaid\" (RequestNum, RefNum, IdNum, RevenueID, "
                              "TransDate, PrintStatus) SELECT "
                              "'8' || i, 'R' || i, '2' || i, 'NU', '2025-01-02 08:00:00.000', CASE WHEN i % "
                              "5000 = 0 THEN '' ELSE 'P' END "
                              "FROM n");
        run(hundredThousand +
            "INSERT INTO \"STATION.tbDischargeNotice\" (IdNum, NoticeDate) SELECT '7' || i, "
            "'2025-01-02 08:00:00.000' FROM n");
        run(hundredThousand +
            "INSERT INTO \"NUCLEAR.tbNucDischargeClearance\" (IdNum, ClearDate) SELECT '7' || i, "
            "'2025-01-03 08:00:00.000' FROM n WHERE i % 5000 <> 0");
        run("COMMIT");
    }
    if (!QFile::rename(part, ready))
        throw base::RunTimeError(75, QStringLiteral("%1 cannot be written.").arg(ready));
    return ready;
}

/// The rows of the query, their texts read.
int fetch(RawStatement& query) {
    const int columns = sqlite3_column_count(query.get());
    int rows = 0;
    std::string text;
    for (; query.step(); ++rows) {
        for (int column = 0; column < columns; ++column)
            text = query.text(column);
    }
    query.reset();
    return rows;
}

struct Poll {
    const char* name;
    ado::Statement (*ours)();
    const char* raw;
};

const Poll table[] = {
    {"requests of nurses", [] { return ado::sql("sp_Nuclear_NurseCommunication"); },
     "SELECT C.RequestDate, C.IdNum, M.LastName || ', ' || M.FirstName || ' ' || M.MiddleName, "
     "IFNULL(P.RoomID, "
     "'OPD'), C.ItemID, E.NucExam, C.Remarks, C.UserID, C.PatientType, C.RequestNum, C.HospNum, "
     "C.Classification FROM "
     "\"STATION.tbNurseCommunicationFile\" C LEFT JOIN \"PATIENT_DATA.tbMaster\" M ON M.HospNum = C.HospNum "
     "LEFT JOIN "
     "\"PATIENT_DATA.tbPatient\" P ON P.IdNum = C.IdNum LEFT JOIN \"BUILD_FILE.tbcoNucExam\" E ON "
     "E.NucExamID = "
     "C.ItemID WHERE C.RecordStatus = 'N' AND C.RevenueID = 'NU' ORDER BY C.RequestDate, C.CommunicationID"},
    {"prepaid requests", [] { return ado::sql("NUCLEAR..sp_Nuclear_PrepaidCheckRequest 'NU'"); },
     "SELECT RequestNum, RefNum, IdNum FROM \"NUCLEAR.tbNucPrepaid\" WHERE PrintStatus = '' AND RevenueID = "
     "'NU'"},
    {"discharge notices", [] { return ado::sql("Nuclear..spNuclear_LoadDischargeNoticeCount"); },
     "SELECT COUNT(*) FROM \"STATION.tbDischargeNotice\" N LEFT JOIN \"NUCLEAR.tbNucDischargeClearance\" C "
     "ON C.IdNum = "
     "N.IdNum WHERE C.ClearDate IS NULL"},
};

/// As the menu asks: read and counted.
int ask(const Poll& poll) {
    ado::Recordset rows = session::Read(poll.ours());
    const int count = rows.RecordCount();
    rows.Close();
    return count;
}

} // namespace

bool pollsOfTheMenu(const QString& folder) {
    const QString file = fileOfYears(folder);
    logOnTo(file);
    bool met = true;
    {
        const auto provider = engine::EmbeddedProvider::open(file, {});
        for (const Poll& poll : table) {
            RawStatement raw(provider->handle(), poll.raw);
            if (const int ours = ask(poll), floor = fetch(raw); ours != floor || ours == 0)
                throw base::RunTimeError(
                    5, QStringLiteral("%1: %2 rows, raw %3").arg(poll.name).arg(ours).arg(floor));
            const auto several = [](const auto& once) {
                return timed([&] {
                    for (int i = 0; i < polls; ++i)
                        once();
                });
            };
            met &= Report::line(QStringLiteral("poll of %1, 20 times / raw").arg(QLatin1String(poll.name)),
                                interleave(
                                    15, 2, [&](int) { return several([&] { ask(poll); }); },
                                    [&](int) { return several([&] { fetch(raw); }); }),
                                1.5);
        }
    }
    session::forgetSession();
    return met;
}

} // namespace bench
