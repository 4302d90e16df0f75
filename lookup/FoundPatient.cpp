#include "lookup/FoundPatient.h"

#include "lookup/FieldText.h"

namespace lookup {

void FoundPatient::copyPatient(ado::Recordset& rows, EmptyCivilStatus emptyCivilStatus) {
    m_hospitalNumber = fieldText(rows, "HospNum");
    m_lastName = fieldText(rows, "LastName");
    m_firstName = fieldText(rows, "FirstName");
    m_middleName = fieldText(rows, "MiddleName");
    m_sex = fieldText(rows, "Sex");
    m_birthDate = fieldText(rows, "BirthDate");
    m_age = fieldText(rows, "Age");
    m_houseStreet = fieldText(rows, "HouseStreet");
    m_barangay = fieldText(rows, "Barangay");
    m_town = fieldText(rows, "Town");
    m_province = fieldText(rows, "Province");
    m_civilStatus = fieldText(rows, "CivilStatus");
    if (m_civilStatus.isEmpty() && emptyCivilStatus == EmptyCivilStatus::IsOne)
        m_civilStatus = QStringLiteral("1");
}

} // namespace lookup
