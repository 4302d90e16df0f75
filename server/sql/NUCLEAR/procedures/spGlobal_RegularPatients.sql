-- Registered patients. @Current '1': only those with an open out-patient stay. @SearchBy '0' the start of the last name,
-- with a comma that of the first name too; '1' the hospital number, or the number of one of the patient's stays.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spGlobal_RegularPatients
    @Current varchar(1),
    @SearchBy varchar(1),
    @SearchText varchar(101)
AS
SET NOCOUNT ON
DECLARE @HospNum varchar(101)
DECLARE @LastPattern varchar(102)
DECLARE @FirstPattern varchar(102)
SET @HospNum = LTRIM(RTRIM(@SearchText))
SET @LastPattern = dbo.fnNuclear_NameStart(@SearchText, 0)
SET @FirstPattern = dbo.fnNuclear_NameStart(@SearchText, 1)
IF @SearchBy = '1'
BEGIN
    IF NOT EXISTS (SELECT 1 FROM PATIENT_DATA..tbMaster WHERE HospNum = @HospNum)
    BEGIN
        SELECT @HospNum = HospNum FROM PATIENT_DATA..tbPatient WHERE IdNum = @HospNum
        SELECT @HospNum = HospNum FROM PATIENT_DATA..tbOutPatient WHERE IdNum = @HospNum
    END
    SELECT *
    FROM vwNuclearRegularPatient
    WHERE HospNum = @HospNum AND (@Current <> '1'
        OR EXISTS (SELECT 1 FROM PATIENT_DATA..tbOutPatient O WHERE O.HospNum = @HospNum AND O.DcrDate IS NULL))
END
ELSE IF @Current = '1'
    SELECT TOP 200 *
    FROM vwNuclearRegularPatient
    WHERE HospNum IN (SELECT O.HospNum FROM PATIENT_DATA..tbOutPatient O WHERE O.DcrDate IS NULL)
        AND LastName LIKE @LastPattern AND (@FirstPattern = '%' OR FirstName LIKE @FirstPattern)
    ORDER BY LastName, FirstName, MiddleName, HospNum
ELSE
    SELECT TOP 200 *
    FROM vwNuclearRegularPatient
    WHERE LastName LIKE @LastPattern AND (@FirstPattern = '%' OR FirstName LIKE @FirstPattern)
    ORDER BY LastName, FirstName, MiddleName
GO
