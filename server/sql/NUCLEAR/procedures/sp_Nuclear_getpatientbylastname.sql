-- Stays whose patient's last name begins with the text; a back-quote, which screens type for a quote, is any sign.
-- @PatientType 'I' admitted, 'O' out-patient.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_getpatientbylastname
    @PatientType varchar(1),
    @LastName varchar(50)
AS
SET NOCOUNT ON
DECLARE @Pattern varchar(51)
SET @Pattern = REPLACE(LTRIM(RTRIM(@LastName)), '`', '_') + '%'
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
    WHERE M.LastName LIKE @Pattern
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
    WHERE M.LastName LIKE @Pattern
    ORDER BY M.LastName, M.FirstName, M.MiddleName, P.AdmDate DESC
GO
