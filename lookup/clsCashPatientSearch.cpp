#include "lookup/clsCashPatientSearch.h"

#include "lookup/frmPatientList.h"
#include "session/Session.h"

namespace lookup {

using ado::sql;

bool clsCashPatientSearch::ValidatePatient(const QString& searchText, bool showList) {
    ado::Recordset patients = session::Read(sql("spGlobal_CashPatient '0', '{}'", searchText));
    if (patients.RecordCount() < 1 || !showList)
        return false;
    frmPatientList& list = controls::SharedScreen<frmPatientList>::fresh();
    list.ListCaption = QStringLiteral("Walk In Patients");
    list.CurrentCaption = searchText;
    list.PatientQuery = "spGlobal_CashPatient '#2','#3'";
    list.EnableAddPatient = true;
    list.ShowModal();
    if (!list.Valid)
        return false;
    patients = session::Read(sql("spGlobal_CashPatient '1', '{}'", list.ResultCode));
    if (patients.Eof())
        return false;
    copyPatient(patients, EmptyCivilStatus::IsOne);
    return true;
}

} // namespace lookup
