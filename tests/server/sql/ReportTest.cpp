// What the reports' procedures count, and what they leave out.
#include "tests/server/sql/Hospital.h"

namespace {

class Reports : public tests::Hospital {
  protected:
    Reports() {
        run(QStringLiteral("DELETE FROM tbNucMaster; DELETE FROM BILLING..tbCashAssessment; DELETE FROM "
                           "BILLING..tbDailyBill; DELETE FROM tbNucLogBook"));
    }

    void request(const char* number, const char* moment, const char* status = "", const char* refNum = "C1J",
                 const char* idNum = "", const char* revenue = "NU", const char* item = "1001") {
        run(QStringLiteral(
                "INSERT INTO tbNucMaster (RequestNum, HospNum, IdNum, ItemID, RevenueID, RefNum, Quantity, "
                "Amount, RequestDocCode, UserID, TransDate, RequestStatus) VALUES ('%1', '104001', '%2', "
                "'%7', '%6', '%3', 1, 100, '201', '1001', '%4', '%5')")
                .arg(number, idNum, refNum, moment, status, revenue, item));
    }

    void assessment(const char* receipt, const char* status, const char* revenue = "NU") {
        run(QStringLiteral("INSERT INTO BILLING..tbCashAssessment (HospNum, PatientName, TransDate, "
                           "RequestNum, ItemID, Amount, UserID, RefNum, RevenueID, ORNumber, RecordStatus) "
                           "VALUES ('W1001', 'ZABALA, ROSARIO FUENTES', '2026-11-10', 'NU1', '1001', 50, "
                           "'1002', 'NU9', '%3', '%1', '%2')")
                .arg(receipt, status, revenue));
    }

