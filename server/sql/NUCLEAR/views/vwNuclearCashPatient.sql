-- Walk-in patients with all that the search for them tells.
USE NUCLEAR
GO

CREATE OR ALTER VIEW vwNuclearCashPatient
AS
SELECT C.hospnum AS HospNum, C.LastName, C.FirstName, C.MiddleName, C.Civilstatusid AS CivilStatusID,
    S.CivilStatus, C.Sex, C.BirthDate, C.Age, C.HouseStreet, C.Barangay, A.Town, A.Province, C.ZipCode
FROM PATIENT_DATA..tbCashPatient C
LEFT JOIN BUILD_FILE..tbCoCivilStatus S ON S.CivilStatusID = C.Civilstatusid
LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = C.ZipCode
GO
