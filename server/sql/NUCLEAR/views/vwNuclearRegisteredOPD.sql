-- Stays of registered out-patients with all that the search for them tells. The first five columns are those of the list.
USE NUCLEAR
GO

CREATE OR ALTER VIEW vwNuclearRegisteredOPD
AS
SELECT O.IdNum, M.LastName, M.FirstName, M.MiddleName, O.AdmDate, O.HospNum, O.AccountNum, C.Company, O.DcrDate,
    O.BillingDate, M.Sex, M.BirthDate, O.Age, M.HouseStreet, M.Barangay, A.Town, A.Province, M.CivilStatus,
    O.InvoiceNumber, O.LateCharges, O.OPDStatus
FROM PATIENT_DATA..tbOutPatient O
INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = O.HospNum
LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = O.AccountNum
LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = M.ZipCode
GO