    QStringList numbers(const QString& call, const char* column = "RequestNum") {
        const ado::Rows found = rows(call);
        QStringList all;
        for (qsizetype i = 0; i < found.count(); ++i)
            all << cell(found, i, column);
        return all;
    }
};

TEST_F(Reports, BothDaysOfAPeriodCountToTheirEnd) {
    request("1", "2026-11-09 23:59:59");
    request("2", "2026-11-10 00:00:00");
    request("3", "2026-11-11 23:59:59");
    request("4", "2026-11-12 00:00:00");
    EXPECT_EQ(numbers(QStringLiteral("sp_Nuclear_ReportTransactions '11/10/2026','11/11/2026'")),
              (QStringList{"2", "3"}));
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_ReportMonthly '11/10/2026','11/11/2026'")).count(), 2);
    EXPECT_EQ(numbers(QStringLiteral("sp_Nuclear_ReportAudit '11/10/2026','11/11/2026','3'")).size(), 2);
}

TEST_F(Reports, RevokedLinesStandInTheAuditAndAmongTheCancelledOnly) {
    request("1", "2026-11-10 08:00");
    request("2", "2026-11-10 09:00", "R");
    run(QStringLiteral("UPDATE tbNucMaster SET RevokeDate = '2026-11-15' WHERE RequestNum = '2'"));
    const QString day = QStringLiteral(" '11/10/2026','11/10/2026'");
    EXPECT_EQ(numbers("sp_Nuclear_ReportTransactions" + day), QStringList{"1"});
    EXPECT_EQ(rows("sp_Nuclear_ReportRequestingDoctor" + day).count(), 1);
    EXPECT_EQ(numbers("sp_Nuclear_ReportStatistics" + day, "Requests"), QStringList{"1"});
    EXPECT_EQ(numbers("sp_Nuclear_ReportAudit" + day + ",'3'"), (QStringList{"1", "2"}));
    EXPECT_EQ(numbers("sp_Nuclear_ReportCancelled" + day).size(), 0);
    EXPECT_EQ(numbers(QStringLiteral("sp_Nuclear_ReportCancelled '11/15/2026','11/15/2026'")),
              QStringList{"2"});
}

TEST_F(Reports, SuppliesAreTransactionsButNoProcedures) {
    request("1", "2026-11-10", "", "C1J", "", "UR", "40001");
    const QString day = QStringLiteral(" '11/10/2026','11/10/2026'");
    EXPECT_EQ(numbers("sp_Nuclear_ReportTransactions" + day).size(), 1);
    EXPECT_EQ(rows("sp_Nuclear_ReportMonthly" + day).count(), 0);
    EXPECT_EQ(rows("sp_Nuclear_ReportMonthlyPerExam" + day).count(), 0);
}

TEST_F(Reports, APaidAssessmentCountsOnceAlsoWhenItsRequestIsFiled) {
    assessment("OR1", "1");
    assessment("OR2", "");
    assessment("OR3", "X");
    assessment("OR4", "1", "MD");
    const QString day = QStringLiteral("sp_Nuclear_ReportTransactions '11/10/2026','11/10/2026'");
    EXPECT_EQ(numbers(day, "RefNum"), QStringList{"OR1"});
    request("7", "2026-11-10", "", "OR1");
    EXPECT_EQ(numbers(day), QStringList{"7"});
}

TEST_F(Reports, TheKindOfAPatientComesFromTheStay) {
    const QString admitted = value(QStringLiteral("SELECT MIN(IdNum) FROM PATIENT_DATA..tbPatient"));
    const QString out = value(QStringLiteral("SELECT MIN(IdNum) FROM PATIENT_DATA..tbOutPatient"));
    request("1", "2026-11-10", "", "C1J", qPrintable(admitted));
    request("2", "2026-11-10", "", "C2J", qPrintable(out));
    request("3", "2026-11-10", "", "C3J");
    const QString audit = QStringLiteral("sp_Nuclear_ReportAudit '11/10/2026','11/10/2026','%1'");
    EXPECT_EQ(numbers(audit.arg(0)), QStringList{"1"});
    EXPECT_EQ(numbers(audit.arg(1)), QStringList{"2"});
    EXPECT_EQ(numbers(audit.arg(2)), QStringList{"3"});
    EXPECT_EQ(numbers(audit.arg(3)).size(), 3);
}

TEST_F(Reports, TheDaysIncomeTakesReversalsOffAndCashByItsReceipt) {
    run(QStringLiteral("INSERT INTO BILLING..tbDailyBill (PatientType, HospNum, TransDate, RefNum, ItemID, "
                       "RevenueID, Quantity, Amount, Marker) VALUES ('I', '104001', '2026-11-10 10:00', "
                       "'C1J', '1001', 'NU', 1, 100, ''), ('I', '104001', '2026-11-10 11:00', 'C1J', '1001', "
                       "'NU', 1, -100, 'D'), ('I', '104001', '2026-11-10 11:00', 'C1J', '201', 'MD', 1, 70, "
                       "'')"));
    assessment("OR1", "1");
    run(QStringLiteral("INSERT INTO BILLING..tbCashReceipt (ORNumber, TransDate) VALUES ('OR1', '2026-11-11 "
                       "07:00')"));
    EXPECT_EQ(numbers(QStringLiteral("sp_Nuclear_ReportDailyIncome 'A','11/10/2026'"), "Amount"),
              (QStringList{"100", "-100"}));
    EXPECT_EQ(numbers(QStringLiteral("sp_Nuclear_ReportDailyIncome 'B','11/10/2026'"), "Amount").size(), 0);
    EXPECT_EQ(numbers(QStringLiteral("sp_Nuclear_ReportDailyIncome 'B','11/11/2026'"), "Amount"),
              QStringList{"50"});
}

TEST_F(Reports, AReadersFeeIsAShareOfTheExam) {
    request("1", "2026-11-10", "W");
    run(QStringLiteral("INSERT INTO tbNucLogBook (CaseNumber, RequestNum, DoctorID, ResultDate, Status) "
                       "VALUES ('26-1', '1', '201', '2026-11-12', ''), ('26-0', '1', '202', '2026-11-12', "
                       "'R')"));
    const QString call = QStringLiteral("sp_Nuclear_ReportReaders '11/12/2026','11/12/2026'");
    EXPECT_EQ(numbers(call, "CaseNumber"), QStringList{"26-1"});
    EXPECT_EQ(numbers(call, "Fee"), QStringList{"20"});
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_ReportReaders '11/10/2026','11/10/2026'")).count(), 0);
}

TEST_F(Reports, AReaderOrADoctorWithoutARateHasNoPercentage) {
    request("1", "2026-11-10", "W");
    run(QStringLiteral(
        "INSERT INTO tbNucLogBook (CaseNumber, RequestNum, DoctorID, ResultDate, Status) "
        "VALUES ('26-1', '1', '201', '2026-11-12', ''), ('26-2', '1', '230', '2026-11-12', "
        "''); INSERT INTO BILLING..tbDailyBill (PatientType, IdNum, TransDate, RefNum, ItemID, "
        "RevenueID, Quantity, Amount, Marker) VALUES ('I', '104001', '2026-11-12', 'C1J', "
        "'230', 'MD', 1, 70, '')"));
    const ado::Rows read = rows(QStringLiteral("sp_Nuclear_ReportReaders '11/12/2026','11/12/2026'"));
    ASSERT_EQ(read.count(), 2);
    QStringList shares;
    for (qsizetype i = 0; i < 2; ++i)
        shares << cell(read, i, "DoctorID") + '=' + cell(read, i, "Percentage") + '/' + cell(read, i, "Fee");
    shares.sort();
    EXPECT_EQ(shares, (QStringList{"201=20/20", "230=<Null>/0"}));
    const ado::Rows earned =
        rows(QStringLiteral("CARDIO..sp_Cardio_ReportCommission 'NU','11/12/2026','11/12/2026'"));
    ASSERT_EQ(earned.count(), 1);
    EXPECT_EQ(cell(earned, 0, "Percentage"), "<Null>");
    EXPECT_EQ(cell(earned, 0, "Commission"), "0");
}

TEST_F(Reports, WhoCancelledIsWhoseReversalStandsOnTheBillOrTheStockCard) {
    for (const char* number : {"1", "2", "3"})
        request(number, "2026-11-10 08:00", "R",
                qPrintable(QStringLiteral("C%1J").arg(QLatin1String(number))), "26004001");
    run(QStringLiteral("INSERT INTO BILLING..tbDailyBill (PatientType, IdNum, HospNum, TransDate, RefNum, "
                       "ItemID, RevenueID, "
                       "Quantity, Amount, UserID, Marker) VALUES ('I', '26004001', '104001', '2026-11-11', "
                       "'C1J', '1001', 'NU', "
                       "1, -100, '1002', 'D'), ('I', '26004001', '104001', '2026-11-11', 'C3J', '1001', "
                       "'NU', 1, 100, '1003', '')"));
    run(QStringLiteral(
        "INSERT INTO INVENTORY..tbInvStockCard (IdNum, TransDate, RefNum, ItemID, UserID, Direction) "
        "VALUES ('26004001', '2026-11-11', 'C2J', '1001', 'ZZ9', 'I')"));
    const ado::Rows found = rows(QStringLiteral("sp_Nuclear_ReportCancelled '11/10/2026','11/11/2026'"));
    QStringList names;
    for (qsizetype i = 0; i < found.count(); ++i)
        names << cell(found, i, "RefNum") + '=' + cell(found, i, "RevokedBy") + '/' +
                     cell(found, i, "RevokedByName");
    names.sort();
    EXPECT_EQ(names, (QStringList{"C1J=1002/BAUTISTA, MARICEL O.", "C2J=ZZ9/ZZ9", "C3J=<Null>/<Null>"}));
}

TEST_F(Reports, TheCensusSummaryAddsUpToTheCensus) {
    const ado::Rows stations = rows(QStringLiteral("sp_Nuclear_CensusSummary 'PATIENT_DATA','2026/11/21'"));
    int patients = 0;
    for (qsizetype i = 0; i < stations.count(); ++i)
        patients += cell(stations, i, "Patients").toInt();
    EXPECT_GT(patients, 50);
    EXPECT_EQ(patients, rows(QStringLiteral("PATIENT_DATA..sp_adm_censusbystation '2026/11/21',''")).count());
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_CensusSummary 'BILLING','2026/11/21'")).count(), 0);
}

} // namespace
