#include "tests/server/sql/Hospital.h"

#include "platform/base/Error.h"

namespace {

class Results : public tests::Hospital {
  protected:
    void SetUp() override {
        run(QStringLiteral("sp_Nuclear_AddRequest '104001','26004001','90001', '1001','5200','204','I', "
                           "'C77J','1001','90001','','1', '','NU'"));
        run(QStringLiteral("sp_Nuclear_AddRequest '104001','26004001','90002', '1201','750','204','I', "
                           "'C77J','1001','90002','','1', '','NU'"));
    }
    void saveGeneric(const char* request, const char* caseNumber, const char* conclusion = "NORMAL") {
        run(QStringLiteral("sp_Nuclear_SaveResult '104001','26004001','%1','%2','I','201','205','1001',' 5 "
                           "mCi','Tc-99m MDP','I.V.','AP',"
                           "'REPORT','%3','NONE','60','165','1001','11/21/2026 8:45:00 AM','REMARK'")
                .arg(QLatin1String(request), QLatin1String(caseNumber), QLatin1String(conclusion)));
    }
    /// "a0" to "a20" in the first boxes, the sixth left empty; "b0" to "b21" in the second ones.
    void saveRadio(const char* request, const char* caseNumber,
                   const QString& technologist = QStringLiteral("TECH")) {
        QStringList first;
        QStringList second;
        for (int i = 0; i < 22; ++i) {
            first << (i == 5 ? QString() : QStringLiteral("a%1").arg(i == 21 ? 20 : i));
            second << QStringLiteral("b%1").arg(i);
        }
        run(QStringLiteral(
                "sp_Nuclear_SaveResultRadio '104001','26004001','%1','%2','I','201','205','1201','5','','',"
                "'','60','165','1001','11/21/2026 8:30:00 AM','%3', '%4'")
                .arg(QLatin1String(request), QLatin1String(caseNumber),
                     (first + second).join(QStringLiteral("', '")), technologist));
    }
    QString status(const char* request) {
        return value(QStringLiteral("SELECT RequestStatus FROM tbNucMaster WHERE RequestNum = '%1'")
                         .arg(QLatin1String(request)));
    }
};

TEST_F(Results, ASavedResultMovesTheRequestAndTheLogBook) {
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_getRequest '104001'")).count() >= 2, true);
    saveGeneric("90001", "26-90001");
    EXPECT_EQ(status("90001"), QStringLiteral("W"));
    const ado::Rows result =
        rows(QStringLiteral("SELECT * FROM NUCLEAR..tbNucResult WHERE RequestNum = '90001'"));
    ASSERT_EQ(result.count(), 1);
    EXPECT_EQ(cell(result, 0, "dose"), QStringLiteral(" 5 mCi"));
    EXPECT_EQ(cell(result, 0, "Interpretation"), QStringLiteral("REPORT"));
    EXPECT_EQ(cell(result, 0, "Remarks"), QStringLiteral("REMARK"));
    EXPECT_EQ(
        count(QStringLiteral("tbNucLogBook"), QStringLiteral("CaseNumber = '26-90001' AND Status <> 'R'")),
        1);
    EXPECT_EQ(
        value(QStringLiteral(
            "SELECT COUNT(*) FROM STATION..tbNucLogBook WHERE CaseNumber = '26-90001' AND Status <> 'R'")),
        QStringLiteral("1"));
    const ado::Rows listed = rows(QStringLiteral("sp_Nuclear_GetResult '104001'"));
    EXPECT_EQ(cell(listed, 0, "FileNumber"), QStringLiteral("26-90001"));
    EXPECT_EQ(cell(listed, 0, "ResultDate"), QStringLiteral("11/21/2026"));
    const ado::Rows entry = rows(QStringLiteral("sp_Nuclear_ResultEntry '90001'"));
    ASSERT_EQ(entry.count(), 1);
    EXPECT_EQ(cell(entry, 0, "requeststatus"), QStringLiteral("W"));
    EXPECT_EQ(cell(entry, 0, "AttendingDocCode"), QStringLiteral("201"));
    EXPECT_EQ(cell(entry, 0, "requestdoccode"), QStringLiteral("205"));
    EXPECT_EQ(cell(entry, 0, "NurseRequestNum"), QStringLiteral("90001"));
}

TEST_F(Results, ChangingAResultKeepsOneRowOfEach) {
    saveGeneric("90001", "26-90001");
    saveGeneric("90001", "26-90002", "ABNORMAL");
    EXPECT_EQ(value(QStringLiteral("SELECT Conclusion FROM tbNucResult WHERE RequestNum = '90001'")),
              QStringLiteral("ABNORMAL"));
    EXPECT_EQ(value(QStringLiteral("SELECT CaseNumber FROM tbNucLogBook WHERE RequestNum = '90001'")),
              QStringLiteral("26-90002"));
}

TEST_F(Results, ACaseNumberBelongsToOneRequest) {
    saveGeneric("90001", "26-90001");
    try {
        saveGeneric("90002", "26-90001");
        FAIL() << "the case number was taken twice";
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 50001);
        EXPECT_EQ(error.description(), QStringLiteral("The Case Number you entered is already used."));
    }
    EXPECT_EQ(status("90002"), QString());
    EXPECT_EQ(count(QStringLiteral("tbNucResult"), QStringLiteral("RequestNum = '90002'")), 0);
}

