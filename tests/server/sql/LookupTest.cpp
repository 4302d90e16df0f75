#include "platform/ado/Batch.h"
#include "platform/base/Conversion.h"
#include "tests/server/sql/Hospital.h"

#include "platform/base/Conversion.h"

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

TEST_F(Lookup, TheThreeSearchesTakeBothNamesParted) {
    run(QStringLiteral("INSERT INTO PATIENT_DATA..tbMaster (HospNum, LastName, FirstName) VALUES "
                       "('900001', 'SAN QUINTIN', 'ANA'), ('900002', 'SAN QUINTIN', 'BELEN')"));
    run(QStringLiteral("INSERT INTO PATIENT_DATA..tbOutPatient (IdNum, HospNum, AdmDate) VALUES "
                       "('O900001', '900001', '2026-11-20'), ('O900002', '900002', '2026-11-20')"));
    run(QStringLiteral("INSERT INTO PATIENT_DATA..tbCashPatient (hospnum, LastName, FirstName) VALUES "
                       "('W900001', 'SAN QUINTIN', 'ANA'), ('W900002', 'SAN QUINTIN', 'BELEN')"));
    const auto found = [&](const char* search, const char* text) {
        QStringList numbers;
        const ado::Rows each = rows(QString::fromLatin1(search).arg(QString::fromLatin1(text)));
        for (qsizetype i = 0; i < each.count(); ++i)
            numbers += base::textOf(each.at(i, 0));
        return numbers.join(u' ');
    };
    for (const char* current : {"0", "1"}) {
        const QByteArray regular = QByteArray("spGlobal_RegularPatients '") + current + "','0','%1'";
        EXPECT_EQ(found(regular, "san quin"), "900001 900002");
        EXPECT_EQ(found(regular, "SAN QUIN, B"), "900002");
        EXPECT_EQ(found(regular, "SAN QUINTIN,C"), "");
        const QByteArray out = QByteArray("spGlobal_RegisteredOPD '") + current + "','0', '%1'";
        EXPECT_EQ(found(out, "SAN QUIN"), "O900001 O900002");
        EXPECT_EQ(found(out, "SAN QUIN ,A"), "O900001");
        EXPECT_EQ(found(out, " SAN QUINTIN , BEL "), "O900002");
    }
    EXPECT_EQ(found("spGlobal_CashPatient '0','%1'", "SAN QUIN"), "W900001 W900002");
    EXPECT_EQ(found("spGlobal_CashPatient '0','%1'", "SAN QUIN,B"), "W900002");
}

TEST_F(Lookup, SignsOfAPatternAreAnySign) {
    run(QStringLiteral("INSERT INTO PATIENT_DATA..tbCashPatient (hospnum, LastName) VALUES "
                       "('W900003', 'D''ARCY'), ('W900004', 'D[50%]X')"));
    EXPECT_EQ(cell(rows(QStringLiteral("spGlobal_CashPatient '0','D`ARC'")), 0, "HospNum"),
              QStringLiteral("W900003"));
    EXPECT_EQ(cell(rows(QStringLiteral("spGlobal_CashPatient '0','D[50%'")), 0, "HospNum"),
              QStringLiteral("W900004"));
    EXPECT_EQ(rows(QStringLiteral("spGlobal_CashPatient '0','%ARCY'")).count(), 0);
}

TEST_F(Lookup, OnlyCurrentRegistrationsWhenAskedFor) {
    run(QStringLiteral("INSERT INTO PATIENT_DATA..tbMaster (HospNum, LastName) VALUES "
                       "('900001', 'QUISUMBING'), ('900002', 'QUISUMBING')"));
    run(QStringLiteral(
        "INSERT INTO PATIENT_DATA..tbOutPatient (IdNum, HospNum, AdmDate, DcrDate) VALUES "
        "('O900001', '900001', '2026-11-20', NULL), ('O900003', '900001', '2026-11-19', NULL), "
        "('O900002', '900002', '2026-10-01', '2026-10-01')"));
    const auto found = [&](const char* text) { return rows(QString::fromLatin1(text)).count(); };
    EXPECT_EQ(found("spGlobal_RegularPatients '1','0','QUISUM'"), 1) << "a patient once, with two stays";
    EXPECT_EQ(found("spGlobal_RegularPatients '0','0','QUISUM'"), 2);
    EXPECT_EQ(found("spGlobal_RegularPatients '1','1','900001'"), 1);
    EXPECT_EQ(found("spGlobal_RegularPatients '1','1','900002'"), 0);
    EXPECT_EQ(found("spGlobal_RegularPatients '0','1', '900002'"), 1);
    EXPECT_EQ(found("spGlobal_RegularPatients '','1', '900002'"), 1);
    EXPECT_EQ(found("spGlobal_RegisteredOPD '1','0', 'QUISUM'"), 2) << "each stay";
    EXPECT_EQ(found("spGlobal_RegisteredOPD '0','0', 'QUISUM'"), 3);
    EXPECT_EQ(found("spGlobal_RegisteredOPD '1','1', 'O900002'"), 0);
    EXPECT_EQ(found("spGlobal_RegisteredOPD '0','1', 'O900002'"), 1);
}

