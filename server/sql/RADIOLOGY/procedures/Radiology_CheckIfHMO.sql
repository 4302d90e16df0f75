-- A row when the patient's stay is on the account of an HMO.
USE RADIOLOGY
GO

CREATE OR ALTER PROCEDURE Radiology_CheckIfHMO
    @PatientNum varchar(20)
AS
SET NOCOUNT ON
SELECT TOP 1 O.AccountNum
FROM PATIENT_DATA..tbOutPatient O
INNER JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = O.AccountNum
WHERE (O.IdNum = @PatientNum OR O.HospNum = @PatientNum) AND C.IsHMO = 1
ORDER BY O.AdmDate DESC
GO
