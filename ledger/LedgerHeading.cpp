#include "ledger/LedgerHeading.h"

#include "lookup/clsOutPatientSearch.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/report/Report.h"
#include "session/Session.h"
#include "session/services/Services.h"

namespace ledger {

namespace {

/// The day that a date counts from: no date was given.
constexpr double noDate = 0;

QString momentText(const base::Value& value) {
    const base::DateTime* moment = value.asDateTime();
    if (!moment || base::toSerial(*moment) == noDate)
        return {};
    return base::Format(value, QStringLiteral("mm/dd/yyyy hh:mm:ss AMPM"));
}

QString companyText(const QString& company) {
    return company.isEmpty() ? QStringLiteral("Personal") : company;
}

QString joined(const QString& first, const QString& second) {
    return first + u' ' + second;
}

struct NamedValue {
    const char* parameter;
    QString LedgerHeading::*value;
};

constexpr NamedValue ofTheHeading[] = {{"@IDNUM", &LedgerHeading::LedgerIdNum},
                                       {"@PATIENTTYPE", &LedgerHeading::LedgerPatientType},
                                       {"PATIENT", &LedgerHeading::LedgerPatient},
                                       {"HOUSEBRGY", &LedgerHeading::LedgerHouseBrgy},
                                       {"TOWNPROVINCE", &LedgerHeading::LedgerTownProvince},
                                       {"ACCOUNTNO", &LedgerHeading::LedgerAccountNo},
                                       {"COMPANY", &LedgerHeading::LedgerCompany},
                                       {"HOSPNUM", &LedgerHeading::LedgerHospNum},
                                       {"ROOM", &LedgerHeading::LedgerRoom},
                                       {"ADMITTED", &LedgerHeading::LedgerAdmitted},
                                       {"DISCHARGED", &LedgerHeading::LedgerDischarged}};

/// Null for a name that nothing is told under.
base::Value valueNamed(const QString& name, const LedgerHeading& heading) {
    if (name == u"COMPANYNAME")
        return session::gHospitalName;
    if (name == u"COMPANYADDRESS")
        return session::gHospitalAddress;
    if (name == u"TIN")
        return QString();
    for (const NamedValue& named : ofTheHeading) {
        if (name == QLatin1StringView(named.parameter))
            return heading.*named.value;
    }
    return {};
}

} // namespace

LedgerHeading headingOf(const session::clsAdmission& admission) {
    const session::clsPatientMaster& patient = admission.Patient;
    return {.LedgerIdNum = admission.IdNumber,
            .LedgerPatientType = QStringLiteral("I"),
            .LedgerPatient =
                patient.LastName + QStringLiteral(", ") + joined(patient.FirstName, patient.MiddleName),
            .LedgerHouseBrgy = joined(patient.HouseStreet, patient.Barangay),
            .LedgerTownProvince = joined(patient.Town, patient.Province),
            .LedgerAccountNo = admission.AccountNumber,
            .LedgerCompany = companyText(admission.Company),
            .LedgerHospNum = admission.HospitalNumber,
            .LedgerRoom = admission.Room,
            .LedgerAdmitted = momentText(admission.AdmissionDate),
            .LedgerDischarged = momentText(admission.dischargeDate)};
}

LedgerHeading headingOf(const lookup::clsOutPatientSearch& search, const QString& idNumber,
                        const QString& name) {
    return {.LedgerIdNum = idNumber,
            .LedgerPatientType = QStringLiteral("O"),
            .LedgerPatient = name,
            .LedgerHouseBrgy = joined(search.HouseStreet(), search.Barangay()),
            .LedgerTownProvince = joined(search.Town(), search.Province()),
            .LedgerAccountNo = search.AccountNum(),
            .LedgerCompany = companyText(search.Company()),
            .LedgerHospNum = search.HospitalNumber(),
            .LedgerRoom = QStringLiteral("OPD"),
            .LedgerAdmitted = joined(search.AdmDate(), search.AdmTime()),
            .LedgerDischarged = joined(search.DcrDate(), search.DcrTime())};
}

void feedByName(report::Report& report, const LedgerHeading& heading) {
    const QStringList names = report.parameterNames();
    for (int index = 0; index < int(names.size()); ++index) {
        const base::Value value = valueNamed(names[index].toUpper(), heading);
        if (!value.isNull())
            report.setParameter(index, value);
    }
}

} // namespace ledger
