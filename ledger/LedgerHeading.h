#pragma once

#include <QString>

namespace lookup {
class clsOutPatientSearch;
}

namespace report {
class Report;
}

namespace session {
class clsAdmission;
}

namespace ledger {

/// Whose ledger it is: what the report is told beside the hospital's heading.
struct LedgerHeading {
    QString LedgerIdNum;
    QString LedgerPatientType; ///< "I" or "O"
    QString LedgerPatient;     ///< "LAST, FIRST MIDDLE"
    QString LedgerHouseBrgy;
    QString LedgerTownProvince;
    QString LedgerAccountNo;
    QString LedgerCompany; ///< "Personal" without a company
    QString LedgerHospNum;
    QString LedgerRoom;       ///< "OPD" for an out-patient
    QString LedgerAdmitted;   ///< "" when it is not known
    QString LedgerDischarged; ///< "" for an in-patient who is still in the house
};

LedgerHeading headingOf(const session::clsAdmission& admission);
/// `idNumber` and `name` as the screen shows them.
LedgerHeading headingOf(const lookup::clsOutPatientSearch& search, const QString& idNumber,
                        const QString& name);

/// Gives each parameter of the report its value by its name, in either case. One of another name gets none.
void feedByName(report::Report& report, const LedgerHeading& heading);

} // namespace ledger