TEST_F(Results, ARevokedResultFreesItsCaseNumber) {
    saveGeneric("90001", "26-90001");
    run(QStringLiteral("sp_Nuclear_CancelResult '90001'"));
    EXPECT_EQ(status("90001"), QString());
    EXPECT_EQ(
        count(QStringLiteral("tbNucLogBook"), QStringLiteral("CaseNumber = '26-90001' AND Status <> 'R'")),
        0);
    saveGeneric("90002", "26-90001");
    saveGeneric("90001", "26-90002");
    EXPECT_EQ(count(QStringLiteral("tbNucLogBook"), QStringLiteral("RequestNum = '90001'")), 2);
    EXPECT_EQ(status("90001"), QStringLiteral("W"));
}

TEST_F(Results, WhatWasRevokedIsKeptForTheAudit) {
    saveGeneric("90001", "26-90001", "WRONG PATIENT");
    run(QStringLiteral("sp_Nuclear_CancelResult '90001'"));
    run(QStringLiteral("sp_Nuclear_CancelResult '90001'"));
    saveGeneric("90001", "26-90001", "RIGHT");
    const ado::Rows kept =
        rows(QStringLiteral("SELECT * FROM tbNucRevokedResult WHERE RequestNum = '90001'"));
    ASSERT_EQ(kept.count(), 1);
    EXPECT_EQ(cell(kept, 0, "Conclusion"), QStringLiteral("WRONG PATIENT"));
    EXPECT_EQ(cell(kept, 0, "CaseNumber"), QStringLiteral("26-90001"));
    EXPECT_EQ(cell(kept, 0, "RevokeDate"), QStringLiteral("11/21/2026 8:30:00 AM"));
    EXPECT_EQ(cell(kept, 0, "Workstation"), QStringLiteral("DESK1"));
    EXPECT_EQ(value(QStringLiteral("SELECT Conclusion FROM tbNucResult WHERE RequestNum = '90001'")),
              QStringLiteral("RIGHT"));
    EXPECT_EQ(value(QStringLiteral("SELECT RevokeDate FROM tbNucLogBook WHERE RequestNum = '90001' AND "
                                   "Status = 'R'")),
              QStringLiteral("11/21/2026 8:30:00 AM"));
}

