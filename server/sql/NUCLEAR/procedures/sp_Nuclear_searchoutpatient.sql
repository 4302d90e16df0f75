USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_searchoutpatient
    @IdNum varchar(20)
AS
SET NOCOUNT ON
SELECT O.IdNum, O.HospNum, M.LastName, M.FirstName, M.MiddleName, M.Sex, M.BirthDate, M.BloodType, O.Age, O.AdmDate,
    O.DoctorID1 AS doctorid1, D.LastName + ', ' + D.FirstName + ' ' + D.MiddleName AS DoctorName,
    O.AccountNum, C.Company, H.Height, H.Weight, O.BillingDate, O.LateCharges
FROM PATIENT_DATA..tbOutPatient O
INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = O.HospNum
LEFT JOIN PATIENT_DATA..tbPatientHistory H ON H.IdNum = O.IdNum
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = O.DoctorID1
LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = O.AccountNum
WHERE O.IdNum = @IdNum
GO
