#include "platform/base/Conversion.h"
#include "tests/server/sql/Hospital.h"

namespace {

using Lookup = tests::Hospital;

TEST_F(Lookup, LastNamesMatchByTheirBeginningInNameOrder) {
    const ado::Rows found = rows(QStringLiteral("sp_Nuclear_getpatientbylastname 'I','s'"));
    ASSERT_GT(found.count(), 3);
    for (qsizetype i = 0; i < found.count(); ++i)
        EXPECT_TRUE(cell(found, i, "Patient Name").startsWith(u'S'));
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_getpatientbylastname 'I','ANTOSX'")).count(), 0);
}

TEST_F(Lookup, AccentsAndOldApostrophesAreFound) {
    EXPECT_EQ(cell(rows(QString::fromUtf8("sp_Nuclear_getpatientbylastname 'I','PEÑAF'")), 0, "Patient Name"),
              QString::fromUtf8("PEÑAFLORIDA, JOSÉ IBAÑEZ"));
    EXPECT_EQ(cell(rows(QStringLiteral("sp_Nuclear_getpatientbylastname 'I','O''BR'")), 0, "Patient Name"),
              QStringLiteral("O'BRIEN, SEAN D'ARCY"));
}

TEST_F(Lookup, ATypedBackQuoteFindsEitherQuote) {
    EXPECT_EQ(cell(rows(QStringLiteral("sp_Nuclear_getpatientbylastname 'I','O`BR'")), 0, "Patient Name"),
              QStringLiteral("O'BRIEN, SEAN D'ARCY"));
    EXPECT_EQ(
        cell(rows(QStringLiteral("sp_Nuclear_getpatientbyfirstname 'I','O`BRIEN','SE'")), 0, "Patient Name"),
        QStringLiteral("O'BRIEN, SEAN D'ARCY"));
}

TEST_F(Lookup, FirstNamesMayStandBehindABlank) {
    const ado::Rows found = rows(QStringLiteral("sp_Nuclear_getpatientbyfirstname 'I','O''BRIEN',' SE'"));
    ASSERT_EQ(found.count(), 1);
    EXPECT_EQ(cell(found, 0, "Patient Name"), QStringLiteral("O'BRIEN, SEAN D'ARCY"));
}

TEST_F(Lookup, ClosedAndCashBasisAccountsAreMarked) {
    run(QStringLiteral(
        "INSERT INTO PATIENT_DATA..tbPatient (IdNum, HospNum, BillingDate, LateCharges) "
        "VALUES ('26999991', '104001', '2026-11-20', 0), ('26999992', '104001', '2026-11-20', 1), "
        "('26999993', '104001', NULL, 0)"));
    run(QStringLiteral("INSERT INTO PATIENT_DATA..tbPatient2 (IdNum, OkeyNU) VALUES ('26999993', 1)"));
    const auto stay = [&](const char* idNum) {
        return rows(QStringLiteral("sp_Nuclear_getpatientbyidnum 'I','%1'").arg(QLatin1String(idNum)));
    };
    EXPECT_EQ(cell(stay("26999991"), 0, "Billed Date"), QStringLiteral("11/20/2026"));
    EXPECT_EQ(cell(stay("26999991"), 0, "Charging Status"), QStringLiteral("Closed"));
    EXPECT_EQ(cell(stay("26999991"), 0, "NucStatus"), QStringLiteral("Okey"));
    EXPECT_EQ(cell(stay("26999992"), 0, "Charging Status"), QStringLiteral("Late Charges"));
    EXPECT_EQ(cell(stay("26999993"), 0, "Billed Date"), QStringLiteral("<Null>"));
    EXPECT_EQ(cell(stay("26999993"), 0, "Charging Status"), QStringLiteral("Open"));
    EXPECT_EQ(cell(stay("26999993"), 0, "NucStatus"), QStringLiteral("Not Okey"));
}

TEST_F(Lookup, NumbersAreMatchedInFull) {
    const QString idNum = value(QStringLiteral("SELECT MIN(IdNum) FROM PATIENT_DATA..tbPatient"));
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_getpatientbyidnum 'I','%1'").arg(idNum)).count(), 1);
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_getpatientbyidnum 'I','%1'").arg(idNum.chopped(1))).count(), 0);
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_getpatientbyidnum 'O','%1'").arg(idNum)).count(), 0);
}

TEST_F(Lookup, NoMoreThanTwoHundred) {
    EXPECT_LE(rows(QStringLiteral("sp_Nuclear_getpatientbylastname 'I',''")).count(), 200);
    EXPECT_EQ(rows(QStringLiteral("spGlobal_RegularPatients '0','0',''")).count(), 200);
}

TEST_F(Lookup, RegularPatientsByNumberAndOpenStaysOnly) {
    EXPECT_EQ(rows(QStringLiteral("spGlobal_RegularPatients '','1', '104001'")).count(), 1);
    EXPECT_EQ(rows(QStringLiteral("spGlobal_RegularPatients '','1', ''")).count(), 0);
    const int open = rows(QStringLiteral("spGlobal_RegularPatients '1','0',''")).count();
    EXPECT_EQ(open, count(QStringLiteral("PATIENT_DATA..tbOutPatient"), QStringLiteral("DcrDate IS NULL")));
    EXPECT_GT(open, 3);
}

TEST_F(Lookup, OutPatientsByNumberCarryNullDates) {
    const QString idNum =
        value(QStringLiteral("SELECT MAX(IdNum) FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS NULL"));
    const ado::Rows found = rows(QStringLiteral("spGlobal_RegisteredOPD '0','1', '%1'").arg(idNum));
    ASSERT_EQ(found.count(), 1);
    EXPECT_EQ(cell(found, 0, "DcrDate"), QStringLiteral("<Null>"));
    EXPECT_EQ(cell(found, 0, "BillingDate"), QStringLiteral("<Null>"));
    EXPECT_EQ(rows(QStringLiteral("spGlobal_RegisteredOPD '0','1', ''")).count(), 0);
}

TEST_F(Lookup, AgeIsInFullYears) {
    EXPECT_EQ(value(QStringLiteral("Laboratory..Lab_GetAge '11/21/1980'")), QStringLiteral("46"));
    EXPECT_EQ(value(QStringLiteral("Laboratory..Lab_GetAge '11/22/1980'")), QStringLiteral("45"));
    EXPECT_EQ(rows(QStringLiteral("Laboratory..Lab_GetAge ''")).count(), 0);
}

TEST_F(Lookup, RevenueCodes) {
    EXPECT_EQ(rows(QStringLiteral("sp_Nuclear_SearchRevenue '1','UR'")).count(), 1);
    EXPECT_EQ(value(QStringLiteral("sp_Nuclear_SearchRevenue '2','ZZ'")), QStringLiteral("0"));
    const int listed = int(rows(QStringLiteral("spNuclear_SearchRevenue '0','N'")).count());
    EXPECT_EQ(value(QStringLiteral("sp_Nuclear_SearchRevenue '2','N'")).toInt(), listed);
    const ado::Rows nuclear = rows(QStringLiteral("spNuclear_SearchRevenue '1','NU'"));
    EXPECT_EQ(cell(nuclear, 0, "LocationID"), QStringLiteral("<Null>"));
    EXPECT_TRUE(nuclear.at(0, 3).asBool());
}

TEST_F(Lookup, CashPatientsAreAddedAndChanged) {
    run(QStringLiteral("spNuclearaddcashpatient '0','W8001','LUNA','ANA','R','2 MABINI "
                       "ST','CENTRO','1000','F','2','','31'"));
    const ado::Rows added = rows(QStringLiteral("spGlobal_CashPatient '1', 'W8001'"));
    ASSERT_EQ(added.count(), 1);
    EXPECT_EQ(cell(added, 0, "BirthDate"), QStringLiteral("<Null>"));
    EXPECT_EQ(cell(added, 0, "CivilStatus"), QStringLiteral("MARRIED"));
    run(QStringLiteral("spNuclearaddcashpatient '1','W8001','LUNA','ANA','R','2 MABINI "
                       "ST','CENTRO','1000','F','3','02/29/1996','30'"));
    const ado::Rows changed = rows(QStringLiteral("spGlobal_CashPatient '1', 'W8001'"));
    EXPECT_EQ(*changed.at(0, 7).asDateTime(), *base::makeDateTime({1996, 2, 29}));
    EXPECT_EQ(cell(changed, 0, "CivilStatus"), QStringLiteral("WIDOWED"));
}

TEST_F(Lookup, RightsAreKeptApartByWorkstation) {
    const auto other = workstation(QStringLiteral("DESK2"));
    run(QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1001'"));
    other->execute(QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1005'"));
    const QString seven =
        QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights WHERE RightsID = '7' ");
    EXPECT_EQ(rows(seven).count(), 1);
    EXPECT_EQ(other->execute(seven).rows.count(), 0);
    EXPECT_EQ(rows(QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights")).count(), 18);
    EXPECT_EQ(other->execute(QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights")).rows.count(),
              2);
    run(QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1007'"));
    EXPECT_EQ(rows(seven).count(), 0);
    EXPECT_EQ(other->execute(QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights")).rows.count(),
              2);
}

TEST_F(Lookup, RightsAreKeptApartOnOneWorkstationToo) {
    // The program started twice on one desk: each asks, and then both look, the first one last.
    const auto second = workstation(QStringLiteral("DESK1"));
    EXPECT_NE(value(QStringLiteral("SELECT @@SPID AS Session")),
              base::textOf(second->execute(QStringLiteral("SELECT @@SPID AS Session")).rows.at(0, 0)));
    const QString seven =
        QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights WHERE RightsID = '7' ");
    for (int round = 0; round < 3; ++round) {
        run(QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1001'"));
        second->execute(QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1007'"));
        EXPECT_EQ(second->execute(seven).rows.count(), 0);
        EXPECT_EQ(rows(seven).count(), 1);
    }
    EXPECT_EQ(count(QStringLiteral("tbNuclearSessionRights"), QStringLiteral("Workstation = 'DESK1'")), 18);
}

TEST_F(Lookup, ARightOfOneDigitIsNotPartOfOneOfTwo) {
    run(QStringLiteral("NUCLEAR..spNuclear_SaveUserRights '1007','|18','1001'"));
    run(QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1007'"));
    EXPECT_EQ(value(QStringLiteral("SELECT RightsID FROM tbNuclearDumpUserRights")), QStringLiteral("18"));
    run(QStringLiteral("NUCLEAR..spNuclear_SaveUserRights '1007','','1001'"));
    run(QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1007'"));
    EXPECT_EQ(rows(QStringLiteral("SELECT RightsID FROM tbNuclearDumpUserRights")).count(), 0);
}

TEST_F(Lookup, TheCatalogueOfRightsGrowsAndChanges) {
    run(QStringLiteral("NUCLEAR..spNuclear_SaveProgramSettings 'A','0','NEW RIGHT','A'"));
    const ado::Rows found = rows(QStringLiteral("NUCLEAR..spNuclear_SearchProgramAccess 'NEW'"));
    ASSERT_EQ(found.count(), 1);
    EXPECT_EQ(cell(found, 0, "ItemID"), QStringLiteral("19"));
    run(QStringLiteral("NUCLEAR..spNuclear_SaveProgramSettings 'B','19','OLD RIGHT','I'"));
    EXPECT_EQ(
        value(QStringLiteral("SELECT Description + Status FROM tbNuclearUserSettings WHERE ItemID = '19'")),
        QStringLiteral("OLD RIGHTI"));
}

TEST_F(Lookup, PackagesByLetter) {
    const ado::Rows names = rows(QStringLiteral("spNuclear_PackageList"));
    ASSERT_EQ(names.count(), 4);
    EXPECT_EQ(cell(names, 0, "PackageName"), QStringLiteral("A - THYROID WORK-UP"));
    EXPECT_EQ(rows(QStringLiteral("spNuclear_ShowPackage '','A'")).count(), 3);
    // Nothing from stock can be assessed for cash.
    EXPECT_EQ(rows(QStringLiteral("spNuclear_ShowPackage 'Y','A'")).count(), 2);
    EXPECT_EQ(rows(QStringLiteral("spNuclear_ShowPackage '','X'")).count(), 0);
    run(QStringLiteral("Nuclear..sp_Nuclear_Insert_Update_Package 'N09', 'LIVER PACKAGE', '1'"));
    EXPECT_EQ(value(QStringLiteral("SELECT PackageLetter FROM tbNucPackage WHERE Code = 'N09'")),
              QStringLiteral("E"));
    run(QStringLiteral("Nuclear..sp_Nuclear_Insert_Update_Package 'N09', 'LIVER PACKAGE', '0'"));
    EXPECT_EQ(rows(QStringLiteral("spNuclear_PackageList")).count(), 4);
}

TEST_F(Lookup, TheExamFileOfTheSectionIsTheHospitals) {
    EXPECT_EQ(value(QStringLiteral("SELECT COUNT(*) FROM tbCoNucExam")), QStringLiteral("45"));
    run(QStringLiteral("UPDATE tbCoNucExam SET NucSectionID = 'M' WHERE NucExamID = '1024'"));
    EXPECT_EQ(
        value(QStringLiteral("SELECT NucSectionID FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = '1024'")),
        QStringLiteral("M"));
    EXPECT_EQ(value(QStringLiteral("sp_Bui_Find_Last_Item_Number 'NU'")), QStringLiteral("1304"));
}

} // namespace