TEST_F(Results, ARevokedRadioImmunoassayKeepsBothItsSeries) {
    saveRadio("90002", "26-90002");
    run(QStringLiteral("sp_Nuclear_CancelResult '90002'"));
    const ado::Rows kept = rows(
        QStringLiteral("SELECT * FROM tbNucRevokedRadioResult WHERE RequestNum = '90002' ORDER BY Series"));
    ASSERT_EQ(kept.count(), 2);
    EXPECT_EQ(cell(kept, 0, "TSH"), QStringLiteral("a4"));
    EXPECT_EQ(cell(kept, 1, "TSH"), QStringLiteral("b4"));
    EXPECT_EQ(count(QStringLiteral("tbNucRevokedResult"), QStringLiteral("RequestNum = '90002'")), 0);
}

/// On paper there is none either: one that was taken out must not come back by itself.
TEST_F(Results, AResultSavedWithoutAnAttendingDoctorShowsNone) {
    const QString ask = QStringLiteral("sp_Nuclear_ResultEntry '90001'");
    EXPECT_NE(cell(rows(ask), 0, "AttendingDocCode"), QStringLiteral("<Null>")) << "the stay's";
    saveGeneric("90001", "26-90001");
    run(QStringLiteral("UPDATE tbNucResult SET AttendingDocCode = '' WHERE RequestNum = '90001'"));
    EXPECT_EQ(cell(rows(ask), 0, "AttendingDocCode"), QStringLiteral("<Null>"));
    run(QStringLiteral("UPDATE tbNucResult SET CardiologistCode = '204' WHERE RequestNum = '90001'"));
    EXPECT_NE(cell(rows(ask), 0, "AttendingDocCode"), QStringLiteral("<Null>"))
        << "a perfusion result has none of its own";
    EXPECT_EQ(cell(rows(ask), 0, "CardiologistCode"), QStringLiteral("204"));
}

TEST_F(Results, TheDoctorsOfARevokedResultAreOver) {
    const QString ask = QStringLiteral("sp_Nuclear_ResultEntry '90001'");
    const QString before = cell(rows(ask), 0, "requestdoccode");
    saveGeneric("90001", "26-90001");
    EXPECT_EQ(cell(rows(ask), 0, "requestdoccode"), QStringLiteral("205"));
    run(QStringLiteral("sp_Nuclear_CancelResult '90001'"));
    EXPECT_EQ(cell(rows(ask), 0, "requestdoccode"), before);
}

TEST_F(Results, ARequestThatWasCancelledTakesNoResult) {
    run(QStringLiteral("UPDATE tbNucMaster SET RequestStatus = 'R' WHERE RequestNum = '90001'"));
    try {
        saveGeneric("90001", "26-90001");
        FAIL() << "a cancelled request came back";
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 50003);
    }
    EXPECT_EQ(status("90001"), QStringLiteral("R"));
    EXPECT_EQ(count(QStringLiteral("tbNucLogBook"), QStringLiteral("RequestNum = '90001'")), 0);
    run(QStringLiteral("sp_Nuclear_CancelResult '90001'"));
    EXPECT_EQ(status("90001"), QStringLiteral("R"));
}

