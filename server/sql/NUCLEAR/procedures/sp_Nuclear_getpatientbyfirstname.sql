-- Stays by the start of the last name and of the first name. @PatientType 'I' admitted, 'O' out-patient.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_getpatientbyfirstname
    @PatientType varchar(1),
    @LastName varchar(50),
    @FirstName varchar(50)
AS
SET NOCOUNT ON
DECLARE @LastPattern varchar(51)
DECLARE @FirstPattern varchar(51)
SET @LastPattern = REPLACE(LTRIM(RTRIM(@LastName)), '`', '_') + '%'
SET @FirstPattern = REPLACE(LTRIM(RTRIM(@FirstName)), '`', '_') + '%'
IF @PatientType = 'O'
    SELECT TOP 200 P.HospNum AS [Hosp.No.], P.IdNum AS [Adm.No.],
        M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName AS [Patient Name],
        CONVERT(varchar(10), P.BillingDate, 101) AS [Billed Date],
        CASE WHEN P.BillingDate IS NULL THEN 'Open' WHEN P.LateCharges = 1 THEN 'Late Charges' ELSE 'Closed' END
            AS [Charging Status],
        CASE WHEN D.OkeyNU = 1 THEN 'Not Okey' ELSE 'Okey' END AS NucStatus,
        CONVERT(varchar(10), P.DcrDate, 101) AS DcrDate
    FROM PATIENT_DATA..tbMaster M
    INNER JOIN PATIENT_DATA..tbOutPatient P ON P.HospNum = M.HospNum
    LEFT JOIN PATIENT_DATA..tbPatient2 D ON D.IdNum = P.IdNum
    WHERE M.LastName LIKE @LastPattern AND M.FirstName LIKE @FirstPattern
    ORDER BY M.LastName, M.FirstName, M.MiddleName, P.AdmDate DESC
ELSE
    SELECT TOP 200 P.HospNum AS [Hosp.No.], P.IdNum AS [Adm.No.],
        M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName AS [Patient Name],
        CONVERT(varchar(10), P.BillingDate, 101) AS [Billed Date],
        CASE WHEN P.BillingDate IS NULL THEN 'Open' WHEN P.LateCharges = 1 THEN 'Late Charges' ELSE 'Closed' END
            AS [Charging Status],
        CASE WHEN D.OkeyNU = 1 THEN 'Not Okey' ELSE 'Okey' END AS NucStatus,
        CONVERT(varchar(10), P.DcrDate, 101) AS DcrDate
    FROM PATIENT_DATA..tbMaster M
    INNER JOIN PATIENT_DATA..tbPatient P ON P.HospNum = M.HospNum
    LEFT JOIN PATIENT_DATA..tbPatient2 D ON D.IdNum = P.IdNum
    WHERE M.LastName LIKE @LastPattern AND M.FirstName LIKE @FirstPattern
    ORDER BY M.LastName, M.FirstName, M.MiddleName, P.AdmDate DESC
GO
