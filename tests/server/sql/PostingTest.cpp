#include "tests/server/sql/Hospital.h"

#include "platform/ado/Batch.h"
#include "platform/ado/Recordset.h"
#include "platform/base/Error.h"

namespace {

class Posting : public tests::Hospital {
  protected:
    QString admitted() {
        return value(
            QStringLiteral("SELECT TOP 1 P.IdNum FROM PATIENT_DATA..tbPatient P WHERE P.DcrDate IS NULL AND "
                           "P.BillingDate IS NULL ORDER BY P.IdNum"));
    }
};

TEST_F(Posting, NumbersAreReadThenAdvanced) {
    const int slip = value(QStringLiteral("SELECT chargeslip FROM tbNucSlip")).toInt();
    const int request = value(QStringLiteral("SELECT requestnum FROM tbNucSlip")).toInt();
    run(QStringLiteral("sp_Nuclear_IncRefNum"));
    EXPECT_EQ(value(QStringLiteral("SELECT chargeslip FROM tbNucSlip")).toInt(), slip + 1);
    EXPECT_EQ(value(QStringLiteral("SELECT requestnum FROM tbNucSlip")).toInt(), request);
    run(QStringLiteral("sp_Nuclear_IncRequestNum"));
    EXPECT_EQ(value(QStringLiteral("SELECT requestnum FROM tbNucSlip")).toInt(), request + 1);
    // The demo's own requests lie below.
    EXPECT_EQ(
        count(QStringLiteral("tbNucMaster"), QStringLiteral("CAST(RequestNum AS int) >= %1").arg(request)),
        0);
}

TEST_F(Posting, ARequestIsFiledAsItWasSent) {
    run(QStringLiteral("sp_Nuclear_AddRequest '104001','26004001','90001', '1001','1250.5','204','I', "
                       "'C77J','1001','7000009','','2', '','NU'"));
    const ado::Rows filed = rows(QStringLiteral("SELECT * FROM tbNucMaster WHERE RequestNum = '90001'"));
    ASSERT_EQ(filed.count(), 1);
    EXPECT_EQ(cell(filed, 0, "HospNum"), QStringLiteral("104001"));
    EXPECT_EQ(cell(filed, 0, "RefNum"), QStringLiteral("C77J"));
    EXPECT_EQ(cell(filed, 0, "NurseRequestNum"), QStringLiteral("7000009"));
    EXPECT_EQ(cell(filed, 0, "RequestDocCode"), QStringLiteral("204"));
    EXPECT_EQ(cell(filed, 0, "RequestStatus"), QString());
    EXPECT_EQ(value(QStringLiteral("SELECT Amount FROM tbNucMaster WHERE RequestNum = '90001'")).toDouble(),
              1250.5);
    EXPECT_EQ(value(QStringLiteral("SELECT Quantity FROM tbNucMaster WHERE RequestNum = '90001'")).toDouble(),
              2);
    EXPECT_TRUE(tests::isServerNow(
        *rows(QStringLiteral("SELECT TransDate FROM tbNucMaster WHERE RequestNum = '90001'"))
             .at(0, 0)
             .asDateTime()));
}

TEST_F(Posting, ANumberThatTwoDrewIsRefusedTheSecondTime) {
    const QString text = QStringLiteral("sp_Nuclear_AddRequest '104001','26004001','90001', "
                                        "'1001','1','204','I', '%1','1001','%2','','1', '','NU'");
    run(text.arg("C77J", "7000009"));
    run(text.arg("C77J", "90001")); // the same line again, in the same save
    EXPECT_EQ(count(QStringLiteral("NUCLEAR..tbNucMaster"),
                    QStringLiteral("RequestNum = '90001' AND NurseRequestNum = '90001'")),
              1);
    try {
        run(text.arg("C78J", "90001"));
        FAIL() << "the second request of a number was taken";
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 2627);
    }
}

TEST_F(Posting, TwoDesksThatDrewTheSameNumbersLoseNoRequest) {
    const QString text = QStringLiteral("sp_Nuclear_AddRequest '%1','%2','90001', '1001','%3','204','I', "
                                        "'C77J','1001','90001','','1', '','NU'");
    const auto refused = [&](const char* hospNum, const char* idNum) {
        try {
            run(text.arg(hospNum, idNum, "999"));
        } catch (const base::RunTimeError& error) {
            return error.number();
        }
        return 0;
    };
    run(text.arg("104001", "26004001", "1250"));
    EXPECT_EQ(refused("104002", "26004002"), 2627);
    EXPECT_EQ(refused("104001", "26004002"), 2627);
    EXPECT_EQ(refused("104002", "26004001"), 2627);
    EXPECT_EQ(count(QStringLiteral("NUCLEAR..tbNucMaster"),
                    QStringLiteral("RequestNum = '90001' AND HospNum = '104001' AND IdNum = '26004001' AND "
                                   "Amount = 1250")),
              1);
}

