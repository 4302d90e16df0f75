#include "server/demo/Assays.h"
#include "server/demo/Catalogue.h"
#include "server/demo/TableWriter.h"
#include "server/demo/World.h"

#include <algorithm>

namespace demo {

namespace {

constexpr int slipCount = 170;
constexpr int firstSlip = 20001;
constexpr int firstRequest = 50001;

constexpr const char* encoders[] = {"1001", "1002", "1003", "1004"};

char formTypeOf(const Exam& exam) {
    return exam.formType && *exam.formType ? *exam.formType : ' ';
}

struct Line {
    const Stay& stay;
    QString itemID;
    QString description;
    QString revenue;
    double quantity;
    double amount;
    QString refNum;
    QString requestNum;
    QString user;
    base::DateTime moment;
    bool revoked;
};

/// Slips of the past weeks, filed as the screens file them: request, log book, bill or stock card, and for
/// most of the exams a result.
class RequestWriter {
  public:
    explicit RequestWriter(World& world)
        : m_world(world)
        , m_master(world.file, "NUCLEAR..tbNucMaster",
                   {"RequestNum", "HospNum", "IdNum", "ItemID", "RevenueID", "PatientType", "RefNum",
                    "NurseRequestNum", "Quantity", "Amount", "RequestDocCode", "UserID", "TransDate",
                    "RequestStatus", "Classification", "ResultDate", "RevokeDate"})
        , m_logBook(world.file, "STATION..tbNurseLogBook",
                    {"HospNum", "IdNum", "RequestNum", "PatientType", "RevenueID", "ItemID", "Description",
                     "Quantity", "Amount", "RequestDate", "UserID", "RecordStatus", "ReferenceNum",
                     "ProcessBy", "ProcessDate", "ResultDate", "ResultBy"})
        , m_bill(world.file, "BILLING..tbDailyBill",
                 {"PatientType", "IdNum", "HospNum", "TransDate", "RefNum", "ItemID", "RevenueID",
                  "SectionID", "Quantity", "Amount", "UserID", "Marker"})
        , m_stock(world.file, "INVENTORY..tbInvStockCard",
                  {"HospNum", "IdNum", "ItemID", "TransDate", "RefNum", "Quantity", "Amount", "UserID",
                   "Dosage", "RoomID", "LocationID", "SummaryCode", "StockClass", "Direction"})
        , m_result(world.file, "NUCLEAR..tbNucResult",
                   {"RequestNum",
                    "HospNum",
                    "IdNum",
                    "CaseNumber",
                    "PatientType",
                    "AttendingDocCode",
                    "RequestDocCode",
                    "ItemID",
                    "Dose",
                    "Radiopharmaceutical",
                    "Route",
                    "Projections",
                    "Interpretation",
                    "Conclusion",
                    "ClinicalHistory",
                    "Isotope",
                    "Left1",
                    "Right1",
                    "Left2",
                    "Right2",
                    "Left4",
                    "Right4",
                    "Left6",
                    "Right6",
                    "Left7",
                    "Right7",
                    "Scale",
                    "Weight",
                    "Height",
                    "UserID",
                    "ResultDate"})
        , m_radio(world.file, "NUCLEAR..tbNucRadioResult",
                  {"RequestNum",     "HospNum", "IdNum",    "CaseNumber", "PatientType", "AttendingDocCode",
                   "RequestDocCode", "ItemID",  "Dose",     "UserID",     "ResultDate",  "TSH",
                   "FreeT4",         "FreeT3",  "T3",       "T4",         "TG",          "AntiTG",
                   "AntiTPO",        "PSA",     "Cortisol", "BHCG",       "Technologist"})
        , m_radioToRevoke(world.file, "NUCLEAR..tbNucResultRadio",
                          {"RequestNum", "HospNum", "IdNum", "CaseNumber", "PatientType", "AttendingDocCode",
                           "RequestDocCode", "ItemID", "UserID", "ResultDate", "Technologist"})
        , m_caseBook(world.file, "NUCLEAR..tbNucLogBook",
                     {"CaseNumber", "RequestNum", "HospNum", "IdNum", "PatientType", "ItemID", "DoctorID",
                      "RequestDocCode", "UserID", "ResultDate", "Status"}) {}

