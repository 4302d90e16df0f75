#include "session/services/PickListing.h"

// What is found by a whole code, what is shown at first, by code, by name. Names of people are found by their
// beginning, so that an index serves a million patients.
namespace session {

const PickListing townListing{
    .title = "Towns",
    .hint = "Zip code or town",
    .one = "town",
    .many = "towns",
    .empty = "No town has that zip code or name.",
    .columns = {{{"Zip Code", "ZipCode", 1100}, {"Town", "Town", 3000}, {"Province", "Province", 3000}}},
    .exact = "SELECT ZipCode, Town, Province FROM BUILD_FILE..tbCoAddress WHERE ZipCode = '##code'",
    .newest = "SELECT TOP 200 ZipCode, Town, Province FROM BUILD_FILE..tbCoAddress ORDER BY Town",
    .byCode = "SELECT TOP 200 ZipCode, Town, Province FROM BUILD_FILE..tbCoAddress WHERE ZipCode LIKE "
              "'##text%' ORDER BY ZipCode",
    .byName = "SELECT TOP 200 ZipCode, Town, Province FROM BUILD_FILE..tbCoAddress WHERE Town LIKE '##text%' "
              "ORDER BY Town"};

const PickListing doctorListing{
    .title = "Doctors",
    .hint = "Code, last name, or last name, first name",
    .one = "doctor",
    .many = "doctors",
    .empty = "No doctor has that code or name.",
    .columns = {{{"Code", "DoctorID", 1000},
                 {"Last Name", "LastName", 2200},
                 {"First Name", "FirstName", 2200},
                 {"Middle Name", "MiddleName", 1800},
                 {"Specialty", "Specialty", 2200}}},
    .exact = "SELECT DoctorID, LastName, FirstName, MiddleName, Specialty FROM BUILD_FILE..tbcoDoctor WHERE "
             "DoctorID = '##code'",
    .newest = "SELECT TOP 200 DoctorID, LastName, FirstName, MiddleName, Specialty FROM "
              "BUILD_FILE..tbcoDoctor WHERE Status = 'A' ORDER BY LastName, FirstName",
    .byCode = {},
    .byName = "SELECT TOP 200 DoctorID, LastName, FirstName, MiddleName, Specialty FROM "
              "BUILD_FILE..tbcoDoctor WHERE Status = 'A' AND ((LastName LIKE '##last%' AND FirstName LIKE "
              "'##first%') OR DoctorID LIKE '##text%') ORDER BY LastName, FirstName"};

const PickListing dosageListing{
    .title = "Dosages",
    .hint = "Code or dosage",
    .one = "dosage",
    .many = "dosages",
    .empty = "No dosage has that code or name.",
    .columns = {{{"Code", "DosageID", 1200},
                 {"Dosage", "Dosage", 4000},
                 {"Times a Day", "Frequency", 1400, PickFormat::Quantity}}},
    .exact = "SELECT DosageID, Dosage, Frequency FROM BUILD_FILE..tbCoDosage WHERE DosageID = '##code'",
    .newest = "SELECT TOP 200 DosageID, Dosage, Frequency FROM BUILD_FILE..tbCoDosage ORDER BY DosageID",
    .byCode = {},
    .byName = "SELECT TOP 200 DosageID, Dosage, Frequency FROM BUILD_FILE..tbCoDosage WHERE DosageID LIKE "
              "'##text%' OR Dosage LIKE '%##text%' ORDER BY DosageID"};

const PickListing examListing{
    .title = "Exams",
    .hint = "Code or exam",
    .one = "exam",
    .many = "exams",
    .empty = "No exam of this section has that code or name.",
    .columns = {{{"Code", "NucExamID", 800},
                 {"Exam", "NucExam", 4200},
                 {"Price", nullptr, 1250, PickFormat::Price},
                 {"Rate A", "RateA", 1180, PickFormat::Amount},
                 {"Rate B", "RateB", 1180, PickFormat::Amount},
                 {"Rate C", "RateC", 1180, PickFormat::Amount},
                 {"Rate D", "RateD", 1180, PickFormat::Amount},
                 {"Rate E", "RateE", 1180, PickFormat::Amount}}},
    .exact = "SELECT NucExamID, NucExam, RateA, RateB, RateC, RateD, RateE, RateH, Outpatient, Fixrate FROM "
             "BUILD_FILE..tbcoNucExam WHERE NucExamID = '##code' AND ('##section' = 'NU' OR SectionID = "
             "'##section') AND Status = 'A'",
    .newest = "SELECT TOP 200 NucExamID, NucExam, RateA, RateB, RateC, RateD, RateE, RateH, Outpatient, "
              "Fixrate FROM BUILD_FILE..tbcoNucExam WHERE ('##section' = 'NU' OR SectionID = '##section') "
              "AND Status = 'A' ORDER BY NucExam",
    .byCode = {},
    .byName = "SELECT TOP 200 NucExamID, NucExam, RateA, RateB, RateC, RateD, RateE, RateH, Outpatient, "
              "Fixrate FROM BUILD_FILE..tbcoNucExam WHERE ('##section' = 'NU' OR SectionID = '##section') "
              "AND Status = 'A' AND (NucExam LIKE '%##text%' OR NucExamID LIKE '##text%') ORDER BY NucExam"};

const PickListing confinedPatientListing{
    .title = "Confined Patients",
    .hint = "Last name, or last name, first name, or admission no.",
    .one = "patient",
    .many = "patients",
    .empty = "No confined patient has that name or number.",
    .columns = {{{"Adm.No.", "IdNum", 1200},
                 {"Last Name", "LastName", 2000},
                 {"First Name", "FirstName", 2000},
                 {"Middle Name", "MiddleName", 1600},
                 {"Room", "RoomID", 900},
                 {"Adm. Date", "AdmDate", 1300, PickFormat::Date}}},
    .exact = "SELECT P.IdNum, P.HospNum, M.LastName, M.FirstName, M.MiddleName, R.RoomClassID, P.RoomID, "
             "M.Sex, P.Age, M.BirthDate, P.AdmDate, C.Company, D.LastName + ', ' + D.FirstName + ' ' + "
             "D.MiddleName AS AttendingDr FROM PATIENT_DATA..tbPatient P INNER JOIN PATIENT_DATA..tbMaster M "
             "ON M.HospNum = P.HospNum LEFT JOIN BUILD_FILE..tbcoRoom R ON R.RoomID = P.RoomID LEFT JOIN "
             "BUILD_FILE..tbcoCompany C ON C.AccountNum = P.AccountNum LEFT JOIN BUILD_FILE..tbcoDoctor D ON "
             "D.DoctorID = P.DoctorID1 WHERE P.IdNum = '##code'",
    .newest =
        "SELECT TOP 200 P.IdNum, P.HospNum, M.LastName, M.FirstName, M.MiddleName, R.RoomClassID, P.RoomID, "
        "M.Sex, P.Age, M.BirthDate, P.AdmDate, C.Company, D.LastName + ', ' + D.FirstName + ' ' + "
        "D.MiddleName AS AttendingDr FROM PATIENT_DATA..tbPatient P INNER JOIN PATIENT_DATA..tbMaster M ON "
        "M.HospNum = P.HospNum LEFT JOIN BUILD_FILE..tbcoRoom R ON R.RoomID = P.RoomID LEFT JOIN "
        "BUILD_FILE..tbcoCompany C ON C.AccountNum = P.AccountNum LEFT JOIN BUILD_FILE..tbcoDoctor D ON "
        "D.DoctorID = P.DoctorID1 WHERE P.DcrDate IS NULL ORDER BY P.AdmDate DESC",
    .byCode =
        "SELECT TOP 200 P.IdNum, P.HospNum, M.LastName, M.FirstName, M.MiddleName, R.RoomClassID, P.RoomID, "
        "M.Sex, P.Age, M.BirthDate, P.AdmDate, C.Company, D.LastName + ', ' + D.FirstName + ' ' + "
        "D.MiddleName AS AttendingDr FROM PATIENT_DATA..tbPatient P INNER JOIN PATIENT_DATA..tbMaster M ON "
        "M.HospNum = P.HospNum LEFT JOIN BUILD_FILE..tbcoRoom R ON R.RoomID = P.RoomID LEFT JOIN "
        "BUILD_FILE..tbcoCompany C ON C.AccountNum = P.AccountNum LEFT JOIN BUILD_FILE..tbcoDoctor D ON "
        "D.DoctorID = P.DoctorID1 WHERE P.IdNum LIKE '##text%' AND P.DcrDate IS NULL ORDER BY P.IdNum",
    .byName =
        "SELECT TOP 200 P.IdNum, P.HospNum, M.LastName, M.FirstName, M.MiddleName, R.RoomClassID, P.RoomID, "
        "M.Sex, P.Age, M.BirthDate, P.AdmDate, C.Company, D.LastName + ', ' + D.FirstName + ' ' + "
        "D.MiddleName AS AttendingDr FROM PATIENT_DATA..tbMaster M INNER JOIN PATIENT_DATA..tbPatient P ON "
        "P.HospNum = M.HospNum LEFT JOIN BUILD_FILE..tbcoRoom R ON R.RoomID = P.RoomID LEFT JOIN "
        "BUILD_FILE..tbcoCompany C ON C.AccountNum = P.AccountNum LEFT JOIN BUILD_FILE..tbcoDoctor D ON "
        "D.DoctorID = P.DoctorID1 WHERE M.LastName LIKE '##last%' AND M.FirstName LIKE '##first%' AND "
        "P.DcrDate IS NULL ORDER BY M.LastName, M.FirstName, M.MiddleName"};

const PickListing outPatientListing{
    .title = "Out-Patients",
    .hint = "Last name, or last name, first name, or admission no.",
    .one = "patient",
    .many = "patients",
    .empty = "No registered out-patient has that name or number.",
    .columns = {{{"Adm.No.", "IdNum", 1200},
                 {"Last Name", "LastName", 2000},
                 {"First Name", "FirstName", 2000},
                 {"Middle Name", "MiddleName", 1600},
                 {"Adm. Date", "AdmDate", 1300, PickFormat::Date}}},
    .exact =
        "SELECT P.IdNum, P.HospNum, M.LastName, M.FirstName, M.MiddleName, 'OPD' AS RoomClassID, 'OPD' AS "
        "RoomID, M.Sex, P.Age, M.BirthDate, P.AdmDate, C.Company, D.LastName + ', ' + D.FirstName + ' ' + "
        "D.MiddleName AS AttendingDr FROM PATIENT_DATA..tbOutPatient P INNER JOIN PATIENT_DATA..tbMaster M "
        "ON M.HospNum = P.HospNum LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = P.AccountNum LEFT "
        "JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = P.DoctorID1 WHERE P.IdNum = '##code'",
    .newest =
        "SELECT TOP 200 P.IdNum, P.HospNum, M.LastName, M.FirstName, M.MiddleName, 'OPD' AS RoomClassID, "
        "'OPD' AS RoomID, M.Sex, P.Age, M.BirthDate, P.AdmDate, C.Company, D.LastName + ', ' + D.FirstName + "
        "' ' + D.MiddleName AS AttendingDr FROM PATIENT_DATA..tbOutPatient P INNER JOIN "
        "PATIENT_DATA..tbMaster M ON M.HospNum = P.HospNum LEFT JOIN BUILD_FILE..tbcoCompany C ON "
        "C.AccountNum = P.AccountNum LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = P.DoctorID1 WHERE "
        "P.DcrDate IS NULL AND P.OPDStatus <> 'R' ORDER BY P.AdmDate DESC",
    .byCode =
        "SELECT TOP 200 P.IdNum, P.HospNum, M.LastName, M.FirstName, M.MiddleName, 'OPD' AS RoomClassID, "
        "'OPD' AS RoomID, M.Sex, P.Age, M.BirthDate, P.AdmDate, C.Company, D.LastName + ', ' + D.FirstName + "
        "' ' + D.MiddleName AS AttendingDr FROM PATIENT_DATA..tbOutPatient P INNER JOIN "
        "PATIENT_DATA..tbMaster M ON M.HospNum = P.HospNum LEFT JOIN BUILD_FILE..tbcoCompany C ON "
        "C.AccountNum = P.AccountNum LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = P.DoctorID1 WHERE "
        "P.IdNum LIKE '##text%' AND P.DcrDate IS NULL AND P.OPDStatus <> 'R' ORDER BY P.IdNum",
    .byName = "SELECT TOP 200 P.IdNum, P.HospNum, M.LastName, M.FirstName, M.MiddleName, 'OPD' AS "
              "RoomClassID, 'OPD' AS RoomID, M.Sex, P.Age, M.BirthDate, P.AdmDate, C.Company, D.LastName + "
              "', ' + D.FirstName + ' ' + D.MiddleName AS AttendingDr FROM PATIENT_DATA..tbMaster M INNER "
              "JOIN PATIENT_DATA..tbOutPatient P ON P.HospNum = M.HospNum LEFT JOIN BUILD_FILE..tbcoCompany "
              "C ON C.AccountNum = P.AccountNum LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = "
              "P.DoctorID1 WHERE M.LastName LIKE '##last%' AND M.FirstName LIKE '##first%' AND P.DcrDate IS "
              "NULL AND P.OPDStatus <> 'R' ORDER BY M.LastName, M.FirstName, M.MiddleName"};

// The stock shown is the section's own, 179 for drugs and 224 for supplies, unless a location is asked for;
// then only what lies there can be taken.
const PickListing medicineListing{
    .title = "List of Medicines",
    .hint = "Code or medicine",
    .one = "medicine",
    .many = "medicines",
    .empty = "No medicine has that code or name.",
    .columns = {{{"Code", "ItemID", 1100},
                 {"Medicine", "ItemName", 3600},
                 {"Generic Name", "GenericName", 2400},
                 {"Price", "SellingPriceIn", 1200, PickFormat::Amount},
                 {"On Hand", "OnHand", 1000, PickFormat::Quantity},
                 {"Location", "LocationID", 1000}}},
    .exact = "SELECT I.ItemID, I.ItemName, I.GenericName, I.SellingPriceIn, S.LocationID, S.OnHand FROM "
             "INVENTORY..tbInvMaster I LEFT JOIN INVENTORY..tbInvStock S ON S.ItemID = I.ItemID AND "
             "S.LocationID = '##stock' WHERE I.ItemClass = 'PH' AND I.Inactive = 0 AND ('##location' = '' OR "
             "S.LocationID = '##location') AND I.ItemID = '##code'",
    .newest = "SELECT TOP 200 I.ItemID, I.ItemName, I.GenericName, I.SellingPriceIn, S.LocationID, S.OnHand "
              "FROM INVENTORY..tbInvMaster I LEFT JOIN INVENTORY..tbInvStock S ON S.ItemID = I.ItemID AND "
              "S.LocationID = '##stock' WHERE I.ItemClass = 'PH' AND I.Inactive = 0 AND ('##location' = '' "
              "OR S.LocationID = '##location') ORDER BY I.ItemName",
    .byCode = {},
    .byName = "SELECT TOP 200 I.ItemID, I.ItemName, I.GenericName, I.SellingPriceIn, S.LocationID, S.OnHand "
              "FROM INVENTORY..tbInvMaster I LEFT JOIN INVENTORY..tbInvStock S ON S.ItemID = I.ItemID AND "
              "S.LocationID = '##stock' WHERE I.ItemClass = 'PH' AND I.Inactive = 0 AND ('##location' = '' "
              "OR S.LocationID = '##location') AND (I.ItemName LIKE '%##text%' OR I.GenericName LIKE "
              "'%##text%' OR I.ItemID LIKE '##text%') ORDER BY I.ItemName",
    .ownStock = "179"};

const PickListing supplyListing{
    .title = "List of Supplies",
    .hint = "Code or supply",
    .one = "supply",
    .many = "supplies",
    .empty = "No supply has that code or name.",
    .columns = {{{"Code", "ItemID", 1100},
                 {"Supply", "ItemName", 5000},
                 {"Price", "SellingPriceIn", 1200, PickFormat::Amount},
                 {"On Hand", "OnHand", 1000, PickFormat::Quantity},
                 {"Location", "LocationID", 1000}}},
    .exact = "SELECT I.ItemID, I.ItemName, I.GenericName, I.SellingPriceIn, S.LocationID, S.OnHand FROM "
             "INVENTORY..tbInvMaster I LEFT JOIN INVENTORY..tbInvStock S ON S.ItemID = I.ItemID AND "
             "S.LocationID = '##stock' WHERE I.ItemClass = 'CS' AND I.Inactive = 0 AND ('##location' = '' OR "
             "S.LocationID = '##location') AND I.ItemID = '##code'",
    .newest = "SELECT TOP 200 I.ItemID, I.ItemName, I.GenericName, I.SellingPriceIn, S.LocationID, S.OnHand "
              "FROM INVENTORY..tbInvMaster I LEFT JOIN INVENTORY..tbInvStock S ON S.ItemID = I.ItemID AND "
              "S.LocationID = '##stock' WHERE I.ItemClass = 'CS' AND I.Inactive = 0 AND ('##location' = '' "
              "OR S.LocationID = '##location') ORDER BY I.ItemName",
    .byCode = {},
    .byName =
        "SELECT TOP 200 I.ItemID, I.ItemName, I.GenericName, I.SellingPriceIn, S.LocationID, S.OnHand FROM "
        "INVENTORY..tbInvMaster I LEFT JOIN INVENTORY..tbInvStock S ON S.ItemID = I.ItemID AND S.LocationID "
        "= '##stock' WHERE I.ItemClass = 'CS' AND I.Inactive = 0 AND ('##location' = '' OR S.LocationID = "
        "'##location') AND (I.ItemName LIKE '%##text%' OR I.ItemID LIKE '##text%') ORDER BY I.ItemName",
    .ownStock = "224"};

} // namespace session
