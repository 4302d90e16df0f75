#include "server/demo/Catalogue.h"
#include "server/demo/Hospital.h"
#include "server/demo/TableWriter.h"
#include "server/demo/World.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/engine/file/Sqlite.h"

#include <algorithm>

namespace demo {

namespace {

constexpr int pieceSize = 50'000;
constexpr int firstGenerated = 1'000'001;
constexpr int yearsBack = 12;

/// The next number behind all that are there.
int nextNumber(sqlite3* file, const char* expression, const char* table) {
    sqlite3_stmt* statement = nullptr;
    const QByteArray text = QByteArray("SELECT MAX(CAST(") + expression + " AS INTEGER)) FROM " +
                            engine::sqliteName(QString::fromLatin1(table)).toUtf8();
    int last = 0;
    if (sqlite3_prepare_v2(file, text.constData(), -1, &statement, nullptr) == SQLITE_OK &&
        sqlite3_step(statement) == SQLITE_ROW)
        last = sqlite3_column_int(statement, 0);
    sqlite3_finalize(statement);
    return last + 1;
}

class Generator {
  public:
    explicit Generator(sqlite3* file)
        : m_now(base::now())
        , m_hospNum(std::max(firstGenerated, nextNumber(file, "HospNum", "PATIENT_DATA..tbMaster")))
        , m_inNum(nextNumber(file, "IdNum", "PATIENT_DATA..tbPatient"))
        , m_outNum(nextNumber(file, "substr(IdNum, 2)", "PATIENT_DATA..tbOutPatient"))
        , m_chance(std::uint64_t(m_hospNum))
        , m_master(file, "PATIENT_DATA..tbMaster",
                   {"HospNum", "LastName", "FirstName", "MiddleName", "Sex", "BirthDate", "BloodType",
                    "CivilStatus", "HouseStreet", "Barangay", "ZipCode", "AccountNum"})
        , m_in(file, "PATIENT_DATA..tbPatient",
               {"IdNum", "HospNum", "AdmDate", "DcrDate", "BillingDate", "RoomID", "DoctorID1", "AccountNum",
                "Age", "InvoiceNumber"})
        , m_in2(file, "PATIENT_DATA..tbPatient2", {"IdNum", "OkeyNU"})
        , m_out(file, "PATIENT_DATA..tbOutPatient",
                {"IdNum", "HospNum", "AdmDate", "DcrDate", "BillingDate", "DoctorID1", "AccountNum", "Age",
                 "InvoiceNumber"}) {}

    void writePatient();

  private:
    void admit(const QString& hospNum, const QString& account, base::DateTime birth);
    void registerOutPatient(const QString& hospNum, const QString& account, base::DateTime birth);

    base::DateTime m_now;
    int m_hospNum;
    int m_inNum;
    int m_outNum;
    Chance m_chance;
    TableWriter m_master;
    TableWriter m_in;
    TableWriter m_in2;
    TableWriter m_out;
};

void Generator::writePatient() {
    const QString hospNum = QString::number(m_hospNum++);
    const PersonName name = drawName(m_chance);
    const base::DateTime birth{base::dateOnly(m_now).ms -
                               qint64(m_chance.between(yearsBack * 366, 90 * 365)) * dayMs};
    const QString account =
        m_chance.inHundred(60) ? QString::fromLatin1(m_chance.of(companyAccounts())) : hospNum;
    m_master.row(hospNum, name.last, name.first, name.middle, name.female ? "F" : "M",
                 m_chance.inHundred(5) ? std::nullopt : std::optional(birth), "O+",
                 QString::number(m_chance.between(1, 4)),
                 QString::number(m_chance.between(1, 480)) + u' ' + QString::fromUtf8(m_chance.of(streets())),
                 m_chance.of(barangays()), m_chance.of(towns()).zipCode, hospNum);
    if (m_chance.inHundred(65))
        admit(hospNum, account, birth);
    else
        registerOutPatient(hospNum, account, birth);
}

void Generator::admit(const QString& hospNum, const QString& account, base::DateTime birth) {
    const QString idNum = QString::number(m_inNum++);
    const Room& room = m_chance.of(rooms());
    const bool present = m_chance.between(1, 1000) <= 2;
    const base::DateTime from = before(m_now, m_chance.between(1, present ? 9 : yearsBack * 365),
                                       m_chance.between(0, 23), m_chance.between(0, 59));
    const qint64 days = std::min<qint64>(m_chance.between(1, 12), (m_now.ms - from.ms) / dayMs);
    const base::DateTime left{from.ms + days * dayMs};
    const auto closed = present ? std::nullopt : std::optional(left);
    m_in.row(idNum, hospNum, from, closed, closed, room.roomID,
             doctorCode(m_chance.between(0, doctorCount - 1)), account, ageAt(birth, from),
             present ? QString() : QStringLiteral("SI") + idNum);
    m_in2.row(idNum, present && m_chance.inHundred(8) ? 1 : 0);
}

void Generator::registerOutPatient(const QString& hospNum, const QString& account, base::DateTime birth) {
    const QString number = QStringLiteral("%1").arg(m_outNum++, 8, 10, QLatin1Char('0'));
    const base::DateTime from =
        before(m_now, m_chance.between(0, yearsBack * 365), 6, m_chance.between(0, 59));
    const bool present = from.ms > m_now.ms - dayMs;
    const auto closed = present ? std::nullopt : std::optional(base::DateTime{from.ms + 8 * hourMs});
    m_out.row(QStringLiteral("O") + number, hospNum, from, closed, closed,
              doctorCode(m_chance.between(0, doctorCount - 1)), account, ageAt(birth, from),
              present ? QString() : QStringLiteral("SO") + number);
}

} // namespace

void generatePatients(const QString& file, int count, const hospital::Progress& progress) {
    const auto provider = engine::EmbeddedProvider::open(file, {});
    // The name index is written all over; it must not fall out of memory between two rows.
    runOnFile(provider->handle(),
              QStringLiteral("PRAGMA cache_size = -400000; PRAGMA wal_autocheckpoint = 100000"));
    Generator generator(provider->handle());
    for (int done = 0; done < count;) {
        const int end = std::min(done + pieceSize, count);
        provider->begin();
        for (; done < end; ++done)
            generator.writePatient();
        provider->commit();
        if (progress)
            progress(int(qint64(done) * 100 / count), QStringLiteral("%1 patients").arg(done));
    }
}

} // namespace demo
