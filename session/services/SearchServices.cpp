#include "session/services/Services.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "session/services/PickListing.h"

namespace session {
namespace {

QString textOf(ado::Recordset& row, const char* field) {
    return base::Trim(row.Fields(field).text());
}

NuclearExamRecord examOf(ado::Recordset& row) {
    return {textOf(row, "NucExamID"),        textOf(row, "NucExam"),      textOf(row, "Fixrate"),
            row.Fields("RateA").Value(),     row.Fields("RateB").Value(), row.Fields("RateC").Value(),
            row.Fields("RateD").Value(),     row.Fields("RateE").Value(), row.Fields("RateH").Value(),
            row.Fields("Outpatient").Value()};
}

struct CodeListing {
    int code;
    const PickListing* listing;
};

constexpr CodeListing codeListings[] = {{clsLookupPad::towns, &townListing},
                                        {clsLookupPad::doctors, &doctorListing},
                                        {clsLookupPad::dosages, &dosageListing},
                                        {clsLookupPad::exams, &examListing}};
constexpr CodeListing patientListings[] = {{clsDeptFind::outPatients, &outPatientListing},
                                           {clsDeptFind::confinedPatients, &confinedPatientListing}};

template <std::size_t Count>
const PickListing& listingOf(const CodeListing (&listings)[Count], int code) {
    for (const CodeListing& listing : listings) {
        if (listing.code == code)
            return *listing.listing;
    }
    throw base::RunTimeError(base::errors::invalidProcedureCall);
}

} // namespace

void clsLookupPad::Initialize_Classes() {
    ResultCode.clear();
    forgetRecords();
    m_cancelled = false;
}

void clsLookupPad::forgetRecords() {
    LastName.clear();
    FirstName.clear();
    MiddleName.clear();
    DoctorRecord = {};
    NuclearExamRecord = {};
    AddressRecord = {};
    DosageRecord = {};
}

bool clsLookupPad::SearchListing(const QString& searchText, int listingCode) {
    PickPrice price;
    if (listingCode == exams && ExamPrice)
        price = [this](ado::Recordset& row) { return ExamPrice(examOf(row)); };
    Pick chosen = pick(m_connection, listingOf(codeListings, listingCode), {OtherSectionID, {}}, searchText,
                       SearchMode, price);
    m_cancelled = !chosen.row;
    ResultCode.clear();
    forgetRecords();
    if (chosen.row)
        takeRecord(*chosen.row, listingCode);
    return chosen.row.has_value();
}

void clsLookupPad::takeRecord(ado::Recordset& row, int listingCode) {
    switch (listingCode) {
    case towns:
        AddressRecord = {textOf(row, "ZipCode"), textOf(row, "Town"), textOf(row, "Province")};
        ResultCode = AddressRecord.ResultCode;
        break;
    case doctors:
        DoctorRecord = {textOf(row, "DoctorID"), textOf(row, "LastName"), textOf(row, "FirstName"),
                        textOf(row, "MiddleName")};
        ResultCode = DoctorRecord.ResultCode;
        LastName = DoctorRecord.LastName;
        FirstName = DoctorRecord.FirstName;
        MiddleName = DoctorRecord.MiddleName;
        break;
    case dosages:
        DosageRecord = {textOf(row, "DosageID"), textOf(row, "Frequency")};
        ResultCode = DosageRecord.ResultCode;
        break;
    default:
        NuclearExamRecord = examOf(row);
        ResultCode = NuclearExamRecord.ResultCode;
        break;
    }
}

void clsDeptFind::Initialize_Classes() {
    Inpatient = {};
    Outpatient = {};
    m_cancelled = false;
}

bool clsDeptFind::PatientListing(const QString& searchText, int listingCode, bool showList) {
    Pick chosen = pick(m_connection, listingOf(patientListings, listingCode), {}, searchText, showList);
    m_cancelled = chosen.left;
    ListedPatient& patient = listingCode == confinedPatients ? Inpatient : Outpatient;
    patient = {};
    if (!chosen.row)
        return false;
    ado::Recordset& row = *chosen.row;
    patient = {textOf(row, "IdNum"),      textOf(row, "HospNum"),
               textOf(row, "LastName"),   textOf(row, "FirstName"),
               textOf(row, "MiddleName"), textOf(row, "RoomClassID"),
               textOf(row, "RoomID"),     textOf(row, "Sex"),
               textOf(row, "Age"),        row.Fields("BirthDate").Value(),
               textOf(row, "Company"),    textOf(row, "AttendingDr")};
    return true;
}

} // namespace session
