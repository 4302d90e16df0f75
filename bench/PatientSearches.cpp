#include "bench/PatientSearches.h"

#include "bench/RawStatement.h"
#include "charges/frmReceivableSearch.h"
#include "lookup/frmListPatient.h"
#include "lookup/frmPatientList.h"
#include "lookup/frmRegisteredOPD.h"
#include "platform/base/Error.h"

namespace bench {

namespace {

std::unique_ptr<controls::Screen> listPatient() {
    return std::make_unique<lookup::frmListPatient>();
}

/// A list opened by a text that nobody has: what is typed later is not confined to current registrations.
template <typename List>
std::unique_ptr<List> opened(ado::QueryTemplate query = {}) {
    auto list = std::make_unique<List>();
    list->CurrentCaption = QStringLiteral("-");
    list->PatientQuery = query;
    return list;
}

std::unique_ptr<controls::Screen> regularPatients() {
    return opened<lookup::frmPatientList>("spGlobal_RegularPatients '#1','#2','#3'");
}

std::unique_ptr<controls::Screen> walkIns() {
    return opened<lookup::frmPatientList>("spGlobal_CashPatient '#2','#3'");
}

std::unique_ptr<controls::Screen> registeredOPD() {
    return opened<lookup::frmRegisteredOPD>();
}

std::unique_ptr<controls::Screen> billedPatients() {
    return std::make_unique<charges::frmReceivableSearch>();
}

// The raw queries are whole texts, as one would write them for the file by hand.

#define STAYS(condition, order)                                                                              \
    "SELECT P.HospNum, P.IdNum, M.LastName || ', ' || M.FirstName || ' ' || M.MiddleName, P.BillingDate, "   \
    "CASE WHEN P.BillingDate IS NULL THEN 'Open' WHEN P.LateCharges = 1 THEN 'Late Charges' ELSE 'Closed' "  \
    "END, CASE WHEN D.OkeyNU = 1 THEN 'Not Okey' ELSE 'Okey' END, P.DcrDate FROM \"PATIENT_DATA.tbMaster\" " \
    "M INNER JOIN \"PATIENT_DATA.tbPatient\" P ON P.HospNum = M.HospNum LEFT JOIN "                          \
    "\"PATIENT_DATA.tbPatient2\" D ON D.IdNum = P.IdNum WHERE " condition " ORDER BY " order " LIMIT 200"
#define REGULAR(condition)                                                                                   \
    "SELECT M.HospNum, M.LastName, M.FirstName, M.MiddleName, (SELECT MAX(L.AdmDate) FROM "                  \
    "\"PATIENT_DATA.tbOutPatient\" L WHERE L.HospNum = M.HospNum), M.Sex, M.BirthDate, "                     \
    "(CAST(strftime('%Y%m%d', 'now') AS INTEGER) - CAST(strftime('%Y%m%d', M.BirthDate) AS INTEGER)) / "     \
    "10000, M.HouseStreet, M.Barangay, A.Town, A.Province, M.CivilStatus FROM \"PATIENT_DATA.tbMaster\" M "  \
    "LEFT JOIN \"BUILD_FILE.tbCoAddress\" A ON A.ZipCode = M.ZipCode WHERE " condition                       \
    " ORDER BY M.LastName, M.FirstName, M.MiddleName LIMIT 200"
#define WALKINS(condition)                                                                                   \
    "SELECT C.hospnum, C.LastName, C.FirstName, C.MiddleName, C.Civilstatusid, S.CivilStatus, C.Sex, "       \
    "C.BirthDate, C.Age, C.HouseStreet, C.Barangay, A.Town, A.Province, C.ZipCode FROM "                     \
    "\"PATIENT_DATA.tbCashPatient\" C LEFT JOIN \"BUILD_FILE.tbCoCivilStatus\" S ON S.CivilStatusID = "      \
    "C.Civilstatusid LEFT JOIN \"BUILD_FILE.tbCoAddress\" A ON A.ZipCode = C.ZipCode WHERE " condition       \
    " ORDER BY C.LastName, C.FirstName LIMIT 200"
#define OUTPATIENTS(condition)                                                                               \
    "SELECT O.IdNum, M.LastName, M.FirstName, M.MiddleName, O.AdmDate, O.HospNum, O.AccountNum, C.Company, " \
    "O.DcrDate, O.BillingDate, M.Sex, M.BirthDate, O.Age, M.HouseStreet, M.Barangay, A.Town, A.Province, "   \
    "M.CivilStatus, O.InvoiceNumber, O.LateCharges, O.OPDStatus FROM \"PATIENT_DATA.tbOutPatient\" O INNER " \
    "JOIN \"PATIENT_DATA.tbMaster\" M ON M.HospNum = O.HospNum LEFT JOIN \"BUILD_FILE.tbcoCompany\" C ON "   \
    "C.AccountNum = O.AccountNum LEFT JOIN \"BUILD_FILE.tbCoAddress\" A ON A.ZipCode = M.ZipCode "           \
    "WHERE " condition " ORDER BY M.LastName, M.FirstName, M.MiddleName, O.AdmDate DESC LIMIT 200"
#define BILLED(table, room)                                                                                  \
    "SELECT * FROM (SELECT P.HospNum, P.IdNum, M.LastName, M.FirstName, M.MiddleName, " room                 \
    " AS RoomID, P.AdmDate, P.DcrDate, P.BillingDate, P.LateCharges, M.Sex, strftime('%m/%d/%Y', "           \
    "M.BirthDate), P.Age, P.DoctorID1, P.AccountNum, M.HouseStreet, M.Barangay, C.Company, P.InvoiceNumber " \
    "FROM \"PATIENT_DATA.tbMaster\" M INNER JOIN \"PATIENT_DATA." table                                      \
    "\" P ON P.HospNum = M.HospNum LEFT "                                                                    \
    "JOIN \"BUILD_FILE.tbcoCompany\" C ON C.AccountNum = P.AccountNum WHERE M.LastName >= ?1 AND "           \
    "M.LastName "                                                                                            \
    "< ?2 AND P.BillingDate IS NOT NULL ORDER BY M.LastName, M.FirstName, M.MiddleName, P.AdmDate DESC "     \
    "LIMIT "                                                                                                 \
    "200)"

const char* textsOf(Typed typed) {
    switch (typed) {
    case Typed::AdmissionNumber:
        return "SELECT IdNum FROM \"PATIENT_DATA.tbPatient\" WHERE rowid % 15013 = 7 LIMIT 40";
    case Typed::HospitalNumber:
        return "SELECT HospNum FROM \"PATIENT_DATA.tbPatient\" WHERE rowid % 15013 = 7 LIMIT 40";
    case Typed::OutPatientNumber:
        return "SELECT IdNum FROM \"PATIENT_DATA.tbOutPatient\" WHERE rowid % 8009 = 7 LIMIT 40";
    case Typed::WalkInNumber:
        return "SELECT hospnum FROM \"PATIENT_DATA.tbCashPatient\" WHERE rowid % 24007 = 7 LIMIT 40";
    case Typed::Name:
        break;
    }
    // A quote cannot be searched.
    return "SELECT substr(M.LastName, 1, 3) FROM \"PATIENT_DATA.tbMaster\" M INNER JOIN "
           "\"PATIENT_DATA.tbOutPatient\" P ON P.HospNum = M.HospNum WHERE M.LastName NOT LIKE '%''%' GROUP "
           "BY 1 HAVING COUNT(*) >= 1000 ORDER BY COUNT(*) LIMIT 40";
}

} // namespace

const std::vector<PatientSearch> patientSearches = {
    {"admitted patients by name", Typed::Name, "sp_Nuclear_getpatientbylastname 'I','#'",
     STAYS("M.LastName >= ?1 AND M.LastName < ?2", "M.LastName, M.FirstName, M.MiddleName, P.AdmDate DESC"),
     1, listPatient, 0},
    {"an admission by its number", Typed::AdmissionNumber, "sp_Nuclear_getpatientbyidnum 'I','#'",
     STAYS("P.IdNum = ?1", "P.AdmDate DESC"), 1, listPatient, 1},
    {"admissions of a hospital number", Typed::HospitalNumber, "sp_Nuclear_getpatientbyhospnum 'I','#'",
     STAYS("P.HospNum = ?1", "P.AdmDate DESC"), 1, listPatient, 2},
    {"regular patients by name", Typed::Name, "spGlobal_RegularPatients '0','0','#'",
     REGULAR("M.LastName >= ?1 AND M.LastName < ?2"), 0, regularPatients, 0},
    {"a regular patient by number", Typed::HospitalNumber, "spGlobal_RegularPatients '0','1','#'",
     REGULAR("M.HospNum = ?1"), 0, regularPatients, 1},
    {"walk-ins by name", Typed::Name, "spGlobal_CashPatient '0','#'",
     WALKINS("C.LastName >= ?1 AND C.LastName < ?2"), 0, walkIns, 0},
    {"a walk-in by number", Typed::WalkInNumber, "spGlobal_CashPatient '1','#'", WALKINS("C.hospnum = ?1"), 0,
     walkIns, 1},
    {"registered out-patients by name", Typed::Name, "spGlobal_RegisteredOPD '0','0', '#'",
     OUTPATIENTS("M.LastName >= ?1 AND M.LastName < ?2"), 0, registeredOPD, 0},
    {"a registered out-patient by number", Typed::OutPatientNumber, "spGlobal_RegisteredOPD '0','1', '#'",
     OUTPATIENTS("O.IdNum = ?1"), 0, registeredOPD, 1},
    {"billed patients by name", Typed::Name, "RADIOLOGY..spGlobal_BilledPatients '#'",
     "SELECT * FROM (" BILLED("tbPatient", "P.RoomID") " UNION ALL " BILLED(
         "tbOutPatient", "'OPD'") ") ORDER BY LastName, FirstName, MiddleName, AdmDate DESC LIMIT 200",
     1, billedPatients, 0}};

std::vector<std::string> typedTexts(sqlite3* handle, Typed typed) {
    RawStatement query(handle, textsOf(typed));
    std::vector<std::string> texts;
    while (query.step())
        texts.push_back(query.text(0));
    if (texts.empty())
        throw base::RunTimeError(3021, QStringLiteral("The file has nothing to search for."));
    return texts;
}

} // namespace bench