TEST_F(Posting, AnEmptyRowTakesALogBookLine) {
    run(QStringLiteral(
        "sp_addnurselogbook '104001','26004001', '','','0', '1001','1001', 'C77J','','I','90002','0'"));
    EXPECT_EQ(count(QStringLiteral("STATION..tbNurseLogBook"),
                    QStringLiteral("RequestNum = '90002' AND ItemID = '' AND RecordStatus = 'X'")),
              1);
}

TEST_F(Posting, ABillAndItsReversal) {
    run(QStringLiteral("sp_addbill 'I','26004001','11/21/2026 08:30:00 AM','C77J', "
                       "'1001','5200','NU','1001','1','','', '104001'"));
    run(QStringLiteral(
        "sp_addbill 'I','26004001','11/21/2026 09:30:00 PM','C77J',  '1001','-5200','NU','1001','1','','D'"));
    const ado::Rows bill =
        rows(QStringLiteral("SELECT * FROM BILLING..tbDailyBill WHERE RefNum = 'C77J' ORDER BY BillID"));
    ASSERT_EQ(bill.count(), 2);
    EXPECT_EQ(cell(bill, 0, "Marker"), QString());
    EXPECT_EQ(cell(bill, 1, "Marker"), QStringLiteral("D"));
    EXPECT_EQ(cell(bill, 1, "HospNum"), QStringLiteral("104001"));
    EXPECT_EQ(value(QStringLiteral("SELECT SUM(Amount) FROM BILLING..tbDailyBill WHERE RefNum = 'C77J'"))
                  .toDouble(),
              0);
    EXPECT_EQ(value(QStringLiteral("SELECT TransDate FROM BILLING..tbDailyBill WHERE RefNum = 'C77J' AND "
                                   "Marker = 'D'")),
              QStringLiteral("11/21/2026 9:30:00 PM"));
}

TEST_F(Posting, TheWardsEntryIsWrittenBack) {
    const ado::Rows waiting = rows(QStringLiteral("sp_Nuclear_NurseCommunication"));
    ASSERT_GT(waiting.count(), 5);
    const QString idNum = cell(waiting, 0, "Adm.No.");
    const QString request = cell(waiting, 0, "RequestNum");
    const QString exam = cell(waiting, 0, "ExamCode");
    const QString type = cell(waiting, 0, "PatientType");
    const qsizetype before = waiting.count();
    ado::Connection connection;
    connect(connection);
    ado::Recordset communication;
    communication.setUniqueTable(QStringLiteral("STATION..tbNurseCommunicationFile"));
    communication.Open(
        ado::sql("sp_checknursecommunicationfile '0','{}','NU','{}','{}','{}'", type, exam, idNum, request),
        connection, ado::CursorType::Dynamic, ado::LockType::Optimistic);
    ASSERT_EQ(communication.RecordCount(), 1);
    communication.Fields("referencenum").setValue(QStringLiteral("C77J"));
    communication.Fields("RecordStatus").setValue(QStringLiteral("X"));
    communication.Update();
    ado::Recordset logBook;
    logBook.setUniqueTable(QStringLiteral("STATION..tbNurseLogBook"));
    logBook.Open(ado::sql("sp_checknurselogbook '0','{}','{}','NU','{}','{}'", type, idNum, exam, request),
                 connection, ado::CursorType::Dynamic, ado::LockType::Optimistic);
    ASSERT_EQ(logBook.RecordCount(), 1);
    logBook.Fields("referencenum").setValue(QStringLiteral("C77J"));
    logBook.Fields("RecordStatus").setValue(QStringLiteral("X"));
    logBook.Fields("processby").setValue(QStringLiteral("1001"));
    logBook.Fields("processdate").setValue(base::now());
    logBook.Update();

    const auto other = workstation(QStringLiteral("DESK2"));
    EXPECT_EQ(ado::runBatch(*other, QStringLiteral("sp_Nuclear_NurseCommunication")).rows.count(),
              before - 1);
    const ado::Rows written =
        ado::runBatch(*other,
                      QStringLiteral("SELECT * FROM STATION..tbNurseLogBook WHERE ReferenceNum = 'C77J'"))
            .rows;
    ASSERT_EQ(written.count(), 1);
    EXPECT_EQ(cell(written, 0, "ProcessBy"), QStringLiteral("1001"));
    EXPECT_EQ(cell(written, 0, "RequestNum"), request);
    // Posted once, it is not there to be posted again; cancelling still finds it.
    const QString posted = QStringLiteral("sp_checknurselogbook '%1','%2','%3','NU','%4','%5'");
    EXPECT_EQ(ado::runBatch(*other, posted.arg(QStringLiteral("0"), type, idNum, exam, request)).rows.count(),
              0);
    EXPECT_EQ(ado::runBatch(*other, posted.arg(QStringLiteral("1"), type, idNum, exam, request)).rows.count(),
              1);
}

