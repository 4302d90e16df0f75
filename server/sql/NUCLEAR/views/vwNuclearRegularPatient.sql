-- Registered patients with all that the search for them tells; AdmDate is that of the latest out-patient stay. The first
-- five columns are those of the list.
USE NUCLEAR
GO

CREATE OR ALTER VIEW vwNuclearRegularPatient
AS
SELECT M.HospNum, M.LastName, M.FirstName, M.MiddleName,
    (SELECT MAX(L.AdmDate) FROM PATIENT_DATA..tbOutPatient L WHERE L.HospNum = M.HospNum) AS AdmDate,
    M.Sex, M.BirthDate, dbo.fnNuclear_Age(M.BirthDate, GETDATE()) AS Age,
    M.HouseStreet, M.Barangay, A.Town, A.Province, M.CivilStatus
FROM PATIENT_DATA..tbMaster M
LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = M.ZipCode
GO
