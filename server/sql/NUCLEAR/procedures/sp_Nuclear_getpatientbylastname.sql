-- Stays whose patient's last name begins with the text. @PatientType 'I' admitted, 'O' out-patient.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_getpatientbylastname
    @PatientType varchar(1),
    @LastName varchar(50)
AS
SET NOCOUNT ON
DECLARE @Pattern varchar(102)
SET @Pattern = dbo.fnNuclear_NameStart(@LastName, 0)
IF @PatientType = 'O'
    SELECT TOP 200 [Hosp.No.], [Adm.No.], [Patient Name], [Billed Date], [Charging Status], NucStatus, DcrDate
    FROM vwNuclearOutStay
    WHERE LastName LIKE @Pattern
    ORDER BY LastName, FirstName, MiddleName, AdmDate DESC
ELSE
    SELECT TOP 200 [Hosp.No.], [Adm.No.], [Patient Name], [Billed Date], [Charging Status], NucStatus, DcrDate
    FROM vwNuclearInStay
    WHERE LastName LIKE @Pattern
    ORDER BY LastName, FirstName, MiddleName, AdmDate DESC
GO