TEST_F(Results, NoTextIsCut) {
    const QString memo = QString(20'000, u'x');
    const QString line = QString(900, u'y');
    run(QStringLiteral(
            "sp_Nuclear_SaveResultMPI '104001','26004001','90001','26-90001','I','204','205','1024','%2',"
            "'%2','%1','%1','%1','%1','%1','%1','%2','%2','%2','%2','%2','%1','60','165','1001',"
            "'11/21/2026 8:30:00 AM','%1'")
            .arg(memo, line));
    const ado::Rows kept = rows(QStringLiteral("SELECT * FROM tbNucResult WHERE RequestNum = '90001'"));
    for (const char* column : {"ClinicalHistory", "Technique", "StressDetails", "StressImages",
                               "RestingImages", "QuantitativeData", "Conclusion", "Remarks"})
        EXPECT_EQ(cell(kept, 0, column).size(), memo.size()) << column;
    for (const char* column : {"Radiopharmaceutical", "Protocol", "Fraction", "WallMotion"})
        EXPECT_EQ(cell(kept, 0, column).size(), line.size()) << column;
    saveRadio("90002", "26-90002", line);
    EXPECT_EQ(value(QStringLiteral("SELECT Technologist FROM tbNucRadioResult WHERE RequestNum = '90002'")),
              line);
}

TEST_F(Results, PatientsAreFoundByNameAndByNumber) {
    const auto found = [this](const QString& text) {
        QStringList codes;
        const ado::Rows patients = rows(QStringLiteral("sp_Nuclear_RequestMaster '%1'").arg(text));
        for (qsizetype i = 0; i < patients.count(); ++i)
            codes << cell(patients, i, "HospNum");
        return codes;
    };
    const QString name =
        value(QStringLiteral("SELECT LastName FROM PATIENT_DATA..tbMaster WHERE HospNum = '104001'"));
    for (const QString& text :
         {name, name.left(3).toLower(), QStringLiteral("104001"), QStringLiteral("26004001"), QString()}) {
        EXPECT_EQ(found(text).count(QStringLiteral("104001")), 1) << text.toStdString();
    }
    EXPECT_EQ(found(QStringLiteral("104001")), QStringList{QStringLiteral("104001")});
    EXPECT_EQ(found(QStringLiteral("ZZZ")), QStringList());
    EXPECT_EQ(cell(rows(QStringLiteral("sp_Nuclear_RequestMaster '104001'")), 0, "RequestNum"),
              QStringLiteral("90002"));
    run(QStringLiteral("UPDATE PATIENT_DATA..tbMaster SET LastName = 'O''ZONE' WHERE HospNum = '104001'"));
    EXPECT_EQ(found(QStringLiteral("O`ZO")), QStringList{QStringLiteral("104001")});
    // Who has a result only is found behind the other door.
    run(QStringLiteral("DELETE FROM tbNucMaster WHERE HospNum = '104001' AND RequestNum <> '90001'"));
    saveGeneric("90001", "26-90001");
    EXPECT_EQ(found(QStringLiteral("O`ZO")), QStringList());
    EXPECT_EQ(found(QStringLiteral("104001")), QStringList());
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_ResultMaster 'O`ZO'")).count(), 1);
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_GetResult '104001'")).count(), 1);
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_getRequest '104001'")).count(), 0);
}

TEST_F(Results, AWalkInIsFoundToo) {
    run(QStringLiteral("sp_Nuclear_AddRequest 'W1001','','90003', '1001','5200','204','W', "
                       "'C78J','1001','90003','','1', '','NU'"));
    const QString name =
        value(QStringLiteral("SELECT LastName FROM PATIENT_DATA..tbCashPatient WHERE hospnum = 'W1001'"));
    for (const QString& text : {name, QStringLiteral("W1001")}) {
        const ado::Rows found = rows(QStringLiteral("sp_Nuclear_RequestMaster '%1'").arg(text));
        bool there = false;
        for (qsizetype i = 0; i < found.count(); ++i)
            there = there || cell(found, i, "HospNum") == QStringLiteral("W1001");
        EXPECT_TRUE(there) << text.toStdString();
    }
    const ado::Rows entry = rows(QStringLiteral("sp_Nuclear_ResultEntry '90003'"));
    ASSERT_EQ(entry.count(), 1);
    EXPECT_EQ(cell(entry, 0, "LastName"), name);
    EXPECT_EQ(cell(entry, 0, "PatientType"), QStringLiteral("W"));
    EXPECT_EQ(cell(entry, 0, "RoomID"), QStringLiteral("OPD"));
}

TEST_F(Results, OnPaperARevokedResultSaysSo) {
    saveGeneric("90001", "26-90001");
    saveRadio("90002", "26-90002");
    const QString generic = QStringLiteral("sp_Nuclear_ReportResult '26004001','90001'");
    const QString radio = QStringLiteral("sp_Nuclear_ReportResultRadio '26004001','90002'");
    for (const QString& call : {generic, radio}) {
        ASSERT_EQ(rows(call).count(), 1);
        EXPECT_EQ(cell(rows(call), 0, "IsRevoked"), QStringLiteral("0"));
        EXPECT_EQ(cell(rows(call), 0, "Encoder"), QStringLiteral("REYES, JOAN P."));
    }
    EXPECT_EQ(cell(rows(radio), 0, "SecondTSH"), QStringLiteral("b4"));
    EXPECT_EQ(cell(rows(radio), 0, "SecondInsulin"), QStringLiteral("<Null>"));
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_ReportResult '26004002','90001'")).count(), 0);
    run(QStringLiteral("sp_Nuclear_CancelResult '90001'"));
    run(QStringLiteral("sp_Nuclear_CancelResult '90002'"));
    for (const QString& call : {generic, radio})
        EXPECT_EQ(cell(rows(call), 0, "IsRevoked"), QStringLiteral("1"));
}

TEST_F(Results, APairIsPartedAtItsBar) {
    const auto part = [this](const char* text, int which) {
        return value(QStringLiteral("SELECT dbo.fnNuclear_Part('%1', %2) AS Part")
                         .arg(QLatin1String(text))
                         .arg(which));
    };
    EXPECT_EQ(part("60|65", 1), QStringLiteral("60"));
    EXPECT_EQ(part("60|65", 2), QStringLiteral("65"));
    EXPECT_EQ(part("60", 1), QStringLiteral("60"));
    EXPECT_EQ(part("60", 2), QString());
    EXPECT_EQ(part("|", 1) + part("|", 2) + part("", 1) + part("", 2), QString());
    EXPECT_EQ(part("a|b|c", 2), QStringLiteral("b"));
}

TEST_F(Results, PerfusionAndGfrShareTheTable) {
    run(QStringLiteral(
        "sp_Nuclear_SaveResultMPI "
        "'104001','26004001','90001','26-90001','I','204','205','1024','MIBI','BRUCE','HX','TECH',"
        "'DETAILS','STRESS','REST','QUANT','60|65','100|90','|','|','|x','NORMAL','60','165','1001','11/21/"
        "2026 8:30:00 AM','R'"));
    const ado::Rows perfusion = rows(QStringLiteral("SELECT * FROM tbNucResult WHERE RequestNum = '90001'"));
    EXPECT_EQ(cell(perfusion, 0, "fraction"), QStringLiteral("60|65"));
    EXPECT_EQ(cell(perfusion, 0, "wallmotion"), QStringLiteral("|x"));
    EXPECT_EQ(cell(perfusion, 0, "PROTOCOL"), QStringLiteral("BRUCE"));
    EXPECT_EQ(cell(rows(QStringLiteral("sp_Nuclear_ResultEntry '90001'")), 0, "CardiologistCode"),
              QStringLiteral("204"));
    run(QStringLiteral(
        "sp_Nuclear_SaveResultGFR "
        "'104001','26004001','90002','26-90002','I','201','205','1101','5','DTPA','IV','P','60','165',"
        "'1001','11/21/2026 8:30:00 AM','TC-99M', 'l1', 'l2', 'l3', 'l4', 'l5', 'l6', 'l7', "
        "'r1','r2','r3','r4','r5', 'r6','r7', '98'"));
    const ado::Rows gfr = rows(QStringLiteral("SELECT * FROM tbNucResult WHERE RequestNum = '90002'"));
    EXPECT_EQ(cell(gfr, 0, "Left1") + cell(gfr, 0, "Left7"), QStringLiteral("l1l7"));
    EXPECT_EQ(cell(gfr, 0, "Right1") + cell(gfr, 0, "Right7"), QStringLiteral("r1r7"));
    EXPECT_EQ(cell(gfr, 0, "Scale"), QStringLiteral("98"));
    EXPECT_EQ(cell(gfr, 0, "Isotope"), QStringLiteral("TC-99M"));
}

TEST_F(Results, RadioImmunoassayTakesTheFirstBoxThatHoldsSomething) {
    saveRadio("90002", "26-90002");
    const ado::Rows result =
        rows(QStringLiteral("SELECT * FROM tbNucRadioResult WHERE RequestNum = '90002'"));
    ASSERT_EQ(result.count(), 1);
    EXPECT_EQ(cell(result, 0, "Calcitonin"), QStringLiteral("a0"));
    EXPECT_EQ(cell(result, 0, "FreeT4"), QStringLiteral("b5"));
    EXPECT_EQ(cell(result, 0, "SHBG"), QStringLiteral("a20"));
    EXPECT_EQ(cell(result, 0, "Insulin"), QStringLiteral("b21"));
    EXPECT_EQ(cell(result, 0, "Technologist"), QStringLiteral("TECH"));
    const ado::Rows kept = rows(QStringLiteral("SELECT * FROM tbNucResultRadio WHERE RequestNum = '90002'"));
    EXPECT_EQ(cell(kept, 0, "Calcitonin"), QStringLiteral("b0"));
}

TEST_F(Results, CancellingFindsARequestByEveryWay) {
    const ado::Rows byRequest = rows(QStringLiteral("sp_Nuclear_getCancelRequest_new '90001', 4 "));
    ASSERT_EQ(byRequest.count(), 1);
    EXPECT_EQ(cell(byRequest, 0, "Adm. No."), QStringLiteral("26004001"));
    EXPECT_EQ(byRequest.columns[14].name, QStringLiteral("Request No."));
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_GetCancelRequest_new'C77J',4")).count(), 2);
    EXPECT_GE(rows(QStringLiteral("sp_Nuclear_GetCancelRequest_new'104001',2")).count(), 2);
    EXPECT_GE(rows(QStringLiteral("sp_Nuclear_GetCancelRequest_new'26004001',3")).count(), 2);
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_GetCancelRequest_new'90001',1")).count(), 0);
    saveGeneric("90001", "26-90001");
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_getCancelRequest_new '90001', 4 ")).count(), 0);
}

TEST_F(Results, BilledItemsFollowTheRule) {
    const QString ask =
        QStringLiteral("SELECT ISNULL(LABORATORY.DBO.fn_LabCanCancelBilled('%1'),'') AS CancelBilled");
    const QString open =
        value(QStringLiteral("SELECT MAX(IdNum) FROM PATIENT_DATA..tbPatient WHERE BillingDate IS NULL"));
    const QString closed = value(QStringLiteral(
        "SELECT MIN(IdNum) FROM PATIENT_DATA..tbPatient WHERE BillingDate IS NOT NULL AND LateCharges = 0"));
    const QString late =
        value(QStringLiteral("SELECT MIN(IdNum) FROM PATIENT_DATA..tbPatient WHERE LateCharges = 1"));
    EXPECT_EQ(value(ask.arg(open)), QStringLiteral("Y"));
    EXPECT_EQ(value(ask.arg(closed)), QStringLiteral("N"));
    EXPECT_EQ(value(ask.arg(late)), QStringLiteral("Y"));
    run(QStringLiteral("UPDATE LABORATORY..tbLabPostingRule SET CanCancelBilled = 'Y'"));
    EXPECT_EQ(value(ask.arg(closed)), QStringLiteral("Y"));
    EXPECT_EQ(value(QStringLiteral("SELECT LABORATORY.DBO.fn_LabCanPost('%1') as CanPost").arg(closed)),
              QStringLiteral("N"));
}

TEST_F(Results, DischargeNoticesAreCountedUntilCleared) {
    EXPECT_EQ(value(QStringLiteral("Nuclear..spNuclear_LoadDischargeNoticeCount")), QStringLiteral("2"));
    const ado::Rows notices = rows(QStringLiteral("Nuclear..spNuclear_LoadDischargeNotice "));
    ASSERT_EQ(notices.count(), 2);
    const QString idNum = cell(notices, 0, "IdNum");
    EXPECT_EQ(cell(notices, 0, "ClearDate"), QStringLiteral("<Null>"));
    run(QStringLiteral("Nuclear..spNuclear_ClearPatientForDischarge '%1','IT`S FINE','1001'").arg(idNum));
    EXPECT_EQ(value(QStringLiteral("Nuclear..spNuclear_LoadDischargeNoticeCount")), QStringLiteral("1"));
    EXPECT_EQ(rows(QStringLiteral("Nuclear..spNuclear_LoadDischargeNotice ")).count(), 2);
    EXPECT_EQ(cell(rows(QStringLiteral("Nuclear..spNuclear_LoadDischargeNoticePatient '%1'").arg(idNum)), 0,
                   "ClearRemarks"),
              QStringLiteral("IT`S FINE"));
}

TEST_F(Results, PrepaidRequestsWaitUntilPrinted) {
    const ado::Rows waiting = rows(QStringLiteral("NUCLEAR..sp_Nuclear_PrepaidSearchRequest 'NU'"));
    ASSERT_EQ(waiting.count(), 3);
    EXPECT_EQ(waiting.columns[6].name, QStringLiteral("RefNum"));
    const QString reference = cell(waiting, 0, "RefNum");
    EXPECT_EQ(rows(QStringLiteral("NUCLEAR..sp_Nuclear_GetPrepaidPatientInfo '%1'").arg(reference)).count(),
              1);
    EXPECT_EQ(rows(QStringLiteral("NUCLEAR..sp_Nuclear_RequestFormInfo '%1', '%2'")
                       .arg(reference, cell(waiting, 0, "IdNum")))
                  .count(),
              1);
    run(QStringLiteral("NUCLEAR..sp_Nuclear_PrepaidUpdatePrintStatus '%1'").arg(reference));
    EXPECT_EQ(rows(QStringLiteral("NUCLEAR..sp_Nuclear_PrepaidCheckRequest 'NU'")).count(), 2);
}

TEST_F(Results, HouseKeepingLeavesWhatReportsNeed) {
    run(QStringLiteral("UPDATE STATION..tbNurseCommunicationFile SET RecordStatus = 'R', RequestDate = "
                       "'2025-01-01' WHERE RequestNum = '7000001'"));
    const QString requests = value(QStringLiteral("SELECT COUNT(*) FROM tbNucMaster"));
    run(QStringLiteral("sp_Nuclear_DeleteRevokedData"));
    EXPECT_EQ(
        count(QStringLiteral("STATION..tbNurseCommunicationFile"), QStringLiteral("RequestNum = '7000001'")),
        0);
    EXPECT_EQ(value(QStringLiteral("SELECT COUNT(*) FROM tbNucMaster")), requests);
    EXPECT_GT(count(QStringLiteral("tbNucMaster"), QStringLiteral("RequestStatus = 'R'")), 0);
}

TEST_F(Results, TheCensusShowsWhoLiesInTheHouse) {
    const ado::Rows census = rows(QStringLiteral("Patient_Data..sp_adm_censusallpatient '2026/11/21',''"));
    EXPECT_GT(census.count(), 60);
    const ado::Rows station = rows(QStringLiteral("PATIENT_DATA..sp_adm_censusbystation '2026/11/21','3A'"));
    ASSERT_GT(station.count(), 3);
    EXPECT_LT(station.count(), census.count());
    EXPECT_EQ(rows(QStringLiteral("Patient_Data..sp_adm_censusallpatient '2020/01/01',''")).count(), 0);
}

} // namespace
