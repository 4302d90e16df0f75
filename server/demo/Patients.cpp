#include "server/demo/Catalogue.h"
#include "server/demo/TableWriter.h"
#include "server/demo/World.h"

#include <algorithm>

namespace demo {

namespace {

constexpr int inPatientCount = 150;
constexpr int outPatientCount = 100;
constexpr int registeredCount = 20;
constexpr int walkInCount = 30;

constexpr int firstHospNum = 104001;
constexpr int firstInPatientNum = 4001;
constexpr int firstOutPatientNum = 2001;
constexpr int firstWalkInNum = 1001;

struct Registered {
    QString hospNum;
    PersonName name;
    std::optional<base::DateTime> birth;
};

std::optional<base::DateTime> drawBirth(Chance& chance, base::DateTime now) {
    // Old records often lack the day.
    if (chance.inHundred(6))
        return std::nullopt;
    const int years = chance.inHundred(15) ? chance.between(1, 17) : chance.between(18, 88);
    return base::DateTime{base::dateOnly(now).ms - qint64(years * 365.25) * dayMs -
                          chance.between(0, 364) * dayMs};
}

/// Children are on file as such.
QString drawCivilStatus(Chance& chance, const std::optional<base::DateTime>& birth, base::DateTime now) {
    const QString drawn = QString::number(chance.between(1, 4));
    return birth && ageAt(*birth, now).toInt() < 18 ? QStringLiteral("5") : drawn;
}

/// An account of a company for three in five; else the patient's own, which is the hospital number.
QString drawAccount(Chance& chance, const QString& hospNum) {
    return chance.inHundred(60) ? QString::fromLatin1(chance.of(companyAccounts())) : hospNum;
}

class PatientWriter {
  public:
    explicit PatientWriter(World& world)
        : m_world(world)
        , m_master(world.file, "PATIENT_DATA..tbMaster",
                   {"HospNum", "LastName", "FirstName", "MiddleName", "Sex", "BirthDate", "BloodType",
                    "CivilStatus", "HouseStreet", "Barangay", "ZipCode", "TelNum", "AccountNum"})
        , m_in(world.file, "PATIENT_DATA..tbPatient",
               {"IdNum", "HospNum", "AdmDate", "DcrDate", "BillingDate", "RoomID", "DoctorID1", "DoctorID2",
                "AccountNum", "Age", "InvoiceNumber", "LateCharges", "AdmDiagnosis", "UserID"})
        , m_in2(world.file, "PATIENT_DATA..tbPatient2",
                {"IdNum", "OkeyNU", "OkeyPH", "OkeyCS", "AskCashBasis"})
        , m_history(world.file, "PATIENT_DATA..tbPatientHistory",
                    {"IdNum", "Height", "Weight", "BloodPressure", "ChiefComplaint", "Allergies"})
        , m_out(world.file, "PATIENT_DATA..tbOutPatient",
                {"IdNum", "HospNum", "AdmDate", "DcrDate", "BillingDate", "DoctorID1", "AccountNum", "Age",
                 "InvoiceNumber", "LateCharges", "OPDStatus", "UserID"}) {}

    Registered registerPatient(int index);
    void admit(int index);
    void registerOutPatient(int index);

  private:
    void writeHistory(const QString& idNum);
    QString ageOf(const Registered& patient, base::DateTime day) const {
        return patient.birth ? ageAt(*patient.birth, day) : QString();
    }

