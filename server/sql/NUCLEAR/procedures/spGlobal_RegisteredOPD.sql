-- Stays of registered out-patients. @Current '1': only the open ones. @SearchBy '0' the start of the last name,
-- '1' the admission number.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spGlobal_RegisteredOPD
    @Current varchar(1),
    @SearchBy varchar(1),
    @SearchText varchar(50)
AS
SET NOCOUNT ON
DECLARE @Pattern varchar(51)
SET @SearchText = LTRIM(RTRIM(@SearchText))
SET @Pattern = @SearchText + '%'
IF @SearchBy = '1'
    SELECT O.IdNum, M.LastName, M.FirstName, M.MiddleName, O.AdmDate, O.HospNum, O.AccountNum, C.Company, O.DcrDate,
        O.BillingDate, M.Sex, M.BirthDate, O.Age, M.HouseStreet, M.Barangay, A.Town, A.Province, M.CivilStatus,
        O.InvoiceNumber, O.LateCharges, O.OPDStatus
    FROM PATIENT_DATA..tbOutPatient O
    INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = O.HospNum
    LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = O.AccountNum
    LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = M.ZipCode
    WHERE O.IdNum = @SearchText AND (@Current <> '1' OR O.DcrDate IS NULL)
ELSE IF @Current = '1'
    SELECT TOP 200 O.IdNum, M.LastName, M.FirstName, M.MiddleName, O.AdmDate, O.HospNum, O.AccountNum, C.Company,
        O.DcrDate, O.BillingDate, M.Sex, M.BirthDate, O.Age, M.HouseStreet, M.Barangay, A.Town, A.Province,
        M.CivilStatus, O.InvoiceNumber, O.LateCharges, O.OPDStatus
    FROM PATIENT_DATA..tbOutPatient O
    INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = O.HospNum
    LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = O.AccountNum
    LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = M.ZipCode
    WHERE O.DcrDate IS NULL AND M.LastName LIKE @Pattern
    ORDER BY M.LastName, M.FirstName, M.MiddleName, O.AdmDate DESC
ELSE
    SELECT TOP 200 O.IdNum, M.LastName, M.FirstName, M.MiddleName, O.AdmDate, O.HospNum, O.AccountNum, C.Company,
        O.DcrDate, O.BillingDate, M.Sex, M.BirthDate, O.Age, M.HouseStreet, M.Barangay, A.Town, A.Province,
        M.CivilStatus, O.InvoiceNumber, O.LateCharges, O.OPDStatus
    FROM PATIENT_DATA..tbMaster M
    INNER JOIN PATIENT_DATA..tbOutPatient O ON O.HospNum = M.HospNum
    LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = O.AccountNum
    LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = M.ZipCode
    WHERE M.LastName LIKE @Pattern
    ORDER BY M.LastName, M.FirstName, M.MiddleName, O.AdmDate DESC
GO
