#include "tests/server/sql/Hospital.h"

namespace {

class LedgerOfAnAccount : public tests::Hospital {
  protected:
    LedgerOfAnAccount()
        : account(value(
              "SELECT TOP 1 IdNum FROM PATIENT_DATA..tbPatient WHERE IdNum NOT IN (SELECT IdNum FROM "
              "BILLING..tbDailyBill) AND IdNum NOT IN (SELECT IdNum FROM INVENTORY..tbInvStockCard) AND "
              "IdNum NOT IN (SELECT IdNum FROM BILLING..tbDeposit) ORDER BY IdNum")) {}

    void bill(const char* moment, const char* item, const char* revenue, double amount,
              const char* marker = "") {
        run(QStringLiteral(
                "INSERT INTO BILLING..tbDailyBill (IdNum, TransDate, RefNum, ItemID, RevenueID, Quantity, "
                "Amount, Marker) VALUES ('%1', '2026-11-%2', 'C1J', '%3', '%4', 1, %5, '%6')")
                .arg(account, moment, item, revenue)
                .arg(amount)
                .arg(marker));
    }
    void stock(const char* moment, const char* direction, const char* stockClass = "PH") {
        run(QStringLiteral(
                "INSERT INTO INVENTORY..tbInvStockCard (IdNum, TransDate, RefNum, ItemID, Quantity, "
                "Amount, StockClass, Direction) VALUES ('%1', '2026-11-%2', 'C1J', '30001', 2, 97, '%3', "
                "'%4')")
                .arg(account, moment, stockClass, direction));
    }
    void deposit(const char* moment, double amount) {
        run(QStringLiteral(
                "INSERT INTO BILLING..tbDeposit (IdNum, TransDate, ORNumber, Amount) VALUES ('%1', "
                "'2026-11-%2', 'OR9', %3)")
                .arg(account, moment)
                .arg(amount));
    }
    /// "day revenue kind charge credit amount" of each line.
    QStringList ledger(const char* patientType = "I") {
        const ado::Rows found = rows(
            QStringLiteral("sp_Nuclear_PatientLedger '%1','%2'").arg(account, QLatin1String(patientType)));
        QStringList lines;
        for (qsizetype row = 0; row < found.count(); ++row) {
            // a server's other today may be one of two figures where ours is of one, or the other way round
            const QString day = cell(found, row, "TransDate").section(u' ', 0, 0);
            QStringList cells{QDate::fromString(day, QStringLiteral("M/d/yyyy")).toString(u"MM/dd/yyyy")};
            for (const char* column : {"Revenue", "Kind", "Charge", "Credit", "Amount"})
                cells += cell(found, row, column);
            lines += cells.join(u' ');
        }
        return lines;
    }

    QString account;
};

TEST_F(LedgerOfAnAccount, GoesByDayAndRevenueWithThePaymentsLast) {
    deposit("02 08:00:00", 2000);
    bill("03 07:00:00", "1001", "NU", 5200);
    bill("02 09:00:00", "1001", "NU", 5200);
    bill("02 09:00:00", "", "MS", 150.25);
    bill("02 10:00:00", "1001", "NU", -5200, "D");
    stock("02 09:30:00", "O");
    stock("02 11:00:00", "I");
    stock("02 11:30:00", "O", "CS");
    EXPECT_EQ(ledger(),
              (QStringList{
                  "11/02/2026 MEDICINES C 97 0 97", "11/02/2026 MEDICINES R 0 97 -97",
                  "11/02/2026 MISCELLANEOUS C 150.25 0 150.25", "11/02/2026 NUCLEAR PROCEDURES C 5200 0 5200",
                  "11/02/2026 NUCLEAR PROCEDURES R 0 5200 -5200", "11/02/2026 NUCLEAR SUPPLY C 97 0 97",
                  "11/02/2026 PAYMENTS P 0 2000 -2000", "11/03/2026 NUCLEAR PROCEDURES C 5200 0 5200"}));
}

TEST_F(LedgerOfAnAccount, NamesWhatWasChargedAndALineOfNoRevenueCode) {
    bill("02 09:00:00", "1001", "NU", 1);
    bill("02 09:00:00", "201", "FN", 2);
    bill("02 09:00:00", "X9", "ZZ", 3);
    const ado::Rows found = rows(QStringLiteral("sp_Nuclear_PatientLedger '%1','I'").arg(account));
    QStringList told;
    for (qsizetype row = 0; row < found.count(); ++row)
        told += cell(found, row, "Revenue") + u'/' + cell(found, row, "Description");
    EXPECT_EQ(told,
              (QStringList{QStringLiteral("READERS FEE/DR. ") +
                               value("SELECT FirstName + ' ' + LastName FROM BUILD_FILE..tbcoDoctor WHERE "
                                     "DoctorID = '201'"),
                           QStringLiteral("NUCLEAR PROCEDURES/") +
                               value("SELECT NucExam FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = '1001'"),
                           "OTHERS/X9"}));
}

TEST_F(LedgerOfAnAccount, IsThatOfItsOwnPatientTypeAlone) {
    bill("02 09:00:00", "1001", "NU", 1);
    EXPECT_EQ(ledger("I").size(), 1);
    EXPECT_EQ(ledger("O").size(), 0);
    account = value("SELECT TOP 1 IdNum FROM BILLING..tbDailyBill WHERE IdNum LIKE 'O%' ORDER BY IdNum");
    EXPECT_EQ(ledger("I").size(), 0);
    EXPECT_GT(ledger("O").size(), 0);
}

TEST_F(LedgerOfAnAccount, AnAnswerToANoticeIsKeptOnceAStay) {
    const QString notice = value("SELECT TOP 1 IdNum FROM STATION..tbDischargeNotice ORDER BY IdNum");
    const auto waiting = [&] { return value("Nuclear..spNuclear_LoadDischargeNoticeCount").toInt(); };
    const int before = waiting();
    for (const char* remark : {"FIRST", "SECOND"})
        run(QStringLiteral("Nuclear..spNuclear_ClearPatientForDischarge '%1','%2','1001'")
                .arg(notice, QLatin1String(remark)));
    EXPECT_EQ(waiting(), before - 1);
    const ado::Rows found =
        rows(QStringLiteral("Nuclear..spNuclear_LoadDischargeNoticePatient '%1'").arg(notice));
    ASSERT_EQ(found.count(), 1);
    EXPECT_EQ(cell(found, 0, "ClearRemarks"), QStringLiteral("SECOND"));
    EXPECT_EQ(cell(found, 0, "UserID"), QStringLiteral("1001"));
}

TEST_F(LedgerOfAnAccount, OnlyWhatWaitsIsPending) {
    const QString pending =
        value("SELECT TOP 1 IdNum FROM STATION..tbNurseCommunicationFile WHERE RecordStatus = 'N' "
              "AND RevenueID = 'NU' ORDER BY IdNum");
    const auto found = [&](const char* department) {
        return rows(QStringLiteral("RADIOLOGY..spRadio_PendingRequestPatient '%1','%2'")
                        .arg(pending, QLatin1String(department)))
            .count();
    };
    EXPECT_GT(found("NU"), 0);
    EXPECT_EQ(found("RA"), 0);
    run(QStringLiteral("UPDATE STATION..tbNurseCommunicationFile SET RecordStatus = 'X' WHERE IdNum = '%1'")
            .arg(pending));
    EXPECT_EQ(found("NU"), 0);
}

} // namespace
