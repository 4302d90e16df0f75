#include "tests/platform/report/BusyPeriod.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/base/TestDoors.h"

#include <gtest/gtest.h>

namespace tests {

namespace {

base::DateTime momentOf(const char* text) {
    const auto moment = base::fromIso(text, qsizetype(qstrlen(text)));
    if (!moment)
        throw std::runtime_error(text);
    return *moment;
}

QString billTime(const char* moment) {
    return base::Format(momentOf(moment), QStringLiteral("mm/dd/yyyy hh:mm:ss AMPM"));
}

} // namespace

BusyPeriod::BusyPeriod(const QString& file)
    : m_provider(engine::EmbeddedProvider::open(file, {}))
    , m_in(anyStay("I", 140))
    , m_out(anyStay("O", 90))
    , m_walkIn{"", QStringLiteral("W1009"), {}} {
    m_provider->useDatabase(QStringLiteral("NUCLEAR"));
    postEdges();
    postRevoked();
    postCash();
    postResults();
    postFees();
    admitAndDischarge();
}

BusyPeriod::~BusyPeriod() = default;

void BusyPeriod::run(const QString& text) {
    m_provider->execute(text);
}

BusyPeriod::Stay BusyPeriod::anyStay(const char* type, int number) {
    const QString table = *type == 'I' ? QStringLiteral("tbPatient") : QStringLiteral("tbOutPatient");
    const ado::Rows found =
        m_provider
            ->execute(QStringLiteral("SELECT HospNum, IdNum FROM PATIENT_DATA..%1 ORDER BY IdNum").arg(table))
            .rows;
    return {type, base::textOf(found.at(number, 0)), base::textOf(found.at(number, 1))};
}

BusyPeriod::Line BusyPeriod::post(const char* moment, const Stay& stay, const QString& amount,
                                  const char* item, int quantity, const char* doctor, const char* revenue,
                                  QString slip) {
    const base::FixedClock clock{momentOf(moment)};
    if (slip.isEmpty())
        slip = nextSlip();
    const Line line{QString::number(m_request++), slip, item, amount, revenue, stay};
    const bool fee = line.revenue == "MD" || line.revenue == "FN";
    if (!fee)
        run(QStringLiteral(
                "sp_Nuclear_AddRequest '%1','%2','%3', '%4','%5','%6','I', '%7','1001','%3','','%8', "
                "'','%9'")
                .arg(stay.hospNum, stay.idNum, line.requestNum, line.item, amount, doctor, slip)
                .arg(quantity)
                .arg(line.revenue));
    if (*stay.type && (fee || line.revenue == "NU"))
        run(QStringLiteral("sp_addbill '%1','%2','%3','%4', '%5','%6','%7','1001','%8','','', '%9'")
                .arg(stay.type, stay.idNum, billTime(moment), slip, line.item, amount, line.revenue)
                .arg(quantity)
                .arg(stay.hospNum));
    if (line.revenue == "UR")
        run(QStringLiteral("INVENTORY..sp_AppendStockCard "
                           "'%1','%2','%3','%4','%5',%6,0,%7,'1001','PRN','301','','','',0,"
                           "'CS','CS','',NULL,NULL,NULL,'O'")
                .arg(stay.hospNum, stay.idNum, line.item, billTime(moment), slip)
                .arg(quantity)
                .arg(amount));
    return line;
}

/// Every line is taken back twice, as by a second desk: the second time counts for nothing.
void BusyPeriod::revoke(const Line& line, const char* moment) {
    run(QStringLiteral("UPDATE tbNucMaster SET requeststatus = 'R' WHERE requestnum = '%1'")
            .arg(line.requestNum));
    for (int desk = 0; desk < 2; ++desk) {
        if (line.slip.startsWith("OR")) {
            run(QStringLiteral("spGlobal_CashUpdate '%1','NU','%2',''").arg(line.slip, line.item));
            continue;
        }
        const bool admitted = *line.stay.type == 'I';
        if (admitted && line.revenue != "NU")
            run(QStringLiteral(
                    "sp_AppendStockCard 'PC','%1','%2','%3','%4','PC', '%5','1','-%6','1001','PRN','179'")
                    .arg(line.stay.hospNum, line.stay.idNum, line.item, billTime(moment), line.slip,
                         line.amount));
        else if (!line.stay.idNum.startsWith("T"))
            run(QStringLiteral("sp_addbill '%1','%2','%3','%4',  '%5','-%6','%7','1001','1','%8','D'")
                    .arg(line.stay.type, line.stay.idNum, billTime(moment), line.slip, line.item, line.amount,
                         line.revenue, line.revenue == "NU" ? "" : "NU"));
        if (!admitted) {
            const base::FixedClock clock{momentOf(moment)};
            run(QStringLiteral("CARDIO..spGlobal_CashUpdate '%1','NU','%2',''").arg(line.slip, line.item));
        }
    }
    if (line.revenue == "MD")
        return; // the doctor's, not the section's
    const QString day = QString::fromLatin1(moment).left(10);
    if (day >= "2026-11-09" && day <= "2026-11-20") {
        ++m_revokedLines;
        m_revokedCents += qRound64(line.amount.toDouble() * 100);
    }
}

void BusyPeriod::postEdges() {
    post("2026-11-08 23:59:59.997", m_out, "7777.77");
    post("2026-11-09 00:00:00.000", m_in, "100.25");
    post("2026-11-09 00:00:00.000", m_out, "200.5");
    post("2026-11-20 23:59:59.997", m_in, "300.75");
    post("2026-11-20 23:59:59.997", m_out, "400.01");
    post("2026-11-21 00:00:00.000", m_in, "8888.88");
    post("2026-11-12 10:00:00.000", m_in, "0");
    post("2026-11-12 10:05:00.000", m_out, "1234567.89", "1019"); // its form is not on file
    post("2026-11-12 10:10:00.000", m_in, "900", "1002", 3);
    post("2026-11-12 10:15:00.000", m_out, "50", "1003", 1, "");   // nobody asked for it
    post("2026-11-12 10:20:00.000", m_in, "60", "ZZ99");           // no such exam
    post("2026-11-12 10:25:00.000", m_in, "70", "1001", 1, "999"); // no such doctor
    post("2026-11-12 10:30:00.000", m_in, "145.5", "40001", 2, "204", "UR");
    // A receipt filed from the empty grid: a request without a code.
    post("2026-11-12 10:35:00.000", m_walkIn, "0", "", 0, "", "", "OR7001");
}

void BusyPeriod::postRevoked() {
    revoke(post("2026-11-10 09:00:00.000", m_in, "11.11"), "2026-11-10 10:00:00.000");
    revoke(post("2026-11-10 09:00:00.000", m_out, "22.22"), "2026-11-13 00:00:00.000");
    revoke(post("2026-11-08 09:00:00.000", m_in, "33.33"), "2026-11-09 00:00:00.000"); // asked for before
    revoke(post("2026-11-20 09:00:00.000", m_in, "44.44"), "2026-11-21 00:00:00.000"); // revoked after
    revoke(post("2026-11-11 09:00:00.000", m_out, "55.55"), "2026-11-20 23:59:59.000");
    revoke(post("2026-11-11 09:30:00.000", m_in, "66", "40001", 1, "204", "UR"), "2026-11-14 08:00:00.000");
    // a number that begins with T has no bill; it is revoked on the day of its request
    const Stay temporary{"", QStringLiteral("W1010"), QStringLiteral("T9001")};
    revoke(post("2026-11-12 09:00:00.000", temporary, "77.77"), "2026-11-12 09:00:00.000");
    // fees, of which one goes by the stock card's way
    revoke(post("2026-11-17 09:10:00.000", m_in, "88", "201", 1, "204", "MD"), "2026-11-18 09:00:00.000");
    revoke(post("2026-11-17 09:20:00.000", m_out, "99", "201", 1, "204", "MD"), "2026-11-18 09:00:00.000");
}

void BusyPeriod::assess(const char* moment, const char* receipt, const QString& item, const char* amount,
                        const char* revenue, const QString& idNum) {
    run(QStringLiteral(
            "spNuclear_AddCashAsses '%1','%2','ZABALA, ROSARIO FUENTES','%3','%4','%5','%6','1002','%7',"
            "'%8','NU','204','1'")
            .arg(m_walkIn.hospNum, idNum, billTime(moment))
            .arg(m_request++)
            .arg(item, amount, receipt, revenue));
    run(QStringLiteral(
            "UPDATE BILLING..tbCashAssessment SET RecordStatus = '1', ORNumber = '%1' WHERE RefNum = '%1'")
            .arg(receipt));
    run(QStringLiteral(
            "IF NOT EXISTS (SELECT 1 FROM BILLING..tbCashReceipt WHERE ORNumber = '%1') INSERT INTO "
            "BILLING..tbCashReceipt (ORNumber, PaymentFrom, TransDate) VALUES ('%1', 'ZABALA', '%2')")
            .arg(receipt, billTime(moment)));
}

void BusyPeriod::postCash() {
    assess("2026-11-12 10:00:00.000", "OR7001", "1004", "1000.1"); // filed with an empty grid
    assess("2026-11-13 23:59:59.000", "OR7002", "1005", "500");    // one line filed, one not
    assess("2026-11-13 23:59:59.000", "OR7002", "1006", "600");
    post("2026-11-14 08:00:00.000", m_walkIn, "500", "1005", 1, "204", "NU", "OR7002");
    assess("2026-11-18 00:00:00.000", "OR7003", "1007", "700");
    assess("2026-11-18 00:00:00.000", "OR7003", "202", "350", "MD"); // the doctor's, not the section's
    assess("2026-11-15 09:00:00.000", "OR7004", "1008", "800", "NU",
           m_in.idNum); // under cash basis in the ward
    assess("2026-11-15 10:00:00.000", "OR7005", "1009", "900");
    revoke(post("2026-11-15 10:30:00.000", m_walkIn, "900", "1009", 1, "204", "NU", "OR7005"),
           "2026-11-15 10:30:00.000");
}

void BusyPeriod::read(const Line& line, const char* caseNumber, const char* reader, const char* moment) {
    run(QStringLiteral("sp_Nuclear_FileResult '%1','%2','%3','%4','I','%5','%6','204','1003','%7'")
            .arg(line.requestNum, caseNumber, line.stay.hospNum, line.stay.idNum, line.item, reader, moment));
}

void BusyPeriod::postResults() {
    read(post("2026-11-07 08:00:00.000", m_in, "333.33"), "26-7001", "201", "2026-11-09 00:00:00.000");
    read(post("2026-11-16 08:00:00.000", m_out, "444.44"), "26-7002", "202", "2026-11-20 23:59:59.997");
    read(post("2026-11-16 08:00:00.000", m_out, "555.55"), "26-7003", "202", "2026-11-21 00:00:00.000");
    read(post("2026-11-16 08:10:00.000", m_in, "666.66"), "26-7004", "230",
         "2026-11-17 00:00:00.000"); // no share
    const Line again = post("2026-11-16 08:20:00.000", m_in, "777.77");
    read(again, "26-7005", "201", "2026-11-17 09:00:00.000");
    run(QStringLiteral("sp_Nuclear_CancelResult '%1'").arg(again.requestNum));
    read(again, "26-7006", "202", "2026-11-18 09:00:00.000");
    const Line never = post("2026-11-16 08:30:00.000", m_in, "888.88");
    read(never, "26-7007", "201", "2026-11-17 10:00:00.000");
    run(QStringLiteral("sp_Nuclear_CancelResult '%1'").arg(never.requestNum));
}

void BusyPeriod::postFees() {
    const Line exam = post("2026-11-17 08:00:00.000", m_in, "1500");
    post("2026-11-17 08:00:00.000", m_in, "555.55", "201", 1, "204", "FN", exam.slip);
    post("2026-11-17 08:00:00.000", m_in, "250", "202", 1, "204", "MD", exam.slip);
    post("2026-11-17 08:00:00.000", m_out, "90", "215", 1, "204", "MD"); // has no share
    run(QStringLiteral("sp_addbill 'I','%1','%2','%3',  '202','-250','MD','1001','1','','D'")
            .arg(m_in.idNum, billTime("2026-11-18 08:00:00.000"), exam.slip));
    const base::FixedClock clock{momentOf("2026-11-19 08:00:00.000")};
    run(QStringLiteral(
            "INSERT INTO CARDIO..tbReaderPayment (DoctorID, RevenueID, RefNum, ItemID, Amount, PaidDate) "
            "VALUES ('201', 'FN', '%1', '%2', 111.11, '2026-11-18 00:00:00.000'), "
            "('201', 'NU', 'X1', '%2', 20, '2026-11-20 23:59:59.997'), "
            "('203', 'FN', 'X2', '%2', 999, '2026-11-19'), ('203', 'FN', 'C5J', '%2', 999, '2026-11-21')")
            .arg(exam.slip, exam.item));
    run(QStringLiteral("CARDIO..spGlobal_CashUpdate '%1','NU','%2',''").arg(exam.slip, exam.item));
}

void BusyPeriod::admitAndDischarge() {
    const char* stays[][3] = {{"26900001", "2026-11-20 23:59:59.997", "NULL"},
                              {"26900002", "2026-11-21 00:00:00.000", "NULL"},
                              {"26900003", "2026-11-18 08:00:00.000", "'2026-11-20 23:59:59.997'"},
                              {"26900004", "2026-11-18 08:00:00.000", "'2026-11-21 00:00:00.000'"},
                              {"26900005", "2026-11-22 00:00:00.000", "NULL"}};
    for (const auto& [idNum, admitted, discharged] : stays)
        run(QStringLiteral(
                "INSERT INTO PATIENT_DATA..tbPatient (IdNum, HospNum, AdmDate, DcrDate, RoomID) VALUES "
                "('%1', '%2', '%3', %4, '301')")
                .arg(idNum, m_in.hospNum, admitted, discharged));
}

} // namespace tests
