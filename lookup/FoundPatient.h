#pragma once

#include "platform/ado/Recordset.h"

#include <QString>

namespace lookup {

/// What the patient searches tell of the patient they found last; "" where the file has nothing. A search
/// that fails leaves the members as they were.
class FoundPatient {
  public:
    const QString& HospitalNumber() const { return m_hospitalNumber; }
    const QString& LastName() const { return m_lastName; }
    const QString& FirstName() const { return m_firstName; }
    const QString& MiddleName() const { return m_middleName; }
    const QString& Sex() const { return m_sex; }
    const QString& BirthDate() const { return m_birthDate; }
    const QString& Age() const { return m_age; }
    const QString& HouseStreet() const { return m_houseStreet; }
    const QString& Barangay() const { return m_barangay; }
    const QString& Town() const { return m_town; }
    const QString& Province() const { return m_province; }
    const QString& CivilStatus() const { return m_civilStatus; }

  protected:
    FoundPatient() = default;
    ~FoundPatient() = default;

    /// How an empty CivilStatus is read.
    enum class EmptyCivilStatus { Stays, IsOne };
    void copyPatient(ado::Recordset& rows, EmptyCivilStatus emptyCivilStatus);

  private:
    QString m_hospitalNumber, m_lastName, m_firstName, m_middleName;
    QString m_sex, m_birthDate, m_age, m_civilStatus;
    QString m_houseStreet, m_barangay, m_town, m_province;
};

} // namespace lookup
