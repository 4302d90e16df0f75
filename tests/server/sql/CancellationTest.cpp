// What a cancelled line leaves on the bill, the stock card, the receipts, the wards' log book: once, wherever
// it was charged and however often it is taken back.
#include "tests/server/sql/Hospital.h"

namespace {

const QString admitted = QStringLiteral("26004001");

class Cancellation : public tests::Hospital {
  protected:
    /// A request of the slip C77J, filed as the request screens do it.
    void request(const char* number, const char* item, const char* revenue, const QString& ward = {},
                 const QString& idNum = admitted, const char* slip = "C77J") {
        run(QStringLiteral("sp_Nuclear_AddRequest '104001','%1','%2', '%3','100','204','I', '%4','1001','%5',"
                           "'','1', '','%6'")
                .arg(idNum, number, item, slip, ward, revenue));
    }
    void log(const char* number, const char* item, const char* revenue) {
        run(QStringLiteral("sp_addnurselogbook '104001','%1', '%2','LINE','100', '1001','1001', "
                           "'C77J','%3','I','%4','1'")
                .arg(admitted, item, revenue, number));
    }
    void charge(const char* item, const char* revenue = "NU") {
        run(QStringLiteral(
                "sp_addbill 'I','%1','11/21/2026 08:30:00 AM','C77J', '%2','100','%3','1001','1','','', "
                "'104001'")
                .arg(admitted, item, revenue));
    }
    void takeOut(const char* item, const char* location = "224") {
        run(QStringLiteral(
                "INVENTORY..sp_AppendStockCard '104001','%1','%2','11/21/2026 08:30','C77J',3,0,100,"
                "'1001','PRN','201','%3','','',0,'CS','CS','',NULL,NULL,NULL,'O'")
                .arg(admitted, item, location));
    }
    void reverse(const char* item, const char* revenue = "NU", int quantity = 1) {
        run(QStringLiteral(
                "sp_addbill 'I','%1','11/21/2026 09:30:00 AM','C77J',  '%2','-100','%3','1001','%4',"
                "'','D'")
                .arg(admitted, item, revenue)
                .arg(quantity));
    }
    /// What the re-print lists of the slip, latest first.
    QStringList charged(const char* column) {
        const ado::Rows all = rows(QStringLiteral("sp_Nuclear_ChargesbyPatient '%1'").arg(admitted));
        QStringList found;
        for (qsizetype row = 0; row < all.count(); ++row) {
            if (cell(all, row, "RefNum") == "C77J")
                found += cell(all, row, column);
        }
        return found;
    }
    void takeBack(const char* item) {
        run(QStringLiteral("sp_AppendStockCard 'PC','104001','%1','%2','11/21/2026 09:00:00 AM','PC', "
                           "'C77J','3','-100','1001','PRN','179'")
                .arg(admitted, item));
    }
    int reversals() { return count("BILLING..tbDailyBill", "RefNum = 'C77J' AND Marker = 'D'"); }
    int returns() { return count("INVENTORY..tbInvStockCard", "RefNum = 'C77J' AND Direction = 'I'"); }
    double billed() {
        return value("SELECT ISNULL(SUM(Amount), 0) FROM BILLING..tbDailyBill WHERE RefNum = 'C77J'")
            .toDouble();
    }
    double onHand(const char* item, const char* location = "224") {
        return value(QStringLiteral(
                         "SELECT ISNULL(SUM(OnHand), 0) FROM INVENTORY..tbInvStock WHERE ItemID = '%1' AND "
                         "LocationID = '%2'")
                         .arg(item, location))
            .toDouble();
    }
    QString status(const char* number) {
        return value(
            QStringLiteral("SELECT RequestStatus FROM tbNucMaster WHERE RequestNum = '%1'").arg(number));
    }
    QString logged(const char* number) {
        return value(
            QStringLiteral("SELECT RecordStatus FROM STATION..tbNurseLogBook WHERE RequestNum = '%1'")
                .arg(number));
    }
};

TEST_F(Cancellation, AChargeIsReversedOnceHoweverOftenItIsTried) {
    charge("1001");
    for (int i = 0; i < 3; ++i)
        reverse("1001");
    EXPECT_EQ(reversals(), 1);
    EXPECT_EQ(billed(), 0);
}

TEST_F(Cancellation, WhatWasNeverChargedIsNotReversed) {
    charge("1001");
    reverse("1004");
    EXPECT_EQ(reversals(), 0);
    EXPECT_EQ(billed(), 100);
}

TEST_F(Cancellation, TheSameItemTwiceOnASlipIsReversedTwice) {
    charge("1001");
    charge("1001");
    reverse("1001");
    EXPECT_EQ(billed(), 100);
    reverse("1001");
    reverse("1001");
    EXPECT_EQ(billed(), 0);
    EXPECT_EQ(reversals(), 2);
}

TEST_F(Cancellation, StockComesBackOnceAndToWhereItCameFrom) {
    const double before = onHand("40003");
    takeOut("40003");
    for (int i = 0; i < 3; ++i)
        takeBack("40003");
    EXPECT_EQ(onHand("40003"), before);
    EXPECT_EQ(onHand("40003", "179"), 0);
    EXPECT_EQ(returns(), 1);
    takeBack("40001");
    EXPECT_EQ(returns(), 1) << "what was never taken out does not come back";
}

/// The programs go by the section of the last line that anybody saved on the desk, so a line may be sent the
/// other way.
TEST_F(Cancellation, ALineIsReversedWhereItWasChargedWhicheverWayItIsSent) {
    charge("201", "MD");
    takeBack("201");
    takeBack("201");
    EXPECT_EQ(billed(), 0);
    EXPECT_EQ(value("SELECT RevenueID FROM BILLING..tbDailyBill WHERE RefNum = 'C77J' AND Marker = 'D'"),
              "MD");
    EXPECT_EQ(returns(), 0);

    const double before = onHand("40003");
    takeOut("40003");
    reverse("40003", "UR", 3);
    reverse("40003", "UR", 3);
    EXPECT_EQ(onHand("40003"), before);
    EXPECT_EQ(returns(), 1);
    EXPECT_EQ(reversals(), 1) << "the fee's alone";
}

TEST_F(Cancellation, TheLatestSlipIsListedFirstAndItsLinesInTheirOrder) {
    log("90001", "1001", "NU");
    log("90002", "1004", "NU");
    log("90003", "1005", "NU");
    // a save that ran over a second's end
    run(QStringLiteral(
        "UPDATE STATION..tbNurseLogBook SET RequestDate = DATEADD(second, 1, RequestDate) WHERE "
        "RequestNum = '90002'"));
    run(QStringLiteral(
        "UPDATE STATION..tbNurseLogBook SET RequestDate = DATEADD(second, 2, RequestDate) WHERE "
        "RequestNum = '90003'"));
    EXPECT_EQ(charged("ItemID"), (QStringList{"1001", "1004", "1005"}));

    run(QStringLiteral(
        "UPDATE STATION..tbNurseLogBook SET ReferenceNum = 'C76J', RequestDate = DATEADD(minute, 1, "
        "RequestDate) WHERE RequestNum = '90002'"));
    const ado::Rows all = rows(QStringLiteral("sp_Nuclear_ChargesbyPatient '%1'").arg(admitted));
    EXPECT_EQ(cell(all, 0, "RefNum"), "C76J");
    EXPECT_EQ(cell(all, 1, "ItemID"), "1001");
}

TEST_F(Cancellation, TheLogBookSaysThatTheLineWasCancelled) {
    request("90001", "1001", "NU", "90001");
    request("90002", "40003", "UR", "7000099"); // a ward's
    log("90001", "1001", "NU");
    log("7000099", "40003", "UR");
    log("90003", "1004", "NU");
    charge("1001");
    takeOut("40003");
    ASSERT_EQ(charged("ItemID").count(), 3);
    run("UPDATE tbNucMaster SET RequestStatus = 'R' WHERE RequestNum IN ('90001', '90002')");
    reverse("1001");
    takeBack("40003");
    EXPECT_EQ(logged("90001"), "R");
    EXPECT_EQ(logged("7000099"), "R");
    EXPECT_EQ(logged("90003"), "X");
    EXPECT_EQ(charged("ItemID"), QStringList{"1004"});
}

/// A line that was added to a ward's request by hand has no number of the ward.
TEST_F(Cancellation, ARequestWithoutAWardsNumberGoesByItsOwnAndIsRevokedWithItsCharge) {
    request("90001", "1001", "NU");
    request("90009", "1001", "NU", {}, QStringLiteral("26004002"), "C78J");
    charge("1001");
    const ado::Rows found = rows("sp_Nuclear_getCancelRequest_new '90001', 4 ");
    ASSERT_EQ(found.count(), 1);
    EXPECT_EQ(cell(found, 0, "NurseRequestNum"), "90001");
    reverse("1001");
    EXPECT_EQ(status("90001"), "R");
    EXPECT_EQ(status("90009"), "") << "a stranger's";
}

TEST_F(Cancellation, AReceiptsLineIsTakenOffOnceForEachRevokedRequest) {
    for (int i = 0; i < 2; ++i)
        run(QStringLiteral("spNuclear_AddCashAsses 'W1001','','CRUZ, JUAN D','11/21/2026 08:30:00 AM', "
                           "'NU999%1','1001','5200', '1001','NU7777','NU'  ,'', '204','1'")
                .arg(i));
    run("UPDATE BILLING..tbCashAssessment SET ORNumber = 'OR555', RecordStatus = '1' WHERE RefNum = "
        "'NU7777'");
    request("90001", "1001", "NU", {}, {}, "OR555");
    request("90002", "1001", "NU", {}, {}, "OR555");
    const auto taken = [&] {
        return count("BILLING..tbCashAssessment", "ORNumber = 'OR555' AND RecordStatus = 'X'");
    };
    run("UPDATE tbNucMaster SET RequestStatus = 'R' WHERE RequestNum = '90001'");
    run("spGlobal_CashUpdate 'OR555','NU','1001',''");
    run("spGlobal_CashUpdate 'OR555','NU','1001',''");
    EXPECT_EQ(taken(), 1);
    run("UPDATE tbNucMaster SET RequestStatus = 'R' WHERE RequestNum = '90002'");
    // whatever section the desk is in
    run("spGlobal_CashUpdate 'OR555','MD','1001',''");
    EXPECT_EQ(taken(), 2);
}

TEST_F(Cancellation, AReadersPaymentIsTakenBackOnce) {
    run("INSERT INTO CARDIO..tbReaderPayment (DoctorID, RevenueID, RefNum, ItemID, Amount, PaidDate) VALUES "
        "('201', 'MD', 'C77J', '1001', 300, '2026-11-16')");
    for (int i = 0; i < 2; ++i)
        run("CARDIO..spGlobal_CashUpdate 'C77J','NU','1001',''");
    EXPECT_EQ(value("SELECT SUM(Amount) FROM CARDIO..tbReaderPayment WHERE RefNum = 'C77J'").toDouble(), 0);
    EXPECT_EQ(count("CARDIO..tbReaderPayment", "RefNum = 'C77J'"), 2);
}

/// A number in full finds, an empty one nothing: the screen asks with it when no row is chosen.
TEST_F(Cancellation, NothingIsFoundWithoutANumber) {
    request("90001", "1001", "NU", {}, {}, "");
    for (const char* mode : {"2", "3", "4"})
        EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_GetCancelRequest_new'',%1").arg(mode)).count(), 0) << mode;
}

TEST_F(Cancellation, NamesComeInOrderAndEndAt200) {
    const ado::Rows all = rows("sp_Nuclear_GetCancelRequest_new'',1");
    ASSERT_GT(all.count(), 20);
    EXPECT_LE(all.count(), 200);
    run("INSERT INTO PATIENT_DATA..tbCashPatient (hospnum, LastName, FirstName) VALUES ('W9001', 'AAA`S', "
        "'JUAN')");
    for (const char* number : {"90001", "90002"})
        run(QStringLiteral(
                "sp_Nuclear_AddRequest 'W9001','','%1', '1001','100','204','I', 'OR1','1001','','','1', "
                "'','NU'")
                .arg(number));
    const ado::Rows found = rows("sp_Nuclear_GetCancelRequest_new'AAA`',1");
    ASSERT_EQ(found.count(), 2);
    EXPECT_EQ(cell(found, 0, "RequestNum"), "90002") << "latest first";
    EXPECT_EQ(cell(rows("sp_Nuclear_GetCancelRequest_new'',1"), 0, "Last Name"), "AAA`S");
}

/// Lines that lie in the work table since the slip was printed first.
TEST_F(Cancellation, AReprintLeavesOutWhatWasCancelledMeanwhile) {
    log("90001", "1001", "NU");
    log("90002", "1004", "NU");
    for (const char* item : {"1001", "1004"})
        run(QStringLiteral("sp_Nuclear_ChargesbySlip 'C77J','%1','1001'").arg(item));
    run("UPDATE STATION..tbNurseLogBook SET RecordStatus = 'R' WHERE RequestNum = '90002'");
    run("sp_Nuclear_ChargesbySlip 'C77J','1001','1001'");
    EXPECT_EQ(value("SELECT COUNT(*) FROM tbNucChargeSlip"), "1");
}

TEST_F(Cancellation, AFeeGoesByTheDoctorOfItsSlip) {
    request("90001", "1001", "NU", "90001");
    log("90001", "1001", "NU");
    log("90002", "201", "MD");
    const QStringList doctors = charged("requestdoctorname");
    ASSERT_EQ(doctors.count(), 2);
    EXPECT_NE(doctors[0], "<Null>");
    EXPECT_EQ(doctors[0], doctors[1]);
}

/// The status screen sends a name back when it prints the slip again.
TEST_F(Cancellation, AnAssessmentsNamesCanBeSentBack) {
    run("UPDATE BUILD_FILE..tbcoNucExam SET NucExam = 'MECKEL''S SCAN' WHERE NucExamID = '1001'");
    run("spNuclear_AddCashAsses 'W1001','','O''HARA, JUAN','11/21/2026 08:30:00 AM', "
        "'NU9999','1001','5200', '1001','NU7777','NU'  ,'', '204','1'");
    const ado::Rows found = rows("sp_Nuclear_AssessmentStatus 'O`HARA'");
    ASSERT_EQ(found.count(), 1);
    EXPECT_EQ(cell(found, 0, "Exam"), "MECKEL`S SCAN");
}

} // namespace