TEST_F(Posting, WriteBackOfTheNumberRows) {
    ado::Connection connection;
    connect(connection);
    ado::Recordset assessment;
    assessment.Open(ado::sql("SELECT *,getdate() as [server date] FROM BILLING..tbAssessmentNum"), connection,
                    ado::CursorType::Dynamic, ado::LockType::Optimistic);
    const qint64 number = *assessment.Fields("assessmentnum").Value().asInteger();
    assessment.Fields("assessmentnum").setValue(number + 1);
    assessment.Update();
    ado::Recordset walkIn;
    walkIn.Open(ado::sql("SELECT * FROM PATIENT_DATA..tbLastWalkInNum"), connection, ado::CursorType::Dynamic,
                ado::LockType::Optimistic);
    EXPECT_EQ(walkIn.Fields("lastopd").text(), QStringLiteral("W1030"));
    walkIn.Fields("lastopd").setValue(QStringLiteral("W1031"));
    walkIn.Fields("transnum").setValue(1031);
    walkIn.Update();
    const auto other = workstation(QStringLiteral("DESK2"));
    EXPECT_EQ(*ado::runBatch(*other, QStringLiteral("SELECT assessmentnum FROM BILLING..tbAssessmentNum"))
                   .rows.at(0, 0)
                   .asInteger(),
              number + 1);
    EXPECT_EQ(*ado::runBatch(*other, QStringLiteral("SELECT lastopd FROM PATIENT_DATA..tbLastWalkInNum"))
                   .rows.at(0, 0)
                   .asText(),
              QStringLiteral("W1031"));
}

TEST_F(Posting, StockFollowsTheCard) {
    const QString onHand =
        QStringLiteral("SELECT OnHand FROM INVENTORY..tbInvStock WHERE ItemID = '%1' AND LocationID = '%2'");
    const double before = value(onHand.arg(QStringLiteral("40003"), QStringLiteral("224"))).toDouble();
    run(QStringLiteral(
        "INVENTORY..sp_AppendStockCard '104001','26004001','40003','11/21/2026 08:30','C77J',3,0,34.5,'1001',"
        "'PRN','201','224','','',0,'CS','CS','',NULL,NULL,NULL,'O'"));
    EXPECT_EQ(value(onHand.arg(QStringLiteral("40003"), QStringLiteral("224"))).toDouble(), before - 3);
    const ado::Rows card =
        rows(QStringLiteral("SELECT * FROM INVENTORY..tbInvStockCard WHERE RefNum = 'C77J'"));
    ASSERT_EQ(card.count(), 1);
    EXPECT_EQ(cell(card, 0, "Dosage"), QStringLiteral("PRN"));
    EXPECT_EQ(cell(card, 0, "Direction"), QStringLiteral("O"));
    EXPECT_EQ(cell(card, 0, "ExpiryDate"), QStringLiteral("<Null>"));

    run(QStringLiteral("sp_AppendStockCard 'PC','104001','26004001','40003','11/21/2026 09:00:00 AM','PC', "
                       "'C77J','3','-34.5','1001','PRN','179'"));
    // Back to where it came from, whatever the caller named.
    EXPECT_EQ(value(onHand.arg(QStringLiteral("40003"), QStringLiteral("224"))).toDouble(), before);
    EXPECT_EQ(rows(onHand.arg(QStringLiteral("40003"), QStringLiteral("179"))).count(), 0);
}

TEST_F(Posting, StockWithoutALocationIsTheSectionsOwn) {
    run(QStringLiteral(
        "INVENTORY..sp_AppendStockCard '104001','26004001','30001','11/21/2026 08:30','C78J',1,0,48.5,'1001',"
        "'PRN','201','','','',0,'CS','CS','',NULL,NULL,NULL,'O'"));
    EXPECT_EQ(value(QStringLiteral("SELECT LocationID FROM INVENTORY..tbInvStockCard WHERE RefNum = 'C78J'")),
              QStringLiteral("179"));
}

