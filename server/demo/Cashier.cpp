#include "server/demo/Catalogue.h"
#include "server/demo/TableWriter.h"
#include "server/demo/World.h"

namespace demo {

namespace {

constexpr int assessmentCount = 24;
constexpr int firstAssessment = 5001;
constexpr int firstAssessmentLine = 9001;
constexpr int firstReceipt = 31001;

QString fullName(const PersonName& name) {
    return name.last + QStringLiteral(", ") + name.first + u' ' + name.middle;
}

void writeDeposits(World& world) {
    TableWriter deposits(
        world.file, "BILLING..tbDeposit",
        {"IdNum", "HospNum", "PatientName", "TransDate", "ORNumber", "Amount", "Balance", "UserID"});
    TableWriter receipts(world.file, "BILLING..tbCashReceipt",
                         {"ORNumber", "PaymentFrom", "TransDate", "Amount", "TransactionType", "UserID"});
    int number = firstReceipt + 500;
    int written = 0;
    for (const Stay& stay : world.stays) {
        if (!stay.open || stay.outPatient || written == 8)
            continue;
        const QString receipt = QStringLiteral("OR%1").arg(number++);
        const double amount = world.chance.between(2, 20) * 1000.0;
        const base::DateTime moment{stay.from.ms + 2 * hourMs};
        deposits.row(stay.idNum, stay.hospNum, fullName(stay.name), moment, receipt, amount,
                     amount / (1 + written % 2), "3001");
        receipts.row(receipt, fullName(stay.name), moment, amount, "DEPOSIT", "3001");
        ++written;
    }
}

void writePrepaid(World& world) {
    TableWriter table(world.file, "NUCLEAR..tbNucPrepaid",
                      {"RequestNum", "RefNum", "HospNum", "IdNum", "RevenueID", "ItemID", "Quantity",
                       "Amount", "DoctorID", "TransDate", "UserID", "PrintStatus", "PrintDate"});
    int written = 0;
    for (const Stay& stay : world.stays) {
        if (!stay.outPatient || !stay.open || written == 4)
            continue;
        const Exam& exam = exams()[std::size_t(written * 5)];
        const base::DateTime moment{world.now.ms - (4 + written) * hourMs};
        const bool printed = written == 3;
        table.row(QStringLiteral("PP%1").arg(801 + written), QStringLiteral("PS%1").arg(401 + written),
                  stay.hospNum, stay.idNum, "NU", exam.code, 1.0, exam.rateA, stay.doctor, moment, "3001",
                  printed ? "P" : "",
                  printed ? std::optional(base::DateTime{moment.ms + hourMs}) : std::nullopt);
        ++written;
    }
}

} // namespace

/// Assessments of walk-in and cash-basis patients (paid, waiting, revoked), receipts, deposits and prepaid
/// requests.
void writeCashier(World& world) {
    TableWriter assessments(world.file, "BILLING..tbCashAssessment",
                            {"HospNum", "IdNum", "PatientName", "TransDate", "RequestNum", "ItemID", "Amount",
                             "UserID", "RefNum", "RevenueID", "SectionID", "DoctorID", "Quantity", "ORNumber",
                             "RecordStatus"});
    TableWriter receipts(world.file, "BILLING..tbCashReceipt",
                         {"ORNumber", "PaymentFrom", "TransDate", "Amount", "TransactionType", "UserID"});
    std::vector<const Stay*> cashBasis;
    for (const Stay& stay : world.stays) {
        if (stay.cashBasis)
            cashBasis.push_back(&stay);
    }
    int lineNumber = firstAssessmentLine;
    for (int i = 0; i < assessmentCount; ++i) {
        const bool admitted = i % 6 == 5 && !cashBasis.empty();
        const Stay* stay = admitted ? cashBasis[std::size_t(i) % cashBasis.size()] : nullptr;
        const WalkIn& walkIn = world.walkIns[std::size_t(i)];
        const QString name = fullName(stay ? stay->name : walkIn.name);
        const QString roomClass = stay ? stay->roomClass : QStringLiteral("A");
        const base::DateTime moment = before(world.now, (assessmentCount - i) / 2, 8 + i % 2, i * 2);
        const QString refNum = QStringLiteral("NU%1").arg(firstAssessment + i);
        const bool paid = i % 2 == 0;
        const bool revoked = i % 7 == 3;
        const QString receipt = QStringLiteral("OR%1").arg(firstReceipt + i);
        double total = 0;
        for (int line = 0; line <= i % 2; ++line) {
            const Exam& exam = exams()[std::size_t(i * 3 + line) % exams().size()];
            const double amount = examRate(exam, roomClass);
            total += amount;
            assessments.row(stay ? stay->hospNum : walkIn.hospNum, stay ? stay->idNum : QString(), name,
                            moment, QStringLiteral("NU%1").arg(lineNumber++), exam.code, amount, "1002",
                            refNum, "NU", "", doctorCode(i % doctorCount), 1.0,
                            paid ? std::optional<QString>(receipt) : std::nullopt,
                            paid      ? "1"
                            : revoked ? "R"
                                      : "");
        }
        if (paid)
            receipts.row(receipt, name, base::DateTime{moment.ms + hourMs / 2}, total, "NUCLEAR MEDICINE",
                         "3001");
    }
    runOnFile(world.file,
              QStringLiteral("UPDATE \"BILLING.tbAssessmentNumRow\" SET assessmentnum = %1, RequestNum = %2")
                  .arg(firstAssessment + assessmentCount - 1)
                  .arg(lineNumber - 1));
    writeDeposits(world);
    writePrepaid(world);
}

} // namespace demo
