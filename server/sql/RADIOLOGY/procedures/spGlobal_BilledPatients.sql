-- Stays with a billing date, by the start of the names or by the number of the stay in full. The receivable screen counts on
-- the places of birth date (12), age (13) and company (18).
USE RADIOLOGY
GO

CREATE OR ALTER PROCEDURE spGlobal_BilledPatients
    @SearchText varchar(101)
AS
SET NOCOUNT ON
DECLARE @LastName varchar(102), @FirstName varchar(102), @Number varchar(101)
SET @LastName = NUCLEAR.dbo.fnNuclear_NameStart(@SearchText, 0)
SET @FirstName = NUCLEAR.dbo.fnNuclear_NameStart(@SearchText, 1)
SET @Number = LTRIM(RTRIM(@SearchText))
SELECT TOP 200 HospNum, IdNum, LastName, FirstName, MiddleName, RoomID, AdmDate, DcrDate, BillingDate, LateCharges, Sex,
    BirthDate, Age, DoctorID1, AccountNum, HouseStreet, Barangay, Company, InvoiceNumber
FROM (
        SELECT * FROM (
            SELECT TOP 200 P.HospNum, P.IdNum, M.LastName, M.FirstName, M.MiddleName, P.RoomID, P.AdmDate,
                P.DcrDate, P.BillingDate, P.LateCharges, M.Sex, CONVERT(varchar(10), M.BirthDate, 101) AS BirthDate, P.Age,
                P.DoctorID1, P.AccountNum, M.HouseStreet, M.Barangay, C.Company, P.InvoiceNumber
            FROM PATIENT_DATA..tbMaster M
            INNER JOIN PATIENT_DATA..tbPatient P ON P.HospNum = M.HospNum
            LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = P.AccountNum
            WHERE M.LastName LIKE @LastName AND M.FirstName LIKE @FirstName AND P.BillingDate IS NOT NULL
            ORDER BY M.LastName, M.FirstName, M.MiddleName, P.AdmDate DESC
        ) A
        UNION ALL
        SELECT * FROM (
            SELECT TOP 200 P.HospNum, P.IdNum, M.LastName, M.FirstName, M.MiddleName, 'OPD' AS RoomID, P.AdmDate,
                P.DcrDate, P.BillingDate, P.LateCharges, M.Sex, CONVERT(varchar(10), M.BirthDate, 101) AS BirthDate, P.Age,
                P.DoctorID1, P.AccountNum, M.HouseStreet, M.Barangay, C.Company, P.InvoiceNumber
            FROM PATIENT_DATA..tbMaster M
            INNER JOIN PATIENT_DATA..tbOutPatient P ON P.HospNum = M.HospNum
            LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = P.AccountNum
            WHERE M.LastName LIKE @LastName AND M.FirstName LIKE @FirstName AND P.BillingDate IS NOT NULL
            ORDER BY M.LastName, M.FirstName, M.MiddleName, P.AdmDate DESC
        ) B
        UNION ALL
        SELECT P.HospNum, P.IdNum, M.LastName, M.FirstName, M.MiddleName, P.RoomID, P.AdmDate,
            P.DcrDate, P.BillingDate, P.LateCharges, M.Sex, CONVERT(varchar(10), M.BirthDate, 101) AS BirthDate, P.Age,
            P.DoctorID1, P.AccountNum, M.HouseStreet, M.Barangay, C.Company, P.InvoiceNumber
        FROM PATIENT_DATA..tbPatient P
        INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = P.HospNum
        LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = P.AccountNum
        WHERE P.IdNum = @Number AND P.BillingDate IS NOT NULL
        UNION ALL
        SELECT P.HospNum, P.IdNum, M.LastName, M.FirstName, M.MiddleName, 'OPD' AS RoomID, P.AdmDate,
            P.DcrDate, P.BillingDate, P.LateCharges, M.Sex, CONVERT(varchar(10), M.BirthDate, 101) AS BirthDate, P.Age,
            P.DoctorID1, P.AccountNum, M.HouseStreet, M.Barangay, C.Company, P.InvoiceNumber
        FROM PATIENT_DATA..tbOutPatient P
        INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = P.HospNum
        LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = P.AccountNum
        WHERE P.IdNum = @Number AND P.BillingDate IS NOT NULL
) S
ORDER BY LastName, FirstName, MiddleName, AdmDate DESC
GO
