#include "session/services/Services.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"

#include "session/Session.h"

namespace session {
namespace {

/// A quote cannot stand in a number of the hospital; such a text finds nothing.
QString numberOf(const QString& text) {
    return base::BackQuoted(base::Trim(text));
}

QString textOf(ado::Recordset& row, const char* field) {
    return base::Trim(row.Fields(field).text());
}

bool hasRow(const ado::Recordset& recordset) {
    return recordset.State() == ado::Recordset::adStateOpen && !recordset.Eof();
}

/// Whole years until today, "" without a birth date.
QString ageToday(const base::Value& birthDate) {
    const base::DateTime* moment = birthDate.asDateTime();
    if (!moment)
        return {};
    const base::CalendarDate born = base::calendarDate(*moment);
    const base::CalendarDate today = base::calendarDate(base::today());
    int years = today.year - born.year;
    if (today.month < born.month || (today.month == born.month && today.day < born.day))
        --years;
    return years < 0 ? QString() : QString::number(years);
}

/// The hospital number as account means that the patient pays personally.
QString accountText(const QString& accountNumber, const QString& company, const QString& hospitalNumber) {
    const bool personal = accountNumber.isEmpty() || accountNumber == hospitalNumber;
    return personal ? QStringLiteral(" - ") : accountNumber + QStringLiteral(" - ") + company;
}

QString joined(std::initializer_list<QString> parts, const QString& separator) {
    QStringList some;
    for (const QString& part : parts) {
        if (!part.isEmpty())
            some += part;
    }
    return some.join(separator);
}

DoctorRef doctorOf(ado::Recordset& row) {
    DoctorRef doctor;
    doctor.Code = textOf(row, "DoctorID1");
    const QString name =
        joined({textOf(row, "DoctorFirst"), textOf(row, "DoctorMiddle"), textOf(row, "DoctorLast")},
               QStringLiteral(" "));
    if (!name.isEmpty())
        doctor.CompleteName = QStringLiteral("DR. ") + name;
    return doctor;
}

} // namespace

int KeyPress::AllUppers(int keyCode) const {
    return keyCode > 0 && keyCode <= 0xFFFF ? int(QChar(char16_t(keyCode)).toUpper().unicode()) : keyCode;
}

bool clsPatientMaster::LoadPatient(const QString& hospitalNumber) {
    *this = {};
    ado::Recordset row = Read(ado::sql(
        "SELECT M.HospNum, M.LastName, M.FirstName, M.MiddleName, M.Sex, M.BirthDate, M.BloodType, "
        "M.HouseStreet, "
        "M.Barangay, A.Town, A.Province, M.AccountNum, C.Company FROM PATIENT_DATA..tbMaster M LEFT JOIN "
        "BUILD_FILE..tbCoAddress A ON A.ZipCode = M.ZipCode LEFT JOIN BUILD_FILE..tbcoCompany C ON "
        "C.AccountNum = "
        "M.AccountNum WHERE M.HospNum = '{}'",
        numberOf(hospitalNumber)));
    if (!hasRow(row))
        return false;
    HospitalNumber = textOf(row, "HospNum");
    LastName = textOf(row, "LastName");
    FirstName = textOf(row, "FirstName");
    MiddleName = textOf(row, "MiddleName");
    Sex = textOf(row, "Sex");
    BirthDate = row.Fields("BirthDate").Value();
    Age = ageToday(BirthDate);
    BloodType = textOf(row, "BloodType");
    HouseStreet = textOf(row, "HouseStreet");
    Barangay = textOf(row, "Barangay");
    Town = textOf(row, "Town");
    Province = textOf(row, "Province");
    Address = joined({HouseStreet, Barangay, Town, Province}, QStringLiteral(", "));
    Account = accountText(textOf(row, "AccountNum"), textOf(row, "Company"), HospitalNumber);
    row.Close();
    return true;
}

bool clsAdmission::OpenAdmission(const QString& idNumber) {
    *this = {};
    ado::Recordset row = Read(ado::sql(
        "SELECT P.IdNum, P.HospNum, P.AdmDate, P.DcrDate, P.BillingDate, P.RoomID, P.AccountNum, C.Company, "
        "P.DoctorID1, D.LastName AS DoctorLast, D.FirstName AS DoctorFirst, D.MiddleName AS DoctorMiddle, "
        "H.Height, "
        "H.Weight FROM PATIENT_DATA..tbPatient P LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = "
        "P.AccountNum "
        "LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = P.DoctorID1 LEFT JOIN "
        "PATIENT_DATA..tbPatientHistory H "
        "ON H.IdNum = P.IdNum WHERE P.IdNum = '{}'",
        numberOf(idNumber)));
    if (!hasRow(row))
        return false;
    IdNumber = textOf(row, "IdNum");
    HospitalNumber = textOf(row, "HospNum");
    AdmissionDate = row.Fields("AdmDate").Value();
    dischargeDate = row.Fields("DcrDate").Value();
    BillingDate = row.Fields("BillingDate").Value();
    Room = textOf(row, "RoomID");
    AccountNumber = textOf(row, "AccountNum");
    Company = textOf(row, "Company");
    Account = accountText(AccountNumber, Company, HospitalNumber);
    AttendingDoctor1 = doctorOf(row);
    History.Height = textOf(row, "Height");
    History.Weight = textOf(row, "Weight");
    row.Close();
    Patient.LoadPatient(HospitalNumber);
    return true;
}

void clsRegistry::OpenConnection(const QString& connectionString) {
    if (!ado::Connection::byConnectionString(connectionString))
        throw base::RunTimeError(base::errors::connectionInvalid);
}

bool clsCensusFind::InitConnection(const QString& connectionString, QString& status) {
    const bool found = ado::Connection::byConnectionString(connectionString) != nullptr;
    status = found ? QString() : QStringLiteral("The connection is not open.");
    return found;
}

bool clsCensusFind::ValidatePatient(const QString& hospitalNumber) {
    Admission = {};
    takePatient(PatientMaster.LoadPatient(hospitalNumber) ? PatientMaster : clsPatientMaster());
    Account = PatientMaster.Account;
    IdNumber.clear();
    Room.clear();
    AdmissionDate = {};
    dischargeDate = {};
    return !PatientMaster.HospitalNumber.isEmpty();
}

bool clsCensusFind::ValidateAdmission(const QString& idNumber) {
    const bool found = Admission.OpenAdmission(idNumber);
    PatientMaster = Admission.Patient;
    takePatient(PatientMaster);
    HospitalNumber = Admission.HospitalNumber;
    Account = Admission.Account;
    IdNumber = Admission.IdNumber;
    Room = Admission.Room;
    AdmissionDate = Admission.AdmissionDate;
    dischargeDate = Admission.dischargeDate;
    return found;
}

void clsCensusFind::takePatient(const clsPatientMaster& patient) {
    LastName = patient.LastName;
    FirstName = patient.FirstName;
    MiddleName = patient.MiddleName;
    HospitalNumber = patient.HospitalNumber;
    HouseStreet = patient.HouseStreet;
    Barangay = patient.Barangay;
    Town = patient.Town;
    Province = patient.Province;
}

} // namespace session
