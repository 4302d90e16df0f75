-- Registered patients. @Current '1': only those with an open out-patient stay. @SearchBy '0' the start of the last
-- name, '1' the hospital number.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spGlobal_RegularPatients
    @Current varchar(1),
    @SearchBy varchar(1),
    @SearchText varchar(50)
AS
SET NOCOUNT ON
DECLARE @Pattern varchar(51)
SET @SearchText = LTRIM(RTRIM(@SearchText))
SET @Pattern = @SearchText + '%'
IF @SearchBy = '1'
    SELECT M.HospNum, M.LastName, M.FirstName, M.MiddleName, O.AdmDate, M.Sex, M.BirthDate,
        dbo.fnNuclear_Age(M.BirthDate, GETDATE()) AS Age,
        M.HouseStreet, M.Barangay, A.Town, A.Province, M.CivilStatus
    FROM PATIENT_DATA..tbMaster M
    LEFT JOIN PATIENT_DATA..tbOutPatient O ON O.HospNum = M.HospNum
        AND O.IdNum = (SELECT TOP 1 L.IdNum FROM PATIENT_DATA..tbOutPatient L
            WHERE L.HospNum = M.HospNum ORDER BY L.AdmDate DESC)
    LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = M.ZipCode
    WHERE M.HospNum = @SearchText
ELSE IF @Current = '1'
    SELECT DISTINCT TOP 200 M.HospNum, M.LastName, M.FirstName, M.MiddleName, O.AdmDate, M.Sex, M.BirthDate,
        dbo.fnNuclear_Age(M.BirthDate, GETDATE()) AS Age,
        M.HouseStreet, M.Barangay, A.Town, A.Province, M.CivilStatus
    FROM PATIENT_DATA..tbOutPatient O
    INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = O.HospNum
    LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = M.ZipCode
    WHERE O.DcrDate IS NULL AND M.LastName LIKE @Pattern
    ORDER BY M.LastName, M.FirstName, M.MiddleName, M.HospNum
ELSE
    SELECT TOP 200 M.HospNum, M.LastName, M.FirstName, M.MiddleName,
        (SELECT MAX(L.AdmDate) FROM PATIENT_DATA..tbOutPatient L WHERE L.HospNum = M.HospNum) AS AdmDate,
        M.Sex, M.BirthDate, dbo.fnNuclear_Age(M.BirthDate, GETDATE()) AS Age,
        M.HouseStreet, M.Barangay, A.Town, A.Province, M.CivilStatus
    FROM PATIENT_DATA..tbMaster M
    LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = M.ZipCode
    WHERE M.LastName LIKE @Pattern
    ORDER BY M.LastName, M.FirstName, M.MiddleName
GO
