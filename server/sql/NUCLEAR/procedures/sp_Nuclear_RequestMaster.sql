-- Patients with requests that wait for a result, by the start of the last name, or by admission or hospital number.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_RequestMaster
    @SearchText varchar(50)
AS
SET NOCOUNT ON
DECLARE @Pattern varchar(51)
SET @Pattern = @SearchText + '%'
SELECT M.HospNum, M.LastName, M.FirstName, M.MiddleName, MAX(N.RequestNum) AS RequestNum
FROM tbNucMaster N
INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = N.HospNum
WHERE N.RevenueID = 'NU' AND N.RequestStatus = ''
    AND (M.LastName LIKE @Pattern OR N.IdNum = @SearchText OR N.HospNum = @SearchText)
GROUP BY M.HospNum, M.LastName, M.FirstName, M.MiddleName
UNION ALL
SELECT C.hospnum, C.LastName, C.FirstName, C.MiddleName, MAX(N.RequestNum)
FROM tbNucMaster N
INNER JOIN PATIENT_DATA..tbCashPatient C ON C.hospnum = N.HospNum
WHERE N.RevenueID = 'NU' AND N.RequestStatus = ''
    AND (C.LastName LIKE @Pattern OR N.HospNum = @SearchText)
GROUP BY C.hospnum, C.LastName, C.FirstName, C.MiddleName
ORDER BY LastName, FirstName, MiddleName
GO
