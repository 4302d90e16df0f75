#include "server/demo/Catalogue.h"
#include "server/demo/TableWriter.h"
#include "server/demo/World.h"

namespace demo {

namespace {

constexpr int firstWardRequest = 7000001;

constexpr const char* remarks[] = {
    "", "PLEASE CALL WARD WHEN READY", "PATIENT ON NPO", "FOR STRETCHER", "WITH I.V. LINE", "STAT PLEASE"};
constexpr const char* nurses[] = {"2101", "2102", "2103"};

} // namespace

/// Waiting requests of the wards (in both of the wards' files), and notices of discharge. Whoever stands at
/// the desk waits less than whoever lies in bed, so an admitted patient's request is the oldest at every time
/// of day.
void writeWards(World& world) {
    TableWriter requests(world.file, "STATION..tbNurseCommunicationFile",
                         {"HospNum", "IdNum", "RequestNum", "PatientType", "RevenueID", "ItemID", "Quantity",
                          "Amount", "Classification", "RequestDate", "StationID", "UserID", "Remarks",
                          "RecordStatus"});
    TableWriter logBook(world.file, "STATION..tbNurseLogBook",
                        {"HospNum", "IdNum", "RequestNum", "PatientType", "RevenueID", "ItemID",
                         "Description", "Quantity", "Amount", "RequestDate", "UserID", "Remarks",
                         "RecordStatus"});
    TableWriter notices(world.file, "STATION..tbDischargeNotice",
                        {"IdNum", "OrderDate", "NoticeDate", "DischargeNurse", "Remarks"});
    Chance& chance = world.chance;
    int number = firstWardRequest;
    int admitted = 0;
    int outPatients = 0;
    for (const Stay& stay : world.stays) {
        if (!stay.open || stay.cashBasis || stay.roomClass.isEmpty())
            continue;
        if (stay.outPatient ? outPatients++ >= 2 : admitted++ >= 10)
            continue;
        if (!stay.outPatient && admitted <= 2) {
            const base::DateTime ordered{world.now.ms - (3 + admitted) * hourMs};
            notices.row(stay.idNum, ordered, base::DateTime{ordered.ms + hourMs}, "MERCADO, GRACE A.",
                        "MAY GO HOME TOMORROW");
            continue;
        }
        const int lines = admitted % 3 == 0 ? 2 : 1;
        const std::size_t first = chance.next() % exams().size();
        const auto waits = stay.outPatient ? chance.between(5, 25) : chance.between(30, 170);
        const base::DateTime moment{world.now.ms - waits * minuteMs};
        const char* nurse = chance.of(std::span<const char* const>(nurses));
        const char* remark = chance.of(std::span<const char* const>(remarks));
        for (int i = 0; i < lines; ++i) {
            const Exam& exam = exams()[(first + std::size_t(i)) % exams().size()];
            const QString requestNum = QString::number(number++);
            const double amount = examRate(exam, stay.roomClass);
            const char* type = stay.outPatient ? "O" : "I";
            requests.row(stay.hospNum, stay.idNum, requestNum, type, "NU", exam.code, 1.0, amount,
                         exam.classification, moment, stay.outPatient ? "OPD" : "3A", nurse, remark, "N");
            logBook.row(stay.hospNum, stay.idNum, requestNum, type, "NU", exam.code, exam.name, 1.0, amount,
                        moment, nurse, remark, "N");
        }
    }
    runOnFile(world.file,
              QStringLiteral("UPDATE \"STATION.tbNurseRequestNum\" SET RequestNum = %1").arg(number - 1));
}

} // namespace demo
