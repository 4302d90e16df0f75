-- Walk-in patients. @SearchBy '0' the start of the last name, '1' the hospital number.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spGlobal_CashPatient
    @SearchBy varchar(1),
    @SearchText varchar(50)
AS
SET NOCOUNT ON
DECLARE @Pattern varchar(51)
SET @SearchText = LTRIM(RTRIM(@SearchText))
SET @Pattern = @SearchText + '%'
IF @SearchBy = '1'
    SELECT C.hospnum AS HospNum, C.LastName, C.FirstName, C.MiddleName, C.Civilstatusid AS CivilStatusID,
        S.CivilStatus, C.Sex, C.BirthDate, C.Age, C.HouseStreet, C.Barangay, A.Town, A.Province, C.ZipCode
    FROM PATIENT_DATA..tbCashPatient C
    LEFT JOIN BUILD_FILE..tbCoCivilStatus S ON S.CivilStatusID = C.Civilstatusid
    LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = C.ZipCode
    WHERE C.hospnum = @SearchText
ELSE
    SELECT TOP 200 C.hospnum AS HospNum, C.LastName, C.FirstName, C.MiddleName, C.Civilstatusid AS CivilStatusID,
        S.CivilStatus, C.Sex, C.BirthDate, C.Age, C.HouseStreet, C.Barangay, A.Town, A.Province, C.ZipCode
    FROM PATIENT_DATA..tbCashPatient C
    LEFT JOIN BUILD_FILE..tbCoCivilStatus S ON S.CivilStatusID = C.Civilstatusid
    LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = C.ZipCode
    WHERE C.LastName LIKE @Pattern
    ORDER BY C.LastName, C.FirstName
GO