TEST_F(Lookup, ARegularPatientIsFoundByTheNumberOfAStayToo) {
    const ado::Rows in = rows(QStringLiteral("SELECT TOP 1 IdNum, HospNum FROM PATIENT_DATA..tbPatient"));
    const ado::Rows out = rows(QStringLiteral("SELECT TOP 1 IdNum, HospNum FROM PATIENT_DATA..tbOutPatient"));
    for (const ado::Rows* stay : {&in, &out}) {
        const ado::Rows found =
            rows(QStringLiteral("spGlobal_RegularPatients '','1', '%1'").arg(cell(*stay, 0, "IdNum")));
        ASSERT_EQ(found.count(), 1);
        EXPECT_EQ(cell(found, 0, "HospNum"), cell(*stay, 0, "HospNum"));
    }
}

TEST_F(Lookup, TheLatestStayDatesARegularPatient) {
    run(QStringLiteral(
        "INSERT INTO PATIENT_DATA..tbMaster (HospNum, LastName) VALUES ('900001', 'QUIRINO')"));
    EXPECT_EQ(cell(rows(QStringLiteral("spGlobal_RegularPatients '0','1', '900001'")), 0, "AdmDate"),
              QStringLiteral("<Null>"));
    run(QStringLiteral("INSERT INTO PATIENT_DATA..tbOutPatient (IdNum, HospNum, AdmDate) VALUES "
                       "('O900001', '900001', '2026-10-20'), ('O900002', '900001', '2026-11-20')"));
    const ado::Rows found = rows(QStringLiteral("spGlobal_RegularPatients '0','1', '900001'"));
    ASSERT_EQ(found.count(), 1);
    EXPECT_EQ(tests::toTestDays(base::textOf(found.at(0, 4))), QStringLiteral("11/20/2026"));
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

TEST_F(Lookup, ABirthdayIsReachedToTheMinute) {
    const auto age = [&](const char* birth, const char* day) {
        return value(QStringLiteral("SELECT dbo.fnNuclear_Age('%1', '%2')")
                         .arg(QLatin1String(birth), QLatin1String(day)));
    };
    EXPECT_EQ(age("1980-11-22T08:30:00", "2026-11-22T08:29:00"), QStringLiteral("45"));
    EXPECT_EQ(age("1980-11-22T08:30:00", "2026-11-22T08:30:00"), QStringLiteral("46"));
    EXPECT_EQ(age("2000-02-29T00:00:00", "2001-02-27T00:00:00"), QStringLiteral("0"));
    EXPECT_EQ(age("2000-02-29T00:00:00", "2001-02-28T00:00:00"), QStringLiteral("1"));
    EXPECT_EQ(age("2026-12-31T00:00:00", "2027-01-01T00:00:00"), QStringLiteral("0"));
    EXPECT_EQ(value(QStringLiteral("SELECT dbo.fnNuclear_Age(NULL, '2026-11-22T00:00:00')")),
              QStringLiteral("<Null>"));
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
    EXPECT_EQ(cell(changed, 0, "BirthDate"), QStringLiteral("2/29/1996"));
    EXPECT_EQ(cell(changed, 0, "CivilStatus"), QStringLiteral("WIDOWED"));
}

TEST_F(Lookup, TheLastItemNumberPassesOverCodesThatAreNone) {
    const QString last = value(QStringLiteral("NUCLEAR..sp_Bui_Find_Last_Item_Number 'NU'"));
    for (const char* code : {"$", "1e3", ".", "-", "A1"}) {
        run(QStringLiteral("UPDATE BUILD_FILE..tbcoNucExam SET NucExamID = '%1' WHERE NucExamID = (SELECT "
                           "MIN(NucExamID) FROM BUILD_FILE..tbcoNucExam WHERE NucExamID LIKE '[0-9][0-9]%')")
                .arg(QLatin1StringView(code)));
        EXPECT_EQ(value(QStringLiteral("NUCLEAR..sp_Bui_Find_Last_Item_Number 'NU'")), last) << code;
        EXPECT_EQ(value(QStringLiteral("SELECT COUNT(*) FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = '%1'")
                            .arg(QLatin1StringView(code))),
                  u"1");
    }
}

TEST_F(Lookup, RightsAreKeptApartByWorkstation) {
    const auto other = workstation(QStringLiteral("DESK2"));
    run(QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1001'"));
    ado::runBatch(*other, QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1005'"));
    const QString seven =
        QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights WHERE RightsID = '7' ");
    EXPECT_EQ(rows(seven).count(), 1);
    EXPECT_EQ(ado::runBatch(*other, seven).rows.count(), 0);
    EXPECT_EQ(rows(QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights")).count(), 18);
    EXPECT_EQ(
        ado::runBatch(*other, QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights")).rows.count(),
        2);
    run(QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1007'"));
    EXPECT_EQ(rows(seven).count(), 0);
    EXPECT_EQ(
        ado::runBatch(*other, QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights")).rows.count(),
        2);
}

TEST_F(Lookup, RightsAreKeptApartOnOneWorkstationToo) {
    // The program started twice on one desk: each asks, and then both look, the first one last.
    const auto second = workstation(QStringLiteral("DESK1"));
    EXPECT_NE(value(QStringLiteral("SELECT @@SPID AS Session")),
              base::textOf(ado::runBatch(*second, QStringLiteral("SELECT @@SPID AS Session")).rows.at(0, 0)));
    const QString seven =
        QStringLiteral("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights WHERE RightsID = '7' ");
    for (int round = 0; round < 3; ++round) {
        run(QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1001'"));
        ado::runBatch(*second, QStringLiteral("NUCLEAR..spNuclear_GetSavedUserRights '1007'"));
        EXPECT_EQ(ado::runBatch(*second, seven).rows.count(), 0);
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

TEST_F(Lookup, BilledStaysByNameOrNumber) {
    const auto found = [this](const QString& text) {
        return rows(QStringLiteral("RADIOLOGY..spGlobal_BilledPatients '%1'").arg(text));
    };
    const QString in =
        value(QStringLiteral("SELECT MIN(IdNum) FROM PATIENT_DATA..tbPatient WHERE BillingDate IS NOT NULL"));
    const QString open =
        value(QStringLiteral("SELECT MIN(IdNum) FROM PATIENT_DATA..tbPatient WHERE BillingDate IS NULL"));
    const QString out = value(
        QStringLiteral("SELECT MIN(IdNum) FROM PATIENT_DATA..tbOutPatient WHERE BillingDate IS NOT NULL"));
    const QString person =
        QStringLiteral(" FROM PATIENT_DATA..tbMaster M INNER JOIN PATIENT_DATA..tbPatient P "
                       "ON P.HospNum = M.HospNum WHERE P.IdNum = '%1'")
            .arg(in);
    ASSERT_EQ(found(in).count(), 1);
    EXPECT_EQ(cell(found(in), 0, "IdNum"), in);
    EXPECT_EQ(found(open).count(), 0) << "its bill is open";
    ASSERT_EQ(found(out).count(), 1);
    EXPECT_EQ(cell(found(out), 0, "RoomID"), QStringLiteral("OPD"));
    const QString last = value(QStringLiteral("SELECT M.LastName") + person).replace(u'\'', u'`');
    const QString first = value(QStringLiteral("SELECT M.FirstName") + person).replace(u'\'', u'`');
    const auto holds = [&](const ado::Rows& some) {
        for (qsizetype row = 0; row < some.count(); ++row)
            if (cell(some, row, "IdNum") == in)
                return true;
        return false;
    };
    EXPECT_TRUE(holds(found(last)));
    EXPECT_TRUE(holds(found(last.toLower() + QStringLiteral(", ") + first.left(2))));
    EXPECT_FALSE(holds(found(last + QStringLiteral(",QQ"))));
    EXPECT_EQ(found(QStringLiteral("%QQ")).count(), 0);
    // Open again for late charges, and closed.
    for (const int late : {0, 1})
        EXPECT_GT(count(QStringLiteral("PATIENT_DATA..tbPatient"),
                        QStringLiteral("BillingDate IS NOT NULL AND LateCharges = %1").arg(late)),
                  0);
}

TEST_F(Lookup, PackagesForEveryBranch) {
    EXPECT_EQ(rows(QStringLiteral("STATION..sp_Get_AdmPackages 11")).count(), 5);
    EXPECT_EQ(rows(QStringLiteral("STATION..sp_Get_AdmPackages 12")).count(), 0);
    EXPECT_EQ(rows(QStringLiteral("STATION..sp_Get_ADMPackage_Items 'P15'")).count(), 0);
    EXPECT_EQ(cell(rows(QStringLiteral("STATION..sp_Get_ADMPackage_Items 'P14'")), 1, "Qty"),
              QStringLiteral("0"));
    const ado::Rows mixed = rows(QStringLiteral("STATION..sp_Get_ADMPackage_Items 'P12'"));
    ASSERT_EQ(mixed.count(), 3);
    EXPECT_EQ(cell(mixed, 0, "Revenue") + cell(mixed, 1, "Revenue") + cell(mixed, 2, "Revenue"),
              QStringLiteral("NUMNUR"));
    EXPECT_EQ(cell(mixed, 1, "Location") + cell(mixed, 2, "Location"), QStringLiteral("179224"));
    EXPECT_EQ(rows(QStringLiteral("Nuclear..sp_Get_nucPackages 11")).count(), 5);
    for (const qsizetype row : {0, 1})
        EXPECT_EQ(cell(rows(QStringLiteral("Nuclear..sp_Get_nucPackage_Items 'N05'")), row, "Amt"),
                  QStringLiteral("2"));
    EXPECT_EQ(cell(rows(QStringLiteral("Nuclear..Help_SearchNucPackage '1','N02'")), 0, "Description"),
              QStringLiteral("BONE METASTASES WORK-UP"));
}

TEST_F(Lookup, PackagesByLetter) {
    const ado::Rows names = rows(QStringLiteral("spNuclear_PackageList"));
    ASSERT_EQ(names.count(), 5);
    EXPECT_EQ(cell(names, 0, "PackageName"), QStringLiteral("A - THYROID WORK-UP"));
    EXPECT_EQ(rows(QStringLiteral("spNuclear_ShowPackage '','A'")).count(), 3);
    // Nothing from stock can be assessed for cash.
    EXPECT_EQ(rows(QStringLiteral("spNuclear_ShowPackage 'Y','A'")).count(), 2);
    EXPECT_EQ(rows(QStringLiteral("spNuclear_ShowPackage '','X'")).count(), 0);
    run(QStringLiteral("Nuclear..sp_Nuclear_Insert_Update_Package 'N09', 'LIVER PACKAGE', '1'"));
    EXPECT_EQ(value(QStringLiteral("SELECT PackageLetter FROM tbNucPackage WHERE Code = 'N09'")),
              QStringLiteral("F"));
    run(QStringLiteral("Nuclear..sp_Nuclear_Insert_Update_Package 'N09', 'LIVER PACKAGE', '0'"));
    EXPECT_EQ(rows(QStringLiteral("spNuclear_PackageList")).count(), 5);
}

TEST_F(Lookup, TheExamFileOfTheSectionIsTheHospitals) {
    EXPECT_EQ(value(QStringLiteral("SELECT COUNT(*) FROM tbCoNucExam")), QStringLiteral("45"));
    run(QStringLiteral("UPDATE tbCoNucExam SET NucSectionID = 'M' WHERE NucExamID = '1024'"));
    EXPECT_EQ(
        value(QStringLiteral("SELECT NucSectionID FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = '1024'")),
        QStringLiteral("M"));
    EXPECT_EQ(value(QStringLiteral("sp_Bui_Find_Last_Item_Number 'NU'")), QStringLiteral("1304"));
}

TEST_F(Lookup, AnHmoIsToldByTheAccountOfTheStay) {
    const QString stay = value(QStringLiteral(
        "SELECT TOP 1 O.IdNum FROM PATIENT_DATA..tbOutPatient O INNER JOIN BUILD_FILE..tbcoCompany C ON "
        "C.AccountNum = O.AccountNum WHERE C.IsHMO = 1 ORDER BY O.IdNum DESC"));
    const QString check = QStringLiteral("RADIOLOGY..Radiology_CheckIfHMO '%1'");
    const QString ofStay = QStringLiteral("SELECT %1 FROM PATIENT_DATA..tbOutPatient WHERE IdNum = '%2'");
    const QString account = value(ofStay.arg(QStringLiteral("AccountNum"), stay));
    EXPECT_EQ(value(check.arg(stay)), account);
    EXPECT_EQ(value(check.arg(value(ofStay.arg(QStringLiteral("HospNum"), stay)))), account);
    run(QStringLiteral("UPDATE BUILD_FILE..tbcoCompany SET IsHMO = 0 WHERE AccountNum = '%1'").arg(account));
    EXPECT_EQ(rows(check.arg(stay)).count(), 0);
}

} // namespace