    void writeSlip(const Stay& stay, base::DateTime moment);
    /// One result in so many was taken back, as sp_Nuclear_CancelResult does it.
    void revokeSome();
    void closeNumbers();

  private:
    void writeExamLine(Line line, const Exam& exam);
    void writeFeeLine(Line line, const Exam& exam);
    void writeSupplyLine(Line line);
    void writeLine(const Line& line, const char* status, std::optional<base::DateTime> resultDate);
    void writeBill(const Line& line);
    void writeResult(const Line& line, const Exam& exam, base::DateTime resultDate);
    void writeImaging(const Line& line, bool gfr, const QString& caseNumber, const QString& reader,
                      base::DateTime resultDate);
    Line nextLine(const Stay& stay, base::DateTime moment, const QString& refNum, const QString& user) {
        return {stay, {}, {}, {}, 1, 0, refNum, QString::number(m_request++), user, moment, false};
    }

    World& m_world;
    TableWriter m_master;
    TableWriter m_logBook;
    TableWriter m_bill;
    TableWriter m_stock;
    TableWriter m_result;
    TableWriter m_radio;
    TableWriter m_radioToRevoke;
    TableWriter m_caseBook;
    int m_slip = firstSlip;
    int m_request = firstRequest;
    int m_case = 1;
};

void RequestWriter::writeSlip(const Stay& stay, base::DateTime moment) {
    Chance& chance = m_world.chance;
    const QString refNum = QStringLiteral("C%1J").arg(m_slip++);
    const QString user = QString::fromLatin1(chance.of(std::span<const char* const>(encoders)));
    const int examLines = chance.between(1, 2);
    const std::size_t first = chance.next() % exams().size();
    for (int i = 0; i < examLines; ++i) {
        Line line = nextLine(stay, moment, refNum, user);
        line.revoked = chance.inHundred(6);
        writeExamLine(line, exams()[(first + std::size_t(i)) % exams().size()]);
    }
    if (chance.inHundred(40))
        writeFeeLine(nextLine(stay, moment, refNum, user), exams()[first]);
    if (chance.inHundred(30))
        writeSupplyLine(nextLine(stay, moment, refNum, user));
}

void RequestWriter::writeExamLine(Line line, const Exam& exam) {
    line.itemID = QString::fromLatin1(exam.code);
    line.description = QString::fromUtf8(exam.name);
    line.revenue = QStringLiteral("NU");
    line.amount = examRate(exam, line.stay.outPatient ? QStringLiteral("A") : line.stay.roomClass);
    const base::DateTime resultDate{line.moment.ms + m_world.chance.between(2, 30) * hourMs};
    const bool read = !line.revoked && resultDate < m_world.now && m_world.chance.inHundred(70);
    const bool done = read && formTypeOf(exam) != 'T';
    writeLine(line, line.revoked ? "R" : done ? "W" : "X", done ? std::optional(resultDate) : std::nullopt);
    writeBill(line);
    m_master.row(line.requestNum, line.stay.hospNum, line.stay.idNum, line.itemID, line.revenue, "I",
                 line.refNum, line.requestNum, line.quantity, line.amount, line.stay.doctor, line.user,
                 line.moment,
                 line.revoked ? "R"
                 : done       ? "W"
                              : "",
                 "", done ? std::optional(resultDate) : std::nullopt,
                 line.revoked ? std::optional(base::DateTime{line.moment.ms + hourMs}) : std::nullopt);
    if (done)
        writeResult(line, exam, resultDate);
}

void RequestWriter::writeFeeLine(Line line, const Exam& exam) {
    const int doctor = m_world.chance.between(0, 2);
    line.itemID = doctorCode(doctor);
    line.description = QStringLiteral("(PF) DR. ") + doctorName(doctor);
    line.revenue = m_world.chance.inHundred(50) ? QStringLiteral("FN") : QStringLiteral("MD");
    line.amount = m_world.chance.between(4, 20) * 100.0;
    writeLine(line, "X", std::nullopt);
    writeBill(line);
    m_world.fees.push_back(
        {line.itemID, line.revenue, line.refNum, QString::fromLatin1(exam.code), line.amount, line.moment});
}

void RequestWriter::writeSupplyLine(Line line) {
    const Item& item = m_world.chance.of(items());
    const bool drug = qstrcmp(item.itemClass, "PH") == 0;
    line.itemID = QString::fromLatin1(item.code);
    line.description = QString::fromUtf8(item.name);
    line.revenue = drug ? QStringLiteral("MN") : QStringLiteral("UR");
    line.quantity = m_world.chance.between(1, 4);
    line.amount = line.quantity * item.price;
    writeLine(line, "X", std::nullopt);
    m_stock.row(line.stay.hospNum, line.stay.idNum, line.itemID, line.moment, line.refNum, line.quantity,
                line.amount, line.user, "PRN", line.stay.room, drug ? "179" : "224", item.itemClass,
                item.itemClass, "O");
    if (!line.stay.outPatient)
        m_master.row(line.requestNum, line.stay.hospNum, line.stay.idNum, line.itemID, line.revenue, "I",
                     line.refNum, line.requestNum, line.quantity, line.amount, line.stay.doctor, line.user,
                     line.moment, "", "", nullptr, nullptr);
}

void RequestWriter::writeLine(const Line& line, const char* status,
                              std::optional<base::DateTime> resultDate) {
    m_logBook.row(line.stay.hospNum, line.stay.idNum, line.requestNum, "I", line.revenue, line.itemID,
                  line.description, line.quantity, line.amount, line.moment, line.user, status, line.refNum,
                  line.user, line.moment, resultDate,
                  resultDate ? std::optional<QString>(QStringLiteral("1003")) : std::nullopt);
}

void RequestWriter::writeBill(const Line& line) {
    const char* type = line.stay.outPatient ? "O" : "I";
    m_bill.row(type, line.stay.idNum, line.stay.hospNum, line.moment, line.refNum, line.itemID, line.revenue,
               "", line.quantity, line.amount, line.user, "");
    if (line.revoked)
        m_bill.row(type, line.stay.idNum, line.stay.hospNum, base::DateTime{line.moment.ms + hourMs},
                   line.refNum, line.itemID, line.revenue, "", line.quantity, -line.amount, "1008", "D");
}

void RequestWriter::writeResult(const Line& line, const Exam& exam, base::DateTime resultDate) {
    Chance& chance = m_world.chance;
    const char type = formTypeOf(exam);
    const QString caseNumber = QStringLiteral("%1-%2")
                                   .arg(base::calendarDate(resultDate).year % 100)
                                   .arg(m_case++, 5, 10, QLatin1Char('0'));
    const Stay& stay = line.stay;
    const QString reader = doctorCode(chance.between(0, 2));
    m_caseBook.row(caseNumber, line.requestNum, stay.hospNum, stay.idNum, stay.outPatient ? "O" : "I",
                   line.itemID, reader, stay.doctor, "1003", resultDate, "");
    if (type == 'R') {
        const double share = (chance.between(3, 60) - 3) / 57.0;
        const double shareFreeT4 = (chance.between(8, 22) - 8) / 14.0;
        const double shareFreeT3 = (chance.between(30, 65) - 30) / 35.0;
        const auto found = [&](const char* analyte) { return assayed(line.itemID, analyte, share); };
        m_radio.row(line.requestNum, stay.hospNum, stay.idNum, caseNumber, stay.outPatient ? "O" : "I",
                    reader, stay.doctor, line.itemID, "", "1003", resultDate, found("TSH"),
                    assayed(line.itemID, "FreeT4", shareFreeT4), assayed(line.itemID, "FreeT3", shareFreeT3),
                    found("T3"), found("T4"), found("TG"), found("AntiTG"), found("AntiTPO"), found("PSA"),
                    found("Cortisol"), found("BHCG"), "R. VILLANUEVA");
        m_radioToRevoke.row(line.requestNum, stay.hospNum, stay.idNum, caseNumber,
                            stay.outPatient ? "O" : "I", reader, stay.doctor, line.itemID, "1003", resultDate,
                            "R. VILLANUEVA");
        return;
    }
    writeImaging(line, type == 'G', caseNumber, reader, resultDate);
}

void RequestWriter::writeImaging(const Line& line, bool gfr, const QString& caseNumber, const QString& reader,
                                 base::DateTime resultDate) {
    Chance& chance = m_world.chance;
    const Stay& stay = line.stay;
    const QString dose = QString::number(chance.between(2, 25)) + QStringLiteral(" mCi");
    const int left = gfr ? chance.between(28, 62) : 0;
    const int right = gfr ? chance.between(28, 62) : 0;
    const int scaled = gfr ? chance.between(70, 118) : 0;
    const auto measured = [gfr](double value) { return gfr ? QString::number(value, 'g', 3) : QString(); };
    const double share = gfr ? 100.0 * left / (left + right) : 0;
    m_result.row(line.requestNum, stay.hospNum, stay.idNum, caseNumber, stay.outPatient ? "O" : "I", reader,
                 stay.doctor, line.itemID, dose, gfr ? "Tc-99m DTPA" : "Tc-99m MDP", "I.V.",
                 gfr ? "POSTERIOR" : "ANTERIOR AND POSTERIOR",
                 gfr ? "" : "Tracer distribution is homogenous. No focal area of increased uptake is seen.",
                 gfr ? "" : "NORMAL STUDY.", gfr ? "" : "For evaluation.", gfr ? "Tc-99m" : "",
                 measured(40 + left / 2.0), measured(40 + right / 2.0), measured(5 + left / 20.0),
                 measured(5 + right / 20.0), measured(share), measured(100 - share), measured(share + 0.5),
                 measured(99.5 - share), measured(left), measured(right), measured(scaled),
                 QString::number(chance.between(38, 96)), QString::number(chance.between(140, 185)), "1003",
                 resultDate);
}

void RequestWriter::revokeSome() {
    const QString revoked =
        QStringLiteral("(SELECT RequestNum FROM \"NUCLEAR.tbNucLogBook\" WHERE Status = 'R')");
    const auto run = [this](const QString& text) { runOnFile(m_world.file, text); };
    run(QStringLiteral("UPDATE \"NUCLEAR.tbNucLogBook\" SET Status = 'R', RevokeDate = ResultDate "
                       "WHERE CAST(substr(CaseNumber, 4) AS INTEGER) % 13 = 0"));
    // The audit's columns are those of the result behind its own.
    run(QStringLiteral(
            "INSERT INTO \"NUCLEAR.tbNucRevokedResult\" SELECT NULL, ResultDate, 'NUCMED1', * FROM "
            "\"NUCLEAR.tbNucResult\" WHERE RequestNum IN ") +
        revoked);
    for (const auto& [series, table] :
         {std::pair("1", "tbNucRadioResult"), std::pair("2", "tbNucResultRadio")})
        run(QStringLiteral(
                "INSERT INTO \"NUCLEAR.tbNucRevokedRadioResult\" SELECT NULL, ResultDate, 'NUCMED1', "
                "'%1', * FROM \"NUCLEAR.%2\" WHERE RequestNum IN ")
                .arg(QLatin1String(series), QLatin1String(table)) +
            revoked);
    run(QStringLiteral("UPDATE \"NUCLEAR.tbNucMaster\" SET RequestStatus = '', ResultDate = NULL "
                       "WHERE RequestNum IN ") +
        revoked);
    run(QStringLiteral("UPDATE \"STATION.tbNurseLogBook\" SET RecordStatus = 'X' WHERE RevenueID = 'NU' AND "
                       "RequestNum IN ") +
        revoked);
}

void RequestWriter::closeNumbers() {
    runOnFile(m_world.file,
              QStringLiteral("UPDATE \"NUCLEAR.tbNucSlipRow\" SET ChargeSlip = %1, RequestNum = %2")
                  .arg(m_slip)
                  .arg(m_request));
}

} // namespace

void writeRequests(World& world) {
    std::vector<std::pair<base::DateTime, const Stay*>> moments;
    for (int i = 0; i < slipCount; ++i) {
        const Stay& stay = world.chance.of(std::span<const Stay>(world.stays));
        const int minutes = int(std::max<qint64>(1, (stay.until.ms - stay.from.ms) / minuteMs - 1));
        moments.emplace_back(base::DateTime{stay.from.ms + world.chance.between(0, minutes) * minuteMs},
                             &stay);
    }
    // Numbers rise with time, as they would have been drawn.
    std::stable_sort(moments.begin(), moments.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    RequestWriter writer(world);
    for (const auto& [moment, stay] : moments)
        writer.writeSlip(*stay, moment);
    writer.revokeSome();
    writer.closeNumbers();
}

} // namespace demo