    World& m_world;
    TableWriter m_master;
    TableWriter m_in;
    TableWriter m_in2;
    TableWriter m_history;
    TableWriter m_out;
};

Registered PatientWriter::registerPatient(int index) {
    static constexpr const char* bloodTypes[] = {"O+", "A+", "B+", "AB+", "O-", ""};
    Chance& chance = m_world.chance;
    Registered patient;
    patient.hospNum = QString::number(firstHospNum + index);
    patient.name = drawName(chance);
    if (const PersonName odd = oddName(index); !odd.last.isEmpty())
        patient.name = odd;
    patient.birth = drawBirth(chance, m_world.now);
    m_master.row(patient.hospNum, patient.name.last, patient.name.first, patient.name.middle,
                 patient.name.female ? "F" : "M", patient.birth,
                 chance.of(std::span<const char* const>(bloodTypes)),
                 drawCivilStatus(chance, patient.birth, m_world.now),
                 QString::number(chance.between(1, 480)) + u' ' + QString::fromUtf8(chance.of(streets())),
                 chance.of(barangays()), chance.of(towns()).zipCode,
                 QStringLiteral("0918-555-%1").arg(chance.between(1000, 9999)), patient.hospNum);
    return patient;
}

void PatientWriter::writeHistory(const QString& idNum) {
    static constexpr const char* complaints[] = {"PALPITATIONS",      "BACK PAIN",     "NECK MASS",
                                                 "CHEST PAIN",        "FLANK PAIN",    "WEIGHT LOSS",
                                                 "EASY FATIGABILITY", "ABDOMINAL PAIN"};
    Chance& chance = m_world.chance;
    m_history.row(idNum, QString::number(chance.between(140, 185)), QString::number(chance.between(38, 96)),
                  QString::number(chance.between(10, 15) * 10) + QStringLiteral("/") +
                      QString::number(chance.between(6, 9) * 10),
                  chance.of(std::span<const char* const>(complaints)), chance.inHundred(10) ? "IODINE" : "");
}

void PatientWriter::admit(int index) {
    Chance& chance = m_world.chance;
    const Registered patient = registerPatient(index);
    Stay stay;
    stay.hospNum = patient.hospNum;
    stay.name = patient.name;
    // Numbers rise with the day of admission; the later half still lies in the house.
    const int daysAgo = (inPatientCount - index) * 75 / inPatientCount;
    stay.from = before(m_world.now, daysAgo + 1, chance.between(6, 21), chance.between(0, 59));
    stay.idNum = QString::number(base::calendarDate(m_world.now).year % 100) +
                 QStringLiteral("%1").arg(firstInPatientNum + index, 6, 10, QLatin1Char('0'));
    const Room& room = rooms()[std::size_t(index * 11) % rooms().size()];
    stay.room = QString::fromLatin1(room.roomID);
    stay.roomClass = QString::fromLatin1(room.roomClass);
    if (index == inPatientCount - 5) {
        stay.room = QString::fromLatin1(unknownRoom);
        stay.roomClass.clear();
    }
    stay.doctor = doctorCode(chance.between(3, doctorCount - 1));
    stay.open = index >= inPatientCount / 2;
    stay.until = m_world.now;
    std::optional<base::DateTime> discharged;
    std::optional<base::DateTime> billed;
    if (!stay.open) {
        const qint64 days = std::clamp(chance.between(2, 9), 1, daysAgo);
        discharged = base::DateTime{base::dateOnly(stay.from).ms + days * dayMs + 14 * hourMs};
        billed = base::DateTime{discharged->ms - 2 * hourMs};
        stay.until = *billed;
    } else if (index % 9 == 4) {
        // The bill is closed while the patient still packs.
        billed = base::DateTime{m_world.now.ms - 3 * hourMs};
        stay.until = *billed;
        stay.open = false;
    }
    const bool late = billed && index % 6 == 0;
    stay.cashBasis = stay.open && index % 11 == 5;
    m_in.row(stay.idNum, stay.hospNum, stay.from, discharged, billed, stay.room, stay.doctor,
             doctorCode(chance.between(0, doctorCount - 1)), drawAccount(chance, stay.hospNum),
             ageOf(patient, stay.from), billed ? QStringLiteral("SI%1").arg(88000 + index) : QString(),
             late ? 1 : 0, "FOR WORK-UP", "3001");
    m_in2.row(stay.idNum, stay.cashBasis ? 1 : 0, 0, 0, stay.cashBasis ? 1 : 0);
    writeHistory(stay.idNum);
    m_world.stays.push_back(stay);
}

void PatientWriter::registerOutPatient(int index) {
    Chance& chance = m_world.chance;
    const Registered patient = registerPatient(inPatientCount + index);
    Stay stay;
    stay.hospNum = patient.hospNum;
    stay.name = patient.name;
    stay.outPatient = true;
    const int daysAgo = (outPatientCount - index) * 60 / outPatientCount;
    stay.from = before(m_world.now, daysAgo, chance.between(5, 6), chance.between(0, 59));
    stay.idNum = QStringLiteral("O%1%2")
                     .arg(base::calendarDate(m_world.now).year % 100)
                     .arg(firstOutPatientNum + index, 6, 10, QLatin1Char('0'));
    stay.room = QStringLiteral("OPD");
    stay.roomClass = QStringLiteral("A");
    stay.doctor = doctorCode(chance.between(3, doctorCount - 1));
    stay.open = daysAgo < 4;
    stay.until = m_world.now;
    std::optional<base::DateTime> discharged;
    std::optional<base::DateTime> billed;
    if (!stay.open) {
        discharged = base::DateTime{base::dateOnly(stay.from).ms + 17 * hourMs};
        billed = discharged;
        stay.until = *discharged;
    }
    // Three closed ones: with an invoice, open again for late charges, and closed for good.
    const bool late = billed && index % 5 == 0;
    const bool invoiced = billed && index % 5 < 3 && !late;
    m_out.row(stay.idNum, stay.hospNum, stay.from, discharged, billed, stay.doctor,
              drawAccount(chance, stay.hospNum), ageOf(patient, stay.from),
              invoiced ? QStringLiteral("SO%1").arg(51000 + index) : QString(), late ? 1 : 0,
              stay.open && index % 13 == 0 ? "R" : "", "3001");
    m_in2.row(stay.idNum, 0, 0, 0, 0);
    writeHistory(stay.idNum);
    m_world.stays.push_back(stay);
}

void writeWalkIns(World& world) {
    TableWriter table(world.file, "PATIENT_DATA..tbCashPatient",
                      {"hospnum", "LastName", "FirstName", "MiddleName", "BirthDate", "Age", "Sex",
                       "Civilstatusid", "HouseStreet", "Barangay", "ZipCode", "RegDate"});
    for (int i = 0; i < walkInCount; ++i) {
        const WalkIn walkIn{QStringLiteral("W%1").arg(firstWalkInNum + i), drawName(world.chance)};
        const auto birth = drawBirth(world.chance, world.now);
        table.row(walkIn.hospNum, walkIn.name.last, walkIn.name.first, walkIn.name.middle, birth,
                  birth ? ageAt(*birth, world.now) : QString::number(world.chance.between(20, 70)),
                  walkIn.name.female ? "F" : "M", drawCivilStatus(world.chance, birth, world.now),
                  QString::number(world.chance.between(1, 480)) + u' ' +
                      QString::fromUtf8(world.chance.of(streets())),
                  world.chance.of(barangays()), world.chance.of(towns()).zipCode,
                  before(world.now, (walkInCount - i) * 2, 8, i));
        world.walkIns.push_back(walkIn);
    }
    const int last = firstWalkInNum + walkInCount - 1;
    runOnFile(world.file,
              QStringLiteral("UPDATE \"PATIENT_DATA.tbLastWalkInNumRow\" SET lastopd = 'W%1', transnum = %1")
                  .arg(last));
}

} // namespace

QString ageAt(base::DateTime birth, base::DateTime day) {
    const base::CalendarDate born = base::calendarDate(birth);
    const base::CalendarDate then = base::calendarDate(day);
    int years = then.year - born.year;
    if (then.month < born.month || (then.month == born.month && then.day < born.day))
        --years;
    return QString::number(years);
}

void writePatients(World& world) {
    PatientWriter writer(world);
    for (int i = 0; i < inPatientCount; ++i)
        writer.admit(i);
    for (int i = 0; i < outPatientCount; ++i)
        writer.registerOutPatient(i);
    for (int i = 0; i < registeredCount; ++i)
        writer.registerPatient(inPatientCount + outPatientCount + i);
    writeWalkIns(world);
}

} // namespace demo
