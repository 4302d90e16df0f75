-- Stays by the start of the last name and of the first name. @PatientType 'I' admitted, 'O' out-patient.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_getpatientbyfirstname
    @PatientType varchar(1),
    @LastName varchar(50),
    @FirstName varchar(50)
AS
SET NOCOUNT ON
DECLARE @LastPattern varchar(102)
DECLARE @FirstPattern varchar(102)
SET @LastPattern = dbo.fnNuclear_NameStart(@LastName, 0)
SET @FirstPattern = dbo.fnNuclear_NameStart(@FirstName, 0)
IF @PatientType = 'O'
    SELECT TOP 200 [Hosp.No.], [Adm.No.], [Patient Name], [Billed Date], [Charging Status], NucStatus, DcrDate
    FROM vwNuclearOutStay
    WHERE LastName LIKE @LastPattern AND FirstName LIKE @FirstPattern
    ORDER BY LastName, FirstName, MiddleName, AdmDate DESC
ELSE
    SELECT TOP 200 [Hosp.No.], [Adm.No.], [Patient Name], [Billed Date], [Charging Status], NucStatus, DcrDate
    FROM vwNuclearInStay
    WHERE LastName LIKE @LastPattern AND FirstName LIKE @FirstPattern
    ORDER BY LastName, FirstName, MiddleName, AdmDate DESC
GO
