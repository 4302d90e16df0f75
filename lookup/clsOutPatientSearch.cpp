#include "lookup/clsOutPatientSearch.h"

#include "lookup/FieldText.h"
#include "lookup/frmRegisteredOPD.h"
#include "platform/base/Format.h"
#include "platform/controls/screen/MessageBox.h"
#include "session/Session.h"

namespace lookup {

namespace {

ado::Recordset stayOf(const QString& number) {
    return session::Read(ado::sql("spGlobal_RegisteredOPD '0','1', '{}'", number));
}

QString dateText(ado::Recordset& rows, const char* column) {
    return base::Format(rows.Fields(column).Value(), QStringLiteral("mm/dd/yyyy"));
}

QString timeText(ado::Recordset& rows, const char* column) {
    return base::Format(rows.Fields(column).Value(), QStringLiteral("hh:mmAM/PM"));
}

bool isOnOwnAccount(ado::Recordset& stay) {
    return fieldText(stay, "AccountNum") == fieldText(stay, "HospNum");
}

} // namespace

bool clsOutPatientSearch::ValidatePatient(const QString& searchText) {
    ado::Recordset stay = stayOf(searchText);
    if (stay.RecordCount() != 1) {
        frmRegisteredOPD& list = controls::SharedScreen<frmRegisteredOPD>::fresh();
        list.CurrentCaption = searchText;
        list.ShowModal();
        if (!list.Valid)
            return false;
        stay = stayOf(list.ResultCode);
        if (stay.Eof())
            return false;
        if (isOnOwnAccount(stay)) {
            controls::MsgBox(QStringLiteral("Patient`s with Personal Account is Not Allowed.\n"
                                            "Please Use Cash Assessment Entry Option for this Patient."),
                             controls::vbInformation, QStringLiteral("Message"));
            return false;
        }
    }
    copy(stay);
    return true;
}

void clsOutPatientSearch::copy(ado::Recordset& stay) {
    copyPatient(stay, EmptyCivilStatus::Stays);
    m_idNumber = fieldText(stay, "IdNum");
    m_accountNum = fieldText(stay, "AccountNum");
    m_company = fieldText(stay, "Company");
    m_admDate = dateText(stay, "AdmDate");
    m_admTime = timeText(stay, "AdmDate");
    m_dcrDate = dateText(stay, "DcrDate");
    m_dcrTime = timeText(stay, "DcrDate");
    m_billingDate = dateText(stay, "BillingDate");
    m_invoiceNumber = fieldText(stay, "InvoiceNumber");
    m_lateCharges = fieldFlag(stay, "LateCharges");
}

} // namespace lookup
