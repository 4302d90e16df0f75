-- Stays of admitted patients as the section's lists show them; behind the seven columns of a list, what it is sorted by.
USE NUCLEAR
GO

CREATE OR ALTER VIEW vwNuclearInStay
AS
SELECT P.HospNum AS [Hosp.No.], P.IdNum AS [Adm.No.],
    M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName AS [Patient Name],
    CONVERT(varchar(10), P.BillingDate, 101) AS [Billed Date],
    CASE WHEN P.BillingDate IS NULL THEN 'Open' WHEN P.LateCharges = 1 THEN 'Late Charges' ELSE 'Closed' END
        AS [Charging Status],
    CASE WHEN D.OkeyNU = 1 THEN 'Not Okey' ELSE 'Okey' END AS NucStatus,
    CONVERT(varchar(10), P.DcrDate, 101) AS DcrDate,
    M.LastName, M.FirstName, M.MiddleName, P.AdmDate
FROM PATIENT_DATA..tbMaster M
INNER JOIN PATIENT_DATA..tbPatient P ON P.HospNum = M.HospNum
LEFT JOIN PATIENT_DATA..tbPatient2 D ON D.IdNum = P.IdNum
GO
