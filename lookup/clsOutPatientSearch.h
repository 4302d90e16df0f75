#pragma once

#include "lookup/FoundPatient.h"

namespace lookup {

/// Finds a registered out-patient's stay. Made where it is needed and used once. An empty CivilStatus stays
/// empty.
class clsOutPatientSearch : public FoundPatient {
  public:
    /// True when a stay is loaded: the only one of that number, or the one picked from the list. A stay that
    /// was picked and is on the patient's own account is refused with its message; one that was found by its
    /// number is not looked at in that way. Says nothing when there is none.
    bool ValidatePatient(const QString& searchText);

    const QString& IdNumber() const { return m_idNumber; }
    const QString& AccountNum() const { return m_accountNum; }
    const QString& Company() const { return m_company; }
    /// Dates in "mm/dd/yyyy", times in "hh:mmAM/PM"; "" where there is none.
    const QString& AdmDate() const { return m_admDate; }
    const QString& AdmTime() const { return m_admTime; }
    const QString& DcrDate() const { return m_dcrDate; }
    const QString& DcrTime() const { return m_dcrTime; }
    /// "" while the bill is open.
    const QString& BillingDate() const { return m_billingDate; }
    const QString& InvoiceNumber() const { return m_invoiceNumber; }
    /// A closed bill is open again for late charges.
    bool LateCharges() const { return m_lateCharges; }

  private:
    void copy(ado::Recordset& stay);

    QString m_idNumber, m_accountNum, m_company;
    QString m_admDate, m_admTime, m_dcrDate, m_dcrTime, m_billingDate;
    QString m_invoiceNumber;
    bool m_lateCharges = false;
};

} // namespace lookup
