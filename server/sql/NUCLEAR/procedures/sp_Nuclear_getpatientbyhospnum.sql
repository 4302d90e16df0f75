-- All stays of a hospital number. @PatientType 'I' admitted, 'O' out-patient.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_getpatientbyhospnum
    @PatientType varchar(1),
    @HospNum varchar(20)
AS
SET NOCOUNT ON
SET @HospNum = LTRIM(RTRIM(@HospNum))
IF @PatientType = 'O'
    SELECT TOP 200 [Hosp.No.], [Adm.No.], [Patient Name], [Billed Date], [Charging Status], NucStatus, DcrDate
    FROM vwNuclearOutStay
    WHERE [Hosp.No.] = @HospNum
    ORDER BY LastName, FirstName, MiddleName, AdmDate DESC
ELSE
    SELECT TOP 200 [Hosp.No.], [Adm.No.], [Patient Name], [Billed Date], [Charging Status], NucStatus, DcrDate
    FROM vwNuclearInStay
    WHERE [Hosp.No.] = @HospNum
    ORDER BY LastName, FirstName, MiddleName, AdmDate DESC
GO
