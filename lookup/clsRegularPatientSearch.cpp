#include "lookup/clsRegularPatientSearch.h"

#include "lookup/frmPatientList.h"
#include "session/Session.h"

namespace lookup {

using ado::sql;

bool clsRegularPatientSearch::ValidatePatient(const QString& searchText, bool showList) {
    ado::Recordset patients = session::Read(sql("spGlobal_RegularPatients '','1', '{}'", searchText));
    if (patients.RecordCount() != 1) {
        if (!showList)
            return false;
        frmPatientList& list = controls::SharedScreen<frmPatientList>::fresh();
        list.ListCaption = QStringLiteral("Regular Patients");
        list.CurrentCaption = searchText;
        list.PatientQuery = "spGlobal_RegularPatients '#1','#2','#3'";
        list.EnableAddPatient = false;
        list.ShowModal();
        if (!list.Valid)
            return false;
        patients = session::Read(sql("spGlobal_RegularPatients '0','1', '{}'", list.ResultCode));
    }
    if (patients.Eof())
        return false;
    copyPatient(patients, EmptyCivilStatus::IsOne);
    return true;
}

} // namespace lookup