TEST_F(Posting, TheChargeSlipOfAPrint) {
    run(QStringLiteral("delete from tbNucChargeSlip"));
    run(QStringLiteral(
        "sp_Nuclear_DumpChargeSlip '204','(PF) DR. SANTOS, ALBERTO','1','800','800', '1001', 'MD'"));
    EXPECT_EQ(value(QStringLiteral("SELECT Description FROM tbNucChargeSlip")),
              QStringLiteral("(PF) DR. SANTOS, ALBERTO"));
    run(QStringLiteral("DELETE tbNucChargeSlip"));
    EXPECT_EQ(value(QStringLiteral("SELECT COUNT(*) FROM tbNucChargeSlip")), QStringLiteral("0"));
}

TEST_F(Posting, AReprintHoldsOneSlipOnly) {
    run(QStringLiteral("sp_addnurselogbook '1','26004001', '1001','BONE SCAN','5200', '1001','1001', "
                       "'C91J','NU','I','90001','2'"));
    run(QStringLiteral("sp_addnurselogbook '1','26004001', '1004','THYROID','2400', '1001','1001', "
                       "'C91J','NU','I','90002','1'"));
    run(QStringLiteral("sp_Nuclear_DumpChargeSlip '1001','SOMEONE ELSE','1','1','1', '1002', 'NU'"));
    for (const char* item : {"1001", "1004", "1001"})
        run(QStringLiteral("sp_Nuclear_ChargesbySlip 'C91J','%1','1001'").arg(QLatin1String(item)));
    const ado::Rows lines = rows(QStringLiteral("SELECT * FROM tbNucChargeSlip ORDER BY ItemID"));
    ASSERT_EQ(lines.count(), 2);
    EXPECT_EQ(value(QStringLiteral("SELECT Price FROM tbNucChargeSlip WHERE ItemID = '1001'")).toDouble(),
              2600);
}

TEST_F(Posting, UnusedPackageItems) {
    run(QStringLiteral("STATION..sp_Save_PackageItems_Unused "
                       "'26004001','N01','1005','NU','1','33.3333333333333','','1001','C77J'"));
    EXPECT_EQ(count(QStringLiteral("STATION..tbPackageItemsUnused"),
                    QStringLiteral("PackageID = 'N01' AND ReferenceNum = 'C77J'")),
              1);
}

TEST_F(Posting, WardsNumbersRiseInTheirOwnSeries) {
    const int last = value(QStringLiteral("SELECT RequestNum FROM STATION..tbNurseRequestNum")).toInt();
    EXPECT_GE(last, 7000000);
    run(QStringLiteral("STATION..Nurse_AppendNurseLogBook "
                       "'104001','%1','I','30001','48.5','1','PRN','PH','11/21/2026 08:30:00 AM',"
                       "'PH','204','','1001','','FUROSEMIDE','NU','N','','0','0','0',0")
            .arg(admitted()));
    EXPECT_EQ(count(QStringLiteral("STATION..tbNurseLogBook"),
                    QStringLiteral("RequestNum = '%1' AND RecordStatus = 'N'").arg(last + 1)),
              1);
    EXPECT_EQ(
        rows(QStringLiteral("STATION..Nurse_CheckExamStatus '%1','30001','PH'").arg(admitted())).count(), 1);
    EXPECT_EQ(
        rows(QStringLiteral("STATION..Nurse_CheckExam_Posted '%1','30001','PH'").arg(admitted())).count(), 0);
    run(QStringLiteral("UPDATE STATION..tbNurseLogBook SET RecordStatus = 'X', ProcessDate = GETDATE() WHERE "
                       "RequestNum = '%1'")
            .arg(last + 1));
    EXPECT_EQ(
        rows(QStringLiteral("STATION..Nurse_CheckExamStatus '%1','30001','PH'").arg(admitted())).count(), 0);
    EXPECT_EQ(
        rows(QStringLiteral("STATION..Nurse_CheckExam_Posted '%1','30001','PH'").arg(admitted())).count(), 1);
}

TEST_F(Posting, AWardsRequestCanBeRevoked) {
    const ado::Rows waiting = rows(QStringLiteral("sp_Nuclear_NurseCommunication"));
    run(QStringLiteral("sp_Nuclear_CancelNurseRequest '%1','%2'")
            .arg(cell(waiting, 0, "Adm.No."), cell(waiting, 0, "RequestNum")));
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_NurseCommunication")).count(), waiting.count() - 1);
}

