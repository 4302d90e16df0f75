-- Stays with a billing date, by the start of the last name or by admission number. The receivable screen counts on the
-- places of birth date (12), age (13) and company (18).
USE RADIOLOGY
GO

CREATE OR ALTER PROCEDURE spGlobal_BilledPatients
    @SearchText varchar(50)
AS
SET NOCOUNT ON
DECLARE @Pattern varchar(51)
SET @Pattern = @SearchText + '%'
SELECT TOP 200 S.HospNum, S.IdNum, M.LastName, M.FirstName, M.MiddleName, S.RoomID, S.AdmDate, S.DcrDate, S.BillingDate,
    S.LateCharges, M.Sex, CONVERT(varchar(10), M.BirthDate, 101) AS BirthDate, S.Age, S.DoctorID1, S.AccountNum,
    M.HouseStreet, M.Barangay, C.Company, S.InvoiceNumber
FROM PATIENT_DATA..tbMaster M
INNER JOIN PATIENT_DATA..vwStay S ON S.HospNum = M.HospNum
LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = S.AccountNum
WHERE M.LastName LIKE @Pattern AND S.BillingDate IS NOT NULL
ORDER BY M.LastName, M.FirstName, M.MiddleName, S.AdmDate DESC
GO