TEST_F(Posting, AssessmentsAreAddedOnceAndLinkedByReceipt) {
    EXPECT_EQ(rows(QStringLiteral("spNuclear_CheckCashAsses 'NU','1001','NU7777'")).count(), 0);
    run(QStringLiteral("spNuclear_AddCashAsses 'W1001','','CRUZ, JUAN D','11/21/2026 08:30:00 AM', "
                       "'NU9999','1001','5200', '1001','NU7777','NU'  ,'', '204','1'"));
    run(QStringLiteral("spNuclear_AddCashAsses 'W1001','','CRUZ, JUAND','11/21/2026 08:30:00 AM', "
                       "'NU9998','201','800', '1001','NU7777','MD','NU', '204','1'"));
    EXPECT_EQ(rows(QStringLiteral("spNuclear_CheckCashAsses 'NU','1001','NU7777'")).count(), 1);
    EXPECT_EQ(rows(QStringLiteral("spNuclear_CheckCashAsses 'MD','201','NU7777'")).count(), 1);
    EXPECT_EQ(rows(QStringLiteral("spNuclear_CheckCashAsses 'MD','1001','NU7777'")).count(), 0);
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_CashLink 'OR555'")).count(), 0);
    run(QStringLiteral("UPDATE BILLING..tbCashAssessment SET ORNumber = 'OR555', RecordStatus = '1' WHERE "
                       "RefNum = 'NU7777'"));
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_CashLink 'OR555'")).count(), 2);
    const ado::Rows lines = rows(QStringLiteral("sp_Nuclear_getcashexam 'OR555'"));
    ASSERT_EQ(lines.count(), 2);
    EXPECT_EQ(cell(lines, 1, "Exam"), QStringLiteral("(PF) DR. SANTOS, ALBERTO"));
    const ado::Rows status = rows(QStringLiteral("sp_Nuclear_AssessmentStatus 'CRUZ, JUAN'"));
    EXPECT_EQ(cell(status, 0, "RefNum"), QStringLiteral("OR555"));
    EXPECT_EQ(cell(status, 0, "Status"), QStringLiteral("PAID"));
    run(QStringLiteral("sp_Nuclear_RevokeAssessment '%1'").arg(cell(status, 0, "AssessID")));
    EXPECT_EQ(cell(rows(QStringLiteral("sp_Nuclear_AssessmentStatus 'CRUZ, JUAN'")), 0, "Status"),
              QStringLiteral("PAID"));
    run(QStringLiteral("spGlobal_CashUpdate 'OR555','NU','1001',''"));
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_CashLink 'OR555'")).count(), 1);
}

TEST_F(Posting, AnAssessmentThatWasRevokedIsNoneToTheCheck) {
    const QString add =
        QStringLiteral("spNuclear_AddCashAsses '104078','T104078C','AGUILAR, VIRGILIO AVELINO','11/21/2026 "
                       "08:30:00 AM', 'NU9999','1001','5200', '1001','NU7777','NU'  ,'', '204','1'");
    run(add);
    EXPECT_EQ(rows(QStringLiteral("spNuclear_CheckCashAsses 'NU','1001','NU7776'")).count(), 0)
        << "another assessment";
    EXPECT_EQ(rows(QStringLiteral("spNuclear_CheckCashAsses 'NU','1001','NU7777'")).count(), 1);
    run(QStringLiteral("UPDATE BILLING..tbCashAssessment SET RecordStatus = 'R' WHERE RefNum = 'NU7777'"));
    EXPECT_EQ(rows(QStringLiteral("spNuclear_CheckCashAsses 'NU','1001','NU7777'")).count(), 0);
}

TEST_F(Posting, TwoWorkstationsNeverDrawTheSameNumber) {
    const auto other = workstation(QStringLiteral("DESK2"));
    const auto draw = [](ado::Provider& provider) {
        provider.begin();
        const qint64 number = *ado::runBatch(provider, QStringLiteral("SELECT requestnum FROM tbNucSlip"))
                                   .rows.at(0, 0)
                                   .asInteger();
        ado::runBatch(provider, QStringLiteral("sp_Nuclear_IncRequestNum"));
        provider.commit();
        return number;
    };
    const qint64 first = draw(*m_provider);
    EXPECT_EQ(draw(*other), first + 1);
    EXPECT_EQ(draw(*m_provider), first + 2);
}

} // namespace
